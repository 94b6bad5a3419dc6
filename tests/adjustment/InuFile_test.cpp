// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using Testing::FileContent;
using Testing::OnePointNamed;

class InuFile : public Testing::ExportTest {
  protected:
    std::string Written(const AdjustmentResults& results) {
        EXPECT_TRUE(WriteInuFile("D:\\ADJ\\", "NET.INU", results));
        return FileContent("D:\\ADJ\\NET.INU");
    }
};

TEST_F(InuFile, HasALineForEachStationThenForEachPoint) {
    EXPECT_EQ(Written(Results),
              "ST1       1000.12346     2000.50000      -30.25000\r\n"
              "P1       100000.00000       0.00001        1.00000\r\n"
              "P2           0.00000        0.00000       36.50000\r\n");
}

TEST_F(InuFile, WithoutPointsIsEmpty) {
    EXPECT_EQ(Written(AdjustmentResults()), "");
}

TEST_F(InuFile, HasRoomForANameOfNineCharacters) {
    EXPECT_EQ(Written(OnePointNamed("NINECHARS")), "NINECHARS    1.00000        2.00000        3.00000\r\n");
}

TEST_F(InuFile, BreaksTheLineAtANameOfTenCharacters) {
    EXPECT_EQ(Written(OnePointNamed("TENLETTERS")),
              "TENLETTERS\r\n             1.00000        2.00000        3.00000\r\n");
}

TEST_F(InuFile, InAMissingFolderIsReported) {
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteInuFile",
        Answer::Cancel);
    EXPECT_FALSE(WriteInuFile("D:\\GONE\\", "NET.INU", Results));
}

}  // namespace
}  // namespace Dorvane
