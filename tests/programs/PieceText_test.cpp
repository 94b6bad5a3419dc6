// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/PieceText.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

// What a text comes to, by going through it byte by byte.
struct Plain {
    std::string Text;

    std::vector<Offset> Starts() const {
        std::vector<Offset> starts{0};
        for (std::size_t i = 0; i < Text.size(); ++i)
            if (Text[i] == '\n' || (Text[i] == '\r' && (i + 1 == Text.size() || Text[i + 1] != '\n')))
                starts.push_back(static_cast<Offset>(i) + 1);
        return starts;
    }

    Offset EndOf(Offset start) const {
        return static_cast<Offset>(
            std::min(Text.find_first_of("\r\n", static_cast<std::size_t>(start)), Text.size()));
    }
};

void ExpectSame(const PieceText& text, const std::string& bytes) {
    const Plain plain{bytes};
    ASSERT_EQ(text.Size(), static_cast<Offset>(bytes.size()));
    ASSERT_EQ(text.Read(0, text.Size()), bytes);
    const std::vector<Offset> starts = plain.Starts();
    ASSERT_EQ(text.Lines(), static_cast<Offset>(starts.size()));
    Offset longest = 0;
    for (const Offset start : starts)
        longest = std::max(longest, plain.EndOf(start) - start);
    // All lines of a short text; of a long one some, so that the test comes to its end.
    const std::size_t step = starts.size() < 400 ? 1 : starts.size() / 40;
    for (std::size_t i = 0; i < starts.size(); i += step) {
        const Offset end = plain.EndOf(starts[i]);
        ASSERT_EQ(text.StartOfLine(static_cast<Offset>(i)), starts[i]);
        ASSERT_EQ(text.LineOf(starts[i]), static_cast<Offset>(i));
        ASSERT_EQ(text.LineOf(end), static_cast<Offset>(i));
        ASSERT_EQ(text.LineStart(end), starts[i]);
        ASSERT_EQ(text.LineEnd(starts[i]), end);
        if (i + 1 < starts.size()) {
            ASSERT_EQ(text.NextLine(starts[i]), starts[i + 1]);
        } else {
            ASSERT_FALSE(text.NextLine(starts[i]));
        }
    }
    ASSERT_EQ(text.LongestLine(), longest);
}

// A text that is rich in line ends of all kinds.
std::string RandomText(std::mt19937& random, std::size_t length) {
    std::string text;
    while (text.size() < length)
        switch (random() % 8) {
            case 0: text += "\r\n"; break;
            case 1: text += '\n'; break;
            case 2: text += '\r'; break;
            default: text += static_cast<char>(random() % 256);
        }
    return text;
}

}  // namespace

TEST(PieceText, KnowsTheLinesOfEveryKindOfLineEnd) {
    for (const char* bytes :
         {"", "a", "\n", "\r", "\r\n", "\n\r", "\r\r\n", "a\rb\nc\r\nd", "a\r\n", "\r\n\r\n", "\n\n\n"})
        ExpectSame(PieceText(std::string(bytes)), bytes);
    const std::string controls("a\0b\x1A\x81\x8D\t\f\r\nlast\x1A", 18);
    ExpectSame(PieceText(controls), controls);
}

TEST(PieceText, IsTheEditedBytesAfterAnyEditsAndTheFormerOnesAfterUndoingThem) {
    std::mt19937 random(20261122);
    for (int round = 0; round < 30; ++round) {
        std::string model = RandomText(random, random() % 300);
        const std::string first = model;
        PieceText text(model);
        std::vector<PieceChange> changes;
        for (int edit = 0; edit < 60; ++edit) {
            const std::size_t at = random() % (model.size() + 1);
            const std::size_t count =
                std::min<std::size_t>(random() % 4 == 0 ? random() % 40 : random() % 3, model.size() - at);
            const std::string typed = RandomText(random, random() % 4);
            changes.push_back(text.Replace(static_cast<Offset>(at), static_cast<Offset>(count), typed));
            model.replace(at, count, typed);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(text, model)) << round << " " << edit;
        }
        for (auto change = changes.rbegin(); change != changes.rend(); ++change)
            text.Revert(*change);
        ASSERT_NO_FATAL_FAILURE(ExpectSame(text, first)) << round;
        for (const PieceChange& change : changes)
            text.Apply(change);
        ASSERT_NO_FATAL_FAILURE(ExpectSame(text, model)) << round;
    }
}

TEST(PieceText, IsTheEditedBytesWhereAPieceIsFull) {
    // Line ends that lie across where the pieces of a long text are cut.
    std::mt19937 random(7);
    for (const int shift : {-2, -1, 0, 1}) {
        std::string model(static_cast<std::size_t>((64 << 10) + shift), 'x');
        model += "\r\nbehind\r" + std::string(70'000, 'y') + "\r\n";
        PieceText text(model);
        ExpectSame(text, model);
        for (int edit = 0; edit < 20; ++edit) {
            const std::size_t at = (64 << 10) - 3 + random() % 6;
            const std::string typed = RandomText(random, random() % 3);
            text.Replace(static_cast<Offset>(at), static_cast<Offset>(random() % 2), typed);
            const std::string now = text.Read(0, text.Size());
            ASSERT_NO_FATAL_FAILURE(ExpectSame(text, now));
            model = now;
        }
        const std::string pasted = RandomText(random, 200'000);
        text.Replace(65'000, 10, pasted);
        model.replace(65'000, 10, pasted);
        ASSERT_NO_FATAL_FAILURE(ExpectSame(text, model));
    }
}

TEST(PieceText, ReplacesManyPlacesAtOnceAndTakesThemBack) {
    std::mt19937 random(3);
    for (const std::size_t gap : {1U, 10U, 5000U, 70'000U}) {
        std::string model;
        std::vector<Offset> places;
        for (int i = 0; i < 50; ++i) {
            model += std::string(random() % gap, i % 7 == 0 ? '\r' : 'a');
            places.push_back(static_cast<Offset>(model.size()));
            model += "<\n>";
        }
        const std::string first = model;
        PieceText text(model);
        const PieceChange change = text.ReplaceEach(places, 3, "\nX");
        for (auto place = places.rbegin(); place != places.rend(); ++place)
            model.replace(static_cast<std::size_t>(*place), 3, "\nX");
        ASSERT_NO_FATAL_FAILURE(ExpectSame(text, model));
        text.Revert(change);
        ASSERT_NO_FATAL_FAILURE(ExpectSame(text, first));
    }
}

TEST(PieceText, IsReadBeforeItsLinesAreCounted) {
    std::mt19937 random(11);
    const std::string bytes = RandomText(random, 300'000);
    const Plain plain{bytes};
    PieceText text(std::make_unique<MemorySource>(bytes));
    EXPECT_FALSE(text.AllCounted());
    EXPECT_FALSE(text.LineOf(200'000));
    const std::vector<Offset> starts = plain.Starts();
    for (int i = 0; i < 200; ++i) {
        const auto at = static_cast<Offset>(random() % bytes.size());
        const Offset start = *(std::upper_bound(starts.begin(), starts.end(), at) - 1);
        EXPECT_EQ(text.LineStart(at), start) << at;
        EXPECT_EQ(text.LineEnd(start), plain.EndOf(start));
        EXPECT_EQ(text.Read(at, 100), bytes.substr(static_cast<std::size_t>(at), 100));
        if (i % 50 == 49)
            text.CountSome(1);
    }
    while (!text.CountSome(1)) {
    }
    ASSERT_NO_FATAL_FAILURE(ExpectSame(text, bytes));
}

TEST(PieceText, FindsTheLinesOfAMillionBytesWithoutALineEnd) {
    const std::string bytes = "short\r\n" + std::string(1'000'000, 'x') + "\nend";
    PieceText text(bytes);
    EXPECT_EQ(text.Lines(), 3);
    EXPECT_EQ(text.LongestLine(), 1'000'000);
    EXPECT_EQ(text.LineStart(900'000), 7);
    EXPECT_EQ(text.LineEnd(8), 1'000'007);
    EXPECT_EQ(text.NextLine(7), 1'000'008);
    text.Replace(500'000, 0, "\r");
    EXPECT_EQ(text.Lines(), 4);
    EXPECT_EQ(text.LineStart(900'000), 500'001);
}

TEST(FileSource, GivesAsMuchOfAPlaceAsIsAskedFor) {
    const TestSite site;
    PutFile("D:\\A.TXT", "abcdefgh");
    const FileSource source("D:\\A.TXT");
    EXPECT_EQ(source.View(2, 2), "cd");
    EXPECT_EQ(source.View(2, 5), "cdefg");
    EXPECT_EQ(source.View(2, 1), "c");
}

}  // namespace Dorvane::Testing
