// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/level/LevelBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Dorvane {
namespace {

using testing::HasSubstr;

LevelBook Plain(const std::string& text, const StaffCorrection& correction = {}) {
    LevelBook book;
    LineReader reader = LineReader::OfText(text);
    ReadPlainLevelBook(book, "BOOK.LEV", reader, correction);
    return book;
}

LevelBook Gsi(const std::string& text) {
    LevelBook book;
    LineReader reader = LineReader::OfText(text);
    ReadGsiLevelBook(book, "BOOK.GSI", reader, {});
    return book;
}

std::string Warnings(const LevelBook& book) {
    std::string all;
    for (const Remark& warning : book.Warnings)
        all += std::to_string(warning.Line) + ": " + warning.Text + "\n";
    return all;
}

TEST(ReadPlainLevelBook, ReadsLinesAndSetUps) {
    const LevelBook book = Plain(
        "; a comment\r\nLINE north ; the first\r\nBS A 1.5 30\r\nFS *1 1.2 29.5\r\nBS\t*1,1.4\r\nIS c "
        "0.9\r\nfs b 1.1\r\n");
    ASSERT_EQ(book.Lines.size(), 1U);
    const LevelLine& line = book.Lines[0];
    EXPECT_EQ(line.Name, "NORTH");
    ASSERT_EQ(line.SetUps.size(), 2U);
    EXPECT_EQ(line.SetUps[0].Back.Point, "A");
    EXPECT_FALSE(line.SetUps[0].Back.TurningPoint);
    EXPECT_DOUBLE_EQ(line.SetUps[0].Back.Mean(), 1.5);
    EXPECT_DOUBLE_EQ(*line.SetUps[0].Back.Distance, 30);
    EXPECT_EQ(line.SetUps[0].Fore.Point, "*1");
    EXPECT_TRUE(line.SetUps[0].Fore.TurningPoint);
    EXPECT_FALSE(line.SetUps[1].Back.Distance);
    EXPECT_EQ(line.SetUps[1].Fore.Point, "B");
    ASSERT_EQ(line.SetUps[1].Inter.size(), 1U);
    EXPECT_EQ(line.SetUps[1].Inter[0].Point, "C");
    EXPECT_EQ(Warnings(book), "");
    EXPECT_EQ(book.Files[0].Lines, 7);
    EXPECT_EQ(book.Files[0].Readings, 5);
    EXPECT_EQ(book.Files[0].Others, 1);
}

TEST(ReadPlainLevelBook, ReadsAnyKindOfLineEnd) {
    for (const char* text : {"BS A 1.5\r\nFS B 1.2\r\n", "BS A 1.5\nFS B 1.2", "BS A 1.5\rFS B 1.2\r"})
        EXPECT_EQ(Plain(text).Lines.size(), 1U) << text;
}

TEST(ReadPlainLevelBook, MeansDoubleReadings) {
    const LevelBook book = Plain("BS A 1.5\nFS B 1.2\nFS2 B 1.3\nBS2 A 1.7\nBS B 1\nFS C 1\n");
    ASSERT_EQ(book.Lines[0].SetUps.size(), 2U);
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Back.Mean(), 1.6);
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Fore.Mean(), 1.25);
}

TEST(ReadPlainLevelBook, TakesForesightAndBacksightInEitherOrder) {
    const LevelBook book = Plain("BS A 1\nFS *1 2\nFS B 3\nBS *1 4\nBS B 5\nFS C 6\n");
    ASSERT_EQ(book.Lines.size(), 1U);
    ASSERT_EQ(book.Lines[0].SetUps.size(), 3U);
    EXPECT_EQ(book.Lines[0].SetUps[1].Back.Point, "*1");
    EXPECT_EQ(book.Lines[0].SetUps[1].Fore.Point, "B");
    EXPECT_EQ(Warnings(book), "");
}

TEST(ReadPlainLevelBook, TakesNamelessTurningPoints) {
    const LevelBook book = Plain("BS A 1\nFS * 2\nBS * 3\nFS * 4\nBS * 5\nFS B 6\n");
    ASSERT_EQ(book.Lines.size(), 1U);
    EXPECT_EQ(book.Lines[0].SetUps.size(), 3U);
    EXPECT_EQ(Warnings(book), "");
}

TEST(ReadPlainLevelBook, NamesUnreadableLinesWithTheirNumbersAndGoesOn) {
    const LevelBook book =
        Plain("BS A 1.5\nrubbish\nFS\nFS B\nFS B one\nFS B 1.2 far\nFS B 1e999\nFS B 1.2\n");
    ASSERT_EQ(book.Unreadable.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(book.Unreadable[i].Line, static_cast<long>(i) + 2);
    EXPECT_THAT(book.Unreadable[0].Text, HasSubstr("rubbish"));
    EXPECT_THAT(book.Unreadable[3].Text, HasSubstr("ONE"));
    EXPECT_THAT(book.Unreadable[4].Text, HasSubstr("FAR"));
    ASSERT_EQ(book.Lines.size(), 1U);
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Fore.Mean(), 1.2);
}

TEST(ReadPlainLevelBook, LetsALaterBacksightReplaceOneWithoutForesight) {
    const LevelBook book = Plain("BS A 1.5\nBS A 1.6\nFS B 1.2\n");
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Back.Mean(), 1.6);
    EXPECT_EQ(Warnings(book), "1: the backsight to A is replaced by that of line 2\n");
}

TEST(ReadPlainLevelBook, BeginsANewLineWhereTheChainBreaks) {
    const LevelBook book = Plain("BS A 1\nFS B 1\nBS C 1\nFS D 1\n");
    ASSERT_EQ(book.Lines.size(), 2U);
    EXPECT_EQ(Warnings(book), "3: backsight to C, but the foresight before was to B: a new line begins\n");
}

TEST(ReadPlainLevelBook, LosesOneSetUpAndNotTheLineWithALostBacksight) {
    const LevelBook book = Plain("BS A 1\nFS *1 1\nFS B 1\nBS B 1\nFS C 1\nBS C 1\nFS D 1\n");
    ASSERT_EQ(book.Lines.size(), 2U);
    ASSERT_EQ(book.Lines[1].SetUps.size(), 2U);
    EXPECT_EQ(book.Lines[1].SetUps[0].Back.Point, "B");
    EXPECT_EQ(book.Lines[1].SetUps[1].Fore.Point, "D");
    EXPECT_EQ(Warnings(book), "3: a set-up with no backsight, left out\n");
}

TEST(ReadPlainLevelBook, LeavesOutASetUpToOnePoint) {
    const LevelBook book = Plain("BS A 1\nFS A 1\nBS B 1\nFS C 1\n");
    ASSERT_EQ(book.Lines.size(), 1U);
    EXPECT_EQ(Warnings(book), "2: backsight and foresight both to A, the set-up is left out\n");
}

TEST(ReadPlainLevelBook, NamesWhatHangsInTheAir) {
    EXPECT_EQ(Warnings(Plain("IS C 1\nBS A 1\nFS B 1\n")),
              "1: an intersight to C in front of any backsight, left out\n");
    EXPECT_EQ(Warnings(Plain("BS A 1\nFS B 1\nFS2 C 1\n")),
              "3: a second reading to C without its first one, left out\n");
    EXPECT_EQ(Warnings(Plain("BS A 1\n")), "1: a set-up with no foresight, left out\n");
}

TEST(ReadPlainLevelBook, CorrectsReadings) {
    StaffCorrection correction;
    correction.Scale = 1.001;
    correction.Collimation = 0.0001;
    correction.Inverted = {"ROOF"};
    const LevelBook book = Plain("BS A 1 30\nFS ROOF 2 10\n", correction);
    EXPECT_NEAR(book.Lines[0].SetUps[0].Back.Mean(), 1.001 - 0.003, 1e-12);
    EXPECT_NEAR(book.Lines[0].SetUps[0].Fore.Mean(), -(2.002 + 0.001), 1e-12);
}

TEST(ReadPlainLevelBook, TakesTheCollimationOutOfSightsOfEqualLengthToEitherStaff) {
    // The horizontal runs 2 m above A and 1 m below the roof point: 3 m, whatever the line of sight rises.
    StaffCorrection correction;
    correction.Collimation = 0.001;
    correction.Inverted = {"ROOF"};
    const LevelBook book = Plain("BS A 2.02 20\nFS ROOF 0.98 20\n", correction);
    const LevelSetUp& setUp = book.Lines[0].SetUps[0];
    EXPECT_NEAR(setUp.Back.Mean(), 2, 1e-12);
    EXPECT_NEAR(setUp.Fore.Mean(), -1, 1e-12);
    EXPECT_NEAR(setUp.Back.Mean() - setUp.Fore.Mean(), 2.02 + 0.98, 1e-12);
}

TEST(ReadPlainLevelBook, NamesOnceThatADistanceIsMissingForTheCollimation) {
    StaffCorrection correction;
    correction.Collimation = 0.0001;
    const LevelBook book = Plain("BS A 1\nFS B 2\n", correction);
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Back.Mean(), 1);
    EXPECT_EQ(book.Warnings.size(), 1U);
}

TEST(ReadPlainLevelBook, LivesThroughEmptyBinaryAndEndlessBooks) {
    EXPECT_TRUE(Plain("").Lines.empty());
    std::string binary;
    for (int i = 0; i < 100000; ++i)
        binary += static_cast<char>((i * 7919) % 256);
    EXPECT_TRUE(Plain(binary).Lines.empty());
    EXPECT_TRUE(Gsi(binary).Lines.empty());
    std::string words = "BS";
    while (words.size() < 1000000)
        words += " A";
    const LevelBook endless = Plain(words + "\nBS A 1\nFS B 1\n");
    EXPECT_EQ(endless.Lines.size(), 1U);
    EXPECT_EQ(endless.Unreadable.size(), 1U);
    EXPECT_EQ(Plain("A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,S,T,U,V,W,X,Y,Z,A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,"
                    "S,T,U,V,W,X,"
                    "Y,Z,1,2\n")
                  .Unreadable.size(),
              1U);
}

const std::string DigitalBook =
    "*410001+00000000?......2\r\n"
    "*110002+000000000000000G 83..58+0000000000000000\r\n"
    "*110003+000000000000000G 32...8+0000000001824936 331.08+0000000000160000\r\n"
    "*110004+0000000000000001 32...8+0000000001934475 332.08+0000000000138070\r\n"
    "*110005+0000000000000001 32...8+0000000001934527 336.08+0000000000138074\r\n"
    "*110006+000000000000000G 32...8+0000000001825388 335.08+0000000000160002\r\n"
    "*110007+0000000000000001 571.08-0000000000000005 83..08+0000000000021906\r\n"
    "*110008+0000000000000001 32...8+0000000003143927 331.08+0000000000109401\r\n"
    "*110009+00000000000000P7 32...8+0000000001143927 333.08+0000000000100000\r\n"
    "*110010+0000000000000102 32...8+0000000003145367 332.08+0000000000178003\r\n";

TEST(ReadGsiLevelBook, ReadsDoubleReadingsOfADigitalLevel) {
    const LevelBook book = Gsi(DigitalBook);
    ASSERT_EQ(book.Lines.size(), 1U);
    const LevelLine& line = book.Lines[0];
    ASSERT_EQ(line.SetUps.size(), 2U);
    EXPECT_EQ(line.SetUps[0].Back.Point, "G");
    EXPECT_NEAR(line.SetUps[0].Back.Mean(), 1.60001, 1e-9);
    EXPECT_NEAR(*line.SetUps[0].Back.Distance, 18.24936, 1e-9);
    EXPECT_NEAR(line.SetUps[0].Fore.Mean(), 1.38072, 1e-9);
    EXPECT_EQ(line.SetUps[1].Inter[0].Point, "P7");
    EXPECT_EQ(Warnings(book), "");
    EXPECT_EQ(book.Files[0].Readings, 7);
    EXPECT_EQ(book.Files[0].Others, 3);
}

TEST(ReadGsiLevelBook, TakesNumbersAsTurningPointsButForTheEndsOfALine) {
    const LevelLine line = Gsi(DigitalBook).Lines[0];
    EXPECT_TRUE(line.SetUps[0].Fore.TurningPoint);
    EXPECT_TRUE(line.SetUps[1].Back.TurningPoint);
    EXPECT_EQ(line.SetUps[1].Fore.Point, "102");
    EXPECT_FALSE(line.SetUps[1].Fore.TurningPoint);
}

TEST(ReadGsiLevelBook, TakesANumberAtTheHeadOfALineAsAMark) {
    const LevelBook book =
        Gsi("410001+?......1\r\n110002+00000101 331.08+00150000\r\n110003+0000000B 332.08+00100000\r\n");
    EXPECT_EQ(book.Lines[0].SetUps[0].Back.Point, "101");
    EXPECT_FALSE(book.Lines[0].SetUps[0].Back.TurningPoint);
}

TEST(ReadGsiLevelBook, BeginsALineAtTheMethodCode) {
    const LevelBook book =
        Gsi("410001+?......1\r\n110002+0000000A 331.08+00150000\r\n110003+0000000B 332.08+00100000\r\n"
            "410004+?......1\r\n110005+0000000B 331.08+00150000\r\n110006+0000000C 332.08+00100000\r\n");
    EXPECT_EQ(book.Lines.size(), 2U);
    EXPECT_EQ(Warnings(book), "");
}

TEST(ReadGsiLevelBook, NamesUnreadableLinesWithTheirNumbersAndGoesOn) {
    const LevelBook book = Gsi(
        "410001+?......1\r\n110002+0000000A 331.08+00150000\r\nrubbish\r\n110003+0000000B 332.08+000-----\r\n"
        "110003+0000000B 332.08+00100\r\n110003+0000000B 332.08+00100000\r\n");
    ASSERT_EQ(book.Unreadable.size(), 3U);
    EXPECT_EQ(book.Unreadable[0].Line, 3);
    EXPECT_EQ(book.Unreadable[1].Line, 4);
    EXPECT_EQ(book.Unreadable[2].Line, 5);
    ASSERT_EQ(book.Lines.size(), 1U);
    EXPECT_DOUBLE_EQ(book.Lines[0].SetUps[0].Fore.Mean(), 1.0);
}

}  // namespace
}  // namespace Dorvane
