// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSearch.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {

namespace {

using Direction = TextSearch::Direction;

std::optional<Offset> Find(const PieceText& text, const SearchWords& words, Offset from,
                           Direction direction = Direction::Forward, bool wrap = true) {
    TextSearch search(text, words, from, direction, wrap);
    while (!search.Step()) {
    }
    return search.Found();
}

std::vector<Offset> All(const PieceText& text, const SearchWords& words) {
    TextMatches matches(text, words);
    while (!matches.Step()) {
    }
    return matches.Places();
}

}  // namespace

TEST(TextSearch, FindsTheNextAndTheFormerMatch) {
    const PieceText text("ab ab ab");
    EXPECT_EQ(Find(text, {"ab"}, 0), 0);
    EXPECT_EQ(Find(text, {"ab"}, 1), 3);
    EXPECT_EQ(Find(text, {"ab"}, 6), 6);
    EXPECT_EQ(Find(text, {"ab"}, 6, Direction::Backward), 3);
    EXPECT_EQ(Find(text, {"ab"}, 8, Direction::Backward), 6);
    EXPECT_EQ(Find(text, {"ab"}, 7, Direction::Backward), 3);
    EXPECT_EQ(Find(text, {"none"}, 0), std::nullopt);
    EXPECT_EQ(Find(text, {""}, 0), std::nullopt);
    EXPECT_EQ(Find(PieceText(""), {"a"}, 0), std::nullopt);
    EXPECT_EQ(Find(PieceText("a"), {"longer"}, 0), std::nullopt);
}

TEST(TextSearch, GoesRoundTheEndOnlyWhenAsked) {
    const PieceText text("x ab y");
    EXPECT_EQ(Find(text, {"ab"}, 3), 2);
    EXPECT_EQ(Find(text, {"ab"}, 3, Direction::Forward, false), std::nullopt);
    EXPECT_EQ(Find(text, {"ab"}, 3, Direction::Backward), 2);
    EXPECT_EQ(Find(text, {"ab"}, 3, Direction::Backward, false), std::nullopt);
    EXPECT_EQ(Find(text, {"ab"}, 0, Direction::Backward), 2);
    TextSearch search(text, {"ab"}, 3, Direction::Forward, true);
    while (!search.Step()) {
    }
    EXPECT_TRUE(search.HasWrapped());
    EXPECT_EQ(Find(text, {"y"}, 6), 5);
}

TEST(TextSearch, HeedsCaseByTheCodePage) {
    const PieceText text("H\xD6HE h\xF6he");
    EXPECT_EQ(Find(text, {"h\xF6he"}, 0), 0);
    EXPECT_EQ(Find(text, {"h\xF6he", true}, 0), 5);
    EXPECT_EQ(Find(text, {"H\xF6HE", true}, 0), std::nullopt);
}

TEST(TextSearch, FindsWholeWords) {
    const PieceText text("P10 XP1 P1_ \xC4P1 P1, P1");
    EXPECT_EQ(All(text, {"P1", true, true}), (std::vector<Offset>{16, 20}));
    EXPECT_EQ(Find(text, {"P1", true, true}, 22, Direction::Backward), 20);
    EXPECT_EQ(Find(text, {"P1", true, true}, 20, Direction::Backward), 16);
    EXPECT_EQ(All(PieceText("3\xD7P1 P1\xF7 2"), {"P1", true, true}), (std::vector<Offset>{2, 5}));
    EXPECT_TRUE(StandsAt(text, {"p1", false, true}, 16));
    EXPECT_FALSE(StandsAt(text, {"p1", false, true}, 0));
    EXPECT_TRUE(StandsAt(text, {"p1"}, 0));
}

TEST(TextSearch, FindsControlBytesAndLineEnds) {
    const PieceText text(std::string("a\0b\r\nc", 6));
    EXPECT_EQ(Find(text, {std::string("\0b", 2)}, 0), 1);
    EXPECT_EQ(Find(text, {"\r\nc"}, 0), 3);
}

TEST(TextSearch, CountsMatchesThatDoNotOverlap) {
    EXPECT_EQ(All(PieceText("aaaaa"), {"aa"}), (std::vector<Offset>{0, 2}));
    EXPECT_EQ(All(PieceText(""), {"aa"}), std::vector<Offset>{});
}

TEST(TextSearch, FindsWhatLiesAcrossPortions) {
    constexpr Offset Border = 1 << 20;
    for (const Offset place : {Border - 5, Border - 4, Border - 1, Border, 2 * Border - 2}) {
        std::string bytes(static_cast<std::size_t>(3 * Border), '.');
        bytes.replace(static_cast<std::size_t>(place), 5, "match");
        const PieceText text(bytes);
        EXPECT_EQ(Find(text, {"MATCH", false, true}, 0), place);
        EXPECT_EQ(Find(text, {"match", true, true}, text.Size(), Direction::Backward), place);
        EXPECT_EQ(Find(text, {"match"}, place + 1), place);
        EXPECT_EQ(Find(text, {"match"}, place + 4, Direction::Backward), place);
        EXPECT_EQ(All(text, {"match"}), std::vector<Offset>{place});
    }
}

TEST(TextSearch, FindsNoWordThatGoesOnInTheNextPortion) {
    constexpr std::size_t Border = 1 << 20;
    std::string bytes(2 * Border, '.');
    bytes.replace(Border - 3, 4, "wordy");
    const PieceText text(bytes);
    EXPECT_TRUE(All(text, {"word", true, true}).empty());
    EXPECT_TRUE(All(text, {"ordy", true, true}).empty());
}

TEST(TextSearch, TellsHowFarItIs) {
    const PieceText text(std::string(5 << 20, 'x'));
    TextSearch search(text, {"y"}, 0, Direction::Forward, true);
    EXPECT_FALSE(search.Step());
    EXPECT_NEAR(search.Share(), 0.2, 0.01);
    TextSearch round(text, {"y"}, 4 << 20, Direction::Forward, true);
    while (!round.Step()) {
    }
    EXPECT_EQ(round.Share(), 1);  // no byte is looked at twice
    TextMatches matches(text, {"y"});
    EXPECT_FALSE(matches.Step());
    EXPECT_NEAR(matches.Share(), 0.2, 0.01);
}

}  // namespace Dorvane::Testing
