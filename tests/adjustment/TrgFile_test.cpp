// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using Testing::FileContent;
using Testing::FileLines;
using Testing::OneStationNamed;

class TrgFile : public Testing::ExportTest {
  protected:
    void Write(const AdjustmentResults& results) {
        EXPECT_TRUE(WriteTrgFile("D:\\ADJ\\", "NET.TRG", results));
    }
};

TEST_F(TrgFile, IsATemplateWithDataInFivePlaces) {
    Results.HorizontalDirections = {{"ST1", "P1"}, {"ST1", "P2"}};
    Results.VerticalDirections = {{"ST1", "P9"}};
    Results.DistanceResiduals = {{"ST1", "P3"}};
    Results.HeightDifferences = {{"P1", "P2"}};
    Write(Results);
    EXPECT_EQ(
        FileContent("D:\\ADJ\\NET.TRG"),
        "# this is a comment line beginning with a pound sign\r\n"
        "#\r\n"
        "# The following lines are for importing theodolite data\r\n"
        "#\r\n"
        "# type  name  pos theo value 1   value 2   value 3    rot 1   rot 2   rot 3\r\n"
        "THEO   ST1      0 0   1000.12346 UNK  2000.50000 UNK   -30.25000 UNK 0.0 UNK 0.0 UNK 0.0 UNK\r\n"
        "#\r\n"
        "# The following lines are for importing object point data\r\n"
        "#\r\n"
        "# type  name           value 1   value 2   value 3\r\n"
        "POINT  P1            100000.00000UNK     0.00001 UNK     1.00000 UNK\r\n"
        "POINT  P2                0.00000 UNK     0.00000 UNK    36.50000 UNK\r\n"
        "#\r\n"
        "# The following line is for importing scale bar data\r\n"
        "#\r\n"
        "# type  name         value 1   value 2   value 3   length  azimuth  vertangle\r\n"
        "#SCALE  NewScale        25.0     450.0     100.0     10.0      15      130\r\n"
        "#\r\n"
        "# The following line is for importing collimation data\r\n"
        "#\r\n"
        "# type  station      target\r\n"
        "#\r\n"
        "# The following line is for importing directions to object points\r\n"
        "#\r\n"
        "# type  station      target\r\n"
        "PDIR   ST1         P1\r\n"
        "PDIR   ST1         P2\r\n"
        "#\r\n"
        "# The following line is for importing directions to scale bars\r\n"
        "#\r\n"
        "# type  station      target\r\n"
        "#SDIR   NewTheo      NewScale\r\n"
        "#\r\n"
        "# The following line is for importing distances from theos to points\r\n"
        "#\r\n"
        "# type  station      target\r\n"
        "#DIST   NewTheo      NewPoint\r\n"
        "DIST   ST1         P3\r\n"
        "#\r\n"
        "# The following line is for importing distances from point to point\r\n"
        "#\r\n"
        "# type  station      target\r\n"
        "#PTDST  NewPoint     Point2\r\n"
        "PTHDIF P1          P2\r\n");
}

TEST_F(TrgFile, WithoutDataIsTheTemplateAlone) {
    Write(AdjustmentResults());
    const std::vector<std::string> lines = FileLines("D:\\ADJ\\NET.TRG");
    EXPECT_EQ(lines.size(), 37U);
    EXPECT_EQ(lines[4], "# type  name  pos theo value 1   value 2   value 3    rot 1   rot 2   rot 3");
    EXPECT_EQ(lines[5], "#");
    EXPECT_EQ(lines[6], "# The following lines are for importing object point data");
    EXPECT_EQ(lines.back(), "#PTDST  NewPoint     Point2");
}

TEST_F(TrgFile, CountsPosAndTheoInTwoDigitsAndStopsBehindTheHundredth) {
    AdjustmentResults results;
    for (int i = 1; i <= 120; ++i)
        results.Stations.Add({"S" + std::to_string(i), 0, 0, 0});
    Write(results);
    const std::vector<std::string> lines = FileLines("D:\\ADJ\\NET.TRG");
    for (std::size_t i = 1; i <= 120; ++i) {
        const std::size_t number = i <= 100 ? i - 1 : 0;
        const std::string expected = std::to_string(number / 10) + " " + std::to_string(number % 10) + " ";
        EXPECT_EQ(lines[4 + i].substr(16, 4), expected) << "station " << i;
    }
    EXPECT_EQ(lines[4 + 100].substr(7, 12), "S100     9 9");
    EXPECT_EQ(lines[4 + 101].substr(7, 12), "S101     0 0");
}

TEST_F(TrgFile, HasRoomForANameOfNineCharacters) {
    Write(OneStationNamed("NINECHARS"));
    EXPECT_EQ(FileLines("D:\\ADJ\\NET.TRG")[5],
              "THEO   NINECHARS0 0      1.00000 UNK     2.00000 UNK     3.00000 UNK 0.0 UNK 0.0 UNK 0.0 UNK");
}

TEST_F(TrgFile, BreaksTheLineAtANameOfTenCharacters) {
    Write(OneStationNamed("TENLETTERS"));
    const std::vector<std::string> lines = FileLines("D:\\ADJ\\NET.TRG");
    EXPECT_EQ(lines[5], "THEO   TENLETTERS");
    EXPECT_EQ(lines[6],
              "                0 0      1.00000 UNK     2.00000 UNK     3.00000 UNK 0.0 UNK 0.0 UNK 0.0 UNK");
}

TEST_F(TrgFile, BreaksTheLineOfAPairAtAStationOfThirteenCharacters) {
    AdjustmentResults results;
    results.HeightDifferences = {{"TWELVELETTER", "B"}, {"THIRTEENCHARS", "B"}};
    Write(results);
    const std::vector<std::string> lines = FileLines("D:\\ADJ\\NET.TRG");
    EXPECT_EQ(lines[37], "PTHDIF TWELVELETTERB");
    EXPECT_EQ(lines[38], "PTHDIF THIRTEENCHARS");
    EXPECT_EQ(lines[39], "                   B");
}

TEST_F(TrgFile, InAMissingFolderIsReported) {
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteTrgFile",
        Answer::Cancel);
    EXPECT_FALSE(WriteTrgFile("D:\\GONE\\", "NET.TRG", Results));
}

}  // namespace
}  // namespace Dorvane
