// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/level/LevelReduction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

LevelResult Reduce(const std::string& text) {
    LevelBook book;
    LineReader reader = LineReader::OfText(text);
    ReadPlainLevelBook(book, "BOOK.LEV", reader, {});
    return ReduceLevelBook(book);
}

std::string Warnings(const LevelResult& result) {
    std::string all;
    for (const Remark& warning : result.Warnings)
        all += std::to_string(warning.Line) + ": " + warning.Text + "\n";
    return all;
}

TEST(ReduceLevelBook, SumsSetUpsBetweenMarks) {
    // 1.5 - 1.2 = 0.3, 1.4 - 1.1 = 0.3, then 2.0 - 0.5 = 1.5
    const LevelResult result =
        Reduce("BS A 1.5 30\nFS *1 1.2 29\nBS *1 1.4 28\nFS B 1.1 27\nBS B 2.0 10\nFS C 0.5 12\n");
    ASSERT_EQ(result.Sections.size(), 2U);
    EXPECT_EQ(result.Sections[0].From, "A");
    EXPECT_EQ(result.Sections[0].To, "B");
    EXPECT_NEAR(result.Sections[0].Mean, 0.6, 1e-12);
    EXPECT_EQ(result.Sections[0].Runs[0].SetUps, 2);
    EXPECT_NEAR(*result.Sections[0].Length, 114, 1e-12);
    EXPECT_NEAR(result.Sections[0].Runs[0].Imbalance, 2, 1e-12);
    EXPECT_NEAR(result.Sections[1].Mean, 1.5, 1e-12);
    EXPECT_FALSE(result.Sections[0].Discrepancy);
    EXPECT_NEAR(result.Lines[0].Difference, 2.1, 1e-12);
    EXPECT_EQ(Warnings(result), "");
}

TEST(ReduceLevelBook, MeansForwardAndBackwardRuns) {
    // Forward 0.5000, back -0.5020: mean 0.5010, discrepancy -2 mm over 1 km: 1/2 sqrt(4/1) = 1 mm.
    const LevelResult result =
        Reduce("LINE\nBS A 1.5 500\nFS B 1.0 500\nLINE\nBS B 1.000 500\nFS A 1.502 500\n");
    ASSERT_EQ(result.Sections.size(), 1U);
    EXPECT_EQ(result.Sections[0].Runs.size(), 2U);
    EXPECT_NEAR(result.Sections[0].Mean, 0.501, 1e-12);
    EXPECT_NEAR(*result.Sections[0].Discrepancy, -0.002, 1e-12);
    EXPECT_NEAR(*result.KilometerDeviation, 0.001, 1e-12);
}

TEST(ReduceLevelBook, HasNoKilometerWithoutDistances) {
    const LevelResult result = Reduce("LINE\nBS A 1.5\nFS B 1.0\nLINE\nBS B 1.000\nFS A 1.502\n");
    EXPECT_FALSE(result.Sections[0].Length);
    EXPECT_FALSE(result.KilometerDeviation);
}

TEST(ReduceLevelBook, MeansTheLengthsThatAreKnown) {
    const LevelResult result =
        Reduce("LINE\nBS A 1.5 20\nFS B 1.0 20\nLINE\nBS B 1.0\nFS A 1.5\nLINE\nBS A 1.5 25\nFS B 1.0 25\n");
    EXPECT_EQ(result.Sections[0].Runs.size(), 3U);
    EXPECT_NEAR(*result.Sections[0].Length, 45, 1e-12);
}

TEST(ReduceLevelBook, RunsIntersightsFromTheLastMark) {
    // A to turning point 0.3; from there 1.4 - 0.9 = 0.5 to C.
    const LevelResult result = Reduce("BS A 1.5\nFS *1 1.2\nBS *1 1.4\nIS C 0.9\nFS B 1.1\n");
    ASSERT_EQ(result.Sections.size(), 2U);
    EXPECT_EQ(result.Sections[0].To, "C");
    EXPECT_NEAR(result.Sections[0].Mean, 0.8, 1e-12);
    EXPECT_TRUE(result.Sections[0].Runs[0].Inter);
    EXPECT_NEAR(result.Sections[1].Mean, 0.6, 1e-12);
}

TEST(ReduceLevelBook, TellsTheClosureOfALoop) {
    const LevelResult result = Reduce("BS A 1\nFS B 2\nBS B 2\nFS C 1\nBS C 1\nFS A 1.001\n");
    EXPECT_EQ(result.Lines[0].From, "A");
    EXPECT_EQ(result.Lines[0].To, "A");
    EXPECT_NEAR(result.Lines[0].Difference, -0.001, 1e-12);
    EXPECT_EQ(result.Sections.size(), 3U);
}

TEST(ReduceLevelBook, ReducesSeveralLinesToOneSetOfSections) {
    const LevelResult result = Reduce("LINE 1\nBS A 1\nFS B 2\nLINE 2\nBS A 1\nFS B 2.002\nBS B 1\nFS C 1\n");
    ASSERT_EQ(result.Sections.size(), 2U);
    EXPECT_NEAR(result.Sections[0].Mean, -1.001, 1e-12);
    EXPECT_FALSE(result.Sections[0].Discrepancy) << "two runs in one direction";
}

TEST(ReduceLevelBook, NamesTurningPointsAtTheEndsOfALine) {
    const LevelResult result = Reduce("BS *1 1\nIS X 1\nFS A 1\nBS A 1\nFS B 1\nBS B 1\nFS *9 1\n");
    ASSERT_EQ(result.Sections.size(), 1U);
    EXPECT_EQ(result.Sections[0].From, "A");
    EXPECT_EQ(Warnings(result),
              "1: the line begins on the turning point *1\n"
              "2: no mark in front of the intersight to X\n"
              "7: the line ends on the turning point *9, what leads there is left out\n");
}

TEST(ReduceLevelBook, LeavesOutARunFromAMarkToItself) {
    const LevelResult result = Reduce("BS A 1\nFS *1 1\nBS *1 1\nFS A 1.002\n");
    EXPECT_TRUE(result.Sections.empty());
    EXPECT_THAT(Warnings(result), HasSubstr("a run from A to itself, left out (it closes with -2.00 mm)"));
}

TEST(LevelResLines, AreTheResultFileByteForByte) {
    EXPECT_THAT(LevelResLines(Reduce("BS A 1.5\nFS B 1.0\nBS B 1\nFS LONGNAME 3.25\n")),
                ElementsAre("A                B                     0.50000",
                            "B                LONGNAME             -2.25000"));
}

}  // namespace
}  // namespace Dorvane
