// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/fieldbook/Gsi.h"

#include <gtest/gtest.h>

namespace Dorvane {
namespace {

GsiLine Parsed(std::string_view line) {
    std::string reason;
    const std::optional<GsiLine> parsed = ParseGsiLine(line, reason);
    EXPECT_TRUE(parsed) << reason;
    return parsed.value_or(GsiLine{});
}

GsiWord Word(char unit, const std::string& data, bool negative = false) {
    return {21, std::string("...") + unit, negative, data};
}

TEST(ParseGsiLine, CutsWordsOfEightCharacters) {
    const GsiLine line = Parsed("110001+00000P01 21.102+19723700 22.102-10000000 ");
    ASSERT_EQ(line.Words.size(), 3U);
    EXPECT_EQ(line.Words[0].Index, 11);
    EXPECT_EQ(line.Words[0].Info, "0001");
    EXPECT_EQ(line.Words[0].Data, "00000P01");
    EXPECT_EQ(line.Words[1].Index, 21);
    EXPECT_EQ(line.Words[1].Info, ".102");
    EXPECT_EQ(line.Words[1].Unit(), '2');
    EXPECT_FALSE(line.Words[1].Negative);
    EXPECT_EQ(line.Words[1].Data, "19723700");
    EXPECT_TRUE(line.Words[2].Negative);
    EXPECT_TRUE(line.Damaged.empty());
}

TEST(ParseGsiLine, CutsWordsOfSixteenCharactersBehindAnAsterisk) {
    const GsiLine line = Parsed("*110015+000000000000BP03 21.322+0000000016901313");
    ASSERT_EQ(line.Words.size(), 2U);
    EXPECT_EQ(line.Words[0].Data, "000000000000BP03");
    EXPECT_EQ(line.Words[1].Data, "0000000016901313");
}

TEST(ParseGsiLine, KeepsBlanksWithinAName) {
    const GsiLine line = Parsed("110001+    BP 3 21.102+19723700");
    ASSERT_EQ(line.Words.size(), 2U);
    EXPECT_EQ(line.Words[0].Data, "    BP 3");
}

TEST(ParseGsiLine, TakesTabsAndRunsOfBlanksBetweenWords) {
    EXPECT_EQ(Parsed("110001+00000P01\t21.102+19723700   22.102+10000000").Words.size(), 3U);
}

TEST(ParseGsiLine, RefusesALineWhoseFirstWordIsNone) {
    for (const char* line :
         {"", " ", "*", "garbage", "110001*00000P01", "1100", "110001+0000P01 21.102+19723700",
          "*110001+00000P01 21.102+19723700", "11x", "AB0001+00000P01"}) {
        std::string reason;
        EXPECT_FALSE(ParseGsiLine(line, reason)) << line;
        EXPECT_NE(reason, "") << line;
    }
}

TEST(ParseGsiLine, NamesADamagedWordAndGoesOnBehindIt) {
    const GsiLine line = Parsed("110001+00000P01 21.102+1972 22.102+10000000");
    ASSERT_EQ(line.Words.size(), 2U);
    EXPECT_EQ(line.Words[1].Index, 22);
    EXPECT_EQ(line.Damaged, std::vector<std::string>{"21.102+1972"});
}

TEST(ParseGsiLine, NamesAWordThatIsCutAtTheEndOfTheLine) {
    const GsiLine line = Parsed("110001+00000P01 21.102+1972370");
    EXPECT_EQ(line.Words.size(), 1U);
    EXPECT_EQ(line.Damaged, std::vector<std::string>{"21.102+1972370"});
}

TEST(ParseGsiLine, TakesAMillionCharacters) {
    std::string long_ = "110001+00000P01";
    while (long_.size() < 1000000)
        long_ += " 21.102+19723700";
    EXPECT_GT(Parsed(long_).Words.size(), 60000U);
    std::string reason;
    EXPECT_FALSE(ParseGsiLine(std::string(1000000, 'x'), reason));
}

TEST(GsiLineFind, TellsThreeDigitIndicesApart) {
    const GsiLine line = Parsed("110003+0000000G 32...8+01824936 331.08+00159977 332.08+00138073");
    ASSERT_NE(line.Find(33, 1), nullptr);
    EXPECT_EQ(line.Find(33, 1)->Data, "00159977");
    EXPECT_EQ(line.Find(33, 2)->Data, "00138073");
    EXPECT_EQ(line.Find(33, 5), nullptr);
    EXPECT_EQ(line.Find(32)->Data, "01824936");
    EXPECT_EQ(line.Find(87), nullptr);
}

TEST(GsiLength, FollowsTheUnitsDigit) {
    EXPECT_DOUBLE_EQ(*GsiLength(Word('0', "00029462")), 29.462);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('1', "00010000")), 3.048);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('6', "00294621")), 29.4621);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('7', "00100000")), 3.048);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('8', "01824936")), 18.24936);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('0', "0000000000029462", true)), -29.462);
}

TEST(GsiLength, TakesAWrittenPointAsWholeUnits) {
    EXPECT_DOUBLE_EQ(*GsiLength(Word('0', "0001.538")), 1.538);
    EXPECT_DOUBLE_EQ(*GsiLength(Word('1', "0010.000")), 3.048);
}

TEST(GsiLength, GivesNothingForWhatIsNoLength) {
    EXPECT_FALSE(GsiLength(Word('0', "00000000000-----")));
    EXPECT_FALSE(GsiLength(Word('0', "        ")));
    EXPECT_FALSE(GsiLength(Word('0', "00.00.01")));
    EXPECT_FALSE(GsiLength(Word('0', ".......")));
    EXPECT_FALSE(GsiLength(Word('0', "0000001E")));
    EXPECT_FALSE(GsiLength(Word('2', "00029462")));
    EXPECT_FALSE(GsiLength(Word('.', "00029462")));
    EXPECT_FALSE(GsiLength(Word('9', "00029462")));
}

TEST(GsiTypedLength, TakesAWordWithoutUnitsAsMillimeters) {
    EXPECT_DOUBLE_EQ(*GsiTypedLength(Word('.', "0000000000001538")), 1.538);
    EXPECT_DOUBLE_EQ(*GsiTypedLength(Word('6', "00015381")), 1.5381);
    EXPECT_FALSE(GsiTypedLength(Word('.', "0000----")));
}

TEST(GsiAngle, FollowsTheUnitsDigit) {
    EXPECT_DOUBLE_EQ(*GsiAngle(Word('2', "19723700")), 197.237);
    EXPECT_DOUBLE_EQ(*GsiAngle(Word('2', "0000000016901313")), 169.01313);
    EXPECT_DOUBLE_EQ(*GsiAngle(Word('3', "09000000")), 100);
    EXPECT_DOUBLE_EQ(*GsiAngle(Word('5', "16000000")), 100);
    EXPECT_NEAR(*GsiAngle(Word('4', "12149400")), (121 + 49 / 60.0 + 40 / 3600.0) / 0.9, 1e-12);
    EXPECT_NEAR(*GsiAngle(Word('4', "0000000008832425")), (88 + 32 / 60.0 + 42.5 / 3600.0) / 0.9, 1e-12);
}

TEST(GsiAngle, CarriesSixtySecondsAndRefusesMore) {
    EXPECT_NEAR(*GsiAngle(Word('4', "08401600")), (84 + 2 / 60.0) / 0.9, 1e-12);
    EXPECT_FALSE(GsiAngle(Word('4', "08401601")));
    EXPECT_FALSE(GsiAngle(Word('4', "08460000")));
    EXPECT_FALSE(GsiAngle(Word('4', "0084.010")));
}

TEST(GsiAngle, GivesNothingForWhatIsNoAngle) {
    EXPECT_FALSE(GsiAngle(Word('0', "19723700")));
    EXPECT_FALSE(GsiAngle(Word('.', "19723700")));
    EXPECT_FALSE(GsiAngle(Word('2', "1972370-")));
}

TEST(GsiName, StripsZerosAndKeepsOneWord) {
    EXPECT_EQ(GsiName(Word('.', "000000000000BP03")), "BP03");
    EXPECT_EQ(GsiName(Word('.', "00000000")), "0");
    EXPECT_EQ(GsiName(Word('.', "        ")), "0");
    EXPECT_EQ(GsiName(Word('.', "00000100")), "100");
    EXPECT_EQ(GsiName(Word('.', "    bp 3")), "BP_3");
    EXPECT_EQ(GsiName(Word('.', "000A,B\tC")), "A_B_C");
    EXPECT_EQ(GsiName(Word('.', "0000\xE9\x31")), "\xC9\x31");
    EXPECT_EQ(GsiName(Word('.', std::string("0000A\x01\x02"))), "");
}

}  // namespace
}  // namespace Dorvane
