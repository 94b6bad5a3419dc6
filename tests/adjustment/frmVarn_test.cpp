// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <filesystem>

#include "tests/adjustment/VarnScreenSite.h"

namespace Dorvane::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct frmVarnTest : VarnScreenSite {
    static void Type(QWidget& screen, const char* text) {
        auto& input = Control<QLineEdit>(screen, "txtInput");
        input.selectAll();
        QTest::keyClick(&input, Qt::Key_Delete);
        QTest::keyClicks(&input, QLatin1String(text));
        HandleEvents();
    }
    static std::vector<QString> Captions(const QMenu& menu) {
        std::vector<QString> captions;
        for (const QAction* action : menu.actions())
            if (!action->isSeparator())
                captions.push_back(action->text());
        return captions;
    }
    static void ExpectNoInput(QWidget& screen) {
        for (const char* name : {"chkInputFile", "cmdViewVersion", "cmbVersion", "chkOutputFile"})
            EXPECT_FALSE(IsEnabled(screen, name)) << name;
        EXPECT_THAT(Entries(screen, "cmbVersion"), IsEmpty());
        EXPECT_EQ(TextOf(screen, "lblPar"), "");
        EXPECT_EQ(TextOf(screen, "lblOutput"), "");
    }
};

TEST_F(frmVarnTest, HasItsCaptions) {
    frmVarn& screen = Open();
    EXPECT_EQ(TextOf(screen), "Run Varn");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"lblInputTitle", "Master Input File :"},
        {"lblParTitle", "Parameter File :"},
        {"lblOutputTitle", "Output File :"},
        {"lblVersionTitle", "Version :"},
        {"lblVarnTitle", "Adjustment Type :"},
        {"lblStart", "Start"},
        {"lblGo", "Go"},
        {"lblStartReturn", ""},
        {"lblGoReturn", ""},
        {"fraOptions", "File Options (Tarvex)"},
        {"chkInputFile", "Input File"},
        {"chkParFile", "Parameter File"},
        {"chkOutputFile", "OutputFile"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    for (const char* unbuilt : {"lblPrint", "lblScaleFactor", "lblEllMag"})
        EXPECT_EQ(screen.findChild<QWidget*>(unbuilt), nullptr) << unbuilt;
}

TEST_F(frmVarnTest, HasItsMenus) {
    frmVarn& screen = Open();
    EXPECT_THAT(Captions(Control<QMenu>(screen, "mnuFile")), ElementsAre("&Printer Setup", "&Go Home"));
    EXPECT_THAT(Captions(Control<QMenu>(screen, "mnuOptions")), ElementsAre("Editor Type"));
    EXPECT_THAT(Captions(Control<QMenu>(screen, "mnuEditorType")),
                ElementsAre("Tarvex Editor", "Text Editor"));
    EXPECT_THAT(Captions(Control<QMenu>(screen, "mnuExport")),
                ElementsAre("&Dbase Update (DBS File)", "&Shape (XYZ File)", "&7Fit (INU File)",
                            "K&eld (TRG File)", "S&tation (STA File)", "&Acad (SCR File)"));
    EXPECT_EQ(Control<QMenu>(screen, "mnuFile").title(), "&File");
    EXPECT_EQ(Control<QMenu>(screen, "mnuOptions").title(), "&Options");
    EXPECT_EQ(Control<QMenu>(screen, "mnuExport").title(), "&Export");
    EXPECT_FALSE(Item(screen, "mnuAcad").isVisible());
    EXPECT_TRUE(Item(screen, "MnuSta").isVisible());
}

TEST_F(frmVarnTest, GivesEveryButtonAPictureAndATip) {
    frmVarn& screen = Open();
    for (auto* button : screen.centralWidget()->findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->icon().isNull()) << button->objectName().toStdString();
        EXPECT_EQ(button->text(), "");
        EXPECT_NE(button->toolTip(), "");
        EXPECT_NE(button->accessibleName(), "");
    }
    EXPECT_EQ(Control<QPushButton>(screen, "cmdBrowse").toolTip(), "Browse for Input File");
    EXPECT_EQ(Control<QPushButton>(screen, "cmdViewVersion").toolTip(), "Veiw version notes");
}

TEST_F(frmVarnTest, NamesItsButtonsWherePicturesAreMissing) {
    std::filesystem::remove_all(Drives::HostPath("P:\\DORVANE\\graphics"));
    frmVarn& screen = Open();
    EXPECT_EQ(TextOf(screen, "cmdVarn"), "Run");
    EXPECT_EQ(TextOf(screen, "cmdHome"), "Home");
    EXPECT_EQ(Control<QPushButton>(screen, "cmdVarn").shortcut(), QKeySequence(Qt::Key_F5));
}

TEST_F(frmVarnTest, ReportsABrokenPictureAndNamesItsButton) {
    PutFile("P:\\DORVANE\\graphics\\adjust.svg", "no picture");
    Desktop.ExpectMessageTitled("Program Error");
    frmVarn& screen = Open();
    EXPECT_THAT(Desktop.Shown[0].Text, testing::HasSubstr("Error : 481"));
    EXPECT_EQ(TextOf(screen, "cmdVarn"), "Run");
    EXPECT_EQ(TextOf(screen, "cmdHome"), "");
}

TEST_F(frmVarnTest, WorksByTheKeyboard) {
    PutLines(Output, {"the listing"});
    InstallEditor();
    frmVarn& screen = Open();
    // A button that a key presses is shown pressed before its click comes.
    const auto press = [&](Qt::Key key, Qt::KeyboardModifier modifier, const std::function<bool()>& done) {
        QTest::keyClick(&screen, key, modifier);
        EXPECT_TRUE(QTest::qWaitFor(done)) << key;
    };
    Desktop.ExpectFile("", Net);
    press(Qt::Key_O, Qt::ControlModifier, [&] { return TextOf(screen, "txtInput") == Net; });
    Package.Go = [] { return 1; };
    Desktop.ExpectMessageTitled("Varn Error");
    press(Qt::Key_F5, Qt::NoModifier, [&] { return Package.Calls.size() == 3; });
    press(Qt::Key_U, Qt::AltModifier, [&] { return IsTicked(screen, "chkOutputFile"); });
    press(Qt::Key_E, Qt::ControlModifier, [&] { return !Desktop.Started.empty(); });
    EXPECT_THAT(Desktop.Started, ElementsAre("C:\\EDIT\\ED.EXE D:\\ADJ\\NET.OUT"));
    press(Qt::Key_P, Qt::ControlModifier, [&] { return !Desktop.PrintedLines.empty(); });
}

TEST_F(frmVarnTest, StartsWithNothingChosen) {
    frmVarn& screen = Open();
    EXPECT_EQ(TextOf(screen, "txtInput"), "");
    ExpectNoInput(screen);
    EXPECT_FALSE(IsEnabled(screen, "chkParFile"));
    EXPECT_FALSE(ExportsEnabled(screen));
    for (const char* name : {"txtInput", "cmdBrowse", "cmbVarn", "cmdVarn", "cmdEdit", "cmdPrint", "cmdHome",
                             "mnuDbs", "MnuSta", "mnuPrinterSetup"})
        EXPECT_TRUE(IsEnabled(screen, name)) << name;
    EXPECT_THAT(Entries(screen, "cmbVarn"),
                ElementsAre("(0) - Compact w/ No inversion", "(1) - Compact w/ Inversion",
                            "(-1) - L1 Norm/Simplex", "(7) - Jordan w/ Inversion"));
    EXPECT_EQ(Chosen(screen, "cmbVarn"), "(1) - Compact w/ Inversion");
    EXPECT_FALSE(IsShown(screen, "aniVarn"));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "No input file chosen");
    EXPECT_TRUE(screen.isModal());
    EXPECT_EQ(screen.focusWidget(), screen.findChild<QLineEdit*>("txtInput"));
}

TEST_F(frmVarnTest, WithoutAPrinterCannotPrint) {
    Global().PrinterPresent = false;
    frmVarn& screen = OpenNet();
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint"));
    EXPECT_FALSE(IsEnabled(screen, "mnuPrinterSetup"));
}

TEST_F(frmVarnTest, SetsUpThePrinter) {
    struct : ScriptedDesktop {
        bool SetupPrinter(PrinterChoice& /*choice*/) override {
            ++Asked;
            return false;
        }
        int Asked = 0;
    } desktop;
    Choose(Open(), "mnuPrinterSetup");
    EXPECT_EQ(desktop.Asked, 1);
}

TEST_F(frmVarnTest, TicksTheEditorOfTheProfile) {
    const std::vector<std::pair<const char*, bool>> values = {
        {"", false}, {"1", false}, {"no", false}, {"0", true}};
    for (const auto& [value, text] : values) {
        IniWriteString("dv_tarvex.ini", "Tarvex Info", "Editor_type", value);
        frmVarn& screen = Open();
        EXPECT_EQ(IsTicked(screen, "mnuTextEditor"), text) << value;
        EXPECT_EQ(IsTicked(screen, "mnuTarvexEditor"), !text) << value;
        EXPECT_EQ(TextOf(screen, "fraOptions"), text ? "File Options (Text)" : "File Options (Tarvex)");
        screen.Unload();
        HandleEvents();
    }
}

TEST_F(frmVarnTest, KeepsTheChosenEditor) {
    frmVarn& screen = Open();
    for (int i = 0; i < 2; ++i) {
        Choose(screen, "mnuTextEditor");
        EXPECT_TRUE(IsTicked(screen, "mnuTextEditor"));
        EXPECT_FALSE(IsTicked(screen, "mnuTarvexEditor"));
        EXPECT_EQ(TextOf(screen, "fraOptions"), "File Options (Text)");
        EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "0");
    }
    Choose(screen, "mnuTarvexEditor");
    EXPECT_FALSE(IsTicked(screen, "mnuTextEditor"));
    EXPECT_TRUE(IsTicked(screen, "mnuTarvexEditor"));
    EXPECT_EQ(TextOf(screen, "fraOptions"), "File Options (Tarvex)");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "1");
}

TEST_F(frmVarnTest, WorksWhereTheProfileCannotBeWritten) {
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Editor_type", "1");
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            frmVarn& screen = Open("D:\\ADJ");
            Choose(screen, "mnuTextEditor");
            EXPECT_TRUE(IsTicked(screen, "mnuTextEditor"));
            Click(screen, "cmdHome");
            EXPECT_THAT(Nav.Calls, ElementsAre("ShowHome"));
        });
        EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "1");
    });
}

TEST_F(frmVarnTest, OfAnExistingInputShowsItsFilesAndVersions) {
    PutNet();
    frmVarn& screen = OpenNet();
    EXPECT_EQ(TextOf(screen, "txtInput"), Net);
    EXPECT_EQ(TextOf(screen, "lblPar"), "D:\\ADJ\\NET.PAR");
    EXPECT_EQ(TextOf(screen, "lblOutput"), Output);
    EXPECT_FALSE(IsRed(screen, "lblPar"));
    EXPECT_EQ(Colour(screen, "lblPar"), screen.palette().color(QPalette::WindowText));
    EXPECT_FALSE(IsRed(screen, "lblOutput"));
    for (const char* name : {"chkInputFile", "chkParFile", "chkOutputFile", "cmdViewVersion", "cmbVersion"})
        EXPECT_TRUE(IsEnabled(screen, name)) << name;
    EXPECT_THAT(Entries(screen, "cmbVersion"), ElementsAre("Master", "Version 01", "Version 02"));
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Master");
    EXPECT_TRUE(ExportsEnabled(screen));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Output file present");
    EXPECT_EQ(screen.focusWidget(), screen.findChild<QPushButton*>("cmdVarn"));
}

TEST_F(frmVarnTest, ShowsMissingFilesInRed) {
    frmVarn& screen = OpenNet();
    EXPECT_TRUE(IsRed(screen, "lblPar"));
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
    EXPECT_TRUE(IsEnabled(screen, "chkParFile"));
    EXPECT_FALSE(IsEnabled(screen, "chkOutputFile"));
    EXPECT_FALSE(ExportsEnabled(screen));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "No output file yet");
}

TEST_F(frmVarnTest, FollowsAPathThatIsTyped) {
    PutNet();
    frmVarn& screen = Open();
    Type(screen, "d:\\adj\\net.inp");
    EXPECT_EQ(TextOf(screen, "txtInput"), "d:\\adj\\net.inp");
    EXPECT_EQ(TextOf(screen, "lblOutput"), "d:\\adj\\net.OUT");
    EXPECT_TRUE(ExportsEnabled(screen));
    QTest::keyClick(&Control<QLineEdit>(screen, "txtInput"), Qt::Key_Backspace);
    ExpectNoInput(screen);
    EXPECT_FALSE(ExportsEnabled(screen));
    EXPECT_TRUE(IsEnabled(screen, "chkParFile"));
    EXPECT_TRUE(IsEnabled(screen, "mnuDbs"));
    EXPECT_TRUE(IsEnabled(screen, "MnuSta"));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Input file not found");
}

TEST_F(frmVarnTest, OnAnEmptyInputLeavesTheExportEntries) {
    PutNet();
    frmVarn& screen = OpenNet();
    Type(screen, "");
    ExpectNoInput(screen);
    EXPECT_TRUE(ExportsEnabled(screen));
}

TEST_F(frmVarnTest, KeepsATypedCharacterThatTheSystemDoesNotHold) {
    frmVarn& screen = Open();
    Control<QLineEdit>(screen, "txtInput").setText(QStringLiteral("D:\\\u0416.INP"));
    EXPECT_EQ(Control<QLineEdit>(screen, "txtInput").text(), QStringLiteral("D:\\\u0416.INP"));
    ExpectNoInput(screen);
}

TEST_F(frmVarnTest, ReportsAnExistingFileWithoutItsFolder) {
    PutFile("D:\\LONE.INP", "");
    Drives::ChangeDrive('D');
    ExpectReport(Desktop, 5, "Invalid procedure call or argument", "frmVarn-txtInput_Change");
    frmVarn& screen = Open("LONE.INP");
    EXPECT_TRUE(screen.isVisible());
    screen.SetInput(Net);
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Master");
}

TEST_F(frmVarnTest, CutsTheNamesAtAPointInAFolderName) {
    PutFile("D:\\JOB.1\\NET.INP", "");
    frmVarn& screen = Open("D:\\JOB.1\\NET.INP");
    EXPECT_EQ(TextOf(screen, "lblPar"), "D:\\JOB.PAR");
    EXPECT_EQ(TextOf(screen, "lblOutput"), "D:\\JOB.OUT");
}

TEST_F(frmVarnTest, ShowsAccentsAsTheyStandAndHandsThemOver) {
    const std::string path = "D:\\D\xE9p\xF4t && x\\R\xE9seau&i.INP";
    PutFile(path, "");
    frmVarn& screen = Open(path);
    EXPECT_EQ(TextOf(screen, "txtInput"), path);
    EXPECT_EQ(TextOf(screen, "lblOutput"), "D:\\D\xE9p\xF4t && x\\R\xE9seau&i.OUT");
    Package.Go = [] { return 1; };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_THAT(Package.Calls, ElementsAre("start " + path, "go 1", "stop"));
}

TEST_F(frmVarnTest, ShowsMarkupAsItStands) {
    const std::string path = "D:\\<b>x</b>.INP";
    frmVarn& screen = Open(path);
    EXPECT_EQ(TextOf(screen, "txtInput"), path);
    EXPECT_TRUE(Control<QLineEdit>(screen, "txtInput").toolTip().contains("&lt;b&gt;x"));
    EXPECT_EQ(Control<QLabel>(screen, "lblPar").textFormat(), Qt::PlainText);
    EXPECT_EQ(Control<QLabel>(screen, "lblOutput").textFormat(), Qt::PlainText);
    Package.Go = [] { return 1; };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(Package.Calls[0], "start " + path);
}

TEST_F(frmVarnTest, OfAVersionShowsWhetherThatVersionsFilesAreThere) {
    PutNet();
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 2);
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 01");
    EXPECT_EQ(TextOf(screen, "lblPar"), "D:\\ADJ\\NET.PAR");
    EXPECT_EQ(TextOf(screen, "lblOutput"), Output);
    EXPECT_TRUE(IsRed(screen, "lblPar"));
    EXPECT_FALSE(IsRed(screen, "lblOutput"));
    EXPECT_TRUE(ExportsEnabled(screen));
    Pick(screen, "cmbVersion", 3);
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
    EXPECT_FALSE(IsEnabled(screen, "chkOutputFile"));
    EXPECT_TRUE(IsEnabled(screen, "chkParFile"));
    EXPECT_FALSE(ExportsEnabled(screen));
    Pick(screen, "cmbVersion", 1);
    EXPECT_FALSE(IsRed(screen, "lblPar"));
    EXPECT_TRUE(ExportsEnabled(screen));
}

TEST_F(frmVarnTest, OfAVersionWithoutListingLeavesTwoEntriesThatDoNothing) {
    Put("NET_v01.INP");
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 2);
    EXPECT_FALSE(ExportsEnabled(screen));
    for (const char* entry : {"mnuDbs", "MnuSta"}) {
        Choose(screen, entry);
        EXPECT_FALSE(IsTicked(screen, entry)) << entry;
    }
    EXPECT_THAT(Desktop.Dialogs, IsEmpty());
}

TEST_F(frmVarnTest, ListsNoVersionZero) {
    Put("NET_v00.INP");
    Put("NET_v99.INP");
    frmVarn& screen = OpenNet();
    EXPECT_THAT(Entries(screen, "cmbVersion"), ElementsAre("Master", "Version 99"));
}

TEST_F(frmVarnTest, GoesOnWithVersionsThatVanished) {
    PutNet();
    frmVarn& screen = OpenNet();
    std::filesystem::remove_all(Drives::HostPath("D:\\ADJ\\"));
    Pick(screen, "cmbVersion", 2);
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 01");
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
    EXPECT_FALSE(ExportsEnabled(screen));
    screen.SetInput(Net);
    ExpectNoInput(screen);
}

TEST_F(frmVarnTest, HidesWhileTheVersionsAreViewed) {
    PutNet();
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 3);
    Click(screen, "cmdViewVersion");
    EXPECT_THAT(Nav.Calls, ElementsAre("OpenVersions " + Net + "|Version 02"));
    EXPECT_FALSE(screen.isVisible());
    Nav.WhenClosed();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.isModal());
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 02");
    Click(screen, "cmdViewVersion");
    EXPECT_EQ(Nav.Calls.size(), 2U);
}

TEST_F(frmVarnTest, IsNotAskedForWhenItIsGone) {
    frmVarn& screen = OpenNet();
    Click(screen, "cmdViewVersion");
    screen.Unload();
    HandleEvents();
    ASSERT_TRUE(Screen.isNull());
    Nav.WhenClosed();
}

TEST_F(frmVarnTest, GoesHomeByButtonMenuEscapeAndItsWindowButton) {
    const std::vector<std::function<void(frmVarn&)>> ways = {
        [](frmVarn& screen) { Click(screen, "cmdHome"); },
        [](frmVarn& screen) { Choose(screen, "mnuGoHome"); },
        [](frmVarn& screen) { QTest::keyClick(&screen, Qt::Key_Escape); },
        [](frmVarn& screen) { screen.close(); }};
    for (const auto& leave : ways) {
        frmVarn& screen = OpenNet();
        leave(screen);
        HandleEvents();
        EXPECT_TRUE(Screen.isNull());
        EXPECT_THAT(Nav.Calls, ElementsAre("ShowHome"));
        Nav.Calls.clear();
        EXPECT_EQ(LastPath(), "");
    }
}

TEST_F(frmVarnTest, KeepsAFolderThatStandsForTheInputAsTheLastPath) {
    frmVarn& screen = Open("D:\\ADJ");
    Click(screen, "cmdHome");
    EXPECT_EQ(LastPath(), "D:\\ADJ\\");
}

TEST_F(frmVarnTest, HasMnemonicsThatDoNotCollide) {
    frmVarn& screen = Open();
    QString seen;
    const auto add = [&](const QString& caption) {
        const int at = caption.indexOf('&');
        if (at < 0)
            return;
        EXPECT_FALSE(seen.contains(caption[at + 1], Qt::CaseInsensitive)) << caption.toStdString();
        seen += caption[at + 1];
    };
    for (const QAction* menu : screen.menuBar()->actions())
        add(menu->text());
    for (const auto* label : screen.centralWidget()->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            add(label->text());
    for (const auto* button : screen.centralWidget()->findChildren<QAbstractButton*>())
        add(button->text());
    EXPECT_EQ(seen.size(), 9);
}

}  // namespace
}  // namespace Dorvane::Testing
