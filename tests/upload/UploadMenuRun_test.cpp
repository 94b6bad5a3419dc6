// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QCursor>
#include <QProgressBar>
#include <QTest>
#include <QWindow>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/upload/UploadScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

// Uploads and deletions on the screen, with the real meters.
struct UploadMenuRun : UploadScreenSite {
    static QWidget* Meter() { return QApplication::activeModalWidget(); }
    static bool IsWaiting() {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor != nullptr && cursor->shape() == Qt::WaitCursor;
    }
    static qint64 PictureOf(QWidget& screen, const char* button) {
        return Control<QAbstractButton>(screen, button).icon().cacheKey();
    }
};

TEST_F(UploadMenuRun, UploadsTheSelectionUnderTheMeter) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    PutSource("C.DAT", "c");
    frmUploadMenu& screen = Open();
    const qint64 emptyBin = PictureOf(screen, "cmdDelete999");
    ClickItem(screen, "lstFileNames", "*.LEV *.DAT ");
    Names seen;
    Desktop.OnYield = [&] {
        ASSERT_NE(Meter(), nullptr);
        EXPECT_EQ(Meter()->windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(IsWaiting());
        EXPECT_EQ(TextOf(screen, "lblStatus"), "Uploading file(s) ...");
        const auto& bar = Control<QProgressBar>(*Meter(), "pbrMoveMeter");
        seen.push_back(TextOf(*Meter(), "lblFrom") + " > " + TextOf(*Meter(), "lblTo") + " " +
                       std::to_string(bar.value()) + "/" + std::to_string(bar.maximum()));
    };
    Click(screen, "cmdUpload");
    EXPECT_EQ(seen, (Names{From + "A.LEV > " + To + "A.LEV 0/3", From + "B.LEV > " + To + "B.LEV 1/3",
                           From + "C.DAT > " + To + "C.DAT 2/3"}));
    EXPECT_EQ(Meter(), nullptr);
    EXPECT_FALSE(IsWaiting());
    EXPECT_EQ(AllFiles(To), (Names{"A.LEV", "B.LEV", "C.DAT", Index}));
    EXPECT_EQ(AllFiles(From), (Names{"A.999", "B.999", "C.999"}));
    EXPECT_EQ(Items(screen, "lstFileNames"),
              (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.999", "B.999", "C.999"}));
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV");
    EXPECT_NE(PictureOf(screen, "cmdDelete999"), emptyBin);
    EXPECT_EQ(TextOf(screen, "lblStatus"), "3 files uploaded");
    EXPECT_TRUE(IsShown(screen, "lblOutcome"));
    EXPECT_EQ(TextOf(screen, "lblOutcome"),
              "3 files uploaded to " + To + " : 3 copied.  2 listed in the index " + Index + ".");
}

TEST_F(UploadMenuRun, ForgetsWhatWasMadeWhenAFolderIsChosen) {
    Global().Path_type = 2;
    PutSource("A.LEV", "a");
    frmUploadMenu& screen = Open();
    EXPECT_FALSE(IsShown(screen, "lblOutcome"));
    Click(screen, "cmdUpload");
    EXPECT_TRUE(IsShown(screen, "lblOutcome"));
    Desktop.ExpectFile("Upload Data From ", std::nullopt);
    Click(screen, "cmdFromBrowse");
    EXPECT_EQ(TextOf(screen, "lblStatus"), "1 file uploaded") << "a cancelled dialog changes nothing";
    Desktop.ExpectFile("Upload Data From ", From + "UploadPath");
    Click(screen, "cmdFromBrowse");
    EXPECT_FALSE(IsShown(screen, "lblOutcome"));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "1 file(s) in the source folder");
}

TEST_F(UploadMenuRun, ClaimsNoSuccessWhenAllFilesWereRefused) {
    PutSource("A.LEV", "new");
    PutFile(To + "A.LEV", "old");
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessageTitled("File already exists");
    Click(screen, "cmdUpload");
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Nothing uploaded, 1 refused");
    EXPECT_EQ(TextOf(screen, "lblOutcome"), "Nothing was uploaded to " + To + " : 1 refused.");
}

TEST_F(UploadMenuRun, UploadsOnlyThePickedFile) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "B.LEV");
    Click(screen, "cmdUpload");
    EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "B.999"}));
}

TEST_F(UploadMenuRun, WritesNoIndexLineForATypeThatIsNotIndexed) {
    PutSource("C.DAT", "c");
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "C.DAT");
    Click(screen, "cmdUpload");
    EXPECT_EQ(FileContent(To + "C.DAT"), "c");
    EXPECT_EQ(FileContent(To + Index), IndexHead);
}

TEST_F(UploadMenuRun, PrintsWhileTheBoxIsChecked) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "[File Types]", "LEV_Print=p.exe"});
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "A.LEV");
    Click(screen, "cmdUpload");
    EXPECT_TRUE(Desktop.Started.empty());
    Click(screen, "chkPrintUpload");
    ClickItem(screen, "lstFileNames", "B.LEV");
    Click(screen, "cmdUpload");
    EXPECT_EQ(Desktop.Started, Names{"P:\\DORVANE\\Programs\\P.EXE " + To + "B.LEV"});
}

TEST_F(UploadMenuRun, SaysWhatIsMissingWithoutAMeter) {
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessage("No files exist", "No *.LEV files exist in " + From + " .  Can not upload");
    Click(screen, "cmdUpload");
    EXPECT_EQ(Desktop.Shown.at(0).Picture, Icon::Exclamation);
    EXPECT_EQ(Desktop.Yields, 0);
}

TEST_F(UploadMenuRun, SelectsAnewAfterAnUploadThatWasStopped) {
    PutSource("A.LEV", "a");
    Drives::DeleteFile(To + Index);
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "A.LEV");
    Desktop.ExpectMessage("Missing Survey Index File",
                          To + " no SRV*.IDX file exists here.  Wish to create one and continue?",
                          Answer::No);
    Desktop.ExpectMessage("No files exist", "No survey index files exist in " + To + " .  Can not upload");
    Click(screen, "cmdUpload");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV");
    EXPECT_EQ(AllFiles(From), Names{"A.LEV"});
}

TEST_F(UploadMenuRun, ShowsTheMessageOfARefusedFileOverTheMeterAndGoesOn) {
    PutSource("A.LEV", "new");
    PutSource("B.LEV", "b");
    PutFile(To + "A.LEV", "old");
    struct Watching : ScriptedDesktop {
        Answer ShowMessage(const Message& message) override {
            MeterStood = Meter() != nullptr && Meter()->isVisible();
            return ScriptedDesktop::ShowMessage(message);
        }
        bool MeterStood = false;
    } desktop;
    desktop.ExpectMessage("File already exists", "File A.LEV already exists in " + To + " .  Can not upload");
    frmUploadMenu& screen = Open();
    Click(screen, "cmdUpload");
    EXPECT_TRUE(desktop.MeterStood);
    EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "B.999"}));
    EXPECT_EQ(FileContent(To + "A.LEV"), "old");
}

TEST_F(UploadMenuRun, TakesNothingElseWhileItRuns) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    PutSource("OLD.999", "");
    frmUploadMenu& screen = Open();
    int yields = 0;
    Desktop.OnYield = [&] {
        if (++yields > 2)
            return;
        for (const char* name : {"cmdUpload", "cmdDelete999", "cmdEdit", "cmdFromBrowse", "cmdToBrowse",
                                 "cmdComPort", "cmdReduce", "cmdHome", "chkPrintUpload"}) {
            auto& button = Control<QAbstractButton>(screen, name);
            // As the mouse comes in from the platform, past the meter's modality.
            QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, {},
                              button.mapTo(&screen, button.rect().center()));
        }
        QTest::keyClick(screen.windowHandle(), Qt::Key_H, Qt::AltModifier);
        // And as a click that was on its way when the run began.
        for (const char* name : {"cmdUpload", "cmdDelete999", "cmdHome", "cmdReduce", "cmdComPort"})
            Control<QAbstractButton>(screen, name).click();
        QApplication::processEvents();
    };
    Click(screen, "cmdUpload");
    EXPECT_EQ(yields, 2);
    EXPECT_EQ(Nav.Calls, Names{"MoveMeter"});
    EXPECT_FALSE(IsUnloaded());
    EXPECT_FALSE(Control<QAbstractButton>(screen, "chkPrintUpload").isChecked());
    EXPECT_EQ(AllFiles(From), (Names{"A.999", "B.999", "OLD.999"}));

    Desktop.OnYield = {};
    Click(screen, "cmdHome");
    EXPECT_TRUE(IsUnloaded());
}

TEST_F(UploadMenuRun, GoesOnWithoutAnAnimation) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\filecopy.svg");
    Drives::DeleteFile("P:\\DORVANE\\graphics\\filedelete.svg");
    PutSource("A.LEV", "a");
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessage("Program Error",
                          "Error : 53\r\n\r\nDescription : File not found: "
                          "P:\\DORVANE\\graphics\\filecopy.avi\r\n\r\nSource : "
                          "Dorvane-frmMoveMeter-LoadForm");
    Click(screen, "cmdUpload");
    EXPECT_EQ(FileContent(To + "A.LEV"), "a");
    Desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::Yes);
    Desktop.ExpectMessageTitled("Program Error");
    Click(screen, "cmdDelete999");
    EXPECT_NE(Desktop.Shown.back().Text.find("Source : Dorvane-frmDeleteMeter-LoadForm"), std::string::npos);
    EXPECT_TRUE(AllFiles(From).empty());
}

TEST_F(UploadMenuRun, DeletesTheUploadedFilesUnderTheMeter) {
    for (const char* name : {"A.999", "B.990", "C.99", "D.99X", "E.989", "F.LEV"})
        PutSource(name, "");
    frmUploadMenu& screen = Open();
    const qint64 fullBin = PictureOf(screen, "cmdDelete999");
    Names seen;
    Desktop.OnYield = [&] {
        ASSERT_NE(Meter(), nullptr);
        EXPECT_EQ(TextOf(*Meter()), "Deleting 999 Files");
        seen.push_back(TextOf(*Meter(), "lblDelete"));
    };
    Desktop.ExpectMessage("Delete *.999 File(s)", "Delete *.999 file(s) from " + From + "?", Answer::Yes);
    Click(screen, "cmdDelete999");
    EXPECT_EQ(seen, (Names{From + "A.999", From + "B.990", From + "C.99", From + "D.99X"}));
    EXPECT_EQ(AllFiles(From), (Names{"E.989", "F.LEV"}));
    EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "E.989", "F.LEV"}));
    EXPECT_NE(PictureOf(screen, "cmdDelete999"), fullBin);
    EXPECT_EQ(TextOf(screen, "lblStatus"), "4 files deleted");
    EXPECT_EQ(TextOf(screen, "lblOutcome"), "4 files deleted from " + From + ".");
}

TEST_F(UploadMenuRun, DeletesNothingUnlessTheAnswerIsYes) {
    PutSource("A.999", "");
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::No);
    Click(screen, "cmdDelete999");
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
    EXPECT_EQ(Desktop.Yields, 0);
    EXPECT_EQ(TextOf(screen, "lblStatus"), "1 file(s) in the source folder");
}

TEST_F(UploadMenuRun, SaysThatThereIsNothingToDelete) {
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessage("No Files Found", "No *.999 file(s) to delete.");
    Click(screen, "cmdDelete999");
}

}  // namespace
}  // namespace Dorvane::Testing
