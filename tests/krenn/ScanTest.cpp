// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Scan.h"

#include <gtest/gtest.h>

#include "krenn/input/RowFields.h"

namespace {

using namespace Krenn;

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (LineCutter cutter(text); cutter.Next();)
        lines.emplace_back(cutter.line);
    return lines;
}

TEST(LineCutter, TakesAllThreeLineEnds) {
    EXPECT_EQ(LinesOf("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
}

TEST(LineCutter, KeepsEmptyLinesAndNumbersThem) {
    LineCutter cutter("a\r\n\r\nb\n");
    ASSERT_TRUE(cutter.Next());
    ASSERT_TRUE(cutter.Next());
    EXPECT_EQ(cutter.line, "");
    ASSERT_TRUE(cutter.Next());
    EXPECT_EQ(cutter.line, "b");
    EXPECT_EQ(cutter.number, 3);
    EXPECT_FALSE(cutter.Next());
}

TEST(AppendWords, CutsAtBlanksCommasAndTabsAndKeepsColumns) {
    std::vector<Word> words;
    AppendWords("  A,\tB2  -1.5", words);
    ASSERT_EQ(words.size(), 3u);
    EXPECT_EQ(words[0].text, "A");
    EXPECT_EQ(words[0].column, 3);
    EXPECT_EQ(words[1].text, "B2");
    EXPECT_EQ(words[2].column, 10);
}

TEST(FullNumber, TakesWholeNumbersOnly) {
    EXPECT_EQ(FullNumber("12.5"), 12.5);
    EXPECT_EQ(FullNumber("+12.5"), 12.5);
    EXPECT_EQ(FullNumber("-.5"), -0.5);
    EXPECT_EQ(FullNumber("5."), 5.0);
    EXPECT_EQ(FullNumber("1.00E+03"), 1000.0);
    for (const char* text :
         {"", "+", "-", "1.2.3", "12a", "1,5", "inf", "nan", "-inf", "1e999", "+-1", "0x10", " 1"})
        EXPECT_FALSE(FullNumber(text)) << text;
}

TEST(UpperCase, FollowsCodePage1252) {
    EXPECT_EQ(UpperCase("ab1\xE4\xFF\xF7\x9A\x9C\x9E\xDF"), "AB1\xC4\x9F\xF7\x8A\x8C\x8E\xDF");
}

TEST(SameText, IgnoresCaseAndBlanksAround) {
    EXPECT_TRUE(SameText("distances", " Distances \t"));
    EXPECT_FALSE(SameText("distance", "Distances"));
}

TEST(Printable, HidesControlCharactersAndCuts) {
    EXPECT_EQ(Printable("a\x01\tb"), "a? b");
    EXPECT_EQ(Printable(std::string(200, 'x'), 3), "xxx ...");
}

RowFields Fit(std::string_view line, const RowLayout& layout, bool& fits) {
    std::vector<Word> words;
    AppendWords(line, words);
    RowFields fields;
    fits = FitRow(words, layout, fields);
    return fields;
}

TEST(FitRow, CutsZenithErrorGluedToDirectionError) {
    bool fits = false;
    const auto fields = Fit("ST1       P7        123.45670   99.12340 0.0010012.00000", kAngleRow, fits);
    ASSERT_TRUE(fits);
    EXPECT_DOUBLE_EQ(fields.numbers[2], 0.001);
    EXPECT_DOUBLE_EQ(fields.numbers[3], 12.0);
}

TEST(FitRow, CutsTargetGluedToATenLetterStation) {
    bool fits = false;
    const auto fields = Fit("STATION123P7             25.12345   0.00200", kDistanceRow, fits);
    ASSERT_TRUE(fits);
    EXPECT_EQ(fields.names[0], "STATION123");
    EXPECT_EQ(fields.names[1], "P7");
}

TEST(FitRow, CutsDirectionGluedToATenLetterTarget) {
    bool fits = false;
    const auto fields = Fit("ST1       TARGET1234123.45670   99.12340 0.00100 0.00200", kAngleRow, fits);
    ASSERT_TRUE(fits);
    EXPECT_EQ(fields.names[1], "TARGET1234");
    EXPECT_DOUBLE_EQ(fields.numbers[0], 123.4567);
}

TEST(FitRow, CutsBothNamesAndTheNumberWhenAllAreGlued) {
    bool fits = false;
    const auto fields = Fit("STATION123TARGET1234123.45670   99.12340 0.0010012.00000", kAngleRow, fits);
    ASSERT_TRUE(fits);
    EXPECT_EQ(fields.names[0], "STATION123");
    EXPECT_EQ(fields.names[1], "TARGET1234");
    EXPECT_DOUBLE_EQ(fields.numbers[3], 12.0);
}

TEST(FitRow, LeavesALongNameWholeWhenTheFieldsAreThere) {
    bool fits = false;
    const auto fields = Fit("LONGSTATIONNAME P7 25.12345 0.00200", kDistanceRow, fits);
    ASSERT_TRUE(fits);
    EXPECT_EQ(fields.names[0], "LONGSTATIONNAME");
}

TEST(FitRow, RefusesAWordWhereANumberBelongs) {
    bool fits = true;
    Fit("A         B                12.3x   0.00200", kDistanceRow, fits);
    EXPECT_FALSE(fits);
}

}  // namespace
