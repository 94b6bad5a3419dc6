// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditDrives.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <filesystem>

#include "core/DriveLinks.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EntryTable.h"
#include "programs/editors/frmEditTarvexINI.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

struct EditDrives : testing::Test {
    EditDrives() {
        Site.LayOut();
        std::filesystem::create_directory(Survey);
    }
    ~EditDrives() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void Open() {
        Form = new frmEditDrives;
        Form->show();
        HandleEvents();
    }
    QTableWidget& Grid() { return Control<EntryTable>(*Form, "tblDrives").Table(); }
    std::string Cell(int row, int column) { return FromScreen(Grid().item(row, column)->text()); }
    int RowOf(const std::string& letter) {
        for (int row = 0; row < Grid().rowCount(); ++row)
            if (Cell(row, 0) == letter)
                return row;
        return -1;
    }
    /// Adds a line: the letter by its list, the folder by typing.
    void Add(const char* letter, const std::string& folder) {
        Grid().setCurrentCell(Grid().rowCount() - 1, 0);
        Click(*Form, "cmdAdd");
        auto* list = Grid().findChild<QComboBox*>("cmbField");
        ASSERT_NE(list, nullptr);
        QTest::keyClicks(list, letter);  // which takes the letter and closes the list
        HandleEvents();
        QTest::keyClick(&Grid(), Qt::Key_Tab);
        QTest::keyClick(&Grid(), Qt::Key_F2);
        HandleEvents();
        auto* field = Grid().findChild<QLineEdit*>();
        ASSERT_NE(field, nullptr);
        field->setText(ToScreen(folder));
        QTest::keyClick(field, Qt::Key_Return);
        HandleEvents();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    std::string Survey = Site.HostFolder() + "survey";
    QPointer<ScreenDialog> Form;
};

}  // namespace

TEST_F(EditDrives, ShowsLettersStatesAndFolders) {
    std::filesystem::create_directory_symlink("/nowhere", Global().DrivesFolder + "n:");
    Open();
    EXPECT_EQ(TextOf(*Form), "Edit Drive Letters");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Global().DrivesFolder);
    EXPECT_EQ(Cell(RowOf("Z"), 2), "/");
    EXPECT_EQ(Cell(RowOf("N"), 1), "missing");
    EXPECT_EQ(Cell(RowOf("D"), 1), "may be written");
    EXPECT_FALSE(Grid().item(0, 0)->flags() & Qt::ItemIsEditable);
}

TEST_F(EditDrives, AddsALetterForAFolderThatItMakes) {
    Open();
    Add("F", Survey + "/new/deep");
    const int row = RowOf("F");
    ASSERT_GE(row, 0);
    EXPECT_EQ(Cell(row, 1), "missing");
    Desktop.ExpectMessage("Edit Drive Letters", "F: " + Survey + "/new/deep is no folder that exists.");
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    Grid().setCurrentCell(row, 2);
    Click(*Form, "cmdMake");
    EXPECT_EQ(Cell(row, 1), "may be written");
    EXPECT_FALSE(IsEnabled(*Form, "cmdMake"));
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    Drives::WriteFile("F:\\A.TXT", "a");
    EXPECT_TRUE(std::filesystem::exists(Survey + "/new/deep/A.TXT"));
}

TEST_F(EditDrives, OffersTheLettersThatAreFree) {
    Open();
    Grid().setCurrentCell(0, 0);
    Click(*Form, "cmdAdd");
    auto* list = Grid().findChild<QComboBox*>("cmbField");
    ASSERT_NE(list, nullptr);
    EXPECT_GE(list->findText("E"), 0);
    EXPECT_LT(list->findText("D"), 0);
    EXPECT_LT(list->findText("Z"), 0);
}

TEST_F(EditDrives, TakesAFolderThatIsBrowsed) {
    Open();
    Add("F", Survey);
    Grid().setFocus();  // Enter has opened a new line; its field is left
    HandleEvents();
    Grid().setCurrentCell(RowOf("F"), 2);
    Desktop.ExpectFile("Drive Letter Folder Selection", "Z:\\tmp\\Drive");
    Click(*Form, "cmdBrowse");
    EXPECT_EQ(Cell(RowOf("F"), 2), "/tmp");
    EXPECT_EQ(Desktop.Dialogs.back().Flags, 256);
    Desktop.ExpectFile("Drive Letter Folder Selection", std::nullopt);
    Click(*Form, "cmdBrowse");
    EXPECT_EQ(Cell(RowOf("F"), 2), "/tmp");
    EXPECT_EQ(Desktop.Dialogs.back().Folder, "Z:\\tmp\\");
}

TEST_F(EditDrives, AsksBeforeALetterInUseGoes) {
    Drives::SetLink({'E', Survey});
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Data_drive", "E:\\TARVEX\\");
    Open();
    Grid().setCurrentCell(RowOf("E"), 0);
    Click(*Form, "cmdRemove");
    EXPECT_EQ(RowOf("E"), -1);
    const std::string question = "E: is in use by Data_drive and would be removed.\r\n\r\nSave all the same?";
    Desktop.ExpectMessage("Edit Drive Letters", question, Answer::No);
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    EXPECT_NE(Drives::DriveLetters().find('E'), std::string::npos);
    Desktop.ExpectMessage("Edit Drive Letters", question, Answer::Yes);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Drives::DriveLetters().find('E'), std::string::npos);
}

TEST_F(EditDrives, ChangesNothingByCancel) {
    Open();
    Add("F", Survey);
    const std::string question = "The changes are not saved.  Leave all the same?";
    Desktop.ExpectMessage("Edit Drive Letters", question, Answer::No);
    Click(*Form, "cmdCancel");
    ASSERT_FALSE(Form.isNull());
    Desktop.ExpectMessage("Edit Drive Letters", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Drives::DriveLetters().find('F'), std::string::npos);
}

TEST_F(EditDrives, AreReachedFromTheEditorOfTheFolders) {
    auto* folders = new frmEditTarvexINI;
    Form = folders;
    Form->show();
    Control<QLineEdit>(*Form, "txtDownload_path").setText("F:\\");
    EXPECT_EQ(TextOf(*Form, "lblDownload_pathState"), "missing");
    Click(*Form, "cmdDrives");
    QPointer<QWidget> drives;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmEditDrives" && window->isVisible())
            drives = window;
    ASSERT_FALSE(drives.isNull());
    Drives::SetLink({'F', Survey});
    Click(*drives, "cmdCancel");
    HandleEvents();
    EXPECT_EQ(TextOf(*Form, "lblDownload_pathState"), "exists");
}

TEST_F(EditDrives, LeaveTheEditorTypeThatNobodyTouched) {
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Editor_type", "7");
    const auto open = [&] {
        Form = new frmEditTarvexINI;
        Form->show();
        HandleEvents();
    };
    const auto type = [] { return IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"); };
    open();
    EXPECT_EQ(Control<QComboBox>(*Form, "cmbEditorType").currentIndex(), 0);
    Click(*Form, "cmdOK");
    EXPECT_EQ(type(), "7");
    open();
    Control<QComboBox>(*Form, "cmbEditorType").setCurrentIndex(1);
    Click(*Form, "cmdOK");
    EXPECT_EQ(type(), "0");
    open();
    EXPECT_EQ(Control<QComboBox>(*Form, "cmbEditorType").currentIndex(), 1);
    Control<QComboBox>(*Form, "cmbEditorType").setCurrentIndex(0);
    Click(*Form, "cmdOK");
    EXPECT_EQ(type(), "1");
}

}  // namespace Dorvane::Testing
