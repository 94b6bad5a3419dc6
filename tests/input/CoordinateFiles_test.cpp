// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CoordinateFiles.h"

#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Folder = "D:\\POINTS\\";

// The bias line of columns 1-8, 10-19, 22-31 and 34-42.
const std::string BiasLine = "Bias      1000.0      2000.5         0.25";

class BddFile : public InputSite {
  protected:
    std::int16_t Read(const std::vector<std::string>& lines) {
        PutLines(Folder + "A.BDD", lines);
        return ReadBddFile(Points, Folder, "A.BDD");
    }

    List1<ObsPoint> Points;
};

TEST_F(BddFile, ReadsNamesCoordinatesAndExtraValues) {
    ASSERT_EQ(Read({"free text", BiasLine, "p1 1 2 500.0 4 5 6", "P2,7,8,600,10,11,12"}), 2);
    EXPECT_EQ(Points[1].Name, "P1");
    EXPECT_EQ(Points[1].X, 1);
    EXPECT_EQ(Points[1].Y, 2);
    EXPECT_EQ(Points[1].Extra1, 4);
    EXPECT_EQ(Points[1].Extra2, 5);
    EXPECT_EQ(Points[1].Extra3, 6);
    EXPECT_EQ(Points[1].CoordSource, 4);
    EXPECT_EQ(Points[1].HangCount, 0);
    EXPECT_EQ(Points[1].Switch1, 0);
    EXPECT_EQ(Points[2].Name, "P2");
}

TEST_F(BddFile, APointAtZ500KeepsItsHeightAndOneBelowIsCorrected) {
    ASSERT_EQ(Read({"", BiasLine, "A 5000 2000.5 500.0 0 0 0", "B 5000 2000.5 499.999 0 0 0"}), 2);
    EXPECT_EQ(Points[1].Z, 500.0);
    // 4000 m from the bias point the earth has fallen by 4000^2 / 2R = 1.25539 m.
    EXPECT_NEAR(Points[2].Z, 499.999 + 1.25539 + 0.25, 0.00001);
}

TEST_F(BddFile, TakesTheBiasFromItsColumns) {
    const std::string line = "BIAS     1234567890--1234567890--123456789tail";
    ASSERT_EQ(Read({"", line, "A 1234567890 1234567890 0 0 0 0"}), 1);
    EXPECT_NEAR(Points[1].Z, 123456789, 0.000001);
}

TEST_F(BddFile, AnEmptyBiasIsZero) {
    ASSERT_EQ(Read({"", "  bias", "A 0 0 1.5 0 0 0"}), 1);
    EXPECT_NEAR(Points[1].Z, 1.5, 1e-8);
}

TEST_F(BddFile, WithoutABiasLineIsToldAndGivesNothing) {
    Desktop.ExpectMessage("Bias Not Found", "Bias does not exist in file A.BDD!");
    EXPECT_EQ(Read({"BIAS", "A 1 2 3 4 5 6"}), 0);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
}

TEST_F(BddFile, ALineOfOtherThanSevenWordsIsToldAndGivesNothing) {
    for (const char* line : {"P2 1 2 3 4 5", "P2 1 2 3 4 5 6 7", ""}) {
        Desktop.ExpectMessage("Problem Reading File", "Problem reading from A.BDD!");
        EXPECT_EQ(Read({"", BiasLine, "P1 1 2 3 4 5 6", line}), 0);
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
    }
}

TEST_F(BddFile, AMissingFileIsTold) {
    Desktop.ExpectMessage("File Not Found", "File NONE.BDD does not exist in the choosen path!");
    EXPECT_EQ(ReadBddFile(Points, Folder, "NONE.BDD"), 0);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
}

TEST_F(BddFile, AFileThatEndsBeforeItsBiasIsReported) {
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_EQ(Read({"only one line"}), 0);
    EXPECT_EQ(LastReport(Desktop), "62 Dorvane-basRead-ReadBddFile");
}

TEST_F(BddFile, MorePointsThanAListHoldsAreAReportedOverflow) {
    std::vector<std::string> lines{"", BiasLine};
    lines.insert(lines.end(), 32768, "A 1 2 3 4 5 6");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read(lines), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadBddFile");
}

TEST(Geod, AtTheBiasPointWithoutAHeightBiasChangesNothing) {
    ObsPoint point{.Name = "A", .X = 100, .Y = 200, .Z = 12.5};
    Geod(point, 100, 200, 0);
    EXPECT_NEAR(point.Z, 12.5, 1e-8);
}

TEST(Geod, RaisesAnOverflowBeyondADouble) {
    ObsPoint point{.Name = "A", .X = 1e300, .Y = 0, .Z = 0};
    EXPECT_THROW(Geod(point, 0, 0, 0), RunTimeError);
}

class GenFile : public InputSite {
  protected:
    std::int16_t Read(const std::vector<std::string>& lines) {
        PutLines(Folder + "A.TXT", lines);
        return ReadGenFile(Points, Folder, "A.TXT");
    }

    List1<ObsPoint> Points;
};

TEST_F(GenFile, ReadsFourOrSevenWords) {
    ASSERT_EQ(Read({"p1 1 2 3", "P2 4 5 6 7 8 9"}), 2);
    EXPECT_EQ(Points[1].Name, "P1");
    EXPECT_EQ(Points[1].Z, 3);
    EXPECT_EQ(Points[1].CoordSource, 3);
    EXPECT_EQ(Points[2].X, 4);
    EXPECT_EQ(Points[2].Extra1, 0);
    EXPECT_EQ(Points[2].Extra3, 0);
}

TEST_F(GenFile, AnyOtherNumberOfWordsIsTold) {
    for (const char* line : {"P 1 2", "P 1 2 3 4", "P 1 2 3 4 5", "P 1 2 3 4 5 6 7", ""}) {
        Desktop.ExpectMessage("Problem Reading File", "Problem reading from A.TXT!");
        EXPECT_EQ(Read({line}), 0);
    }
}

TEST_F(GenFile, AnEmptyFileGivesNothingAndSaysNothing) {
    EXPECT_EQ(Read({}), 0);
}

TEST_F(GenFile, AMissingFileIsTold) {
    Desktop.ExpectMessage("File Not Found", "File NONE.TXT does not exist in the choosen path!");
    EXPECT_EQ(ReadGenFile(Points, Folder, "NONE.TXT"), 0);
}

TEST_F(GenFile, SurvivesAMillionCharactersAndBinaryContent) {
    PutFile(Folder + "A.TXT", std::string(1000000, '\xFF'));
    Desktop.ExpectMessageTitled("Problem Reading File");
    EXPECT_EQ(ReadGenFile(Points, Folder, "A.TXT"), 0);
    PutFile(Folder + "A.TXT", std::string("\0\x1A\n\r\0,,\t\x80", 9));
    Desktop.ExpectMessageTitled("Problem Reading File");
    EXPECT_EQ(ReadGenFile(Points, Folder, "A.TXT"), 0);
}

class ReadingDbs3DFile : public InputSite {
  protected:
    std::int16_t Read(const std::vector<std::string>& lines) {
        PutLines(Folder + "A.DBS", lines);
        return ReadDbs3DFile(Points, Folder, "A.DBS", Date, Project, Task);
    }

    List1<Dbs3DPoint> Points;
    std::string Date = "d";
    std::string Project = "p";
    std::string Task = "t";
};

TEST_F(ReadingDbs3DFile, HandsBackItsHeaderAndItsPoints) {
    ASSERT_EQ(
        Read(
            {"11-20-26  North     srv12",
             "p1        0.0         0.0         0.0           1.50000     2.50000     3.50000   45.1 0.00100 "
             "0.00050 0.00020"}),
        1);
    EXPECT_EQ(Date, "11-20-26");
    EXPECT_EQ(Project, "NORTH");
    EXPECT_EQ(Task, "SRV12");
    EXPECT_EQ(Points[1], (Dbs3DPoint{"P1", 1.5, 2.5, 3.5, 45.1, 0.001, 0.0005, 0.0002}));
}

TEST_F(ReadingDbs3DFile, AHeaderWithoutPointsGivesNoneAndSaysNothing) {
    EXPECT_EQ(Read({"11-20-26 NORTH SRV12"}), 0);
    EXPECT_EQ(Task, "SRV12");
}

TEST_F(ReadingDbs3DFile, AHeaderOfOtherThanThreeWordsIsTold) {
    for (const char* header : {"11-20-26 NORTH", "11-20-26 NORTH BANK SRV12"}) {
        Desktop.ExpectMessage("Header Error",
                              "File A.DBS does not contain the proper header info!  Can not read");
        EXPECT_EQ(Read({header, "P 0 0 0 1 2 3 4 5 6 7"}), 0);
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
    }
    EXPECT_EQ(Project, "p");
}

TEST_F(ReadingDbs3DFile, ALineOfOtherThanElevenWordsIsTold) {
    Desktop.ExpectMessage("Problem Reading File", "Problem reading from A.DBS!");
    EXPECT_EQ(Read({"11-20-26 NORTH SRV12", "P 0 0 0 1 2 3 4 5 6 7", "Q 0 0 0 1 2 3 4 5 6"}), 0);
}

TEST_F(ReadingDbs3DFile, AWordInThePlaceOfANumberIsToldWithItsLine) {
    for (int word = 5; word <= 11; ++word) {
        std::string line = "P2";
        for (int i = 2; i <= 11; ++i)
            line += i == word ? " 1.2O" : " 1.5";
        Desktop.ExpectMessageTitled("Program Error");
        EXPECT_EQ(Read({"11-20-26 North srv12", "P1 a b c 1 2 3 4 5 6 7", line}), 0);
        EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadDbs3DFile");
        EXPECT_NE(Desktop.Shown.back().Text.find("A.DBS, line 3: "), std::string::npos);
        EXPECT_NE(Desktop.Shown.back().Text.find("\"1.2O\", which is no number"), std::string::npos);
        EXPECT_FALSE(PeekDbs3DFile(Folder + "A.DBS"));
    }
}

TEST_F(ReadingDbs3DFile, AMissingFileIsTold) {
    Desktop.ExpectMessage("File Not Found",
                          "File NONE.DBS does not exist in the choosen path!  Can not read");
    EXPECT_EQ(ReadDbs3DFile(Points, Folder, "NONE.DBS", Date, Project, Task), 0);
}

TEST_F(ReadingDbs3DFile, AnEmptyFileIsReadPastItsEnd) {
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_EQ(Read({}), 0);
    EXPECT_EQ(LastReport(Desktop), "62 Dorvane-basRead-ReadDbs3DFile");
}

TEST_F(ReadingDbs3DFile, PeekingGivesTheSameAndSaysNothing) {
    ASSERT_EQ(Read({"11-20-26 North srv12", "p1 0 0 0 1.5 2.5 3.5 45.1 .001 .0005 .0002",
                    "P2 0 0 0 1 2 3 4 5 6 7"}),
              2);
    const std::optional<Dbs3DFile> peeked = PeekDbs3DFile(Folder + "A.DBS");
    ASSERT_TRUE(peeked);
    EXPECT_EQ(peeked->Date, Date);
    EXPECT_EQ(peeked->Project, Project);
    EXPECT_EQ(peeked->Task, Task);
    EXPECT_EQ(peeked->Points, Points);
}

TEST_F(ReadingDbs3DFile, PeekingGivesNothingWhereTheReaderTellsAFault) {
    const std::string point = "P 0 0 0 1 2 3 4 5 6 7";
    for (const std::vector<std::string>& lines : {std::vector<std::string>{},
                                                  {"11-20-26 NORTH", point},
                                                  {"1 2 3 4", point},
                                                  {"1 2 3", point, ""},
                                                  {"1 2 3", "P 0 0 0 1 2 3 4 5 6"},
                                                  {"1 2 3", point + " 8"}}) {
        PutLines(Folder + "A.DBS", lines);
        EXPECT_FALSE(PeekDbs3DFile(Folder + "A.DBS"));
    }
    EXPECT_FALSE(PeekDbs3DFile(Folder + "NONE.DBS"));
}

}  // namespace
}  // namespace Dorvane::Testing
