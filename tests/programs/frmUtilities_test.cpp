// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmUtilities.h"

#include <QPointer>

#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

struct FrmUtilities : testing::Test {
    FrmUtilities() { Site.LayOut(); }
    ~FrmUtilities() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }
    void Open() {
        Form = new frmUtilities("dv_special.ini");
        Form->show();
        HandleEvents();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<frmUtilities> Form;
};

}  // namespace

TEST_F(FrmUtilities, HasAButtonForEachUtility) {
    PutLines("C:\\WINDOWS\\dv_special.ini",
             {"[Utilities]", "Number=2", "Title1=R\xE9sum\xE9 & more", "Command1=a.exe %Init_path%",
              "Title2=Other", "Tip2=<b>", "Command2=b.exe"});
    Open();
    EXPECT_EQ(TextOf(*Form), "Utilities");
    EXPECT_EQ(TextOf(*Form, "cmdUtility1"), "R\xE9sum\xE9 & more");
    EXPECT_FALSE(IsShown(*Form, "lblNone"));
    Click(*Form, "cmdUtility1");
    Click(*Form, "cmdUtility2");
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"a.exe D:\\TARVEX\\INIT\\", "b.exe"}));
    Click(*Form, "cmdClose");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(FrmUtilities, HasItsOwnBehindThoseOfTheProfile) {
    PutLines("C:\\WINDOWS\\dv_special.ini", {"[Utilities]", "Number=1", "Title1=A", "Command1=a.exe"});
    int opened = 0;
    Form = new frmUtilities("dv_special.ini", {{"Own", "A tip", [&] { ++opened; }}});
    Form->show();
    HandleEvents();
    EXPECT_EQ(TextOf(*Form, "cmdUtility1"), "A");
    EXPECT_EQ(TextOf(*Form, "cmdUtility2"), "Own");
    Click(*Form, "cmdUtility2");
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(FrmUtilities, SaysThatNoneAreListed) {
    Open();
    EXPECT_TRUE(IsShown(*Form, "lblNone"));
    EXPECT_EQ(TextOf(*Form, "lblNone"), "No utilities are listed in dv_special.ini.");
}

TEST_F(FrmUtilities, ReportsAProgramThatIsNotThere) {
    PutLines("C:\\WINDOWS\\dv_special.ini", {"[Utilities]", "Number=1", "Title1=A", "Command1=C:\\none.exe"});
    Desktop.RunsPrograms = true;
    Desktop.ExpectMessageTitled("Program Error");
    Open();
    Click(*Form, "cmdUtility1");
    EXPECT_EQ(Desktop.Shown.back().Text.find("Error : 53"), 0U);
    EXPECT_NE(Desktop.Shown.back().Text.find("frmUtilities-cmdUtility_Click"), std::string::npos);
}

}  // namespace Dorvane::Testing
