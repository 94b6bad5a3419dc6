// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basPrint.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

TEST(PrintGenFile, PrintsAHeadingAndEveryLineSetIn) {
    const TestSite site;
    ScriptedDesktop screen;
    PutFile("D:\\A.TXT", "one\r\n\r\n  three");
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\SHOWN\\"), 1);
    EXPECT_EQ(screen.PrintFonts, std::vector<std::string>{"Courier 12"});
    EXPECT_EQ(screen.PrintedLines, (std::vector<std::string>{"     ", "     File Name : D:\\SHOWN\\A.TXT",
                                                             "     ", "     one", "     ", "       three"}));
}

TEST(PrintGenFile, WrapsNoLine) {
    const TestSite site;
    ScriptedDesktop screen;
    PutFile("D:\\A.TXT", std::string(500, 'x'));
    EXPECT_EQ(PrintGenFile("D:\\", "A.TXT", "D:\\"), 1);
    EXPECT_EQ(screen.PrintedLines[3], "     " + std::string(500, 'x'));
}

TEST(PrintGenFile, ReportsAFailureAndPrintsNothing) {
    const TestSite site;
    ScriptedDesktop screen;
    screen.ExpectMessage("Program Error",
                         "Error : 53\r\n\r\nDescription : File not found: " + site.HostFolder() +
                             "d:/NONE.TXT\r\n\r\nSource : Dorvane-basPrint-PrintGenFile");
    EXPECT_EQ(PrintGenFile("D:\\", "NONE.TXT", "D:\\"), 0);
    EXPECT_TRUE(screen.PrintedLines.empty());
}

}  // namespace Dorvane
