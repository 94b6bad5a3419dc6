// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using Testing::FileContent;
using Testing::OnePointNamed;
using Testing::OneStationNamed;

class StaFile : public Testing::ExportTest {
  protected:
    std::string Written(const AdjustmentResults& results) {
        EXPECT_TRUE(WriteStaFile("D:\\ADJ\\", "NET.STA", results));
        return FileContent("D:\\ADJ\\NET.STA");
    }
};

TEST_F(StaFile, HasStationsWithRotationsThenPointsEachBehindWhichABlankLineStands) {
    EXPECT_EQ(Written(Results),
              "ST1          1000.12346     2000.50000      -30.25000   0.00001  -12.50000 399.99999\r\n"
              " \r\n"
              "P1       100000.00000       0.00001        1.00000\r\n"
              "P2           0.00000        0.00000       36.50000\r\n"
              " \r\n");
}

TEST_F(StaFile, WithoutPointsIsTwoBlankLines) {
    EXPECT_EQ(Written(AdjustmentResults()), " \r\n \r\n");
}

TEST_F(StaFile, HasRoomForANameOfNineCharacters) {
    EXPECT_EQ(
        Written(OneStationNamed("NINECHARS")),
        "NINECHARS       1.00000        2.00000        3.00000   0.00000   0.00000   0.00000\r\n \r\n \r\n");
}

TEST_F(StaFile, BreaksTheLineAtANameOfTenCharacters) {
    EXPECT_EQ(
        Written(OneStationNamed("TENLETTERS")),
        "TENLETTERS\r\n"
        "                1.00000        2.00000        3.00000   0.00000   0.00000   0.00000\r\n \r\n \r\n");
    EXPECT_EQ(Written(OnePointNamed("TENLETTERS")),
              " \r\nTENLETTERS\r\n             1.00000        2.00000        3.00000\r\n \r\n");
}

TEST_F(StaFile, InAMissingFolderIsReported) {
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteStaFile",
        Answer::Cancel);
    EXPECT_FALSE(WriteStaFile("D:\\GONE\\", "NET.STA", Results));
}

}  // namespace
}  // namespace Dorvane
