// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputWriter.h"

#include "core/Drives.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Header =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n"
    "\r\n"
    "  PROJECT = North dam\r\n"
    "     TASK = Epoch 12\r\n"
    "     DATE = 11/20/2026 9:05:07 AM\r\n"
    "\r\n"
    "LISTING = STATS\r\n"
    "\r\n";

const std::string EmptyTail =
    "Control Information\r\n"
    "Fixed Coordinates\r\n"
    "END\r\n"
    "Relative error point pairs\r\n"
    "END\r\n";

class InputWriter : public InputSite {
  protected:
    InputWriter() { MakeFolders("D:\\JOB\\"); }

    void Write() {
        InputFiles files;
        ASSERT_TRUE(WriteInputHeader(files, "D:\\JOB\\", "A.INP", "A.ORG", "North dam", "Epoch 12"));
        Guarded("test-Write", [&](Guard& guard) {
            WriteInputSections(files, Model);
            files.Sum.Path = "D:\\JOB\\A.SUM";
            WriteVersionSkeleton(files, "D:\\JOB\\A.VER");
            CloseInputFiles(guard, files);
        });
    }

    static std::string Inp() { return FileContent("D:\\JOB\\A.INP"); }
    static std::string Org() { return FileContent("D:\\JOB\\A.ORG"); }

    void AddPoint(const std::string& name, std::int16_t source, Switch first = SwitchOn,
                  Switch second = SwitchOn) {
        ObsPoint& point = Model.Points.Add({});
        point.Name = name;
        point.X = 1;
        point.Y = 2;
        point.Z = 3;
        point.CoordSource = source;
        point.Switch1 = first;
        point.Switch2 = second;
    }

    void AddStation(const std::string& name, Switch hasCoords, Switch use = SwitchOn) {
        ObsStation& station = Model.Stations.Add({});
        station.Name = name;
        station.X = 4;
        station.Y = 5;
        station.Z = 6;
        station.Use = use;
        station.HasCoords = hasCoords;
    }

    // One input type of each kind, and one set and weight for each.
    void AddTypes() {
        for (const char* kind : {"Tracker", "Total", "Height", "Angle", "Distance", "Gyro", "Offset"})
            Model.Types.Add({kind, kind, "", "", 1});
        Model.TrackerSets.Resize(1);
        Model.TotalSets.Resize(1);
        Model.HeightSets.Resize(1);
        Model.AngleSets.Resize(1);
        Model.DistanceSets.Resize(1);
    }

    ObservationModel Model;
};

TEST_F(InputWriter, AnEmptyModelGivesTheHeaderAndTheBareSections) {
    Write();
    EXPECT_EQ(Inp(), Header +
                         "Theodolite Stations\r\nEND\r\n"
                         "Object Points\r\nEND\r\n"
                         "Distances \r\nEND\r\n"
                         "Height differences\r\nEND\r\n"
                         "Observations\r\nEND\r\n" +
                         EmptyTail);
    EXPECT_EQ(Org(), Header + "END\r\n");
}

TEST_F(InputWriter, StationsWithCoordinatesComeFirstAndUnusedOnesNotAtAll) {
    AddStation("S1", SwitchOff);
    AddStation("S2", SwitchOn);
    AddStation("S3", SwitchOff, SwitchOff);
    AddStation("S4", SwitchOn, SwitchOff);
    AddStation("S5", SwitchOn);
    Write();
    EXPECT_NE(Inp().find("Theodolite Stations\r\n"
                         "S2              4.00000        5.00000        6.00000\r\n"
                         "                1.00E+03       1.00E+03       1.00E+03\r\n"
                         "S5              4.00000        5.00000        6.00000\r\n"
                         "                1.00E+03       1.00E+03       1.00E+03\r\n"
                         "S1\r\n"
                         "\r\n"
                         "END\r\n"
                         "Object Points\r\n"),
              std::string::npos);
    EXPECT_EQ(Org(), Header +
                         "STA S2               4.00000        5.00000        6.00000\r\n"
                         "STA S5               4.00000        5.00000        6.00000\r\n"
                         "STA S1\r\n"
                         "END\r\n");
}

TEST_F(InputWriter, PointsComeByTheirSourceAndNameOnlyPointsLast) {
    AddPoint("P0", 0);
    AddPoint("P1", 1);
    AddPoint("P2", 2);
    AddPoint("P3", 3);
    AddPoint("P4", 4);
    AddPoint("Q4", 4);
    AddPoint("OFF1", 4, SwitchOff, SwitchOn);
    AddPoint("OFF2", 0, SwitchOn, SwitchOff);
    Write();
    const std::string row = "              1.00000        2.00000        3.00000\r\n";
    const std::string tagged = "               1.00000        2.00000        3.00000\r\n";
    const std::string fixed = "                1.00E+03       1.00E+03       1.00E+03\r\n";
    EXPECT_NE(Inp().find("Object Points\r\nP4" + row + fixed + "Q4" + row + fixed + "P3" + row + fixed +
                         "P2" + row + fixed + "P1" + row + fixed + "P0\r\n\r\nEND\r\nDistances \r\n"),
              std::string::npos);
    EXPECT_EQ(Org(), Header + "PTS P4" + tagged + "PTS Q4" + tagged + "PTS P3" + tagged + "PTS P2" + tagged +
                         "PTS P1" + tagged + "PTS P0\r\nEND\r\n");
}

TEST_F(InputWriter, ObservationsFollowTheInputTypesAndTheMasterTheirMoments) {
    AddTypes();
    Model.TrackerSets[1].Add({"S1", "P1", 1, 2, 3, 0.1, 0.2, 0.3, SwitchOn, SwitchOn, SwitchOn});
    Model.TotalSets[1].Add({"S1", "P2", 4, 5, 6, 0.4, 0.5, 0.6, SwitchOn, SwitchOn, SwitchOn});
    Model.HeightSets[1].Add({"B1", "B2", 7, 0.7, SwitchOn});
    Model.AngleSets[1].Add({"S2", "P3", 8, 9, 0.8, 0.9, SwitchOn, SwitchOn});
    Model.DistanceSets[1].Add({"S2", "P4", 10, 0.11, SwitchOn});
    Write();
    EXPECT_EQ(Inp(), Header +
                         "Theodolite Stations\r\nEND\r\n"
                         "Object Points\r\nEND\r\n"
                         "Distances \r\n"
                         "S1        P1              3.00000   0.30000   T\r\n"
                         "S1        P2              6.00000   0.60000\r\n"
                         "S2        P4             10.00000   0.11000\r\n"
                         "END\r\n"
                         "Height differences\r\n"
                         "B1        B2             7.00000     0.70000\r\n"
                         "END\r\n"
                         "Observations\r\n"
                         "S1        P1          1.00000    2.00000 0.10000 0.20000\r\n"
                         "S1        P2          4.00000    5.00000 0.40000 0.50000\r\n"
                         "S2        P3          8.00000    9.00000 0.80000 0.90000\r\n"
                         "END\r\n" +
                         EmptyTail);
    EXPECT_EQ(Org(),
              Header +
                  "TRK S1         P1          1.00000  0.10000   2.00000   0.20000      3.00000   0.30000\r\n"
                  "TOT S1         P2          4.00000  0.40000   5.00000   0.50000      6.00000   0.60000\r\n"
                  "DST S2         P4             10.00000   0.11000\r\n"
                  "HGT B1         B2             7.00000     0.70000\r\n"
                  "ANG S2         P3          8.00000    9.00000 0.80000 0.90000\r\n"
                  "END\r\n");
}

TEST_F(InputWriter, TheUseFlagOfTheSectionDecides) {
    AddTypes();
    Model.TrackerSets[1].Add({"S1", "P1", 1, 2, 3, 0, 0, 0, SwitchOff, SwitchOn, SwitchOn});
    Model.TotalSets[1].Add({"S1", "P2", 4, 5, 6, 0, 0, 0, SwitchOn, SwitchOff, SwitchOff});
    Model.HeightSets[1].Add({"B1", "B2", 7, 0, SwitchOff});
    Model.AngleSets[1].Add({"S2", "P3", 8, 9, 0, 0, SwitchOff, SwitchOn});
    Model.DistanceSets[1].Add({"S2", "P4", 10, 0, SwitchOff});
    Write();
    EXPECT_EQ(Inp(), Header +
                         "Theodolite Stations\r\nEND\r\n"
                         "Object Points\r\nEND\r\n"
                         "Distances \r\n"
                         "S1        P1              3.00000   0.00000   T\r\n"
                         "END\r\n"
                         "Height differences\r\nEND\r\n"
                         "Observations\r\n"
                         "S1        P2          4.00000    5.00000 0.00000 0.00000\r\n"
                         "END\r\n" +
                         EmptyTail);
    EXPECT_EQ(Org(),
              Header +
                  "TRK S1         P1          1.00000  0.00000   2.00000   0.00000      3.00000   0.00000\r\n"
                  "END\r\n");
}

TEST_F(InputWriter, AHeaderInAFolderThatIsNotThereIsFalse) {
    InputFiles files;
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_FALSE(WriteInputHeader(files, "D:\\NONE\\", "A.INP", "A.ORG", "", ""));
    EXPECT_EQ(LastReport(Desktop), "76 Dorvane-basWrite-WriteInputHeader");
}

TEST_F(InputWriter, AHeaderThatMayNotBeWrittenIsFalseAndTouchesNothing) {
    PutFile("D:\\JOB\\A.INP", "former");
    AsNobody([this] {
        InputFiles files;
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        EXPECT_FALSE(WriteInputHeader(files, "D:\\JOB\\", "A.INP", "A.ORG", "", ""));
        EXPECT_EQ(Inp(), "former");
        EXPECT_EQ(AllFiles("D:\\JOB\\"), (std::vector<std::string>{"A.INP"}));
    });
}

TEST_F(InputWriter, AFullDiskLeavesBothFormerFilesWhole) {
    OnSmallDisk("D:\\JOB\\", 128, [this] {
        PutFile("D:\\JOB\\A.INP", "former input");
        PutFile("D:\\JOB\\A.ORG", "former master");
        AddTypes();
        for (int i = 0; i < 2500; ++i)
            Model.DistanceSets[1].Add({"S2", "P4", 10, 0.11, SwitchOn});
        Desktop.ExpectMessageTitled("Program Error", Answer::Yes);
        Desktop.ExpectMessageTitled("Program Error", Answer::No);
        Write();
        EXPECT_EQ(LastReport(Desktop), "61 Dorvane-test-Write");
        EXPECT_TRUE(Inp() == "former input");
        EXPECT_TRUE(Org() == "former master");
        EXPECT_EQ(AllFiles("D:\\JOB\\"), (std::vector<std::string>{"A.INP", "A.ORG"}));
    });
}

// Makes room on the disk before the operator answers Yes.
struct RoomMaker : ScriptedDesktop {
    Answer ShowMessage(const Message& message) override {
        Drives::DeleteFile("D:\\JOB\\FILL");
        return ScriptedDesktop::ShowMessage(message);
    }
};

TEST_F(InputWriter, ARetryAfterAFullDiskWritesEveryRowOnce) {
    OnSmallDisk("D:\\JOB\\", 512, [this] {
        PutFile("D:\\JOB\\FILL", std::string(400000, 'x'));
        AddTypes();
        for (int i = 0; i < 2500; ++i)
            Model.DistanceSets[1].Add({"S2", "P4", 10, 0.11, SwitchOn});
        RoomMaker maker;
        maker.ExpectMessageTitled("Program Error", Answer::Yes);
        Write();
        EXPECT_EQ(FileLines("D:\\JOB\\A.INP").size(), 2500u + 8 + 15);
        EXPECT_EQ(FileLines("D:\\JOB\\A.ORG").size(), 2500u + 8 + 1);
    });
}

TEST_F(InputWriter, TheVersionSkeletonHasItsEightSections) {
    InputFiles files;
    WriteVersionSkeleton(files, "D:\\JOB\\A.VER");
    EXPECT_EQ(files.Ver.Path, "D:\\JOB\\A.VER");
    EXPECT_EQ(
        files.Ver.Content,
        "[Stations]\r\n[Points]\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n[Height]\r\n[Gyro]\r\n");
}

}  // namespace
}  // namespace Dorvane::Testing
