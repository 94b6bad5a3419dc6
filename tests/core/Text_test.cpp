// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Text.h"

#include <gtest/gtest.h>

#include "core/RunTimeError.h"

namespace Dorvane {

TEST(Text, UpperCaseFollowsTheCodePageAndNotTheLocale) {
    EXPECT_EQ(UpperCase("abc-\xE9\xF7\xFF\x9A\x9C\x9E"), "ABC-\xC9\xF7\x9F\x8A\x8C\x8E");
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\t a\t "), "\t a\t");
    EXPECT_EQ(Trim("    "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Text, PiecesOfShortTextsAreWhatThereIs) {
    EXPECT_EQ(Left("ABC", 2), "AB");
    EXPECT_EQ(Left("ABC", 9), "ABC");
    EXPECT_EQ(Right("ABC", 2), "BC");
    EXPECT_EQ(Right("ABC", 9), "ABC");
    EXPECT_EQ(Mid("ABCDE", 2, 3), "BCD");
    EXPECT_EQ(Mid("ABCDE", 4), "DE");
    EXPECT_EQ(Mid("ABC", 7, 2), "");
    EXPECT_EQ(Left("ABC", -1), "");
}

TEST(Text, PositionsCountFromOne) {
    EXPECT_EQ(InStr("ABCABC", "BC"), 2);
    EXPECT_EQ(InStr("ABCABC", "BC", 3), 5);
    EXPECT_EQ(InStr("ABC", "X"), 0);
    EXPECT_EQ(InStr("ABC", "b"), 0);
    EXPECT_EQ(InStr("ABCABC", "A"), 1);
    EXPECT_EQ(InStr("ABCABC", "A", 4), 4);
}

TEST(Text, PointsSplitANameAtTheFirst) {
    EXPECT_EQ(BeforeFirstPoint("A.B.C"), "A");
    EXPECT_EQ(BehindFirstPoint("A.B.C"), "B.C");
    EXPECT_EQ(BeforeFirstPoint("NAME"), "NAME");
    EXPECT_EQ(BehindFirstPoint("NAME"), "NAME");
}

TEST(Text, ComparesIgnoringCaseByTheCodePage) {
    EXPECT_TRUE(EqualIgnoringCase("\xE9T\xE9", "\xC9t\xC9"));
    EXPECT_FALSE(EqualIgnoringCase("AB", "ABC"));
    EXPECT_TRUE(ContainsIgnoringCase("xxendyy", "End"));
    EXPECT_FALSE(ContainsIgnoringCase("xxedyy", "End"));
    EXPECT_TRUE(ContainsIgnoringCase("", ""));
}

TEST(LeadingNumber, IsTheLongestNumberAtTheHead) {
    EXPECT_EQ(LeadingNumber("12.5abc"), 12.5);
    EXPECT_EQ(LeadingNumber("-3"), -3);
    EXPECT_EQ(LeadingNumber("+.25"), 0.25);
    EXPECT_EQ(LeadingNumber("7."), 7);
    EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
}

TEST(LeadingNumber, SkipsBlanks) {
    EXPECT_EQ(LeadingNumber("   42"), 42);
    EXPECT_EQ(LeadingNumber(" - 4 2 "), -42);
    EXPECT_EQ(LeadingNumber("\t8"), 8);
}

TEST(LeadingNumber, GivesZeroWithoutANumber) {
    for (const char* text : {"", "   ", "abc", "-", ".", "+.", "e5", "--1"})
        EXPECT_EQ(LeadingNumber(text), 0) << text;
}

TEST(LeadingNumber, TakesExponentsOfBothKinds) {
    EXPECT_EQ(LeadingNumber("1.00E+03"), 1000);
    EXPECT_EQ(LeadingNumber("1.5d-2"), 0.015);
    EXPECT_EQ(LeadingNumber("2E"), 2);
    EXPECT_EQ(LeadingNumber("2Ex"), 2);
    EXPECT_EQ(LeadingNumber("1E-999"), 0);
}

TEST(LeadingNumber, RaisesOverflowBeyondTheRange) {
    EXPECT_THROW(LeadingNumber("1E999"), RunTimeError);
}

TEST(LeadingInteger, RoundsToTheNearestAndRaisesOverflow) {
    EXPECT_EQ(LeadingInteger("1.6"), 2);
    EXPECT_EQ(LeadingInteger("2.5"), 2);
    EXPECT_EQ(LeadingInteger("-32768"), -32768);
    try {
        LeadingInteger("32768");
        FAIL() << "no overflow";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, Overflow);
    }
}

TEST(IsNumeric, TakesWholeNumbersOnly) {
    EXPECT_TRUE(IsNumeric("001"));
    EXPECT_TRUE(IsNumeric(".12"));
    EXPECT_TRUE(IsNumeric(" 5 "));
    EXPECT_TRUE(IsNumeric("1E3"));
    EXPECT_FALSE(IsNumeric("12A"));
    EXPECT_FALSE(IsNumeric("12E"));
    EXPECT_FALSE(IsNumeric("1D+"));
    EXPECT_FALSE(IsNumeric(""));
    EXPECT_FALSE(IsNumeric("GSI"));
}

TEST(StrictNumber, RaisesTypeMismatchOnAnythingElse) {
    EXPECT_EQ(StrictNumber(" 0.5"), 0.5);
    try {
        StrictNumber("0.5 gon");
        FAIL() << "no type mismatch";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, TypeMismatch);
    }
}

TEST(Utf8, GoesThereAndBackForEveryCharacterOfTheCodePage) {
    for (int i = 0; i < 256; ++i) {
        const std::string text(1, static_cast<char>(i));
        EXPECT_EQ(TextFromUtf8(Utf8FromText(text)), text) << i;
    }
    EXPECT_EQ(Utf8FromText("\xC9t\xE9 \x80"), "\xC3\x89t\xC3\xA9 \xE2\x82\xAC");
}

TEST(Utf8, GivesAQuestionMarkForWhatTheCodePageLacks) {
    EXPECT_EQ(TextFromUtf8("a\xE4\xBD\xA0z"), "a?z");
    EXPECT_EQ(TextFromUtf8("a\xF0\x9F\x98\x80z"), "a?z");
    EXPECT_EQ(TextFromUtf8("a\xFFz"), "a?z");
    EXPECT_EQ(TextFromUtf8("cut \xE2\x82"), "cut ??");
}

TEST(Utf8, MakesNoOtherCharacterOfAnOverlongOne) {
    EXPECT_EQ(TextFromUtf8("\xC1\x9C"), "??");
    EXPECT_EQ(TextFromUtf8("\xE0\x81\x9C"), "???");
    EXPECT_EQ(TextFromUtf8("\xF0\x80\x81\x9C"), "????");
}

}  // namespace Dorvane
