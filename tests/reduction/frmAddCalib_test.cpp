// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/frmAddCalib.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "tests/reduction/CalibSite.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

namespace {

using Texts = std::vector<std::string>;

struct FrmAddCalib : CalibSite {
    ~FrmAddCalib() override { HandleEvents(); }

    frmAddCalib& Open(const std::string& directory = "D:\\TARVEX\\CALIB\\") {
        Dialog = new frmAddCalib;
        QObject::connect(Dialog, &frmAddCalib::Unloaded, Dialog, [this] {
            ++Ends;
            Result = Dialog->Answer();
        });
        Dialog->SetDirectory(directory);
        Dialog->ShowModal();
        HandleEvents();
        return *Dialog;
    }
    void Close() {
        if (Ends == 0)
            Click(*Dialog, "cmdCancel");
    }

    frmAddCalib* Dialog = nullptr;
    int Ends = 0;
    CalibrationAnswer Result{"untouched", "untouched"};
};

}  // namespace

TEST_F(FrmAddCalib, ShowsItsTitleTheFolderAndAllTypes) {
    frmAddCalib& dialog = Open();
    EXPECT_EQ(TextOf(dialog), "Select Calibration to Add");
    EXPECT_EQ(TextOf(dialog, "lblDirectory"), "D:\\TARVEX\\CALIB\\");
    EXPECT_EQ(Items(dialog, "lstType"), (Texts{"STAFF", "EDM"}));
    EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
    EXPECT_EQ(TextOf(dialog, "lblType"), "");
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "");
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.focusWidget(), dialog.findChild<QListWidget*>("lstType"));
    Close();
}

TEST_F(FrmAddCalib, AnswersWithTheChosenTypeAndEpoch) {
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "EDM");
    EXPECT_EQ(TextOf(dialog, "lblType"), "EDM");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Texts{"C2601", "C2607", "C2701"}));
    ClickItem(dialog, "lstEpoch", "C2607");
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "C2607");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Ends, 1);
    EXPECT_EQ(Result, (CalibrationAnswer{"EDM", "C2607"}));
}

TEST_F(FrmAddCalib, ForgetsTheEpochWithAnotherType) {
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "EDM");
    ClickItem(dialog, "lstEpoch", "C2607");
    ClickItem(dialog, "lstType", "STAFF");
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Texts{"C2701"}));
    Close();
}

TEST_F(FrmAddCalib, ForgetsTheEpochWithTheSameTypeClickedAgain) {
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "EDM");
    ClickItem(dialog, "lstEpoch", "C2607");
    ClickItem(dialog, "lstType", "EDM");
    EXPECT_EQ(TextOf(dialog, "lblEpoch"), "");
    EXPECT_EQ(Items(dialog, "lstEpoch").size(), 3U);
    Close();
}

TEST_F(FrmAddCalib, StaysUntilBothAreChosen) {
    frmAddCalib& dialog = Open();
    for (int i = 0; i < 2; ++i) {
        Desktop.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
        Click(dialog, "cmdOK");
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Information);
        EXPECT_TRUE(dialog.isVisible());
        ClickItem(dialog, "lstType", "EDM");
    }
    EXPECT_EQ(Ends, 0);
    Close();
}

TEST_F(FrmAddCalib, OffersNoEpochWhenAllAreRegistered) {
    PutFile(Registry,
            " *       CALIB     STAFF     C2601\r\n"
            " *       CALIB     STAFF     C2607\r\n"
            " *       CALIB     STAFF     C2701\r\n");
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "STAFF");
    EXPECT_TRUE(Items(dialog, "lstEpoch").empty());
    Desktop.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Ends, 0);
    Close();
}

TEST_F(FrmAddCalib, ListsSixteenTypesAndEpochs) {
    PutFullStructure();
    frmAddCalib& dialog = Open();
    EXPECT_EQ(Items(dialog, "lstType").size(), 16U);
    ClickItem(dialog, "lstType", "TYPE16");
    EXPECT_EQ(Items(dialog, "lstEpoch").size(), 16U);
    ClickItem(dialog, "lstEpoch", "EPOCH16");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Result, (CalibrationAnswer{"TYPE16", "EPOCH16"}));
}

TEST_F(FrmAddCalib, PresetsTheTypeThatIsTheSecondPartOfTheFolder) {
    frmAddCalib& dialog = Open("D:\\STAFF\\C2601\\");
    EXPECT_EQ(TextOf(dialog, "lblType"), "STAFF");
    EXPECT_EQ(Items(dialog, "lstEpoch"), (Texts{"C2701"}));
    EXPECT_EQ(Control<QListWidget>(dialog, "lstType").currentItem()->text(), "STAFF");
    EXPECT_TRUE(Control<QListWidget>(dialog, "lstType").currentItem()->isSelected());
    ClickItem(dialog, "lstEpoch", "C2701");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Result, (CalibrationAnswer{"STAFF", "C2701"}));
}

TEST_F(FrmAddCalib, AnswersEmptyTextsToCancelAndToItsWindowButton) {
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "EDM");
    ClickItem(dialog, "lstEpoch", "C2607");
    Click(dialog, "cmdCancel");
    EXPECT_EQ(Result, CalibrationAnswer());
    Ends = 0;
    Result = {"untouched", ""};
    frmAddCalib& again = Open();
    QTest::keyClick(&again, Qt::Key_Escape);
    HandleEvents();
    EXPECT_EQ(Ends, 1);
    EXPECT_EQ(Result, CalibrationAnswer());
}

TEST_F(FrmAddCalib, ChoosesNothingByTheFocusAlone) {
    frmAddCalib& dialog = Open();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    HandleEvents();
    EXPECT_EQ(TextOf(dialog, "lblType"), "");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    HandleEvents();
    EXPECT_EQ(TextOf(dialog, "lblType"), "EDM");
    Close();
}

TEST_F(FrmAddCalib, TakesADoubleClickOnAnEpochForOK) {
    frmAddCalib& dialog = Open();
    ClickItem(dialog, "lstType", "EDM");
    auto& epochs = Control<QListWidget>(dialog, "lstEpoch");
    const QPoint place = epochs.visualItemRect(epochs.item(1)).center();
    QTest::mouseClick(epochs.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(epochs.viewport(), Qt::LeftButton, {}, place);
    HandleEvents();
    EXPECT_EQ(Result, (CalibrationAnswer{"EDM", "C2607"}));
}

TEST_F(FrmAddCalib, OpensEmptyWithoutACalibrationPath) {
    Global().Calib_path.clear();
    frmAddCalib& dialog = Open("");
    EXPECT_TRUE(Items(dialog, "lstType").empty());
    Desktop.ExpectMessageTitled("Missing Information");
    Click(dialog, "cmdOK");
    Close();
}

TEST_F(FrmAddCalib, ReportsASeventeenthTypeAndStaysUsable) {
    std::vector<std::string> lines{"CALIB", ""};
    for (int i = 1; i <= 17; ++i)
        lines.push_back("TYPE" + std::to_string(i));
    PutLines(Structure, lines);
    ExpectReport(Desktop, 9, "Subscript out of range", "basRead-ReadCalibStrFile");
    Open();
    Close();
    EXPECT_EQ(Result, CalibrationAnswer());
}

TEST_F(FrmAddCalib, ShowsAccentsAsTheFileHasThem) {
    PutFile(Structure, "CALIB\r\n\r\nNIV\xC9&\r\n\r\n\xC9T\xC9\r\n");
    frmAddCalib& dialog = Open("D:\\NIV\xC9&\\");
    EXPECT_EQ(TextOf(dialog, "lblType"), "NIV\xC9&");
    ClickItem(dialog, "lstEpoch", "\xC9T\xC9");
    Click(dialog, "cmdOK");
    EXPECT_EQ(Result, (CalibrationAnswer{"NIV\xC9&", "\xC9T\xC9"}));
}

TEST_F(FrmAddCalib, SaysInAnEmptyListWhyItIsEmpty) {
    frmAddCalib& dialog = Open();
    EXPECT_FALSE(IsShown(dialog, "lblEmptylstType"));
    EXPECT_FALSE(IsShown(dialog, "lblEmptylstEpoch"));
    Close();
    PutFile(Registry,
            " *       CALIB     STAFF     C2601\r\n"
            " *       CALIB     STAFF     C2607\r\n"
            " *       CALIB     STAFF     C2701\r\n");
    frmAddCalib& full = Open();
    ClickItem(full, "lstType", "STAFF");
    EXPECT_TRUE(IsShown(full, "lblEmptylstEpoch"));
    EXPECT_EQ(
        TextOf(full, "lblEmptylstEpoch"),
        "STAFF has all epochs already.  Enter more on the home menu under Edit > Calibration Structures.");
    ClickItem(full, "lstType", "EDM");
    EXPECT_FALSE(IsShown(full, "lblEmptylstEpoch"));
    Click(full, "cmdCancel");
}

}  // namespace Dorvane::Testing
