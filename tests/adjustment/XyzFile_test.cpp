// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using Testing::FileContent;
using Testing::OnePointNamed;

const std::string Heading =
    " \r\n"
    " \r\n"
    "Job Id   :   North Dam\r\n"
    "Part Id  :   Level 2\r\n"
    "Date     :  11/20/2026 9:05:07 AM\r\n"
    "File     :  NET.XYZ\r\n"
    "Run      :   11/19/2026 1:02:03 PM\r\n"
    " \r\n"
    "Final object point coordinates and standard errors\r\n"
    " \r\n"
    "               X             Y            Z          SX      SY      SZ\r\n"
    " \r\n";

class XyzFile : public Testing::ExportTest {
  protected:
    std::string Written(const AdjustmentResults& results) {
        EXPECT_TRUE(WriteXyzFile("D:\\ADJ\\", "NET.XYZ", results, " North Dam", " Level 2",
                                 " 11/19/2026 1:02:03 PM"));
        return FileContent("D:\\ADJ\\NET.XYZ");
    }
};

TEST_F(XyzFile, HasItsHeadingAndALineForEachStationThenForEachPoint) {
    EXPECT_EQ(Written(Results),
              Heading +
                  "ST1        1000.123456   2000.500000    -30.250000   .001010 .001020 .001030\r\n"
                  "P1        99999.999999      0.000005      1.000000   1.5000001.00000012.345678\r\n"
                  "P2            0.000000      0.000000     36.500000   .000000 .000000 .000000\r\n");
}

TEST_F(XyzFile, WithoutPointsIsItsHeading) {
    EXPECT_EQ(Written(AdjustmentResults()), Heading);
}

TEST_F(XyzFile, HasRoomForANameOfTenCharacters) {
    EXPECT_EQ(Written(OnePointNamed("TENLETTERS")),
              Heading + "TENLETTERS    1.000000      2.000000      3.000000   .000000 .000000 .000000\r\n");
}

TEST_F(XyzFile, BreaksTheLineAtANameOfElevenCharacters) {
    EXPECT_EQ(Written(OnePointNamed("ELEVENCHARS")),
              Heading +
                  "ELEVENCHARS\r\n"
                  "              1.000000      2.000000      3.000000   .000000 .000000 .000000\r\n");
}

TEST_F(XyzFile, BreaksTheLineBehindADeviationThatRunsPastTheNextColumn) {
    AdjustmentResults results = OnePointNamed("P");
    results.Points[1].SX = 12.5;
    EXPECT_EQ(Written(results),
              Heading +
                  "P             1.000000      2.000000      3.000000   12.500000\r\n"
                  "                                                             .000000 .000000\r\n");
}

TEST_F(XyzFile, ShowsASmallNegativeDeviationWithItsSign) {
    AdjustmentResults results = OnePointNamed("P");
    results.Points[1].SX = -0.25;
    EXPECT_EQ(Written(results),
              Heading + "P             1.000000      2.000000      3.000000   -.250000.000000 .000000\r\n");
}

TEST_F(XyzFile, InAMissingFolderIsReported) {
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteXyzFile",
        Answer::Cancel);
    EXPECT_FALSE(WriteXyzFile("D:\\GONE\\", "NET.XYZ", Results, "", "", ""));
}

}  // namespace
}  // namespace Dorvane
