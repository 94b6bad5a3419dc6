// SPDX-License-Identifier: GPL-3.0-or-later
#include <limits>

#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using Testing::FileContent;
using Testing::OnePointNamed;

class DbsFile : public Testing::ExportTest {
  protected:
    std::string Written(const AdjustmentResults& results, const std::string& project = "NORTH",
                        const std::string& task = "LEVEL") {
        EXPECT_TRUE(WriteDbsFile("D:\\ADJ\\", "NET.DBS", results, project, task));
        return FileContent("D:\\ADJ\\NET.DBS");
    }
};

TEST_F(DbsFile, HasItsHeadingAndALineForEachStationThenForEachPoint) {
    EXPECT_EQ(Written(Results),
              "11-20-26  NORTH     LEVEL\r\n"
              "ST1       0.0         0.0         0.0         1000.12346  2000.50000   -30.25000  45.7 "
              "0.00104 0.00105 0.00103\r\n"
              "P1        0.0         0.0         0.0        100000.00000    0.00001     1.00000 200.0 "
              "0.00000 0.00000 12.34568\r\n"
              "P2        0.0         0.0         0.0            0.00000     0.00000    36.50000   0.0 "
              "0.00000 0.00000 0.00000\r\n");
}

TEST_F(DbsFile, WithoutDeviationsShowsZeros) {
    EXPECT_EQ(Written(OnePointNamed("P")),
              "11-20-26  NORTH     LEVEL\r\n"
              "P         0.0         0.0         0.0            1.00000     2.00000     3.00000   0.0 "
              "0.00000 0.00000 "
              "0.00000\r\n");
}

TEST_F(DbsFile, BreaksTheLineBehindANumberThatRunsPastTheNextColumn) {
    AdjustmentResults results = OnePointNamed("P");
    results.Points[1].X = 1234567;
    EXPECT_EQ(Written(results),
              "11-20-26  NORTH     LEVEL\r\n"
              "P         0.0         0.0         0.0        1234567.00000\r\n"
              "                                                             2.00000     3.00000   0.0 "
              "0.00000 0.00000 0.00000\r\n");
}

TEST_F(DbsFile, WithoutProjectAndTaskKeepsTheirColumns) {
    EXPECT_EQ(Written(AdjustmentResults(), "", ""), "11-20-26            \r\n");
}

TEST_F(DbsFile, BreaksTheHeadingAtALongProject) {
    EXPECT_EQ(Written(AdjustmentResults(), "A LONG PROJECT NAME", "TASK"),
              "11-20-26  A LONG PROJECT NAME\r\n                    TASK\r\n");
}

TEST_F(DbsFile, HasRoomForANameOfTenCharacters) {
    EXPECT_EQ(Written(OnePointNamed("TENLETTERS")).substr(27, 33), "TENLETTERS0.0         0.0        ");
}

TEST_F(DbsFile, BreaksTheLineAtANameOfElevenCharacters) {
    EXPECT_EQ(Written(OnePointNamed("ELEVENCHARS")),
              "11-20-26  NORTH     LEVEL\r\n"
              "ELEVENCHARS\r\n"
              "          0.0         0.0         0.0            1.00000     2.00000     3.00000   0.0 "
              "0.00000 0.00000 "
              "0.00000\r\n");
}

TEST_F(DbsFile, HasItsDateInEightCharacters) {
    Desktop.Clock = {2007, 1, 2, 3, 4, 5};
    EXPECT_EQ(Written(AdjustmentResults(), "P", "T"), "01-02-07  P         T\r\n");
}

TEST_F(DbsFile, ReplacesAFormerFileAsAWhole) {
    Testing::PutFile("D:\\ADJ\\NET.DBS", std::string(10000, 'x'));
    EXPECT_EQ(Written(AdjustmentResults(), "P", "T"), "11-20-26  P         T\r\n");
}

TEST_F(DbsFile, InAMissingFolderIsReportedAndCanBeTriedAgain) {
    const std::string text =
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteDbsFile";
    Desktop.ExpectMessage("Program Error", text, Answer::Retry);
    Desktop.ExpectMessage("Program Error", text, Answer::Cancel);
    EXPECT_FALSE(WriteDbsFile("D:\\GONE\\", "NET.DBS", Results, "", ""));
}

TEST_F(DbsFile, OnAFullDiskIsReportedAndLeavesTheFormerFile) {
    Testing::OnSmallDisk("D:\\", 128, [&] {
        Testing::PutFile("D:\\NET.DBS", "the former file\r\n");
        for (int i = 0; i < 3000; ++i)
            Results.Points.Add({"P", 1, 2, 3});
        Desktop.ExpectMessage(
            "Program Error",
            "Error : 61\r\n\r\nDisk is full. Continue?\r\n\r\nSource : Dorvane-basWrite-WriteDbsFile",
            Answer::No);
        EXPECT_FALSE(WriteDbsFile("D:\\", "NET.DBS", Results, "", ""));
        EXPECT_EQ(FileContent("D:\\NET.DBS"), "the former file\r\n");
        EXPECT_EQ(Testing::AllFiles("D:\\"), std::vector<std::string>{"NET.DBS"});
    });
}

TEST_F(DbsFile, WrittenAgainAfterAFullDiskHasEachLineOnce) {
    Testing::OnSmallDisk("D:\\", 512, [&] {
        Testing::PutFile("D:\\BALLAST.BIN", std::string(300 * 1024, 'x'));
        for (int i = 0; i < 3000; ++i)
            Results.Points.Add({"P", 1, 2, 3});
        class RoomMaker : public Testing::ScriptedDesktop {
          public:
            Answer ShowMessage(const Message& message) override {
                Drives::DeleteFile("D:\\BALLAST.BIN");
                return ScriptedDesktop::ShowMessage(message);
            }
        } roomMaker;
        roomMaker.ExpectMessageTitled("Program Error", Answer::Yes);
        EXPECT_TRUE(WriteDbsFile("D:\\", "NET.DBS", Results, "", ""));
        EXPECT_EQ(Testing::FileLines("D:\\NET.DBS").size(), 3004U);
    });
}

TEST_F(DbsFile, WithAValueThatIsNoNumberIsReportedAndNotWritten) {
    Results.Points[1].X = std::numeric_limits<double>::infinity();
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 6\r\n\r\nDescription : Overflow\r\n\r\nSource : Dorvane-basWrite-WriteDbsFile");
    EXPECT_FALSE(WriteDbsFile("D:\\ADJ\\", "NET.DBS", Results, "", ""));
    EXPECT_TRUE(Testing::AllFiles("D:\\ADJ\\").empty());
}

}  // namespace
}  // namespace Dorvane
