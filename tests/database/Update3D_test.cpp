// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Update3D.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/basGeneral.h"
#include "tests/database/UpdateSite.h"

namespace Dorvane::Testing {
namespace {

class Updating : public UpdateSite {
  protected:
    void SetRights(const std::string& file, unsigned rights) const {
        std::filesystem::permissions(Drives::HostPath(North + file), std::filesystem::perms(rights));
    }
};

/// An operator who gives up each time.
class TiredDesktop : public ScriptedDesktop {
  public:
    Answer ShowMessage(const Message&) override { return Answer::No; }
};

TEST_F(Updating, HandsOverPointsAndReferenceByteForByte) {
    PutLines(UpdateFile,
             {UpdateHeader, PointLine("p1"), PointLine("P2", "-1.5"), PointLine("P1", "101.00000")});
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(
        FileContent(North + "3DIM.DAT"),
        " 93      4                                                                                0\r\n"
        "P1       112026   100.00000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n"
        "P2       112026    -1.50000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n"
        "P1       112026   101.00000   200.00000   50.00000  12.3 .00123 .00045 .00067 .00000 .00000\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.IDX"), " 16      2   0\r\nP1           4\r\nP2           3\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\n");
    EXPECT_EQ(FileContent(North + "NORTH.REF"),
              " 32      2                    0\r\n"
              "11-20-26 SRV12      NET1      \r\n");
}

TEST_F(Updating, WithoutPointsDoesNothing) {
    PutLines(UpdateFile, {UpdateHeader});
    const auto before = Picture(North);
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, StoresNothingOfAFileWithARefusedPoint) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("LONGNAME9"), PointLine("P3")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(LastReport(Desk), "1103 CoordinateRetriever-basDatabase-Update3DPoints");
    EXPECT_NE(Desk.Shown.back().Text.find("Source : CoordinateRetriever-"), std::string::npos);
    ExpectTold("does not take point LONGNAME9: the name has more than 8 characters.  Nothing was changed.");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, StoresNoPointWhenTheReferenceFileDoesNotTakeItsTask) {
    PutLines(UpdateFile, {"11-20-26 SRV12 ELEVENCHARS", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(LastReport(Desk), "1103 CoordinateRetriever-basDatabase-Update3DPoints");
    ExpectTold("the task \"ELEVENCHARS\" has more than 10 characters.  Nothing was changed.");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, TellsHowManyPointsWereStored) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2"), PointLine("P1")});
    EXPECT_EQ(Update3DPoints(North, UpdateFile), 3);
    PutLines(UpdateFile, {UpdateHeader});
    EXPECT_EQ(Update3DPoints(North, UpdateFile), 0);
}

TEST_F(Updating, RefusesADateThatIsNone) {
    PutLines(UpdateFile, {"20-11-26 P T", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(LastReport(Desk), "1103 CoordinateRetriever-basDatabase-Update3DPoints");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, TellsABadHeaderAndChangesNothing) {
    PutLines(UpdateFile, {"11-20-26 SRV12", PointLine("P1")});
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Header Error");
    EXPECT_TRUE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, ReportsADamagedDatabaseOnce) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(LastReport(Desk), "1101 CoordinateRetriever-basDatabase-Update3DPoints");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, StoresNoPointWhenTheReferenceFileIsMissing) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Drives::DeleteFile(North + "NORTH.REF");
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Update3DPoints(North, UpdateFile));
    EXPECT_EQ(LastReport(Desk), "53 CoordinateRetriever-basDatabase-Update3DPoints");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(Updating, ChangesNothingWhenOneOfItsFilesMayNotBeWritten) {
    Enter("P1", 1);
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    Drives::WriteFile("P:\\DORVANE\\ERROR.LOG", "");
    for (const char* locked : {"3DIM.DAT", "3DIM.IDX", "3DIM.LST", "NORTH.REF"}) {
        for (const std::string& file : AllFiles(North))
            SetRights(file, 0666);
        SetRights("", 0777);
        SetRights(locked, 0444);
        const auto before = Picture(North);
        AsNobody([&] {
            Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
            EXPECT_FALSE(Update3DPoints(North, UpdateFile));
            EXPECT_EQ(LastReport(Desk), "75 CoordinateRetriever-basDatabase-Update3DPoints");
        });
        EXPECT_EQ(Picture(North), before) << locked;
    }
}

TEST_F(Updating, CountsNoPointAsStoredWhoseStoringWasSkipped) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        Desk.ExpectMessageTitled("Program Error", Answer::Ignore);
        EXPECT_EQ(Update3DPoints(North, UpdateFile), 0);
        EXPECT_TRUE(Named({"P1"}).empty());
    });
}

TEST_F(Updating, ChangesNothingWhereverTheDiskFillsUp) {
    std::vector<std::string> lines = {UpdateHeader};
    for (int i = 0; i < 100; ++i)
        lines.push_back(PointLine("R" + std::to_string(i)));
    PutLines(UpdateFile, lines);
    OnSmallDisk(North, 256, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        const TiredDesktop tired;
        int failures = 0;
        for (int room = 1; room < 32; ++room) {
            const auto before = Picture(North);
            if (Update3DPoints(North, UpdateFile))
                break;
            ++failures;
            ASSERT_EQ(Picture(North), before) << room;
            Drives::DeleteFile(North + "FILLER" + std::to_string(room));
        }
        EXPECT_GE(failures, 5);
        EXPECT_EQ(XOf("R99"), 100);
        EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u + 32u);
    });
}

TEST_F(Updating, LeavesAFullDiskAsItWasWhenTheOperatorGivesUp) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        const auto before = Picture(North);
        Desk.ExpectMessageTitled("Program Error", Answer::No);
        EXPECT_FALSE(Update3DPoints(North, UpdateFile));
        EXPECT_EQ(LastReport(Desk), "61 CoordinateRetriever-basDatabase-Update3DPoints");
        EXPECT_EQ(Picture(North), before);
    });
}

TEST_F(Updating, RetriesOnAFullDiskWhereTheOperatorMadeRoom) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        FillDisk(North);
        RoomMakingDesktop helpful(North);
        helpful.ExpectMessageTitled("Program Error", Answer::Yes);
        EXPECT_TRUE(Update3DPoints(North, UpdateFile));
        EXPECT_EQ(XOf("P1"), 100);
        EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u + 32u);
    });
}

TEST_F(Updating, ReportsAFolderWithoutPermissionAndChangesNothing) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    const auto before = Picture(North);
    AsNobody([&] {
        Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
        EXPECT_FALSE(Update3DPoints(North, UpdateFile));
        EXPECT_NE(Desk.Shown.back().Text.find("-basDatabase-Update3DPoints"), std::string::npos);
    });
    EXPECT_EQ(Picture(North), before);
}

}  // namespace
}  // namespace Dorvane::Testing
