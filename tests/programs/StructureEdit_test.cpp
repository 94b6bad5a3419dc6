// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "datatree/basRead.h"
#include "programs/editors/CalibEdit.h"
#include "programs/editors/ChoiceCheck.h"
#include "programs/editors/ChoiceEdit.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

// What the editors of the structure files know of them, without their windows.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string Init = "D:\\TARVEX\\INIT\\";

std::string Shipped(const std::string& name) {
    std::ifstream file(std::filesystem::path(DORVANE_SITE_FOLDER) / "samples/site/INIT" / name,
                       std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    EXPECT_FALSE(content.str().empty()) << name;
    return content.str();
}

const std::string Dam =
    "DAM      Upper Dam\r\n"
    "CODE     DESCRIPTION\r\n"
    "NORTH    North abutment\r\n"
    "\r\n"
    "LEVEL    Levelling\r\n"
    "\r\n"
    "SRV01    Survey 1\r\n"
    "SRV02\r\n";

std::string ProblemOf(const std::string& content, std::size_t groups = 3) {
    StructureText structure;
    return ParseStructure(content, groups, structure);
}

struct StructureEdit : testing::Test {
    StructureEdit() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_datatype.ini",
                 {"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "GSI_Calib=", "[LEVEL]",
                  "Extension=LEV GSI", "LEV_Calib=STAFF", "[File Types]", "GSI_Calib=EDM"});
    }

    /// The system DAM as its files have it.
    static ChoiceEdit OneSystem() {
        PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
        PutFile(Init + "DAM.STR", Dam);
        return OpenChoices(Init);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST(StructureTextTest, TakesAFileApart) {
    StructureText structure;
    EXPECT_EQ(ParseStructure(Dam, 3, structure), "");
    EXPECT_EQ(structure.Name, "DAM");
    EXPECT_EQ(structure.Description, "Upper Dam");
    EXPECT_EQ(structure.Heading, "CODE     DESCRIPTION");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{"NORTH", "North abutment"}));
    EXPECT_THAT(structure.Groups[1], ElementsAre(CodeEntry{"LEVEL", "Levelling"}));
    EXPECT_THAT(structure.Groups[2], ElementsAre(CodeEntry{"SRV01", "Survey 1"}, CodeEntry{"SRV02", ""}));
}

TEST(StructureTextTest, WritesTheShippedFilesByteForByteAsTheyWere) {
    for (const auto& [name, groups] : {std::pair{"DAM.STR", 3}, std::pair{"CALIB.STR", 2}}) {
        StructureText structure;
        EXPECT_EQ(ParseStructure(Shipped(name), static_cast<std::size_t>(groups), structure), "") << name;
        EXPECT_EQ(FormatStructure(structure), Shipped(name)) << name;
    }
    std::vector<SystemEdit> systems;
    EXPECT_EQ(ParseChoices(Shipped("CHOICES.SYS"), systems), "");
    EXPECT_EQ(FormatChoices(systems), Shipped("CHOICES.SYS"));
    StructureText structure;
    ParseStructure(Dam, 3, structure);
    EXPECT_EQ(FormatStructure(structure), Dam);
}

TEST(StructureTextTest, WritesAnEmptyStructureThatTheReaderAccepts) {
    EXPECT_EQ(FormatStructure(NewStructure("DAM", "Upper Dam", 3)),
              "DAM      Upper Dam\r\nCODE     DESCRIPTION\r\n\r\n\r\n");
    EXPECT_EQ(FormatStructure(NewStructure("CALIB", "", 2)), "CALIB\r\nCODE     DESCRIPTION\r\n\r\n");
}

TEST(StructureTextTest, TakesLowerCaseAndOtherLineEndsForWhatTheyMean) {
    StructureText structure;
    EXPECT_EQ(ParseStructure("dam\n\nn\xE9\n\n\n\x1A", 3, structure), "");
    EXPECT_EQ(structure.Name, "DAM");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{"N\xC9", ""}));
    EXPECT_EQ(structure.Heading, "");
}

TEST(StructureTextTest, SaysWhatItWouldLose) {
    EXPECT_EQ(ProblemOf(""), "The file is empty.");
    EXPECT_EQ(ProblemOf("DAM\r\n"), "The file ends before its first group.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH\r\n\r\nLEVEL\r\n"), "The file ends before its last group.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTHERLY North\r\n\r\n\r\n"),
              "Line 3 has a character between name and description.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH    12345678901234567890 more\r\n\r\n\r\n"),
              "Line 3 has text behind its description.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\nNORTH\tNorth\r\n\r\n\r\n"), "Line 3 has a control character.");
    EXPECT_EQ(ProblemOf(std::string("D\0M\r\n\r\n\r\n\r\n", 11)), "Line 1 has a control character.");
    EXPECT_EQ(ProblemOf("DAM\r\n\r\n" + std::string(1000000, 'x') + "\r\n\r\n\r\n"),
              "Line 3 has a character between name and description.");
    std::string seventeen = "DAM\r\n\r\n";
    for (int i = 1; i <= 17; ++i)
        seventeen += "L" + std::to_string(i) + "\r\n";
    EXPECT_EQ(ProblemOf(seventeen + "\r\n\r\n"), "Line 19 is the 17th entry of its group.");
}

TEST(StructureTextTest, ShowsALineOfBlanksAsAnEntryWithoutName) {
    StructureText structure;
    EXPECT_EQ(ParseStructure("DAM\r\n\r\n   \r\n\r\n\r\n\r\n", 3, structure), "");
    EXPECT_THAT(structure.Groups[0], ElementsAre(CodeEntry{}));
    EXPECT_THAT(structure.Groups[2], ElementsAre(CodeEntry{}));
}

TEST(CodeCheck, AcceptsWhatAFolderCanBeCalled) {
    for (const char* code : {"NORTH", "A", "12345678", "SRV_1-2", "\xC9T\xC9", "X&Y", "COM0"})
        EXPECT_EQ(CodeProblem(code), "") << code;
}

TEST(CodeCheck, RefusesWhatAFolderCannotBeCalled) {
    EXPECT_EQ(CodeProblem(""), "has no name");
    EXPECT_EQ(CodeProblem("123456789"), "has more than 8 characters");
    EXPECT_EQ(CodeProblem("North"), "is not in upper case");
    for (const char* code : {"A B", "A.B", "A\\B", "A/B", "A:B", "A*", "A?", "A\"", "<A", "A>", "A|B", "A,B",
                             "A\tB", "A;B", "A+B", "A=B", "[A]", "A\x01"})
        EXPECT_EQ(CodeProblem(code), "has a character that a folder's name cannot have") << code;
    for (const char* code : {"CON", "NUL", "PRN", "AUX", "COM1", "LPT9"})
        EXPECT_EQ(CodeProblem(code), "is the name of a device") << code;
}

TEST(CodeCheck, RefusesADescriptionThatTheTreeCannotShow) {
    EXPECT_EQ(DescriptionProblem("x"), "");
    EXPECT_EQ(DescriptionProblem(std::string(20, 'x')), "");
    EXPECT_EQ(DescriptionProblem(""), "has no description, so the tree would show it without a caption");
    EXPECT_EQ(DescriptionProblem(std::string(21, 'x')), "has a description of more than 20 characters");
    EXPECT_EQ(DescriptionProblem("a\tb"), "has a description with a control character");
    EXPECT_EQ(DescriptionProblem("a\x02"), "has a description with a control character");
}

TEST(CodeCheck, TellsTheFaultsOfAGroup) {
    EXPECT_THAT(
        GroupProblems("Epochs", {{"A", "a"}, {"", "b"}, {"B", std::string(21, 'x')}, {"C", ""}}),
        ElementsAre("Epochs: Line 2 has no name.", "Epochs: B has a description of more than 20 characters.",
                    "Epochs: C has no description, so the tree would show it without a caption."));
    std::vector<CodeEntry> entries;
    for (int i = 1; i <= 16; ++i)
        entries.push_back({"E" + std::to_string(i), "Epoch"});
    EXPECT_THAT(GroupProblems("Epochs", entries), IsEmpty());
    entries.push_back({"E17", "Epoch"});
    EXPECT_THAT(GroupProblems("Epochs", entries), ElementsAre("Epochs: there are more than 16 entries."));
}

TEST(CodeCheck, RefusesANameASecondTime) {
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"B", "b"}, {"A", "c"}}),
                ElementsAre("Epochs: A stands there twice.", "Epochs: A stands there twice."));
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "new"}, {"A", "a"}}, {{"A", "a"}}),
                ElementsAre("Epochs: A stands there twice."));
}

TEST(CodeCheck, LeavesWhatStoodInTheGroupBefore) {
    const std::vector<CodeEntry> former{{"A B", ""}, {"A", "a"}, {"A", "a"}, {"", ""}};
    EXPECT_THAT(GroupProblems("Epochs", former, former), IsEmpty());
    EXPECT_THAT(GroupProblems("Epochs", {{"A B", "Now with words"}, {"", ""}}, former), IsEmpty());
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"A", ""}}, former),
                ElementsAre("Epochs: A has no description, so the tree would show it without a caption."));
    EXPECT_THAT(GroupProblems("Epochs", {{"A", "a"}, {"A", "a"}, {"A", "a"}}, former),
                ElementsAre("Epochs: A stands there twice."));
    EXPECT_THAT(GroupProblems("Epochs", {{"", ""}, {"", ""}}, former),
                ElementsAre("Epochs: Line 2 has no name."));
}

TEST(CodeCheck, MarksEveryEntryWithItsFirstFault) {
    const CodeRule rule = [](const std::string& code) { return code == "X" ? "is not known" : ""; };
    EXPECT_THAT(
        EntryFaults({{"A", "a"}, {"X", ""}, {"B", ""}, {"C", "c"}, {"C", "d"}}, rule),
        ElementsAre("", "is not known", "has no description, so the tree would show it without a caption",
                    "stands there twice", "stands there twice"));
}

TEST(CodeCheck, NamesWhatIsNoLongerThere) {
    EXPECT_THAT(RemovedCodes({{"A", "other words"}, {"D", ""}}, {{"A", ""}, {"B", ""}, {"", ""}, {"B", ""}}),
                ElementsAre("B"));
}

TEST_F(StructureEdit, ReadsSystemsAndTheirStructures) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\nWEIR     1\r\nOLD\r\n");
    PutFile(Init + "DAM.STR", Dam);
    const ChoiceEdit choices = OpenChoices(Init);
    ASSERT_EQ(choices.Systems.size(), 4U);
    EXPECT_TRUE(choices.Systems[0].IsData());
    EXPECT_EQ(choices.Systems[0].Structure.Groups[2].size(), 2U);
    EXPECT_EQ(choices.Systems[1].Kind, "2");
    EXPECT_EQ(choices.Systems[1].Description, "Calibrations");
    EXPECT_EQ(choices.Systems[2].Structure, NewStructure("WEIR", "", 3));
    EXPECT_EQ(choices.Systems[3].Kind, "");
    EXPECT_EQ(FormatChoices(choices.Systems), FileContent(Init + "CHOICES.SYS"));
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
}

TEST_F(StructureEdit, WritesOnlyWhatHasChanged) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
    PutFile(Init + "DAM.STR", Dam);
    ChoiceEdit choices = OpenChoices(Init);
    SetTimeStamp(Init + "CHOICES.SYS", {2020, 1, 2, 3, 4, 5});
    choices.Systems[0].Structure.Groups[0].push_back({"SOUTH", "South abutment"});
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "DAM.STR"),
              "DAM      Upper Dam\r\n"
              "CODE     DESCRIPTION\r\n"
              "NORTH    North abutment\r\n"
              "SOUTH    South abutment\r\n"
              "\r\n"
              "LEVEL    Levelling\r\n"
              "\r\n"
              "SRV01    Survey 1\r\n"
              "SRV02\r\n");
    Drives::Entry entry;
    ASSERT_TRUE(Drives::Find(Init + "CHOICES.SYS", entry));
    EXPECT_EQ(entry.Modified.Year, 2020);
    EXPECT_THAT(AllFiles(Init), ElementsAre("CHOICES.SYS", "DAM.STR"));
}

TEST_F(StructureEdit, GivesANewSystemItsStructure) {
    ChoiceEdit choices = OpenChoices(Init);
    SystemEdit weir;
    weir.Name = "WEIR";
    weir.Description = "The weir";
    weir.Structure.Groups[0].push_back({"CREST", "Crest"});
    choices.Systems.push_back(weir);
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "WEIR     1 The weir\r\n");
    EXPECT_EQ(FileContent(Init + "WEIR.STR"),
              "WEIR     The weir\r\nCODE     DESCRIPTION\r\nCREST    Crest\r\n\r\n\r\n");
    List1<StructureRecord> records;
    records.Resize(1);
    ReadStrFile(records, 1, Init, "WEIR.STR");
    EXPECT_EQ(records[1].LocationCount, 1);
}

TEST_F(StructureEdit, ChangesADescriptionInBothFiles) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 In the list\r\n");
    PutFile(Init + "DAM.STR", Dam);
    ChoiceEdit choices = OpenChoices(Init);
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    choices.Systems[0].Description = "Lower Dam";
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileLines(Init + "DAM.STR").front(), "DAM      Lower Dam");
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "DAM      1 Lower Dam\r\n");
}

TEST_F(StructureEdit, NeverWritesAStructureThatItDoesNotUnderstand) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nWEIR     1 The weir\r\n");
    const std::string odd =
        "DAM      Upper Dam\r\n\r\nNORTH    North abutment, from the river on\r\n\r\n\r\n";
    PutFile(Init + "DAM.STR", odd);
    PutFile(Init + "WEIR.STR", FormatStructure(NewStructure("WEIR", "The weir", 3)));
    ChoiceEdit choices = OpenChoices(Init);
    EXPECT_EQ(choices.Systems[0].Problem, "Line 3 has text behind its description.");
    choices.Systems[0].Description = "Changed";
    choices.Systems[1].Structure.Groups[0].push_back({"CREST", ""});
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), odd);
    EXPECT_THAT(FileContent(Init + "WEIR.STR"), HasSubstr("CREST\r\n"));
}

TEST_F(StructureEdit, RefusesToSaveAListThatItDoesNotUnderstand) {
    for (const char* odd :
         {"DAM      1 Upper Dam, the older one\r\n", "DAM      12Upper Dam\r\n", "DAMNATION1 X\r\n"}) {
        PutFile(Init + "CHOICES.SYS", odd);
        const ChoiceEdit choices = OpenChoices(Init);
        EXPECT_THAT(ChoiceProblems(choices), ElementsAre(HasSubstr("CHOICES.SYS: Line 1 has"))) << odd;
    }
    std::string many;
    for (int i = 1; i <= 17; ++i)
        many += "S" + std::to_string(i) + "\r\n";
    PutFile(Init + "CHOICES.SYS", many);
    EXPECT_THAT(ChoiceProblems(OpenChoices(Init)), ElementsAre("CHOICES.SYS: Line 17 is the 17th system."));
}

TEST_F(StructureEdit, LeavesFaultyEntriesThatAreThereAlone) {
    PutFile(Init + "CHOICES.SYS",
            "DAM      1 Upper Dam\r\n\r\nDAM      1 Again\r\nA*B      1 Odd\r\nBIAS     1 Odd\r\n");
    const std::string dam = "DAM\r\n\r\nNORTH\r\n\r\nADJUST\r\nUNKNOWN\r\n\r\nE1\r\n";
    PutFile(Init + "DAM.STR", dam);
    PutFile(Init + "BIAS.STR", "STDBIAS 0 0 0 0\r\n");
    ChoiceEdit choices = OpenChoices(Init);
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), dam);
    EXPECT_THAT(AllFiles(Init), ElementsAre("BIAS.STR", "CHOICES.SYS", "DAM.STR"));
    EXPECT_THAT(SystemNotes(choices),
                ElementsAre("DAM stands there twice.", "The line has no name.", "DAM stands there twice.",
                            "A*B has a character that a folder's name cannot have.",
                            "BIAS would have the file BIAS.STR, which holds the bias values."));
    EXPECT_EQ(choices.Systems[2].Problem, "The system stands there twice.");
    EXPECT_EQ(choices.Systems[3].Problem, "The system has a character that a folder's name cannot have.");
    EXPECT_THAT(EntryNotes(choices, choices.Systems[0], 2),
                ElementsAre("E1 does not begin with SRV, by which survey folders are known."));
}

TEST_F(StructureEdit, WritesTheStructureOfASystemNamedTwiceOnce) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nDAM      1 Again\r\n");
    PutFile(Init + "DAM.STR", Dam);
    ChoiceEdit choices = OpenChoices(Init);
    choices.Systems[0].Structure.Groups[0].push_back({"SOUTH", "South"});
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_THAT(FileContent(Init + "DAM.STR"), HasSubstr("SOUTH    South\r\n"));
}

TEST_F(StructureEdit, RefusesADataTypeThatNoProfileKnows) {
    ChoiceEdit choices = OneSystem();
    choices.Systems[0].Structure.Groups[1].push_back({"TOTAL", "Total station"});
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
    choices.Systems[0].Structure.Groups[1].push_back({"GNSS", "Satellites"});
    EXPECT_THAT(ChoiceProblems(choices),
                ElementsAre("DAM, Data types: GNSS is no data type: key Epochs in section Data Types of "
                            "C:\\WINDOWS\\dv_datatype.ini names TOTAL LEVEL."));
    choices.Systems[0].Structure.Groups[1].back() = {"ADJUST", "Projects"};
    EXPECT_THAT(ChoiceProblems(choices),
                ElementsAre("DAM, Data types: ADJUST is the folder of the projects."));
}

TEST_F(StructureEdit, SaysThatTheProfileNamesNoDataType) {
    PutFile("C:\\WINDOWS\\dv_datatype.ini", "");
    ChoiceEdit choices = OneSystem();
    choices.Systems[0].Structure.Groups[1].push_back({"TOTAL", "Total station"});
    EXPECT_THAT(ChoiceProblems(choices), ElementsAre(HasSubstr("dv_datatype.ini names nothing.")));
}

TEST_F(StructureEdit, RefusesAnEpochThatNoSurveyFolderCanHave) {
    ChoiceEdit choices = OneSystem();
    for (const char* epoch : {"2026A", "XSRV1", "SR01"}) {
        choices.Systems[0].Structure.Groups[2].back() = {epoch, "Words"};
        EXPECT_THAT(ChoiceProblems(choices),
                    ElementsAre(std::string("DAM, Epochs: ") + epoch +
                                " does not begin with SRV, by which survey folders are known."));
    }
    for (const char* epoch : {"SRV2", "SRV", "SRV2026A"}) {
        choices.Systems[0].Structure.Groups[2].back() = {epoch, "Words"};
        EXPECT_THAT(ChoiceProblems(choices), IsEmpty()) << epoch;
    }
}

TEST_F(StructureEdit, RefusesSystemsAndLocationsWhoseFilesAreOthers) {
    ChoiceEdit choices = OneSystem();
    for (const auto& [name, fault] :
         {std::pair{"BIAS", "would have the file BIAS.STR, which holds the bias values"},
          std::pair{"COORD", "would have the folder of Coord_path"},
          std::pair{"CALIB", "would have the folder of Calib_path"},
          std::pair{"INIT", "would have the folder of Init_path"},
          std::pair{"DOWNLOAD", "would have the folder of Download_path"}}) {
        SystemEdit system;
        system.Name = name;
        system.Description = "Words";
        choices.Systems.resize(1);
        choices.Systems.push_back(system);
        EXPECT_THAT(ChoiceProblems(choices),
                    ElementsAre(std::string("Systems: ") + name + " " + fault + "."));
        SetDataSystem(choices.Systems[1], false);
        EXPECT_THAT(ChoiceProblems(choices), testing::SizeIs(name == std::string("BIAS") ? 1 : 0)) << name;
    }
    choices = OneSystem();
    choices.Systems[0].Structure.Groups[0].push_back({"STDBIAS", "Words"});
    EXPECT_THAT(ChoiceProblems(choices),
                ElementsAre("DAM, Locations: STDBIAS stands in BIAS.STR for every location without a line."));
}

TEST_F(StructureEdit, RefusesADataSystemInTheFolderOfTheCalibrations) {
    PutFile(Init + "CHOICES.SYS", "CALIB    2 Calibrations\r\n");
    ChoiceEdit choices = OpenChoices(Init);
    SetDataSystem(choices.Systems[0], true);
    EXPECT_THAT(ChoiceProblems(choices), ElementsAre("Systems: CALIB would have the folder of Calib_path."));
}

TEST_F(StructureEdit, RefusesToRemoveWhatIsRegistered) {
    ChoiceEdit choices = OneSystem();
    PutLines(Init + "DAM.PTH", {"", " *       DAM       NORTH     LEVEL     SRV01"});
    const std::string use =
        " is in use and cannot be removed: D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\ is "
        "registered in D:\\TARVEX\\INIT\\DAM.PTH.";
    EXPECT_EQ(WhySystemStays(choices, choices.Systems[0]), "Systems: DAM" + use);
    for (auto& group : choices.Systems[0].Structure.Groups)
        group.clear();
    EXPECT_THAT(ChoiceProblems(choices),
                ElementsAre("DAM, Locations: NORTH" + use, "DAM, Data types: LEVEL" + use,
                            "DAM, Epochs: SRV01" + use));
    choices.Systems.clear();
    EXPECT_THAT(ChoiceProblems(choices), ElementsAre("Systems: DAM" + use));
}

TEST_F(StructureEdit, RefusesToRemoveWhatIsAFolder) {
    ChoiceEdit choices = OneSystem();
    EXPECT_EQ(WhySystemStays(choices, choices.Systems[0]), "");
    MakeFolders("D:\\TARVEX\\DAM\\OTHER\\ADJUST\\SRV01\\");
    MakeFolders("D:\\TARVEX\\DAM\\OTHER\\LEVEL\\");
    const SystemEdit& dam = choices.Systems[0];
    EXPECT_EQ(WhySystemStays(choices, dam),
              "Systems: DAM is in use and cannot be removed: D:\\TARVEX\\DAM\\ exists.");
    EXPECT_EQ(WhyEntryStays(dam, 0, "NORTH"), "");
    EXPECT_EQ(
        WhyEntryStays(dam, 1, "LEVEL"),
        "DAM, Data types: LEVEL is in use and cannot be removed: D:\\TARVEX\\DAM\\OTHER\\LEVEL\\ exists.");
    EXPECT_EQ(WhyEntryStays(dam, 2, "SRV01"),
              "DAM, Epochs: SRV01 is in use and cannot be removed: "
              "D:\\TARVEX\\DAM\\OTHER\\ADJUST\\SRV01\\ exists.");
    EXPECT_EQ(WhyEntryStays(dam, 2, "SRV02"), "");
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\");
    EXPECT_THAT(WhyEntryStays(dam, 0, "NORTH"), HasSubstr("D:\\TARVEX\\DAM\\NORTH\\ exists"));
}

TEST_F(StructureEdit, LetsGoOfWhatIsNewOrStandsThereTwice) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nDAM      1 Again\r\n");
    PutFile(Init + "DAM.STR", "DAM\r\n\r\nNORTH    a\r\nNORTH    b\r\n\r\n\r\n");
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\");
    MakeFolders("D:\\TARVEX\\DAM\\SOUTH\\");
    ChoiceEdit choices = OpenChoices(Init);
    EXPECT_EQ(WhySystemStays(choices, choices.Systems[1]), "");
    EXPECT_EQ(WhyEntryStays(choices.Systems[0], 0, "NORTH"), "");
    choices.Systems[0].Structure.Groups[0] = {{"NORTH", "a"}, {"SOUTH", "s"}};
    EXPECT_NE(WhyEntryStays(choices.Systems[0], 0, "NORTH"), "");
    EXPECT_EQ(WhyEntryStays(choices.Systems[0], 0, "SOUTH"), "");
}

TEST_F(StructureEdit, KeepsADataSystemWithFoldersInTheTree) {
    ChoiceEdit choices = OneSystem();
    SetDataSystem(choices.Systems[0], false);
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
    MakeFolders("D:\\TARVEX\\DAM\\");
    EXPECT_THAT(ChoiceProblems(choices),
                ElementsAre("Systems: DAM has to stay a data system: D:\\TARVEX\\DAM\\ exists."));
}

TEST_F(StructureEdit, RefusesToRemoveTheCalibrationSystemWithFolders) {
    PutFile(Init + "CHOICES.SYS", "CALIB    2 Calibrations\r\n");
    ChoiceEdit choices = OpenChoices(Init);
    EXPECT_EQ(WhySystemStays(choices, choices.Systems[0]), "");
    MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\");
    EXPECT_EQ(WhySystemStays(choices, choices.Systems[0]),
              "Systems: CALIB is in use and cannot be removed: D:\\TARVEX\\CALIB\\STAFF\\ exists.");
}

TEST_F(StructureEdit, WarnsOfALocationThatTwoSystemsShare) {
    ChoiceEdit choices = OneSystem();
    SystemEdit weir;
    weir.Name = "WEIR";
    weir.Description = "The weir";
    weir.Structure.Groups[0] = {{"NORTH", "North"}, {"CREST", "Crest"}};
    choices.Systems.push_back(weir);
    EXPECT_THAT(ChoiceProblems(choices), IsEmpty());
    EXPECT_THAT(ChoiceWarnings(choices),
                ElementsAre("WEIR, Locations: NORTH is also a location of DAM, and both share the coordinate "
                            "database D:\\TARVEX\\COORD\\NORTH\\."));
    EXPECT_THAT(EntryNotes(choices, choices.Systems[0], 0),
                ElementsAre("NORTH is also a location of WEIR, and both share the coordinate database "
                            "D:\\TARVEX\\COORD\\NORTH\\."));
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_THAT(ChoiceWarnings(choices), IsEmpty());
    SetDataSystem(choices.Systems[0], false);
    EXPECT_THAT(EntryNotes(choices, choices.Systems[1], 0), ElementsAre("", ""));
}

TEST_F(StructureEdit, WarnsOfNamesThatMisleadUploads) {
    ChoiceEdit choices = OneSystem();
    choices.Systems[0].Structure.Groups[0].push_back({"TOTALS", "Words"});
    choices.Systems[0].Structure.Groups[0].push_back({"SRVC", "Words"});
    EXPECT_THAT(
        ChoiceWarnings(choices),
        ElementsAre("DAM, Locations: TOTALS holds the name of data type TOTAL, so that uploads below it "
                    "can be taken for TOTAL.",
                    "DAM, Locations: SRVC holds SRV, by which survey folders are known, so that other "
                    "folders are taken for them."));
    SystemEdit levels;
    levels.Name = "LEVELS";
    choices.Systems = {levels};
    EXPECT_THAT(ChoiceWarnings(choices),
                ElementsAre(HasSubstr("Systems: LEVELS holds the name of data type")));
}

TEST_F(StructureEdit, KeepsTheFileOfASystemThatLeavesTheList) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
    PutFile(Init + "DAM.STR", Dam);
    ChoiceEdit choices = OpenChoices(Init);
    choices.Systems.clear();
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    choices = OpenChoices(Init);
    SystemEdit dam;
    dam.Name = "DAM";
    choices.Systems.push_back(dam);
    EXPECT_EQ(SaveChoices(choices), Init + "DAM.STR is there already and would be lost.");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "");
}

TEST_F(StructureEdit, SeesThatAnotherProgramHasWrittenInTheMeantime) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
    PutFile(Init + "DAM.STR", Dam);
    ChoiceEdit choices = OpenChoices(Init);
    PutFile(Init + "DAM.STR", "changed\r\n");
    choices.Systems[0].Description = "New";
    EXPECT_EQ(SaveChoices(choices), Init + "DAM.STR was changed by another program in the meantime.");
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "DAM      1 Upper Dam\r\n");
}

TEST_F(StructureEdit, LeavesBothFilesOnAFullDisk) {
    OnSmallDisk("D:\\TARVEX\\INIT", 64, [&] {
        Drives::WriteFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
        Drives::WriteFile(Init + "DAM.STR", Dam);
        ChoiceEdit choices = OpenChoices(Init);
        try {
            for (;;)
                Drives::AppendFile(Init + "FILLER.BIN", std::string(4096, 'x'));
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        choices.Systems[0].Description = "New";
        EXPECT_THROW(SaveChoices(choices), RunTimeError);
        EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "DAM      1 Upper Dam\r\n");
        EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    });
}

TEST_F(StructureEdit, RaisesAFolderWithoutRights) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n");
    PutFile(Init + "DAM.STR", Dam);
    AsNobody([] {
        ChoiceEdit choices = OpenChoices(Init);
        choices.Systems[0].Description = "New";
        EXPECT_THROW(SaveChoices(choices), RunTimeError);
    });
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
}

TEST_F(StructureEdit, ReadsAndWritesTheCalibrationStructure) {
    PutFile(Init + "CALIB.STR", Shipped("CALIB.STR"));
    CalibEdit calibration = OpenCalibStructure(Init, "D:\\TARVEX\\CALIB\\");
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), Shipped("CALIB.STR"));
    calibration.Structure.Groups[1].push_back({"C2801", "January 2028"});
    EXPECT_THAT(CalibProblems(calibration), IsEmpty());
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), Shipped("CALIB.STR") + "C2801    January 2028\r\n");
}

TEST_F(StructureEdit, NamesTheCalibrationStructureAfterItsFolder) {
    EXPECT_EQ(OpenCalibStructure(Init, "D:\\TARVEX\\Instr\\").File.Path, Init + "INSTR.STR");
    CalibEdit calibration = OpenCalibStructure(Init, "");
    EXPECT_EQ(calibration.File.Path, Init + "CALIB.STR");
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), "CALIB    Calibrations\r\nCODE     DESCRIPTION\r\n\r\n");
}

TEST_F(StructureEdit, TellsWhatIsWrongWithTheCalibrationStructure) {
    CalibEdit calibration = OpenCalibStructure(Init, "D:\\CALIB\\");
    calibration.Structure.Groups = {{{"STAFF", "Staffs"}, {"ROD", "Rods"}}, {{"A B", "x"}, {"NONE", "y"}}};
    EXPECT_THAT(
        CalibProblems(calibration),
        ElementsAre("Calibration types: ROD is no calibration type: the keys <extension>_Calib in the "
                    "sections of the data types of C:\\WINDOWS\\dv_datatype.ini name EDM STAFF.",
                    "Epochs: A B has a character that a folder's name cannot have.",
                    "Epochs: NONE is the word for no calibration."));
    EXPECT_THAT(CalibNotes(calibration, 1),
                ElementsAre("A B has a character that a folder's name cannot have.",
                            "NONE is the word for no calibration."));
    PutFile(Init + "CALIB.STR", "CALIB\r\n\r\nSTAFF\r\n");
    EXPECT_THAT(CalibProblems(OpenCalibStructure(Init, "D:\\CALIB\\")),
                ElementsAre("CALIB: The file ends before its last group."));
}

TEST_F(StructureEdit, RefusesToRemoveACalibrationThatIsInUse) {
    Global().Calib_path = "D:\\TARVEX\\CALIB\\";
    PutFile(Init + "CALIB.STR", Shipped("CALIB.STR"));
    CalibEdit calibration = OpenCalibStructure(Init, Global().Calib_path);
    EXPECT_EQ(WhyCalibEntryStays(calibration, 0, "STAFF"), "");
    MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2601\\");
    EXPECT_EQ(WhyCalibEntryStays(calibration, 0, "STAFF"),
              "Calibration types: STAFF is in use and cannot be removed: D:\\TARVEX\\CALIB\\STAFF\\ exists.");
    PutLines(Init + "CALIB.PTH", {" *       CALIB     EDM       C2607"});
    const std::string registered =
        "D:\\TARVEX\\CALIB\\EDM\\C2607\\ is registered in D:\\TARVEX\\INIT\\CALIB.PTH.";
    calibration.Structure.Groups = {{{"STAFF", "s"}}, {{"C2601", "a"}}};
    EXPECT_THAT(CalibProblems(calibration),
                ElementsAre("Calibration types: EDM is in use and cannot be removed: " + registered,
                            "Epochs: C2607 is in use and cannot be removed: " + registered));
    calibration.Structure.Groups[1].clear();
    EXPECT_THAT(CalibProblems(calibration),
                testing::Contains("Epochs: C2601 is in use and cannot be removed: "
                                  "D:\\TARVEX\\CALIB\\STAFF\\C2601\\ exists."));
}

}  // namespace Dorvane::Testing
