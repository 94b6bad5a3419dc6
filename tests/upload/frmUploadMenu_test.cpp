// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <algorithm>
#include <fstream>

#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "tests/support/Reports.h"
#include "tests/upload/UploadScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

const std::string MainProfile = "C:\\WINDOWS\\dv_main.ini";

struct frmUploadMenuTest : UploadScreenSite {
    static std::string Stored(const char* key) {
        return IniReadString("dv_tarvex.ini", "Upload Select", key);
    }
    static bool IsChecked(QWidget& screen, const char* action) {
        return screen.findChild<QAction*>(QLatin1String(action))->isChecked();
    }
    static QAbstractButton& Button(QWidget& screen, const char* name) {
        return Control<QAbstractButton>(screen, name);
    }
};

TEST_F(frmUploadMenuTest, HasItsCaptions) {
    frmUploadMenu& screen = Open();
    EXPECT_EQ(TextOf(screen), "Upload Data");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"cmdUpload", "Upload File(s)"},
        {"cmdEdit", "Edit File(s)"},
        {"cmdPrint", "Print File(s)"},
        {"cmdDelete999", "Delete *.999 Files"},
        {"lblComPort", "Com Port"},
        {"cmdReduce", "Go to Data Reduction"},
        {"cmdHome", "Go Home"},
        {"chkPrintUpload", "Print file(s) while uploading"},
        {"lblFromTitle", "Upload From ..."},
        {"lblToTitle", "Upload To ..."},
        {"lblSelectionTitle", "File Selection :"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    const std::vector<std::pair<const char*, const char*>> items = {{"mnuPrinter", "&Printer Setup"},
                                                                    {"mnuGoHome", "Go &Home"},
                                                                    {"mnuTarvex", "&Tarvex"},
                                                                    {"mnuManual", "&Manual"}};
    for (const auto& [name, caption] : items)
        EXPECT_EQ(screen.findChild<QAction*>(QLatin1String(name))->text(), QLatin1String(caption)) << name;
    EXPECT_EQ(Control<QMenu>(screen, "mnuFile").title(), QLatin1String("&File"));
    EXPECT_EQ(Control<QMenu>(screen, "mnuOptions").title(), QLatin1String("&Options"));
    EXPECT_EQ(Control<QMenu>(screen, "mnuPathType").title(), QLatin1String("&Path Type"));
}

TEST_F(frmUploadMenuTest, HasATipOnEveryButtonAndNoMnemonicTwice) {
    frmUploadMenu& screen = Open();
    std::string letters = "fo";  // the menus
    for (const QAbstractButton* button : screen.findChildren<QAbstractButton*>()) {
        if (!button->objectName().startsWith(QLatin1String("cmd")))
            continue;
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
    for (const char* name : {"cmdUpload", "cmdEdit", "cmdPrint", "cmdDelete999", "cmdReduce", "cmdHome",
                             "cmdFromBrowse", "cmdToBrowse", "chkPrintUpload"}) {
        const QString text = Button(screen, name).text();
        letters += text[text.indexOf(QLatin1Char('&')) + 1].toLower().toLatin1();
    }
    for (const char* name : {"lblComPort", "lblSelectionTitle"}) {
        const QString text = Control<QLabel>(screen, name).text();
        letters += text[text.indexOf(QLatin1Char('&')) + 1].toLower().toLatin1();
    }
    std::string once = letters;
    std::sort(once.begin(), once.end());
    once.erase(std::unique(once.begin(), once.end()), once.end());
    EXPECT_EQ(once.size(), letters.size()) << letters;
}

TEST_F(frmUploadMenuTest, TakesPicturesAndTipsFromTheHomeMenusProfile) {
    PutLines(MainProfile, {"[Main Icons]", "Icon3=upload.svg", "Icon4=reduce.svg", "[Main Tips]",
                           "Tip3=Bring them in", "Tip4=Reduce them"});
    frmUploadMenu& screen = Open();
    EXPECT_FALSE(Button(screen, "cmdUpload").icon().isNull());
    EXPECT_FALSE(Button(screen, "cmdReduce").icon().isNull());
    EXPECT_EQ(Button(screen, "cmdUpload").toolTip(), QLatin1String("Bring them in"));
    EXPECT_EQ(Button(screen, "cmdReduce").toolTip(), QLatin1String("Reduce them"));
}

TEST_F(frmUploadMenuTest, KeepsItsOwnTipsAndNoPictureWithoutThem) {
    PutLines(MainProfile, {"[Main Icons]", "Icon3=none-such.ico", "Icon4=", "[Main Tips]", "Tip3="});
    frmUploadMenu& screen = Open();
    EXPECT_TRUE(Button(screen, "cmdUpload").icon().isNull());
    EXPECT_TRUE(Button(screen, "cmdReduce").icon().isNull());
    EXPECT_FALSE(Button(screen, "cmdUpload").toolTip().isEmpty());
}

TEST_F(frmUploadMenuTest, ReportsAPictureThatIsNoneAndOpensAllTheSame) {
    PutFile("P:\\DORVANE\\graphics\\text.ico", "no picture");
    PutLines(MainProfile, {"[Main Icons]", "Icon3=text.ico", "Icon4=reduce.svg"});
    PutSource("A.LEV", "a");
    Desktop.ExpectMessageTitled("Program Error");
    frmUploadMenu& screen = Open();
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Error : 481"), std::string::npos);
    EXPECT_NE(Desktop.Shown.at(0).Text.find("Source : Dorvane-frmUploadMenu-LoadForm"), std::string::npos);
    EXPECT_FALSE(Button(screen, "cmdReduce").icon().isNull());
    EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.LEV"}));
}

TEST_F(frmUploadMenuTest, ShowsATipWithMarkupAsItStands) {
    PutLines(MainProfile, {"[Main Tips]", "Tip3=<b>bold</b>", "Tip4=A & B"});
    frmUploadMenu& screen = Open();
    EXPECT_TRUE(Button(screen, "cmdUpload").toolTip().contains(QLatin1String("&lt;b&gt;bold&lt;/b&gt;")));
    EXPECT_EQ(Button(screen, "cmdReduce").toolTip(), QLatin1String("A & B"));
}

TEST_F(frmUploadMenuTest, ShowsTheFoldersOfTheLastVisit) {
    frmUploadMenu& screen = Open();
    EXPECT_EQ(TextOf(screen, "lblFromPath"), From);
    EXPECT_EQ(TextOf(screen, "lblToPath"), To);
    EXPECT_TRUE(IsNormal(screen, "lblFromPath"));
    EXPECT_TRUE(IsNormal(screen, "lblToPath"));
    EXPECT_EQ(TextOf(screen, "lblDataType"), "LEVEL");
    EXPECT_EQ(screen.DataTypeName(), "LEVEL");
}

TEST_F(frmUploadMenuTest, ShowsFoldersThatAreNotThereInBrightRed) {
    Remember("C:\\GONE\\", "E:\\GONE\\", "0");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(TextOf(screen, "lblFromPath"), "C:\\GONE\\");
    EXPECT_TRUE(IsRed(screen, "lblFromPath"));
    EXPECT_TRUE(IsRed(screen, "lblToPath"));
    EXPECT_TRUE(Items(screen, "lstFileNames").empty());
}

TEST_F(frmUploadMenuTest, OpensWithAProfileOfJunk) {
    std::string junk = "C:\\";
    for (int i = 0; junk.size() < 127; ++i)
        junk += "\"*?<>|:;[]&%\xE9\x01"[i % 14];
    Remember(junk, junk, "abc");
    frmUploadMenu& screen = Open();
    EXPECT_TRUE(IsRed(screen, "lblFromPath"));
    EXPECT_TRUE(IsRed(screen, "lblToPath"));
    EXPECT_EQ(TextOf(screen, "lblFromPath").substr(0, 20), junk.substr(0, 20));
    EXPECT_FALSE(Button(screen, "chkPrintUpload").isChecked());
    Desktop.ExpectMessageTitled("Missing File Name");
    Click(screen, "cmdUpload");
}

TEST_F(frmUploadMenuTest, TakesThePrintSwitchOnlyFromZeroAndOne) {
    for (const auto& [value, on] : std::vector<std::pair<const char*, bool>>{
             {"1", true}, {"0", false}, {"2", false}, {"-1", false}, {"abc", false}, {"", false}}) {
        Remember(From, To, value);
        frmUploadMenu screen(Nav);
        EXPECT_EQ(Button(screen, "chkPrintUpload").isChecked(), on) << value;
    }
}

TEST_F(frmUploadMenuTest, WritesZeroOrOneOverAnyOtherPrintValue) {
    Remember(From, To, "2");
    Click(Open(), "cmdHome");
    EXPECT_EQ(Stored("Print"), "0");
    Remember(From, To, "2");
    Click(Open(), "chkPrintUpload");
    Click(*Nav.Upload, "cmdHome");
    EXPECT_EQ(Stored("Print"), "1");
}

TEST_F(frmUploadMenuTest, ListsPatternsThenFilesAndSelectsTheFirst) {
    PutSource("B.TXT", "");
    PutSource("A.LEV", "");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.LEV", "B.TXT"}));
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV");
    EXPECT_EQ(Control<QListWidget>(screen, "lstFileNames").currentRow(), 0);
    EXPECT_EQ(TextOf(screen, "lblStatus"), "2 file(s) in the source folder");
}

TEST_F(frmUploadMenuTest, KeepsTheBlankBehindTheOnePatternOfATypeWithOneExtension) {
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\");
    Remember(From, "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\", "0");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(Items(screen, "lstFileNames"), Names{"*.GSI "});
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.GSI ");
}

TEST_F(frmUploadMenuTest, ShowsTheFirstTypeInListOrderWhereverItOccursInThePath) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=NORTH LEV LEVEL", "[NORTH]", "Extension=N", "[LEVEL]", "Extension=LEV"});
    EXPECT_EQ(TextOf(Open(), "lblDataType"), "NORTH");
}

TEST_F(frmUploadMenuTest, HasABlankSelectionWhereNoTypeWasEverFound) {
    MakeFolders("D:\\OTHER\\");
    PutFile("D:\\OTHER\\SRV.IDX", "\\OTHER\r\n \r\n");
    Remember(From, "D:\\OTHER\\", "0");
    PutSource("A.LEV", "a");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(TextOf(screen, "lblDataType"), "");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "");
    Desktop.ExpectMessage("Missing File Name", "No file(s) selected.  Can not upload data");
    Click(screen, "cmdUpload");
    ClickItem(screen, "lstFileNames", "A.LEV");
    Click(screen, "cmdUpload");
    EXPECT_EQ(FileContent("D:\\OTHER\\A.LEV"), "a");
}

TEST_F(frmUploadMenuTest, SelectsByMouseAndByKeyboard) {
    PutSource("A.LEV", "");
    PutSource("B.LEV", "");
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "A.LEV");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "A.LEV");
    QTest::keyClick(&Control<QListWidget>(screen, "lstFileNames"), Qt::Key_Down);
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "B.LEV");
    QTest::keyClick(&Control<QListWidget>(screen, "lstFileNames"), Qt::Key_Home);
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV");
    ClickItem(screen, "lstFileNames", "*.LEV *.DAT ");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV *.DAT ");
}

TEST_F(frmUploadMenuTest, HasTheKeyboardInTheList) {
    EXPECT_EQ(Open().focusWidget()->objectName(), QLatin1String("lstFileNames"));
}

TEST_F(frmUploadMenuTest, ListsFiveThousandFiles) {
    const std::string folder = Drives::HostPath(From);
    for (int i = 0; i < 5000; ++i)
        std::ofstream(folder + "/F" + std::to_string(i) + ".LEV");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(Control<QListWidget>(screen, "lstFileNames").count(), 5003);
    ClickItem(screen, "lstFileNames", "F4999.LEV");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "F4999.LEV");
}

TEST_F(frmUploadMenuTest, ShowsNamesAsTheyStand) {
    const Names names = {"A&B.LEV", "\xC9T\xC9.LEV"};
    for (const std::string& name : names)
        PutSource(name, name);
    std::ofstream(Drives::HostPath(From) + "/<B>X.LEV");  // a name that only the host allows
    frmUploadMenu& screen = Open();
    EXPECT_EQ(Items(screen, "lstFileNames"),
              (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "<B>X.LEV", "A&B.LEV", "\xC9T\xC9.LEV"}));
    ClickItem(screen, "lstFileNames", "<B>X.LEV");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "<B>X.LEV");
    for (const std::string& name : names) {
        ClickItem(screen, "lstFileNames", name);
        EXPECT_EQ(TextOf(screen, "lblFileSelection"), name);
        EXPECT_EQ(Control<QLabel>(screen, "lblFileSelection").textFormat(), Qt::PlainText);
        Click(screen, "cmdUpload");
        EXPECT_EQ(FileContent(To + name), name);
    }
}

TEST_F(frmUploadMenuTest, ShowsFoldersWithAccentsAndMarkup) {
    const std::string from = "C:\\\xE9t\xE9 & &amp;\\";
    MakeFolders(from);
    Remember(from, To, "0");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(TextOf(screen, "lblFromPath"), from);
    EXPECT_TRUE(IsNormal(screen, "lblFromPath"));
    Click(screen, "cmdHome");
    EXPECT_EQ(Stored("From_path"), from);
}

TEST_F(frmUploadMenuTest, DisablesPrintingWithoutAPrinter) {
    EXPECT_TRUE(IsEnabled(Open(), "cmdPrint"));
    EXPECT_TRUE(IsEnabled(*Nav.Upload, "mnuPrinter"));
    Global().PrinterPresent = false;
    frmUploadMenu screen(Nav);
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint"));
    EXPECT_FALSE(IsEnabled(screen, "mnuPrinter"));
}

TEST_F(frmUploadMenuTest, ShowsThePathType) {
    for (const int type : {1, 2, 7}) {
        Global().Path_type = static_cast<std::int16_t>(type);
        frmUploadMenu screen(Nav);
        EXPECT_EQ(IsChecked(screen, "mnuTarvex"), type == 1);
        EXPECT_EQ(IsChecked(screen, "mnuManual"), type != 1);
        EXPECT_EQ(TextOf(screen, "lblPathType"), type == 1 ? "Tarvex" : "Manual");
    }
}

TEST_F(frmUploadMenuTest, SetsThePathTypeHereAndOnTheHomeMenu) {
    frmUploadMenu& screen = Open();
    Choose(screen, "mnuManual");
    EXPECT_EQ(Global().Path_type, 2);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "2");
    EXPECT_FALSE(IsChecked(screen, "mnuTarvex"));
    EXPECT_TRUE(IsChecked(screen, "mnuManual"));
    EXPECT_EQ(TextOf(screen, "lblPathType"), "Manual");
    EXPECT_EQ(Nav.Calls, Names{"ShowPathType"});
    Choose(screen, "mnuTarvex");
    EXPECT_EQ(Global().Path_type, 1);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "1");
    EXPECT_EQ(TextOf(screen, "lblPathType"), "Tarvex");
}

TEST_F(frmUploadMenuTest, ShowsAtItsReturnThePathTypeThatWasSetMeanwhile) {
    frmUploadMenu& screen = Open();
    ASSERT_EQ(TextOf(screen, "lblPathType"), "Tarvex");
    screen.hide();
    Global().Path_type = 2;
    screen.show();
    EXPECT_EQ(TextOf(screen, "lblPathType"), "Manual");
    EXPECT_TRUE(IsChecked(screen, "mnuManual"));
}

TEST_F(frmUploadMenuTest, TellsAMissingWasteBinOnceAndWorks) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\trashempty.svg");
    PutSource("A.LEV", "a");
    ExpectReport(Desktop, 53, "File not found: P:\\DORVANE\\graphics\\trashempty.ico",
                 "frmUploadMenu-Update");
    frmUploadMenu& screen = Open();
    EXPECT_EQ(Items(screen, "lstFileNames").size(), 4u);
    Click(screen, "cmdUpload");
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
    EXPECT_FALSE(Button(screen, "cmdDelete999").icon().isNull());
}

TEST_F(frmUploadMenuTest, TakesThePictureOfTheSiteForTheWasteBin) {
    QPixmap own(16, 16);
    own.fill(Qt::magenta);
    const std::string folder = Drives::HostPath("P:\\DORVANE\\graphics\\");
    ASSERT_TRUE(own.save(QString::fromStdString(folder + "/trashempty.ico"), "PNG"));
    const QIcon shown = Button(Open(), "cmdDelete999").icon();
    EXPECT_EQ(shown.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::magenta));
}

TEST_F(frmUploadMenuTest, PrintsNothingByItsPrintButton) {
    frmUploadMenu& screen = Open();
    Click(screen, "cmdPrint");
    EXPECT_TRUE(Desktop.PrintedLines.empty());
    EXPECT_TRUE(Desktop.Started.empty());
    EXPECT_TRUE(Nav.Calls.empty());
}

TEST_F(frmUploadMenuTest, TellsThatTheSerialPortIsOfTheFuture) {
    Click(Open(), "cmdComPort");
    EXPECT_EQ(Nav.Calls, Names{"OpenConstruct Comport Upload|Option Under Construction: In the future this "
                               "option will allow the uploading of data through the comport."});
}

TEST_F(frmUploadMenuTest, SetsUpThePrinter) {
    struct Watching : ScriptedDesktop {
        bool SetupPrinter(PrinterChoice& choice) override {
            ++Dialogs;
            return ScriptedDesktop::SetupPrinter(choice);
        }
        int Dialogs = 0;
    } desktop;
    frmUploadMenu& screen = Open();
    Choose(screen, "mnuPrinter");
    EXPECT_EQ(desktop.Dialogs, 1);
    desktop.PrinterConfirmed = false;  // a cancelled dialog is a normal answer, and no failure
    Choose(screen, "mnuPrinter");
    EXPECT_EQ(desktop.Dialogs, 2);
    EXPECT_TRUE(desktop.Shown.empty());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Nav.Calls.empty());
}

TEST_F(frmUploadMenuTest, EditsTheSelectedFile) {
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "C:\\EDIT\\");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ed.exe");
    PutSource("A.LEV", "");
    frmUploadMenu& screen = Open();
    Desktop.ExpectMessage("Invalid File Name", "Wildcards (* and ?) not allowed.  Must select file name");
    Click(screen, "cmdEdit");
    ClickItem(screen, "lstFileNames", "A.LEV");
    Click(screen, "cmdEdit");
    EXPECT_EQ(Desktop.Started, Names{"C:\\EDIT\\ed.exe " + From + "A.LEV"});
}

TEST_F(frmUploadMenuTest, GoesHomeWithItsSettingsSaved) {
    frmUploadMenu& screen = Open();
    Click(screen, "chkPrintUpload");
    Click(screen, "cmdHome");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Nav.Calls, Names{"ShowHome"});
    EXPECT_EQ(Stored("From_path"), From);
    EXPECT_EQ(Stored("To_path"), To);
    EXPECT_EQ(Stored("Print"), "1");
}

TEST_F(frmUploadMenuTest, GoesHomeByTheMenu) {
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Nav.Calls, Names{"ShowHome"});
}

TEST_F(frmUploadMenuTest, SavesNoFolderThatIsNotThere) {
    Remember("C:\\GONE\\", To, "0");
    Open();
    IniWriteString("dv_tarvex.ini", "Upload Select", "From_path", "C:\\OLD\\");
    Click(*Nav.Upload, "cmdHome");
    EXPECT_EQ(Stored("From_path"), "C:\\OLD\\");
}

}  // namespace
}  // namespace Dorvane::Testing
