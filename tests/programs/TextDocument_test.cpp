// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextDocument.h"

#include <gtest/gtest.h>

#include <random>

namespace Dorvane::Testing {

namespace {

Selection At(Offset place) {
    return {place, place};
}

Selection Type(TextDocument& document, Selection selected, const std::string& text) {
    for (const char c : text)
        selected = document.Replace(selected, std::string(1, c), EditKind::Typing);
    return selected;
}

}  // namespace

TEST(TextDocument, UndoesWhatWasTypedInOneGoAndDoesItAgain) {
    TextDocument document("one\r\ntwo");
    EXPECT_FALSE(document.IsModified());
    EXPECT_FALSE(document.CanUndo());
    const Selection behind = Type(document, At(3), "abc");
    EXPECT_EQ(behind, At(6));
    document.Replace({0, 1}, "", EditKind::Erasing);
    EXPECT_EQ(document.Content(), "neabc\r\ntwo");
    EXPECT_EQ(document.Undo(), At(0));
    EXPECT_EQ(document.Content(), "oneabc\r\ntwo");
    EXPECT_EQ(document.Undo(), At(3));
    EXPECT_EQ(document.Content(), "one\r\ntwo");
    EXPECT_FALSE(document.CanUndo());
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(document.Redo(), At(6));
    EXPECT_EQ(document.Content(), "oneabc\r\ntwo");
    EXPECT_EQ(document.Redo(), At(0));
    EXPECT_FALSE(document.CanRedo());
    EXPECT_EQ(document.Content(), "neabc\r\ntwo");
}

TEST(TextDocument, UndoesApartWhatWasTypedApart) {
    TextDocument document("");
    Type(document, At(0), "ab");
    document.EndRun();
    Type(document, At(2), "cd");
    Type(document, At(0), "ef");  // elsewhere
    document.Undo();
    EXPECT_EQ(document.Content(), "abcd");
    document.Undo();
    EXPECT_EQ(document.Content(), "ab");
}

TEST(TextDocument, KnowsWhetherItIsWhatWasSaved) {
    TextDocument document("x");
    Type(document, At(1), "ab");
    document.SetSaved();
    EXPECT_FALSE(document.IsModified());
    Type(document, At(3), "c");
    EXPECT_TRUE(document.IsModified());
    document.Undo();
    EXPECT_EQ(document.Content(), "xab");
    EXPECT_FALSE(document.IsModified());
    document.Undo();
    EXPECT_TRUE(document.IsModified());
    Type(document, At(1), "d");  // what was saved is out of reach now
    EXPECT_TRUE(document.IsModified());
    document.Undo();
    EXPECT_TRUE(document.IsModified());
    document.SetSaved();
    document.SetUnsaved();
    EXPECT_TRUE(document.IsModified());
    Type(document, At(1), "e");
    document.SetSaved();
    document.Undo();
    Type(document, At(1), "f");  // as many edits as were saved, and another text
    EXPECT_TRUE(document.IsModified());
}

TEST(TextDocument, TakesTheLineEndOfTheSurroundings) {
    const TextDocument mixed("a\nb\r\nc\rd");
    EXPECT_EQ(mixed.LineEndAt(0), "\n");
    EXPECT_EQ(mixed.LineEndAt(2), "\r\n");
    EXPECT_EQ(mixed.LineEndAt(5), "\r");
    EXPECT_EQ(mixed.LineEndAt(7), "\r");  // the last line has none: that of the line before
    EXPECT_EQ(TextDocument("alone").LineEndAt(2), "\r\n");
    EXPECT_EQ(TextDocument("").LineEndAt(0), "\r\n");
    EXPECT_EQ(mixed.WithLineEndsOf(0, "1\r\n2\r3\n\n4"), "1\n2\n3\n\n4");
    EXPECT_EQ(mixed.WithLineEndsOf(2, "1\n2\n"), "1\r\n2\r\n");
}

TEST(TextDocument, StepsOverALineEndOfTwoBytesAtOnce) {
    const TextDocument document("a\r\nb\r\r\n");
    EXPECT_EQ(document.Behind(1), 3);
    EXPECT_EQ(document.Before(3), 1);
    EXPECT_EQ(document.Behind(4), 5);
    EXPECT_EQ(document.Before(7), 5);
    EXPECT_EQ(document.Behind(7), 7);
    EXPECT_EQ(document.Before(0), 0);
}

TEST(TextDocument, NeverLeavesTheCaretInsideALineEnd) {
    TextDocument document("a\nb");
    const Selection after = document.Replace({1, 1}, "\r", EditKind::Typing);
    EXPECT_EQ(document.Content(), "a\r\nb");
    EXPECT_EQ(after, At(3));
}

TEST(TextDocument, ReplacesManyPlacesAsOneEdit) {
    TextDocument document("a.a.a");
    document.ReplaceEach({0, 2, 4}, 1, "bb", At(5));
    EXPECT_EQ(document.Content(), "bb.bb.bb");
    EXPECT_EQ(document.Undo(), At(5));
    EXPECT_EQ(document.Content(), "a.a.a");
    EXPECT_FALSE(document.CanUndo());
    document.ReplaceEach({}, 1, "bb", At(5));
    EXPECT_FALSE(document.CanUndo());
}

TEST(TextDocument, ComesBackByteForByteFromAnyEdits) {
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        std::string first;
        for (int i = 0; i < 100; ++i)
            first += static_cast<char>(random() % 256);
        TextDocument document(first);
        for (int edit = 0; edit < 40; ++edit) {
            const Offset size = document.Text().Size() + 1;
            const Selection selected{document.Text().Outside(static_cast<Offset>(random()) % size),
                                     document.Text().Outside(static_cast<Offset>(random()) % size)};
            document.Replace(selected, std::string(random() % 3, static_cast<char>(random() % 256)),
                             static_cast<EditKind>(random() % 3));
            if (random() % 5 == 0 && document.CanUndo())
                document.Undo();
            if (random() % 7 == 0 && document.CanRedo())
                document.Redo();
        }
        while (document.CanRedo())
            document.Redo();
        const std::string last = document.Content();
        while (document.CanUndo())
            document.Undo();
        ASSERT_EQ(document.Content(), first);
        ASSERT_FALSE(document.IsModified());
        while (document.CanRedo())
            document.Redo();
        ASSERT_EQ(document.Content(), last);
    }
}

}  // namespace Dorvane::Testing
