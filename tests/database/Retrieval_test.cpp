// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Retrieval.h"

#include <gtest/gtest.h>

#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

const char* const NorthKey = "DATABASE\\DAM\\NORTH\\";

PathRecord Folder(const std::string& root, const std::string& location, const std::string& type = "LEVEL") {
    PathRecord record;
    record.Root = root;
    record.Location = location;
    record.Type = type;
    return record;
}

std::vector<std::string> Keys(const TreeModel& tree) {
    std::vector<std::string> keys;
    for (const TreeNode& node : tree.Nodes())
        keys.push_back(node.Key);
    return keys;
}

class LocationTree : public testing::Test {
  protected:
    TestSite Site;
    ScriptedDesktop Desk;
    TreeModel Tree;
};

TEST_F(LocationTree, HoldsEachRootAndItsLocations) {
    Global().PathRecords = {Folder("DAM", "NORTH"), Folder("DAM", "NORTH", "TOTAL"), Folder("DAM", "SOUTH"),
                            Folder("TUNNEL", "EAST")};
    SetupDbaseTree(Tree);
    EXPECT_EQ(Tree.Nodes(), (std::vector<TreeNode>{
                                {"DATABASE\\", "", "DATABASE\\"},
                                {"DATABASE\\DAM\\", "DATABASE\\", "DAM"},
                                {"DATABASE\\DAM\\NORTH\\", "DATABASE\\DAM\\", "NORTH"},
                                {"DATABASE\\DAM\\SOUTH\\", "DATABASE\\DAM\\", "SOUTH"},
                                {"DATABASE\\TUNNEL\\", "DATABASE\\", "TUNNEL"},
                                {"DATABASE\\TUNNEL\\EAST\\", "DATABASE\\TUNNEL\\", "EAST"},
                            }));
    EXPECT_EQ(Tree.Nodes()[0].Image, "clsfolder");
    EXPECT_EQ(Tree.Nodes()[0].ExpandedImage, "opnfolder");
}

TEST_F(LocationTree, IsItsTopAloneWithoutRecords) {
    Tree.Add({"OLD", "", "OLD"});
    SetupDbaseTree(Tree);
    EXPECT_EQ(Keys(Tree), (std::vector<std::string>{"DATABASE\\"}));
}

TEST_F(LocationTree, PassesOverARootWhoseOnlyLocationIsThatOfTheRecordBefore) {
    // Only neighbouring locations are compared, whatever their roots; it is meant to be so.
    Global().PathRecords = {Folder("DAM", "NORTH"), Folder("TUNNEL", "NORTH"), Folder("TUNNEL", "SOUTH")};
    SetupDbaseTree(Tree);
    EXPECT_EQ(Keys(Tree), (std::vector<std::string>{"DATABASE\\", "DATABASE\\DAM\\", "DATABASE\\DAM\\NORTH\\",
                                                    "DATABASE\\TUNNEL\\", "DATABASE\\TUNNEL\\SOUTH\\"}));
}

TEST_F(LocationTree, RaisesALocationThatComesBack) {
    Global().PathRecords = {Folder("DAM", "NORTH"), Folder("DAM", "SOUTH"), Folder("DAM", "NORTH")};
    EXPECT_EQ(ErrorOf([&] { SetupDbaseTree(Tree); }).Number, KeyNotUnique);
}

RetrieveForm GoodForm() {
    RetrieveForm form;
    form.lblDirectory = NorthKey;
    form.opt3dim = true;
    form.optCurrent = true;
    form.optMeters = true;
    return form;
}

class Setup : public DatabaseSite {
  protected:
    bool Run(RetrieveForm& form) {
        Path = form.lblDirectory;
        return SetupRetrieve(form, Path, DatabaseFolder, ResultFile, TypeWord, UnitsCode, TypeCode);
    }

    void ExpectRefusal(RetrieveForm form, const std::string& title, const std::string& text) {
        Desk.ExpectMessage(title, text);
        EXPECT_FALSE(Run(form));
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
        EXPECT_EQ(Desk.Shown.back().Choices, Buttons::Ok);
        EXPECT_EQ(form.lblOutputFile, "");
    }

    std::string Path;
    std::string DatabaseFolder;
    std::string ResultFile;
    std::string TypeWord;
    std::int32_t UnitsCode = 0;
    std::int32_t TypeCode = 0;
};

const char* const NoAmount =
    "Must select an option from the Coordinate Date box.  Either to retreive all coordinates or just the "
    "current "
    "coordinates";
const char* const NoUnits = "Must select an option from the Units box.  Either meters, inches, or feet.";
const char* const NoType =
    "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or 3-dimensional";
const char* const NoLocation = "Selected location not valid.  Please complete.";

TEST_F(Setup, DerivesTheNamesOfGoodChoices) {
    RetrieveForm form = GoodForm();
    EXPECT_TRUE(Run(form));
    EXPECT_EQ(Path, "NORTH\\");
    EXPECT_EQ(DatabaseFolder, North);
    EXPECT_EQ(ResultFile, "3DIM.OUT");
    EXPECT_EQ(TypeWord, "3DIM");
    EXPECT_EQ(UnitsCode, 1);
    EXPECT_EQ(TypeCode, 3);
    EXPECT_EQ(form.lblOutputFile, "C:\\TARVEX\\TEMP\\3DIM.OUT");
}

TEST_F(Setup, KnowsTheFourTypesAndThreeUnits) {
    struct Case {
        bool RetrieveForm::*Option;
        std::int32_t Code;
        const char* Word;
    };
    for (const Case& type : {Case{&RetrieveForm::optBenchmark, 1, "BNCHMARK"},
                             {&RetrieveForm::optMonument, 2, "MONUMENT"},
                             {&RetrieveForm::opt3dim, 3, "3DIM"},
                             {&RetrieveForm::optIdeals, 4, "IDEALS"}})
        for (const Case& unit : {Case{&RetrieveForm::optMeters, 1, ""},
                                 {&RetrieveForm::optInches, 2, ""},
                                 {&RetrieveForm::optFeet, 3, ""}}) {
            RetrieveForm form;
            form.lblDirectory = NorthKey;
            form.optAll = true;
            form.*type.Option = true;
            form.*unit.Option = true;
            EXPECT_TRUE(Run(form));
            EXPECT_EQ(TypeCode, type.Code);
            EXPECT_EQ(TypeWord, type.Word);
            EXPECT_EQ(ResultFile, TypeWord + ".OUT");
            EXPECT_EQ(UnitsCode, unit.Code);
        }
}

TEST_F(Setup, AsksFirstForAllOrCurrent) {
    RetrieveForm form;
    ExpectRefusal(form, "Missing Coordinate Data", NoAmount);
}

TEST_F(Setup, AsksThenForUnits) {
    RetrieveForm form;
    form.optAll = true;
    ExpectRefusal(form, "Missing Units Data", NoUnits);
}

TEST_F(Setup, AsksThenForADataType) {
    RetrieveForm form;
    form.optAll = true;
    form.optFeet = true;
    ExpectRefusal(form, "Missing Date Type Data", NoType);
}

TEST_F(Setup, TakesMagnetsAndTransportDecksForNoDataType) {
    for (bool RetrieveForm::*const option : {&RetrieveForm::optMagnets, &RetrieveForm::optTransport}) {
        RetrieveForm form = GoodForm();
        form.opt3dim = false;
        form.*option = true;
        ExpectRefusal(form, "Missing Date Type Data", NoType);
    }
}

TEST_F(Setup, RefusesAPathThatIsNoLocation) {
    for (const char* path : {"", "DATABASE\\", "DATABASE\\DAM\\", "DATABASE\\DAM\\NORTH\\MORE\\"}) {
        RetrieveForm form = GoodForm();
        form.lblDirectory = path;
        ExpectRefusal(form, "Location Incomplete", NoLocation);
    }
}

// A location with two points, one of them with a former value, and its own bias.
class RetrieveClick : public DatabaseSite {
  protected:
    RetrieveClick() {
        Enter("P1", 1);
        Enter("P2", 2);
        Enter("P1", 11, "112126");
        PutLines("D:\\TARVEX\\INIT\\BIAS.STR", {"NORTH    100 200 300 0"});
        Global().PrinterPresent = true;
        View.ShowStatus = [this](const std::string& text) { Steps.push_back(text); };
        View.WaitCursor = [this](bool on) { Steps.push_back(on ? "wait" : "normal"); };
        View.Animation = [this](bool on) { Steps.push_back(on ? "gears" : "still"); };
    }

    RetrieveView View;
    std::vector<std::string> Steps;
};

TEST_F(RetrieveClick, WritesTheCurrentValuesAndOffersThem) {
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    const std::vector<std::string> lines = FileLines("C:\\TARVEX\\TEMP\\3DIM.OUT");
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_EQ(lines[10].substr(0, 34), "P1        11-21-26       111.00000");
    EXPECT_EQ(lines[11].substr(0, 34), "P2        11-20-26       102.00000");
    EXPECT_EQ(FileContent("C:\\TARVEX\\WORK\\WORK.LST"), "P1\r\nP2\r\n");
    EXPECT_EQ(form.lblOutputFile, "C:\\TARVEX\\TEMP\\3DIM.OUT");
    EXPECT_TRUE(form.OutputVisible);
    EXPECT_TRUE(form.OutputEnabled);
    EXPECT_TRUE(form.PrintEnabled);
    EXPECT_EQ(Steps, (std::vector<std::string>{"wait", "gears", "Retreival Complete", "normal", "still"}));
}

TEST_F(RetrieveClick, WritesAllValues) {
    RetrieveForm form = GoodForm();
    form.optCurrent = false;
    form.optAll = true;
    ClickRetrieve(form, View);
    EXPECT_EQ(FileLines("C:\\TARVEX\\TEMP\\3DIM.OUT").size(), 13u);
}

TEST_F(RetrieveClick, WritesAHeadingForALocationWithoutPoints) {
    RetrieveForm form = GoodForm();
    form.opt3dim = false;
    form.optMonument = true;
    ClickRetrieve(form, View);
    EXPECT_EQ(FileLines("C:\\TARVEX\\TEMP\\MONUMENT.OUT").size(), 10u);
    EXPECT_TRUE(form.OutputVisible);
}

TEST_F(RetrieveClick, OffersNoPrintingWithoutAPrinter) {
    Global().PrinterPresent = false;
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    EXPECT_TRUE(form.OutputEnabled);
    EXPECT_FALSE(form.PrintEnabled);
}

TEST_F(RetrieveClick, EndsAtARefusedChoiceWithoutWritingAnything) {
    RetrieveForm form = GoodForm();
    form.lblDirectory = "DATABASE\\DAM\\";
    Desk.ExpectMessage("Location Incomplete", NoLocation);
    ClickRetrieve(form, View);
    EXPECT_EQ(Steps, (std::vector<std::string>{"wait", "gears", "normal", "still"}));
    EXPECT_FALSE(form.OutputVisible);
    EXPECT_TRUE(AllFiles("C:\\TARVEX\\").empty());
}

TEST_F(RetrieveClick, GoesOnWithoutABiasThatIsNotThere) {
    PutLines("D:\\TARVEX\\INIT\\BIAS.STR", {"SOUTH    100 200 300 0"});
    Desk.ExpectMessage("Bias Problem", "Bias not read in properly!");
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(Steps, (std::vector<std::string>{"wait", "gears", "normal", "wait", "Retreival Complete",
                                               "normal", "still"}));
    EXPECT_EQ(FileLines("C:\\TARVEX\\TEMP\\3DIM.OUT")[10].substr(0, 34),
              "P1        11-21-26        11.00000");
}

TEST_F(RetrieveClick, TellsAMissingBiasFileTwiceAndGoesOn) {
    Drives::DeleteFile("D:\\TARVEX\\INIT\\BIAS.STR");
    Desk.ExpectMessageTitled("Program Error");
    Desk.ExpectMessage("Bias Problem", "Bias not read in properly!");
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    EXPECT_TRUE(form.OutputVisible);
}

TEST_F(RetrieveClick, ReportsAMissingList) {
    Drives::DeleteFile(North + "3DIM.LST");
    Desk.ExpectMessageTitled("Program Error");
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_NE(Desk.Shown[0].Text.find("Error : 53"), std::string::npos);
    EXPECT_NE(Desk.Shown[0].Text.find("-frmDbRetrieve-cmdRetrieve_Click"), std::string::npos)
        << Desk.Shown[0].Text;
    EXPECT_FALSE(form.OutputVisible);
    EXPECT_EQ(Steps, (std::vector<std::string>{"wait", "gears", "normal", "still"}));
}

TEST_F(RetrieveClick, ReportsADamagedIndexAsTheComponents) {
    PutFile(North + "3DIM.IDX", "");
    Desk.ExpectMessageTitled("Program Error");
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_EQ(Desk.Shown[0].Text,
              "Error : 1101\r\n\r\nDescription : " + North +
                  "3DIM.IDX is damaged: its header line is not of 14 characters\r\n\r\nSource : "
                  "CoordinateRetriever-frmDbRetrieve-cmdRetrieve_Click");
    EXPECT_FALSE(FileExists("C:\\TARVEX\\TEMP\\3DIM.OUT"));
}

TEST_F(RetrieveClick, RetriesOnAFullDiskWhereTheOperatorMadeRoom) {
    OnSmallDisk("C:\\TARVEX\\TEMP\\", 32, [&] {
        FillDisk("C:\\TARVEX\\TEMP\\");
        RoomMakingDesktop helpful("C:\\TARVEX\\TEMP\\");
        helpful.ExpectMessageTitled("Program Error", Answer::Yes);
        RetrieveForm form = GoodForm();
        ClickRetrieve(form, View);
        EXPECT_TRUE(form.OutputVisible);
        EXPECT_EQ(FileLines("C:\\TARVEX\\TEMP\\3DIM.OUT").size(), 12u);
    });
}

TEST_F(RetrieveClick, NeedsNoView) {
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, {});
    EXPECT_TRUE(form.OutputVisible);
}

TEST_F(RetrieveClick, IsHiddenByAnyLaterChangeThoughTheFileStays) {
    RetrieveForm form = GoodForm();
    ClickRetrieve(form, View);
    HideOutput(form);
    EXPECT_FALSE(form.OutputVisible);
    EXPECT_FALSE(form.OutputEnabled);
    EXPECT_FALSE(form.PrintEnabled);
    EXPECT_EQ(form.lblOutputFile, "");
    EXPECT_TRUE(FileExists("C:\\TARVEX\\TEMP\\3DIM.OUT"));
}

// A result file on offer.
class Output : public DatabaseSite {
  protected:
    struct Meter : FileMeter {
        explicit Meter(std::vector<std::string>& steps) : Steps(steps) {}
        void Open(int files) override { Steps.push_back("open " + std::to_string(files)); }
        void ShowFile(const std::string& from, const std::string& to) override {
            Steps.push_back(from + " to " + to);
        }
        void Advance(int files) override { Steps.push_back("done " + std::to_string(files)); }
        void Close() override { Steps.emplace_back("close"); }
        std::vector<std::string>& Steps;
    };

    Output() {
        Form.lblDirectory = "DATABASE\\DAM\\NORTH\\";
        Form.lblOutputFile = "C:\\TARVEX\\TEMP\\3DIM.OUT";
        PutFile(Form.lblOutputFile, "line 1\r\n\r\nline 3");
        View.ShowStatus = [this](const std::string& text) { Steps.push_back(text); };
        View.CopyMeter = [this] { return std::make_unique<Meter>(Steps); };
    }

    void Editor(const std::string& path, const std::string& name) {
        IniWriteString("dv_tarvex.ini", "General Editor", "Path", path);
        IniWriteString("dv_tarvex.ini", "General Editor", "Name", name);
    }

    RetrieveForm Form;
    RetrieveView View;
    std::vector<std::string> Steps;
};

TEST_F(Output, IsEditedWithTheGeneralEditor) {
    Editor("C:\\EDIT\\", "EDIT.EXE");
    ClickEditOutput(Form);
    EXPECT_EQ(Desk.Started, (std::vector<std::string>{"C:\\EDIT\\EDIT.EXE C:\\TARVEX\\TEMP\\3DIM.OUT"}));
}

TEST_F(Output, IsNotEditedWithoutAnEditor) {
    for (const auto& [path, name] :
         {std::pair<const char*, const char*>{"", "EDIT.EXE"}, {"C:\\EDIT\\", ""}}) {
        Editor(path, name);
        Desk.ExpectMessage("Editor Not Found", "No editor found in INI file.  Can not edit file.");
        ClickEditOutput(Form);
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Exclamation);
    }
    EXPECT_TRUE(Desk.Started.empty());
}

TEST_F(Output, ThatIsNotThereIsNotEditedInSilence) {
    Editor("C:\\EDIT\\", "EDIT.EXE");
    Form.lblOutputFile = "C:\\TARVEX\\TEMP\\NONE.OUT";
    ClickEditOutput(Form);
    EXPECT_TRUE(Desk.Started.empty());
}

TEST_F(Output, ReportsAnEditorThatCannotBeStarted) {
    Editor("C:\\EDIT\\", "EDIT.EXE");
    Desk.RunsPrograms = true;
    Desk.ExpectMessageTitled("Program Error");
    ClickEditOutput(Form);
    EXPECT_NE(Desk.Shown.back().Text.find("Error : 53"), std::string::npos);
    EXPECT_NE(Desk.Shown.back().Text.find("-frmDbRetrieve-cmdEdit_Click"), std::string::npos);
}

TEST_F(Output, IsPrintedWithFiveBlanksBeforeEachLine) {
    Desk.ExpectMessage("Printing Complete", "Output file C:\\TARVEX\\TEMP\\3DIM.OUT sent to printer.");
    ClickPrintOutput(Form);
    EXPECT_EQ(Desk.PrintedLines, (std::vector<std::string>{"     line 1", "     ", "     line 3"}));
    EXPECT_EQ(Desk.PrintFonts, (std::vector<std::string>{"Courier 12"}));
}

TEST_F(Output, ThatIsNotThereIsReportedAndNotPrinted) {
    Form.lblOutputFile = "C:\\TARVEX\\TEMP\\NONE.OUT";
    Desk.ExpectMessageTitled("Program Error");
    ClickPrintOutput(Form);
    EXPECT_NE(Desk.Shown.back().Text.find("-frmDbRetrieve-cmdPrint_Click"), std::string::npos);
    EXPECT_TRUE(Desk.PrintFonts.empty());
}

TEST_F(Output, IsCopiedUnderTheNameAskedFor) {
    Desk.ExpectFile("", "D:\\COPY.3D");
    ClickCopyOutput(Form, View);
    EXPECT_EQ(FileContent("D:\\COPY.3D"), "line 1\r\n\r\nline 3");
    EXPECT_EQ(Steps, (std::vector<std::string>{"open 1", Form.lblOutputFile + " to D:\\COPY.3D", "done 1",
                                               "close", "D:\\COPY.3D copied"}));
    ASSERT_EQ(Desk.Dialogs.size(), 1u);
    EXPECT_EQ(Desk.Dialogs[0].Purpose, FileDialog::Kind::Save);
    EXPECT_EQ(Desk.Dialogs[0].Folder, "C:\\TARVEX\\TEMP\\");
    EXPECT_EQ(Desk.Dialogs[0].Flags, 4);
}

TEST_F(Output, IsCopiedWithTheFilterOfItsType) {
    struct Case {
        const char* File;
        const char* Filter;
        int Index;
        const char* Proposed;
    };
    for (const Case& type : {Case{"3DIM.OUT", "All Files (*.*)|*.*|3D Files(*.3D)|*.3D", 2, "NORTH.3D"},
                             {"BNCHMARK.OUT", "All Files (*.*)|*.*|1D Files(*.1D)|*.1D", 2, "NORTH.1D"},
                             {"IDEALS.OUT", "All Files (*.*)|*.*|ID Files(*.ID)|*.ID", 2, "NORTH.ID"},
                             {"MOUNUMENT.OUT", "All Files (*.*)|*.*|2D Files(*.2D)|*.2D", 2, "NORTH.2D"}}) {
        Form.lblOutputFile = std::string("C:\\TARVEX\\TEMP\\") + type.File;
        Desk.ExpectFile("", std::nullopt);
        ClickCopyOutput(Form, View);
        EXPECT_EQ(Desk.Dialogs.back().Filter, type.Filter);
        EXPECT_EQ(Desk.Dialogs.back().FilterIndex, type.Index);
        EXPECT_EQ(Desk.Dialogs.back().FileName, type.Proposed);
    }
}

TEST_F(Output, OfMonumentsIsCopiedWithTheFilterOfAllFiles) {
    Form.lblOutputFile = "C:\\TARVEX\\TEMP\\MONUMENT.OUT";
    Desk.ExpectFile("", std::nullopt);
    ClickCopyOutput(Form, View);
    EXPECT_EQ(Desk.Dialogs[0].Filter, "All Files (*.*)|*.*");
    EXPECT_EQ(Desk.Dialogs[0].FilterIndex, 1);
    EXPECT_EQ(Desk.Dialogs[0].FileName, "NORTH.2D");
}

TEST_F(Output, IsNotCopiedWhenTheDialogIsCancelled) {
    Desk.ExpectFile("", std::nullopt);
    ClickCopyOutput(Form, View);
    EXPECT_TRUE(Steps.empty());
}

TEST_F(Output, ReplacesAFileOnlyWhenToldTo) {
    PutFile("D:\\COPY.3D", "former");
    Desk.ExpectFile("", "D:\\COPY.3D");
    Desk.ExpectMessage("File Already Exists", "File D:\\COPY.3D already exists.  Do you wish to overwrite?",
                       Answer::No);
    ClickCopyOutput(Form, View);
    EXPECT_EQ(FileContent("D:\\COPY.3D"), "former");
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Question);
    EXPECT_EQ(Desk.Shown[0].Choices, Buttons::YesNo);
    EXPECT_TRUE(Steps.empty());

    Desk.ExpectFile("", "D:\\COPY.3D");
    Desk.ExpectMessageTitled("File Already Exists", Answer::Yes);
    ClickCopyOutput(Form, View);
    EXPECT_EQ(FileContent("D:\\COPY.3D"), "line 1\r\n\r\nline 3");
}

TEST_F(Output, ClosesTheMeterAfterAFailedCopy) {
    Desk.ExpectFile("", "D:\\NOWHERE\\COPY.3D");
    Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
    ClickCopyOutput(Form, View);
    EXPECT_NE(Desk.Shown[0].Text.find("Path doesn't exist."), std::string::npos);
    EXPECT_NE(Desk.Shown[0].Text.find("-frmDbRetrieve-cmdCopy_Click"), std::string::npos);
    EXPECT_EQ(Steps,
              (std::vector<std::string>{"open 1", Form.lblOutputFile + " to D:\\NOWHERE\\COPY.3D", "close"}));
}

}  // namespace
}  // namespace Dorvane::Testing
