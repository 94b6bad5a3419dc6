// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextPrint.h"

#include <gmock/gmock.h>

#include "tests/support/ScriptedDesktop.h"

namespace Dorvane::Testing {

using ::testing::ElementsAre;

TEST(TextPrint, IsTheTextAsItStandsInTheEditor) {
    ScriptedDesktop desktop;
    const PieceText text("one\r\ntwo\nthree\x1A");
    PrintText(text, {0, text.Size()}, "D:\\A.TXT");
    EXPECT_THAT(desktop.PrintedLines, ElementsAre("     ", "     File Name : D:\\A.TXT", "     ", "     one",
                                                  "     two", "     three"));
    EXPECT_THAT(desktop.PrintFonts, ElementsAre("Courier 12"));
    desktop.PrintedLines.clear();
    PrintText(text, {5, 8}, "D:\\A.TXT");
    EXPECT_EQ(desktop.PrintedLines.size(), 4U);
    EXPECT_EQ(desktop.PrintedLines.back(), "     two");
}

TEST(TextPrint, TakesSmallerLettersForLongerLines) {
    EXPECT_EQ(PrintPoints(0), 12);
    EXPECT_EQ(PrintPoints(69), 12);
    EXPECT_EQ(PrintPoints(104), 8);
    EXPECT_EQ(PrintPoints(1'000'000), 6);
}

}  // namespace Dorvane::Testing
