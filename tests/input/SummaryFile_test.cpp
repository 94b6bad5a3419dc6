// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/SummaryFile.h"

#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

ObsPoint Counted(const std::string& name, int hang, int zang, int sdst, int lhgt) {
    ObsPoint point;
    point.Name = name;
    point.HangCount = static_cast<std::int16_t>(hang);
    point.ZangCount = static_cast<std::int16_t>(zang);
    point.SdstCount = static_cast<std::int16_t>(sdst);
    point.LhgtCount = static_cast<std::int16_t>(lhgt);
    return point;
}

TEST(SummaryRow, CountsStandInTheirColumns) {
    EXPECT_EQ(SummaryRow(Counted("P7", 12, 345, 6789, 32767)), "P7               12   345  6789 32767");
}

TEST(SummaryRow, ACountOfZeroIsFiveBlanks) {
    EXPECT_EQ(SummaryRow(Counted("P7", 2, 0, 3, 0)), "P7                2           3      ");
    EXPECT_EQ(SummaryRow(Counted("BM", 0, 0, 0, 0)), "BM                                   ");
}

TEST(SummaryRow, ASingleObservationOfAnyKindIsMarked) {
    EXPECT_EQ(SummaryRow(Counted("P7", 1, 2, 2, 2)), "P7                1     2     2     2 *");
    EXPECT_EQ(SummaryRow(Counted("P7", 2, 1, 2, 2)), "P7                2     1     2     2 *");
    EXPECT_EQ(SummaryRow(Counted("P7", 2, 2, 1, 2)), "P7                2     2     1     2 *");
}

TEST(SummaryRow, ASingleHeightIsMarkedAlsoBesideManyOtherObservations) {
    EXPECT_EQ(SummaryRow(Counted("P7", 90, 90, 90, 1)), "P7               90    90    90     1 *");
}

TEST(SummaryRow, AnOverlongNameBreaksTheRow) {
    EXPECT_EQ(SummaryRow(Counted("A-VERY-LONG-NAME", 2, 2, 2, 2)),
              "A-VERY-LONG-NAME\r\n                  2     2     2     2");
}

class SummaryFile : public InputSite {};

TEST_F(SummaryFile, IsComposedByteForByte) {
    MakeFolders("D:\\JOB\\");
    const List1<ObsPoint> points{Counted("B", 2, 2, 2, 0), Counted("A", 0, 0, 0, 1)};
    InputFiles files;
    EXPECT_TRUE(WriteSummaryHeader(files, "D:\\JOB\\", "NET.INP", points, "North dam", "Epoch 12"));
    EXPECT_EQ(files.Sum.Path, "D:\\JOB\\NET.SUM");
    EXPECT_TRUE(AllFiles("D:\\JOB\\").empty());
    EXPECT_EQ(files.Sum.Content,
              "PROJECT = North dam\r\n"
              "TASK = Epoch 12\r\n"
              "DATE = 11/20/2026 9:05:07 AM\r\n"
              "\r\n"
              "Number of observations to each point in : D:\\JOB\\NET.INP\r\n"
              "Name           Hang  Zang  Sdst  Lhgt\r\n"
              "\r\n"
              "B                 2     2     2      \r\n"
              "A                                   1 *\r\n");
}

TEST_F(SummaryFile, AFailureIsReportedAndLeavesTheFormerOne) {
    PutFile("D:\\JOB\\NET.SUM", "former");
    AsNobody([this] {
        InputFiles files;
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        EXPECT_FALSE(WriteSummaryHeader(files, "D:\\JOB\\", "NET.INP", {}, "", ""));
        EXPECT_NE(LastReport(Desktop).find(" Dorvane-basWrite-WriteSummaryHeader"), std::string::npos);
        EXPECT_EQ(FileContent("D:\\JOB\\NET.SUM"), "former");
    });
}

}  // namespace
}  // namespace Dorvane::Testing
