// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/FieldBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Dorvane {
namespace {

using testing::HasSubstr;

FieldBook Read(const std::string& text) {
    FieldBook book;
    LineReader reader = LineReader::OfText(text);
    ReadGsiBook(book, "BOOK.GSI", reader);
    return book;
}

const std::string SetUpLine = "410001+00000021 42....+00000P01 43....+00001500\r\n";
const std::string SightLine =
    "110002+00000P02 21.102+10000000 22.102+09900000 31..00+00050000 87..10+00001200\r\n";

TEST(ReadGsiBook, ReadsASetUpAndItsSights) {
    const FieldBook book = Read(SetUpLine + SightLine);
    ASSERT_EQ(book.SetUps.size(), 1U);
    const StationSetUp& setUp = book.SetUps[0];
    EXPECT_EQ(setUp.Station, "P01");
    EXPECT_EQ(setUp.File, "BOOK.GSI");
    EXPECT_EQ(setUp.Line, 1);
    ASSERT_EQ(setUp.Sights.size(), 1U);
    const Sight& sight = setUp.Sights[0];
    EXPECT_EQ(sight.Line, 2);
    EXPECT_EQ(sight.Target, "P02");
    EXPECT_DOUBLE_EQ(sight.Direction, 100);
    EXPECT_DOUBLE_EQ(sight.Zenith, 99);
    EXPECT_DOUBLE_EQ(*sight.Distance, 50);
    EXPECT_DOUBLE_EQ(sight.InstrumentHeight, 1.5);
    EXPECT_DOUBLE_EQ(sight.TargetHeight, 1.2);
    EXPECT_EQ(sight.Face(), 1);
    EXPECT_TRUE(book.Unreadable.empty());
    EXPECT_TRUE(book.Warnings.empty());
}

TEST(ReadGsiBook, ReadsAnyKindOfLineEnd) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        std::string text = SetUpLine + SightLine + SightLine;
        for (std::size_t at = text.find("\r\n"); at != std::string::npos;
             at = text.find("\r\n", at + end.size()))
            text.replace(at, 2, end);
        const FieldBook book = Read(text);
        ASSERT_EQ(book.SetUps.size(), 1U);
        EXPECT_EQ(book.SetUps[0].Sights.size(), 2U);
        EXPECT_EQ(book.Files[0].Lines, 3);
    }
}

TEST(ReadGsiBook, ReadsBothWordSizesInOneBook) {
    const FieldBook book = Read(SetUpLine + SightLine +
                                "*110003+0000000000000P03 21.102+0000000020000000 22.102+0000000009900000 "
                                "31..00+0000000000060000 87..10+0000000000001200\r\n");
    ASSERT_EQ(book.SetUps[0].Sights.size(), 2U);
    EXPECT_EQ(book.SetUps[0].Sights[1].Target, "P03");
    EXPECT_DOUBLE_EQ(*book.SetUps[0].Sights[1].Distance, 60);
}

TEST(ReadGsiBook, CountsOtherCodesAndOtherWords) {
    const FieldBook book = Read("410001+00000001 42....+0000NOTE\r\n" + SetUpLine + SightLine +
                                "410004+00000007\r\n110005+00000P09 81..00+00001000 82..00+00002000\r\n\r\n");
    EXPECT_EQ(book.Files[0].Codes, 2);
    EXPECT_EQ(book.Files[0].Others, 1);
    EXPECT_EQ(book.Files[0].SetUps, 1);
    EXPECT_EQ(book.Files[0].Sights, 1);
    EXPECT_EQ(book.Files[0].Lines, 6);
    EXPECT_EQ(book.SetUps[0].Sights.size(), 1U);
    EXPECT_TRUE(book.Unreadable.empty());
}

TEST(ReadGsiBook, NamesUnreadableLinesWithTheirNumbersAndGoesOn) {
    const FieldBook book = Read(SetUpLine + "rubbish\r\n" + SightLine + "11000\r\n" + SightLine);
    ASSERT_EQ(book.Unreadable.size(), 2U);
    EXPECT_EQ(book.Unreadable[0].Line, 2);
    EXPECT_THAT(book.Unreadable[0].Text, HasSubstr("rubbish"));
    EXPECT_EQ(book.Unreadable[1].Line, 4);
    EXPECT_EQ(book.Files[0].Unreadable, 2);
    EXPECT_EQ(book.SetUps[0].Sights.size(), 2U);
}

TEST(ReadGsiBook, DropsASightWithoutAReadableAngle) {
    const FieldBook book =
        Read(SetUpLine + "110002+00000P02 21.102+000----- 22.102+09900000 31..00+00050000\r\n" +
             "110003+00000P02 21.102+10000000 31..00+00050000\r\n" +
             "110004+00000P02 21.102+10000000 22.102+0990\r\n");
    EXPECT_TRUE(book.SetUps[0].Sights.empty());
    ASSERT_EQ(book.Unreadable.size(), 3U);
    EXPECT_THAT(book.Unreadable[0].Text, HasSubstr("word 21"));
    EXPECT_THAT(book.Unreadable[1].Text, HasSubstr("word 22"));
    EXPECT_EQ(book.Unreadable[2].Line, 4);
}

TEST(ReadGsiBook, DropsAnglesOutsideOfTheCircle) {
    const FieldBook book = Read(SetUpLine + "110002+00000P02 21.102+10000000 22.102-00100000\r\n" +
                                "110003+00000P02 21.102+10000000 22.102+40000000\r\n" +
                                "110004+00000P02 21.102+40000001 22.102+10000000\r\n");
    EXPECT_TRUE(book.SetUps[0].Sights.empty());
    EXPECT_EQ(book.Unreadable.size(), 3U);
}

TEST(ReadGsiBook, BringsADirectionIntoTheCircle) {
    const FieldBook book =
        Read(SetUpLine + "110002+00000P02 21.102-00100000 22.102+10000000 87..10+00000000\r\n" +
             "110003+00000P03 21.102+40000000 22.102+10000000 87..10+00000000\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[0].Direction, 399);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[1].Direction, 0);
}

TEST(ReadGsiBook, IsNotSpoiltByWordsItDoesNotNeed) {
    const FieldBook book = Read(SetUpLine +
                                "110002+00000P02 21.102+10000000 22.102+09900000 31..00+00050000 "
                                "87..10+00001200 71....+000----- 51..1.\r\n");
    EXPECT_EQ(book.SetUps[0].Sights.size(), 1U);
    EXPECT_TRUE(book.Unreadable.empty());
    ASSERT_EQ(book.Warnings.size(), 1U);
    EXPECT_EQ(book.Warnings[0].Line, 2);
    EXPECT_THAT(book.Warnings[0].Text, HasSubstr("51..1."));
}

TEST(ReadGsiBook, TakesAnUnreadableOrZeroDistanceAsNone) {
    const FieldBook book = Read(
        SetUpLine + "110002+00000P02 21.102+10000000 22.102+09900000 31..00+000----- 87..10+00001200\r\n" +
        "110003+00000P02 21.102+10000000 22.102+09900000 31..00+00000000 87..10+00001200\r\n");
    ASSERT_EQ(book.SetUps[0].Sights.size(), 2U);
    EXPECT_FALSE(book.SetUps[0].Sights[0].Distance);
    EXPECT_FALSE(book.SetUps[0].Sights[1].Distance);
}

TEST(ReadGsiBook, TakesTheTargetHeightOfTheSightBeforeWhereItIsMissing) {
    const std::string bare = "110003+00000P03 21.102+15000000 22.102+09900000 31..00+00050000";
    const FieldBook book = Read(SetUpLine + SightLine + bare + "\r\n" + bare + " 87..10+000-----\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[1].TargetHeight, 1.2);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[2].TargetHeight, 1.2);
    ASSERT_EQ(book.Warnings.size(), 1U) << "each target is named once";
    EXPECT_EQ(book.Warnings[0].Line, 3);
    EXPECT_EQ(book.Warnings[0].Text, "no target height for P03 at P01, taken as 1.2000");
}

TEST(ReadGsiBook, PrefersTheTargetsOwnHeightWhereItIsMissing) {
    const std::string angles = " 21.102+15000000 22.102+09900000 31..00+00050000";
    const FieldBook book = Read(SetUpLine + "110002+00000P03" + angles + "\r\n" +  //
                                "110003+00000P03" + angles + " 87..10+00001700\r\n" + SightLine +
                                "110005+00000P03" + angles + "\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[0].TargetHeight, 1.7);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[2].TargetHeight, 1.2);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[3].TargetHeight, 1.7);
    EXPECT_EQ(book.Warnings.size(), 1U);
}

TEST(ReadGsiBook, TakesTheNearestHeightOfTheTarget) {
    const std::string angles = " 21.102+15000000 22.102+09900000 31..00+00050000";
    const std::string bare = "110002+00000P03" + angles + "\r\n";
    const auto at = [&](const std::string& height) {
        return "110003+00000P03" + angles + " 87..10+0000" + height + "\r\n";
    };
    const FieldBook book = Read(SetUpLine + bare + at("1700") + at("1800") + bare + at("1900"));
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[0].TargetHeight, 1.7) << "the next later one";
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[3].TargetHeight, 1.8) << "the nearest earlier one";
}

TEST(ReadGsiBook, TakesTheHeightReadLastWhereTheTargetHasNone) {
    // P02 is read with 1.2; what P03 is given from its later sight does not count as read.
    const std::string angles = " 21.102+15000000 22.102+09900000 31..00+00050000";
    const FieldBook book = Read(SetUpLine + SightLine + "110003+00000P03" + angles + "\r\n110004+00000P04" +
                                angles + "\r\n110005+00000P03" + angles + " 87..10+00001700\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[1].TargetHeight, 1.7);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[2].TargetHeight, 1.2);
}

TEST(ReadGsiBook, DoesNotCarryATargetHeightIntoTheNextSetUp) {
    const FieldBook book =
        Read(SetUpLine + SightLine + "410003+00000021 42....+00000P05 43....+00001500\r\n" +
             "110004+00000P03 21.102+15000000 22.102+09900000 31..00+00050000\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[1].Sights[0].TargetHeight, 0);
    EXPECT_EQ(book.Warnings.size(), 1U);
}

TEST(ReadGsiBook, TakesTheInstrumentHeightOfTheSightWhereItIsGiven) {
    const FieldBook book = Read(
        "410001+00000021 42....+00000P01\r\n"
        "110002+00000P02 21.102+10000000 22.102+09900000 87..10+00001200 88..10+00001450\r\n");
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[0].InstrumentHeight, 1.45);
    EXPECT_TRUE(book.Warnings.empty());
}

TEST(ReadGsiBook, WarnsOnceOfAMissingInstrumentHeight) {
    const FieldBook book =
        Read("410001+00000021 42....+00000P01 43....+000-----\r\n" + SightLine + SightLine);
    EXPECT_DOUBLE_EQ(book.SetUps[0].Sights[0].InstrumentHeight, 0);
    ASSERT_EQ(book.Warnings.size(), 1U);
    EXPECT_EQ(book.Warnings[0].Line, 1);
}

TEST(ReadGsiBook, TellsSightsWithoutAStationInOneLine) {
    const FieldBook book = Read(SightLine + SightLine + SightLine + SetUpLine + SightLine);
    ASSERT_EQ(book.Unreadable.size(), 1U);
    EXPECT_EQ(book.Unreadable[0].Line, 1);
    EXPECT_EQ(book.Unreadable[0].Text, "3 sights without a station, to line 3");
    EXPECT_EQ(book.Files[0].Unreadable, 3);
    EXPECT_EQ(book.SetUps[0].Sights.size(), 1U);
}

TEST(ReadGsiBook, GivesNoSightBehindABrokenSetUpToTheStationBefore) {
    for (const std::string broken : {"410003+0000002", "410003+00000021", "410003+00000021 42....+00",
                                     "*410003+00000021 42....+00000P05"}) {
        const FieldBook book = Read(SetUpLine + SightLine + broken + "\r\n" + SightLine);
        ASSERT_EQ(book.SetUps.size(), 1U) << broken;
        EXPECT_EQ(book.SetUps[0].Sights.size(), 1U) << broken;
        EXPECT_EQ(book.Files[0].Unreadable, 2) << broken;
    }
}

TEST(ReadGsiBook, DropsAStationThatSightsItself) {
    const FieldBook book = Read(SetUpLine + "110002+00000P01 21.102+10000000 22.102+09900000\r\n");
    EXPECT_TRUE(book.SetUps[0].Sights.empty());
    EXPECT_EQ(book.Unreadable.size(), 1U);
}

TEST(ReadGsiBook, CountsEachFileOnItsOwnAndBeginsItWithoutAStation) {
    FieldBook book;
    LineReader first = LineReader::OfText(SetUpLine + SightLine);
    ReadGsiBook(book, "A.GSI", first);
    LineReader second = LineReader::OfText(SightLine);
    ReadGsiBook(book, "B.GSI", second);
    ASSERT_EQ(book.Files.size(), 2U);
    EXPECT_EQ(book.SetUps[0].Sights.size(), 1U);
    EXPECT_EQ(book.Unreadable[0].File, "B.GSI");
}

TEST(ReadGsiBook, LivesThroughEmptyBinaryAndEndlessBooks) {
    EXPECT_TRUE(Read("").SetUps.empty());
    std::string binary;
    for (int i = 0; i < 100000; ++i)
        binary += static_cast<char>((i * 7919) % 256);
    const FieldBook book = Read(binary);
    EXPECT_TRUE(book.SetUps.empty());
    EXPECT_GT(book.Unreadable.size(), 0U);
    const FieldBook endless = Read(SetUpLine + std::string(1000000, '1') + "\r\n" + SightLine);
    EXPECT_EQ(endless.SetUps[0].Sights.size(), 1U);
    ASSERT_EQ(endless.Unreadable.size(), 1U);
    EXPECT_LT(endless.Unreadable[0].Text.size(), 200U);
}

TEST(ReadGsiBook, LivesThroughABookCutAtAnyByte) {
    const std::string whole = SetUpLine + SightLine + SightLine;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const FieldBook book = Read(whole.substr(0, length));
        for (const StationSetUp& setUp : book.SetUps)
            for (const Sight& sight : setUp.Sights)
                EXPECT_DOUBLE_EQ(sight.Zenith, 99) << length;
    }
}

}  // namespace
}  // namespace Dorvane
