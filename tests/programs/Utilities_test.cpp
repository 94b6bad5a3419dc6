// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/Utilities.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

struct UtilitiesTest : testing::Test {
    UtilitiesTest() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=C:\\BIN\\", "Name=edit.exe"});
        PutLines("C:\\WINDOWS\\dv_special.ini",
                 {"[Utilities]", "Number=4", "Title1=Error Log", "Tip1=A tip", "Needs1=%AppPath%ERROR.LOG",
                  "Command1=%Editor% %AppPath%ERROR.LOG", "Title2=No command", "Title4=Plain",
                  "Command4=c:\\x.exe 5%", "Title5=Behind the number", "Command5=x"});
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(UtilitiesTest, AreThoseOfTheProfileThatHaveATitleAndACommand) {
    const std::vector<Utility> utilities = ReadUtilities("dv_special.ini");
    ASSERT_EQ(utilities.size(), 2U);
    EXPECT_EQ(utilities[0].Title, "Error Log");
    EXPECT_EQ(utilities[0].Tip, "A tip");
    EXPECT_EQ(utilities[1].Title, "Plain");
    EXPECT_TRUE(ReadUtilities("dv_absent.ini").empty());
    PutLines("C:\\WINDOWS\\dv_special.ini", {"[Utilities]", "Number=1e999", "Title1=A", "Command1=B"});
    EXPECT_EQ(ReadUtilities("dv_special.ini").size(), 1U);
}

TEST_F(UtilitiesTest, TakeTheFoldersOfTheProgramForTheirNames) {
    EXPECT_EQ(ExpandNames("%Editor% %init_path%A.STR"), "C:\\BIN\\edit.exe D:\\TARVEX\\INIT\\A.STR");
    EXPECT_EQ(ExpandNames("%AppPath%X %WindowsPath%Y"), "P:\\DORVANE\\X C:\\WINDOWS\\Y");
    EXPECT_EQ(ExpandNames("100% of %nothing% 5%"), "100% of %nothing% 5%");
    EXPECT_EQ(ExpandNames("%%Temp_path%"), "%C:\\TARVEX\\TEMP\\");
    EXPECT_EQ(ExpandNames(""), "");
}

TEST_F(UtilitiesTest, StartWhenWhatTheyNeedIsThere) {
    const Utility log = ReadUtilities("dv_special.ini")[0];
    Desktop.ExpectMessage("Error Log", "P:\\DORVANE\\ERROR.LOG does not exist.");
    StartUtility(log);
    EXPECT_TRUE(Desktop.Started.empty());
    PutFile("P:\\DORVANE\\ERROR.LOG", "x");
    StartUtility(log);
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"C:\\BIN\\edit.exe P:\\DORVANE\\ERROR.LOG"}));
    StartUtility({"Folder", "", "%Init_path%", "x %Init_path%"});
    EXPECT_EQ(Desktop.Started.back(), "x D:\\TARVEX\\INIT\\");
    Global().Init_path.clear();
    Desktop.ExpectMessage("Folder", "%Init_path% is not set.");
    StartUtility({"Folder", "", "%Init_path%", "x %Init_path%"});
}

TEST_F(UtilitiesTest, DoNotStartTheFileItselfWithoutAnEditor) {
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=", "Name="});
    PutFile("P:\\DORVANE\\ERROR.LOG", "x");
    Desktop.ExpectMessage("Editor Not Found", "Editor not found in INI file.  Can not edit file.");
    StartUtility(ReadUtilities("dv_special.ini")[0]);
    EXPECT_TRUE(Desktop.Started.empty());
    StartUtility({"Without", "", "", "x.exe"});
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"x.exe"}));
}

}  // namespace Dorvane::Testing
