// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QWindow>

#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "core/widgets/Animation.h"
#include "tests/database/frmDbRetrieveTest.h"

namespace Dorvane::Testing {
namespace {

const char* const NoLocation = "Selected location not valid.  Please complete.";

TEST_F(frmDbRetrieveTest, HasItsCaptions) {
    frmDbRetrieve& screen = Open();
    EXPECT_EQ(TextOf(screen), "Database Coordinate Retrieval");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"lblRetrieveFromTitle", "Retrieve From :"},
        {"fraDataType", "Data Types"},
        {"optBenchmark", "Benchmarks"},
        {"optMonument", "Monuments"},
        {"optIdeals", "Ideals"},
        {"opt3dim", "3-Dimensional"},
        {"optMagnets", "Magnets"},
        {"optTransport", "Transport Decks"},
        {"fraCoordNumber", "Coorinate Data"},
        {"optAll", "All Coordinates"},
        {"optCurrent", "Current Coordinates"},
        {"fraUnits", "Units"},
        {"optMeters", "Meters - bias included"},
        {"optInches", "Inches - no bias"},
        {"optFeet", "Feet - no bias"},
        {"cmdRetrieve", "Retreive Data"},
        {"fraOutput", "Output Options"},
        {"lblEdit", "Edit File"},
        {"lblPrint", "Print File"},
        {"lblCopy", "Copy File"},
        {"lblOutputFileTitle", "Output File :"},
        {"cmdBack", "Go Back"},
        {"cmdHome", "Go Home"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    const auto tip = [&](const char* name) { return Control<QWidget>(screen, name).toolTip().toStdString(); };
    EXPECT_EQ(tip("cmdEdit"), "Edit Output File");
    EXPECT_EQ(tip("cmdPrint"), "Print Output File");
    EXPECT_EQ(tip("cmdCopy"), "Copy Output File");
    EXPECT_EQ(screen.findChild<QAction*>("mnuPrinter")->text(), QLatin1String("&Printer Setup"));
    EXPECT_EQ(screen.findChild<QAction*>("mnuGoHome")->text(), QLatin1String("&Go Home"));
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
}

TEST_F(frmDbRetrieveTest, HasATipOnEveryButtonAndNoMnemonicTwice) {
    frmDbRetrieve& screen = Open();
    for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
    ExpectNoneTwice("f" + Mnemonics<QLabel>(screen) + Mnemonics<QPushButton>(screen) +
                    Mnemonics<QRadioButton>(screen));
}

TEST_F(frmDbRetrieveTest, OpensWithoutAChoiceAndWithoutAnOffer) {
    frmDbRetrieve& screen = Open();
    for (const QRadioButton* option : screen.findChildren<QRadioButton*>())
        EXPECT_FALSE(option->isChecked()) << option->objectName().toStdString();
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "");
    ExpectOffer(screen, false);
    EXPECT_FALSE(IsShown(screen, "aniReduce"));
    EXPECT_EQ(screen.focusWidget(), &Tree());
}

TEST_F(frmDbRetrieveTest, ShowsRootsAndLocations) {
    frmDbRetrieve& screen = Open();
    EXPECT_EQ(Captions(), (Texts{"DATABASE\\", "DATABASE\\/DAM", "DATABASE\\/DAM/NORTH",
                                 "DATABASE\\/DAM/SOUTH", "DATABASE\\/TUNNEL", "DATABASE\\/TUNNEL/EAST"}));
    ClickNode("DAM");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "DATABASE\\DAM\\");
    ClickNode("SOUTH");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "DATABASE\\DAM\\SOUTH\\");
}

TEST_F(frmDbRetrieveTest, IsAnEmptyTreeWithoutRecords) {
    Global().PathRecords.Clear();
    Open();
    EXPECT_EQ(Captions(), Texts{"DATABASE\\"});
}

TEST_F(frmDbRetrieveTest, ReportsALocationThatComesBackAndShowsWhatCameBefore) {
    Global().PathRecords = {LocationRecord("DAM", "NORTH"), LocationRecord("DAM", "SOUTH"),
                            LocationRecord("DAM", "NORTH")};
    Desk.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_TRUE(Tells(Desk.Shown[0], "Error : 35602"));
    EXPECT_TRUE(Tells(Desk.Shown[0], "-frmDbRetrieve-LoadForm"));
    EXPECT_EQ(Captions().size(), 4U);
}

TEST_F(frmDbRetrieveTest, AsksForEachMissingChoiceInItsOrder) {
    Open();
    ExpectRefusal(
        "Missing Coordinate Data",
        "Must select an option from the Coordinate Date box.  Either to retreive all coordinates or "
        "just the current "
        "coordinates");
    ClickOptions({"optAll"});
    ExpectRefusal("Missing Units Data",
                  "Must select an option from the Units box.  Either meters, inches, or feet.");
    ClickOptions({"optFeet"});
    ExpectRefusal("Missing Date Type Data",
                  "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
                  "3-dimensional");
    ClickOptions({"optIdeals"});
    ExpectRefusal("Location Incomplete", NoLocation);
}

TEST_F(frmDbRetrieveTest, TakesMagnetsAndTransportDecksForNoDataType) {
    Open();
    ClickNode("NORTH");
    ClickOptions({"optAll", "optMeters"});
    for (const char* option : {"optMagnets", "optTransport"}) {
        ClickOptions({option});
        Desk.ExpectMessageTitled("Missing Date Type Data");
        Click(*Opened, "cmdRetrieve");
    }
}

TEST_F(frmDbRetrieveTest, RefusesTheTopAndARootAsALocation) {
    Open();
    ClickOptions({"opt3dim", "optAll", "optMeters"});
    ClickNode("DATABASE\\");
    ExpectRefusal("Location Incomplete", NoLocation);
    ClickNode("DAM");
    ExpectRefusal("Location Incomplete", NoLocation);
}

TEST_F(frmDbRetrieveTest, RetrievesCurrentCoordinatesAndOffersThem) {
    frmDbRetrieve& screen = Retrieved();
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete");
    EXPECT_EQ(TextOf(screen, "lblOutputFile"), Temp + "3DIM.OUT");
    ExpectOffer(screen, true);
    const Texts lines = FileLines(Temp + "3DIM.OUT");
    ASSERT_EQ(lines.size(), 12U);
    EXPECT_EQ(lines[10].substr(0, 34), "P1        11-21-26       111.00000");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(IsShown(screen, "aniReduce"));
}

TEST_F(frmDbRetrieveTest, RetrievesAllCoordinates) {
    Retrieved("optAll");
    EXPECT_EQ(FileLines(Temp + "3DIM.OUT").size(), 13U);
}

TEST_F(frmDbRetrieveTest, RetrievesInTheChosenUnitsWithoutBias) {
    Retrieved();
    ClickOptions({"optFeet"});
    Click(*Opened, "cmdRetrieve");
    EXPECT_EQ(FileLines(Temp + "3DIM.OUT")[10].substr(0, 34), "P1        11-21-26        36.08924");
}

TEST_F(frmDbRetrieveTest, RetrievesByEnterOnTheTree) {
    Open();
    ClickNode("NORTH");
    ClickOptions({"opt3dim", "optAll", "optMeters"});
    Tree().setFocus();
    QTest::keyClick(&Tree(), Qt::Key_Return);
    EXPECT_TRUE(FileExists(Temp + "3DIM.OUT"));
}

TEST_F(frmDbRetrieveTest, WaitsUnderTheGearsAndSpeaksWithoutThem) {
    PutLines("D:\\TARVEX\\INIT\\BIAS.STR", {"SOUTH    100 200 300 0"});
    frmDbRetrieve& screen = Open();
    Desk.ExpectMessage("Bias Problem", "Bias not read in properly!");
    bool gears = false;
    bool waiting = true;
    Desk.OnMessage = [&] {
        gears =
            IsShown(screen, "aniReduce") && Control<Animation>(screen, "aniReduce").sizeHint().width() > 0;
        waiting = QGuiApplication::overrideCursor() != nullptr;
    };
    ClickNode("NORTH");
    ClickOptions({"opt3dim", "optCurrent", "optMeters"});
    Click(screen, "cmdRetrieve");
    EXPECT_TRUE(gears);
    EXPECT_FALSE(waiting);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(FileLines(Temp + "3DIM.OUT")[10].substr(0, 34), "P1        11-21-26        11.00000");
    ExpectOffer(screen, true);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(IsShown(screen, "aniReduce"));
}

TEST_F(frmDbRetrieveTest, ReportsMissingGearsAndRetrievesAllTheSame) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\gears.svg");
    Desk.ExpectMessageTitled("Program Error");
    frmDbRetrieve& screen = Retrieved();
    EXPECT_TRUE(Tells(Desk.Shown[0], "Error : 53"));
    ExpectOffer(screen, true);
    EXPECT_FALSE(IsShown(screen, "aniReduce"));
}

TEST_F(frmDbRetrieveTest, HidesTheResultAtAnyChangeOfAChoice) {
    frmDbRetrieve& screen = Retrieved();
    for (const char* option : {"optBenchmark", "optMonument", "optIdeals", "optMagnets", "optTransport",
                               "opt3dim", "optAll", "optCurrent", "optInches", "optFeet", "optMeters"}) {
        ClickOptions({option});
        ExpectOffer(screen, false);
        EXPECT_EQ(TextOf(screen, "lblOutputFile"), "");
        ClickOptions({"opt3dim", "optMeters"});
        if (!Control<QRadioButton>(screen, "optAll").isChecked())
            ClickOptions({"optCurrent"});
        Click(screen, "cmdRetrieve");
        ExpectOffer(screen, true);
    }
    EXPECT_TRUE(FileExists(Temp + "3DIM.OUT"));
}

TEST_F(frmDbRetrieveTest, HidesTheResultAlsoWhenTheSameOptionIsClicked) {
    frmDbRetrieve& screen = Retrieved();
    ClickOptions({"optMeters"});
    ExpectOffer(screen, false);
}

TEST_F(frmDbRetrieveTest, HidesTheResultAtAChangeOfTheLocationOnly) {
    frmDbRetrieve& screen = Retrieved();
    ClickNode("NORTH");
    ExpectOffer(screen, true);
    ClickNode("SOUTH");
    ExpectOffer(screen, false);
    EXPECT_TRUE(FileExists(Temp + "3DIM.OUT"));
}

TEST_F(frmDbRetrieveTest, TellsNothingOfAFormerChoiceInTheStatusBar) {
    frmDbRetrieve& screen = Retrieved();
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete");
    ClickNode("NORTH");
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete");
    for (const char* option : {"optAll", "optFeet", "optMonument"}) {
        ClickOptions({option});
        EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "") << option;
        Click(screen, "cmdRetrieve");
        EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete") << option;
    }
    ClickNode("SOUTH");
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "");
}

TEST_F(frmDbRetrieveTest, OffersNoPrintingWithoutAPrinter) {
    Global().PrinterPresent = false;
    frmDbRetrieve& screen = Retrieved();
    EXPECT_TRUE(IsEnabled(screen, "cmdEdit"));
    EXPECT_TRUE(IsEnabled(screen, "cmdCopy"));
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint"));
    EXPECT_FALSE(IsEnabled(screen, "lblPrint"));
    EXPECT_FALSE(IsEnabled(screen, "mnuPrinter"));
}

TEST_F(frmDbRetrieveTest, SetsUpThePrinter) {
    EXPECT_TRUE(IsEnabled(Open(), "mnuPrinter"));
    Choose(*Opened, "mnuPrinter");
}

TEST_F(frmDbRetrieveTest, EditsTheOutputFile) {
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "C:\\ED\\");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ED.EXE");
    Click(Retrieved(), "cmdEdit");
    EXPECT_EQ(Desk.Started, Texts{"C:\\ED\\ED.EXE " + Temp + "3DIM.OUT"});
    Drives::DeleteFile(Temp + "3DIM.OUT");
    Click(*Opened, "cmdEdit");
    EXPECT_EQ(Desk.Started.size(), 1U);
}

TEST_F(frmDbRetrieveTest, SaysWhenThereIsNoEditor) {
    frmDbRetrieve& screen = Retrieved();
    Desk.ExpectMessage("Editor Not Found", "No editor found in INI file.  Can not edit file.");
    Click(screen, "cmdEdit");
    EXPECT_EQ(Desk.Shown.back().Picture, Icon::Exclamation);
}

TEST_F(frmDbRetrieveTest, PrintsTheOutputFile) {
    frmDbRetrieve& screen = Retrieved();
    Desk.ExpectMessage("Printing Complete", "Output file " + Temp + "3DIM.OUT sent to printer.");
    Click(screen, "cmdPrint");
    EXPECT_EQ(Desk.PrintFonts, Texts{"Courier 12"});
    ASSERT_EQ(Desk.PrintedLines.size(), 12U);
    EXPECT_EQ(Desk.PrintedLines[10].substr(0, 7), "     P1");
}

TEST_F(frmDbRetrieveTest, CopiesTheOutputFileUnderTheMeter) {
    frmDbRetrieve& screen = Retrieved();
    Desk.ExpectFile("", "D:\\\xE9t\xE9 & Co.3D");
    Click(screen, "cmdCopy");
    EXPECT_EQ(Nav.Calls,
              (Texts{"CopyMeter Copying File ...", "Open 1",
                     "ShowFile " + Temp + "3DIM.OUT|D:\\\xE9t\xE9 & Co.3D", "Advance 1", "Close"}));
    EXPECT_EQ(FileContent("D:\\\xE9t\xE9 & Co.3D"), FileContent(Temp + "3DIM.OUT"));
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "D:\\\xE9t\xE9 & Co.3D copied");
    EXPECT_EQ(Desk.Dialogs[0].Folder, Temp);
    EXPECT_EQ(Desk.Dialogs[0].FileName, "NORTH.3D");
    EXPECT_EQ(Desk.Dialogs[0].Filter, "All Files (*.*)|*.*|3D Files(*.3D)|*.3D");
    EXPECT_EQ(Desk.Dialogs[0].FilterIndex, 2);
    EXPECT_EQ(Desk.Dialogs[0].Flags, 4);
}

TEST_F(frmDbRetrieveTest, OffersAllFilesOnlyForACopyOfMonuments) {
    // The filter of two-dimensional files waits for "MOUNUMENT.OUT", which no result is named; it is meant
    // so.
    frmDbRetrieve& screen = Retrieved("optCurrent", "optMonument");
    EXPECT_EQ(TextOf(screen, "lblOutputFile"), Temp + "MONUMENT.OUT");
    Desk.ExpectFile("", std::nullopt);
    Click(screen, "cmdCopy");
    EXPECT_EQ(Desk.Dialogs[0].Filter, "All Files (*.*)|*.*");
    EXPECT_EQ(Desk.Dialogs[0].FilterIndex, 1);
    EXPECT_TRUE(Nav.Calls.empty());
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete");
}

TEST_F(frmDbRetrieveTest, ReplacesAFileOnlyWhenToldTo) {
    PutFile("D:\\COPY.3D", "former");
    frmDbRetrieve& screen = Retrieved();
    Desk.ExpectFile("", "D:\\COPY.3D");
    Desk.ExpectMessage("File Already Exists", "File D:\\COPY.3D already exists.  Do you wish to overwrite?",
                       Answer::No);
    Click(screen, "cmdCopy");
    EXPECT_EQ(FileContent("D:\\COPY.3D"), "former");
    EXPECT_TRUE(Nav.Calls.empty());
    Desk.ExpectFile("", "D:\\COPY.3D");
    Desk.ExpectMessageTitled("File Already Exists", Answer::Yes);
    Click(screen, "cmdCopy");
    EXPECT_EQ(FileContent("D:\\COPY.3D"), FileContent(Temp + "3DIM.OUT"));
}

TEST_F(frmDbRetrieveTest, KeepsTheResultWhenItIsCopiedOntoItself) {
    frmDbRetrieve& screen = Retrieved();
    const std::string result = FileContent(Temp + "3DIM.OUT");
    Desk.ExpectFile("", Temp + "3DIM.OUT");
    Desk.ExpectMessageTitled("File Already Exists", Answer::Yes);
    Click(screen, "cmdCopy");
    EXPECT_EQ(FileContent(Temp + "3DIM.OUT"), result);
}

TEST_F(frmDbRetrieveTest, ReportsAResultThatVanishedAndClosesTheMeter) {
    frmDbRetrieve& screen = Retrieved();
    Drives::DeleteFile(Temp + "3DIM.OUT");
    Desk.ExpectFile("", "D:\\COPY.3D");
    Desk.ExpectMessageTitled("Program Error");
    Click(screen, "cmdCopy");
    EXPECT_EQ(Nav.Calls.back(), "Close");
    EXPECT_FALSE(FileExists("D:\\COPY.3D"));
    Desk.ExpectMessageTitled("Program Error");
    Click(screen, "cmdPrint");
    EXPECT_TRUE(Tells(Desk.Shown.back(), "-frmDbRetrieve-cmdPrint_Click"));
}

TEST_F(frmDbRetrieveTest, GoesBackToTheOptions) {
    Click(Open(), "cmdBack");
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, Texts{"OpenDatabase"});
}

TEST_F(frmDbRetrieveTest, GoesHomeByButtonMenuWindowButtonAndEscape) {
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Opened.isNull());
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(Opened.isNull());
    Open().windowHandle()->close();
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, (Texts{"ShowHome", "ShowHome", "ShowHome", "ShowHome"}));
}

TEST_F(frmDbRetrieveTest, TabsFromTheTreeOverTheOptionsToTheWaysOut) {
    frmDbRetrieve& screen = Retrieved();
    Tree().setFocus();
    for (const char* next : {"opt3dim", "optCurrent", "optMeters", "cmdRetrieve", "cmdEdit", "cmdPrint",
                             "cmdCopy", "cmdBack", "cmdHome"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(screen.focusWidget()->objectName().toStdString(), next);
    }
}

TEST_F(frmDbRetrieveTest, CarriesAccentsAndMarkupFromTheRegistryToTheFolderAndBack) {
    const std::string location = "\xC9T\xC9 & 1";
    const std::string folder = "D:\\TARVEX\\COORD\\" + location + "\\";
    MakeFolders(folder);
    WriteCoordNew(folder, location);
    Global().PathRecords = {LocationRecord("<b>DAM", location)};
    frmDbRetrieve& screen = Open();
    EXPECT_EQ(Captions()[2], "DATABASE\\/<b>DAM/" + location);
    ClickNode(location);
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "DATABASE\\<b>DAM\\" + location + "\\");
    ClickOptions({"opt3dim", "optAll", "optInches"});
    Desk.ExpectMessageTitled("Bias Problem");
    Click(screen, "cmdRetrieve");
    EXPECT_EQ(TextOf(screen, "sbrRetrievePanel1"), "Retreival Complete");
}

}  // namespace
}  // namespace Dorvane::Testing
