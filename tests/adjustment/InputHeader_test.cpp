// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/InputHeader.h"

#include <gtest/gtest.h>

#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using Testing::PutFile;
using Testing::PutLines;

class InputHeader : public testing::Test {
  protected:
    int Read() { return ReadInputHeader("D:\\ADJ\\", "NET.INP", Project, Task, Date); }

    int ErrorOfRead() {
        try {
            Read();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }

    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    std::string Project, Task, Date;
};

TEST_F(InputHeader, GivesTheTextsBehindTheEqualSignsInTheirOwnCaseAndWithTheirBlanks) {
    PutLines(
        "D:\\ADJ\\NET.INP",
        {"NORL   5 R M T   -   ORIENTATION DATA CAPTURE", "", "  PROJECT = North Dam ", "     TASK =Level=2",
         "     DATE = 11/20/2026 3:04:05 PM", "", "LISTING = STATS", "", "Theodolite Stations"});
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(Project, " North Dam ");
    EXPECT_EQ(Task, "Level=2");
    EXPECT_EQ(Date, " 11/20/2026 3:04:05 PM");
}

TEST_F(InputHeader, DropsTheFirstLineWhateverItSays) {
    PutLines("D:\\ADJ\\NET.INP",
             {"PROJECT = not this", "PROJECT = P", "TASK = T", "DATE = D", "LISTING = L"});
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(Project, " P");
}

TEST_F(InputHeader, PassesByOtherLinesAndTakesKeywordsInAnyOrderAndCase) {
    PutLines("D:\\ADJ\\NET.INP", {"", "Listing = X", "something else", "date = D", "\t", "Task = T",
                                  "PROJECTS = no", "project = P"});
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(Project, " P");
    EXPECT_EQ(Task, " T");
    EXPECT_EQ(Date, " D");
}

TEST_F(InputHeader, StopsAtTheFourthKeywordEvenWhenOneCameTwice) {
    PutLines("D:\\ADJ\\NET.INP", {"", "PROJECT = 1", "PROJECT = 2", "DATE = D", "LISTING = L", "TASK = T"});
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(Project, " 2");
    EXPECT_EQ(Task, "");
}

TEST_F(InputHeader, HasNoValueWithoutAnEqualSign) {
    PutLines("D:\\ADJ\\NET.INP", {"", "PROJECT North", "TASK = T", "DATE = D", "LISTING = L"});
    EXPECT_EQ(Read(), -1);
    EXPECT_EQ(Project, "");
}

TEST_F(InputHeader, OfAMissingFileIsTold) {
    Desktop.ExpectMessage("File Not Found", "File D:\\ADJ\\NET.INP does not exist!");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Stop);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::Ok);
}

TEST_F(InputHeader, OfThreeKeywordLinesRunsPastTheEnd) {
    PutLines("D:\\ADJ\\NET.INP", {"", "PROJECT = P", "TASK = T", "DATE = D", "END"});
    EXPECT_EQ(ErrorOfRead(), InputPastEnd);
    EXPECT_EQ(Project, " P");
}

TEST_F(InputHeader, OfAnEmptyFileRunsPastTheEnd) {
    PutFile("D:\\ADJ\\NET.INP", "");
    EXPECT_EQ(ErrorOfRead(), InputPastEnd);
}

TEST_F(InputHeader, OfALineOfMoreThanFiftyWordsRaisesTheSubscriptError) {
    std::string line;
    for (int i = 0; i < 51; ++i)
        line += "w ";
    PutLines("D:\\ADJ\\NET.INP", {"", line});
    EXPECT_EQ(ErrorOfRead(), SubscriptOutOfRange);
}

TEST_F(InputHeader, OfAMillionCharactersInOneWordRunsPastTheEnd) {
    PutLines("D:\\ADJ\\NET.INP", {"", std::string(1000000, 'x')});
    EXPECT_EQ(ErrorOfRead(), InputPastEnd);
}

}  // namespace
}  // namespace Dorvane
