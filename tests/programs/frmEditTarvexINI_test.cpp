// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditTarvexINI.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Profile = "C:\\WINDOWS\\dv_tarvex.ini";

struct FrmEditTarvexINI : testing::Test {
    FrmEditTarvexINI() {
        Site.LayOut();
        PutLines(Profile,
                 {"; kept", "[Tarvex Info]", "Data_drive=D:\\TARVEX\\", "Calib_path=D:\\TARVEX\\CALIB\\",
                  "Coord_path=D:\\TARVEX\\COORD\\", "Init_path=D:\\TARVEX\\INIT\\",
                  "Param_path=C:\\TARVEX\\PARAM\\", "Temp_path=C:\\TARVEX\\TEMP\\",
                  "Work_path=C:\\TARVEX\\WORK\\", "Download_path=D:\\TARVEX\\DOWNLOAD\\", "Path_type=1",
                  "[General Editor]", "Path=C:\\BIN\\", "Name=edit.exe"});
        Form = new frmEditTarvexINI;
        Form->show();
        HandleEvents();
    }
    ~FrmEditTarvexINI() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void Type(const char* field, const std::string& text) {
        auto& edit = Control<QLineEdit>(*Form, field);
        edit.clear();
        QTest::keyClicks(&edit, QString::fromLatin1(text.c_str()));
        HandleEvents();
    }
    static std::string Key(const char* key) { return IniReadString("dv_tarvex.ini", "Tarvex Info", key); }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<frmEditTarvexINI> Form;
};

}  // namespace

TEST_F(FrmEditTarvexINI, ShowsEachFolderAndWhetherItExists) {
    EXPECT_EQ(TextOf(*Form), "Edit dv_tarvex.ini");
    EXPECT_EQ(TextOf(*Form, "txtInit_path"), "D:\\TARVEX\\INIT\\");
    EXPECT_EQ(TextOf(*Form, "lblInit_pathState"), "exists");
    EXPECT_FALSE(IsEnabled(*Form, "cmdMakeInit_path"));
    Type("txtInit_path", "D:\\NEW\\INIT");
    EXPECT_EQ(TextOf(*Form, "lblInit_pathState"), "missing");
    EXPECT_TRUE(IsEnabled(*Form, "cmdMakeInit_path"));
    Type("txtInit_path", "");
    EXPECT_EQ(TextOf(*Form, "lblInit_pathState"), "empty");
    EXPECT_FALSE(IsEnabled(*Form, "cmdMakeInit_path"));
    EXPECT_EQ(TextOf(*Form, "lblEditorState"), "missing");
    EXPECT_EQ(Form->focusWidget()->objectName(), "txtData_drive");
}

TEST_F(FrmEditTarvexINI, MakesAFolderWithAllAboveIt) {
    Type("txtWork_path", "D:\\NEW\\LOCAL\\WORK");
    Click(*Form, "cmdMakeWork_path");
    std::string folder = "D:\\NEW\\LOCAL\\WORK";
    EXPECT_TRUE(FolderExists(folder));
    EXPECT_EQ(TextOf(*Form, "lblWork_pathState"), "exists");
}

TEST_F(FrmEditTarvexINI, ReportsAFolderThatCannotBeMade) {
    Type("txtWork_path", "Q:\\WORK");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Click(*Form, "cmdMakeWork_path");
    EXPECT_EQ(TextOf(*Form, "lblWork_pathState"), "missing");
}

TEST_F(FrmEditTarvexINI, WritesWhatWasChangedWithItsBackslash) {
    MakeFolders("D:\\OTHER\\");
    Type("txtDownload_path", "D:\\OTHER");
    Control<QComboBox>(*Form, "cmbPathType").setCurrentIndex(1);
    Type("txtEditorName", "vi.exe");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Key("Download_path"), "D:\\OTHER\\");
    EXPECT_EQ(Key("Path_type"), "2");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "General Editor", "Name"), "vi.exe");
    EXPECT_EQ(FileLines(Profile).front(), "; kept");
}

TEST_F(FrmEditTarvexINI, OffersToMakeMissingFolders) {
    Type("txtDownload_path", "D:\\NEW\\DOWN\\");
    const std::string question = "These folders do not exist:\r\n\r\nD:\\NEW\\DOWN\\\r\n\r\nMake them now?";
    Desktop.ExpectMessage("Edit dv_tarvex.ini", question, Answer::Cancel);
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(Key("Download_path"), "D:\\TARVEX\\DOWNLOAD\\");
    Desktop.ExpectMessage("Edit dv_tarvex.ini", question, Answer::Yes);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Key("Download_path"), "D:\\NEW\\DOWN\\");
    std::string folder = "D:\\NEW\\DOWN\\";
    EXPECT_TRUE(FolderExists(folder));
}

TEST_F(FrmEditTarvexINI, SavesAMissingFolderWhenAskedTo) {
    Type("txtDownload_path", "D:\\LATER\\");
    Desktop.ExpectMessageTitled("Edit dv_tarvex.ini", Answer::No);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Key("Download_path"), "D:\\LATER\\");
}

TEST_F(FrmEditTarvexINI, StaysWithAValueThatWouldBeCut) {
    Type("txtEditorName", std::string(128, 'x'));
    Desktop.ExpectMessage("Edit dv_tarvex.ini", "Name has more than 127 characters.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
}

TEST_F(FrmEditTarvexINI, AsksBeforeAChangedChoiceIsLost) {
    Control<QComboBox>(*Form, "cmbPathType").setCurrentIndex(1);
    Desktop.ExpectMessageTitled("Edit dv_tarvex.ini", Answer::Yes);
    QTest::keyClick(Form, Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Form.isNull());
}

TEST_F(FrmEditTarvexINI, ChangesNothingByCancelAndEscape) {
    const std::string former = FileContent(Profile);
    Type("txtData_drive", "X:\\");
    const std::string question = "The changes are not saved.  Leave all the same?";
    Desktop.ExpectMessage("Edit dv_tarvex.ini", question, Answer::No);
    Click(*Form, "cmdCancel");
    ASSERT_FALSE(Form.isNull());
    Desktop.ExpectMessage("Edit dv_tarvex.ini", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Profile), former);
    Form = new frmEditTarvexINI;
    Form->show();
    QTest::keyClick(Form, Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Profile), former);
}

TEST_F(FrmEditTarvexINI, TakesAChosenFolderAndAChosenEditor) {
    Desktop.ExpectFile("Survey data Folder Selection", "D:\\TARVEX\\INIT\\Data_drive");
    Click(*Form, "cmdBrowseData_drive");
    EXPECT_EQ(TextOf(*Form, "txtData_drive"), "D:\\TARVEX\\INIT\\");
    Desktop.ExpectFile("Survey data Folder Selection", std::nullopt);
    Click(*Form, "cmdBrowseData_drive");
    EXPECT_EQ(TextOf(*Form, "txtData_drive"), "D:\\TARVEX\\INIT\\");
    PutFile("C:\\TOOLS\\ed.exe", "x");
    Desktop.ExpectFile("General Editor Selection", "C:\\TOOLS\\ed.exe");
    Click(*Form, "cmdBrowseEditor");
    EXPECT_EQ(TextOf(*Form, "txtEditorPath"), "C:\\TOOLS\\");
    EXPECT_EQ(TextOf(*Form, "txtEditorName"), "ed.exe");
    EXPECT_EQ(TextOf(*Form, "lblEditorState"), "exists");
}

TEST_F(FrmEditTarvexINI, KeepsAPathTypeThatNobodyTouched) {
    Form->Unload();
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Path_type", "3");
    const std::string former = FileContent(Profile);
    Form = new frmEditTarvexINI;
    Form->show();
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileContent(Profile), former);
}

}  // namespace Dorvane::Testing
