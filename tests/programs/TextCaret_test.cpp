// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextCaret.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {

namespace {

struct TextCaretTest : testing::Test {
    void Open(const std::string& text, Offset at = 0) {
        Document.emplace(text);
        Caret.emplace(*Document);
        Caret->Select({at, at});
    }

    Offset Moved(CaretStep step, bool extend = false) {
        Caret->Move(step, extend);
        return Caret->Selected().Caret;
    }

    std::optional<TextDocument> Document;
    std::optional<TextCaret> Caret;
};

}  // namespace

TEST_F(TextCaretTest, GoesOverCharactersLinesAndTheText) {
    Open("ab\r\ncd", 1);
    EXPECT_EQ(Moved(CaretStep::Right), 2);
    EXPECT_EQ(Moved(CaretStep::Right), 4);
    EXPECT_EQ(Moved(CaretStep::Left), 2);
    EXPECT_EQ(Moved(CaretStep::LineStart), 0);
    EXPECT_EQ(Moved(CaretStep::Left), 0);
    EXPECT_EQ(Moved(CaretStep::LineEnd), 2);
    EXPECT_EQ(Moved(CaretStep::TextEnd), 6);
    EXPECT_EQ(Moved(CaretStep::Right), 6);
    EXPECT_EQ(Moved(CaretStep::TextStart), 0);
}

TEST_F(TextCaretTest, GoesOverWordsAndLineEnds) {
    Open("one  two,\xE9t\xE9\r\nx");
    std::vector<Offset> places;
    for (int i = 0; i < 6; ++i)
        places.push_back(Moved(CaretStep::WordRight));
    EXPECT_EQ(places, (std::vector<Offset>{5, 8, 9, 12, 14, 15}));
    places.clear();
    for (int i = 0; i < 7; ++i)
        places.push_back(Moved(CaretStep::WordLeft));
    EXPECT_EQ(places, (std::vector<Offset>{14, 12, 9, 8, 5, 0, 0}));
}

TEST_F(TextCaretTest, KeepsItsColumnOverShorterLines) {
    Open("abcdef\nab\r\nabcdef", 5);
    Caret->MoveLines(1, false);
    EXPECT_EQ(Caret->Selected().Caret, 9);
    EXPECT_EQ(Caret->Column(), 3);
    Caret->MoveLines(1, false);
    EXPECT_EQ(Caret->Selected().Caret, 16);
    EXPECT_EQ(Caret->Column(), 6);
    Caret->MoveLines(-2, true);
    EXPECT_EQ(Caret->Selected(), (Selection{16, 5}));
    Caret->MoveLines(-9, false);
    EXPECT_EQ(Caret->Selected().Caret, 5);
    Caret->MoveLines(9, false);
    EXPECT_EQ(Caret->Selected().Caret, 16);
}

TEST_F(TextCaretTest, ForgetsItsColumnWhereItIsPutElsewhere) {
    Open("abcdef\nab\nabcdef", 5);
    Caret->MoveLines(1, false);
    Caret->Select({8, 8});
    Caret->MoveLines(1, false);
    EXPECT_EQ(Caret->Selected().Caret, 11);
    Open("abcdef\nab\nabcdef", 5);
    Caret->MoveLines(1, false);
    Caret->Erase(CaretStep::Left);
    Caret->MoveLines(1, false);
    EXPECT_EQ(Caret->Selected().Caret, 10);
}

TEST_F(TextCaretTest, GoesToTheSideOfWhatWasSelected) {
    Open("abcd");
    Caret->Select({1, 3});
    EXPECT_EQ(Moved(CaretStep::Left), 1);
    Caret->Select({3, 1});
    EXPECT_EQ(Moved(CaretStep::Right), 3);
    Caret->Select({1, 3});
    EXPECT_EQ(Moved(CaretStep::Right, true), 4);
    EXPECT_EQ(Caret->Selected().Anchor, 1);
}

TEST_F(TextCaretTest, SelectsWordsAndLines) {
    Open("one, two\r\nend");
    Caret->SelectWord(6);
    EXPECT_EQ(Caret->SelectedText(), "two");
    Caret->SelectWord(3);
    EXPECT_EQ(Caret->SelectedText(), ",");
    Caret->SelectWord(8);
    EXPECT_EQ(Caret->SelectedText(), "two");
    Caret->SelectLine(4);
    EXPECT_EQ(Caret->SelectedText(), "one, two\r\n");
    Caret->SelectLine(11);
    EXPECT_EQ(Caret->SelectedText(), "end");
    Open("\n");
    Caret->SelectWord(0);
    EXPECT_TRUE(Caret->Selected().Empty());
}

TEST_F(TextCaretTest, NeverStandsInTheMiddleOfALineEnd) {
    Open("a\r\nb");
    Caret->Select({2, 2});
    EXPECT_EQ(Caret->Selected(), (Selection{1, 1}));
}

TEST_F(TextCaretTest, InsertsAndOverwrites) {
    Open("abcd\nx", 1);
    Caret->Type("X");
    EXPECT_EQ(Document->Content(), "aXbcd\nx");
    Caret->Overwrite = true;
    Caret->Type("Y");
    Caret->Type("Z");
    EXPECT_EQ(Document->Content(), "aXYZd\nx");
    Caret->Move(CaretStep::LineEnd, false);
    Caret->Type("!");  // a line grows, and its end stays
    EXPECT_EQ(Document->Content(), "aXYZd!\nx");
    Caret->Select({0, 3});
    Caret->Type("-");  // what is selected goes, and no more
    EXPECT_EQ(Document->Content(), "-Zd!\nx");
    for (int i = 0; i < 3; ++i)
        Document->Undo();
    EXPECT_EQ(Document->Content(), "abcd\nx");
}

TEST_F(TextCaretTest, BeginsLinesAsTheSurroundingsDo) {
    Open("a\nb\r\nc", 1);
    Caret->NewLine();
    EXPECT_EQ(Document->Content(), "a\n\nb\r\nc");
    Caret->Select({4, 4});
    Caret->NewLine();
    EXPECT_EQ(Document->Content(), "a\n\nb\r\n\r\nc");
    Caret->Select({0, 1});
    Caret->Insert("1\r2\r\n3");
    EXPECT_EQ(Document->Content(), "1\n2\n3\n\nb\r\n\r\nc");
    EXPECT_EQ(Caret->Selected().Caret, 5);
}

TEST_F(TextCaretTest, ErasesBothWaysAndByWords) {
    Open("one two\r\nx", 7);
    Caret->Erase(CaretStep::Right);  // a line end of two bytes at once
    EXPECT_EQ(Document->Content(), "one twox");
    Caret->Erase(CaretStep::Left);
    EXPECT_EQ(Document->Content(), "one twx");
    Caret->Erase(CaretStep::WordLeft);
    EXPECT_EQ(Document->Content(), "one x");
    Caret->Select({0, 4});
    Caret->Erase(CaretStep::Left);
    EXPECT_EQ(Document->Content(), "x");
    Caret->Erase(CaretStep::Left);
    EXPECT_EQ(Document->Content(), "x");
    Caret->Erase(CaretStep::WordRight);
    Caret->Erase(CaretStep::Right);
    EXPECT_EQ(Document->Content(), "");
}

TEST_F(TextCaretTest, ErasingInOneGoIsUndoneAtOnce) {
    Open("abcdef", 4);
    Caret->Erase(CaretStep::Left);
    Caret->Erase(CaretStep::Left);
    EXPECT_EQ(Document->Content(), "abef");
    EXPECT_EQ(Document->Undo(), (Selection{4, 4}));
    EXPECT_EQ(Document->Content(), "abcdef");
    EXPECT_FALSE(Document->CanUndo());
}

}  // namespace Dorvane::Testing
