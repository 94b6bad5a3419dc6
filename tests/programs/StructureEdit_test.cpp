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
    StructureEdit() { Site.LayOut(); }

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

TEST(CodeCheck, TellsTheFaultsOfAGroup) {
    EXPECT_THAT(
        GroupProblems("Epochs", {{"A", ""}, {"", ""}, {"B", std::string(21, 'x')}, {"A", ""}}),
        ElementsAre("Epochs: Line 2 has no name.", "Epochs: B has a description of more than 20 characters.",
                    "Epochs: A stands there twice."));
    EXPECT_THAT(GroupProblems("Epochs", {{"A", std::string(20, 'x')}}), IsEmpty());
    std::vector<CodeEntry> seventeen;
    for (int i = 1; i <= 17; ++i)
        seventeen.push_back({"E" + std::to_string(i), ""});
    EXPECT_THAT(GroupProblems("Epochs", seventeen), ElementsAre("Epochs: there are more than 16 entries."));
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

TEST_F(StructureEdit, TellsWhatIsWrongWithTheSystems) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\n\r\nDAM      1 Again\r\n");
    PutFile(Init + "DAM.STR", "DAM\r\n\r\nNORTH\r\n\r\nADJUST\r\n\r\n");
    EXPECT_THAT(ChoiceProblems(OpenChoices(Init)),
                ElementsAre("Systems: Line 2 has no name.", "Systems: DAM stands there twice.",
                            "DAM, Data types: ADJUST is the folder of the projects.",
                            "DAM, Data types: ADJUST is the folder of the projects."));
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
    PutFile(Init + "CALIB.STR", "CALIB\r\n\r\nSTAFF\r\nSTAFF\r\n\r\nA B\r\n");
    EXPECT_THAT(CalibProblems(OpenCalibStructure(Init, "D:\\CALIB\\")),
                ElementsAre("Calibration types: STAFF stands there twice.",
                            "Epochs: A B has a character that a folder's name cannot have."));
    PutFile(Init + "CALIB.STR", "CALIB\r\n\r\nSTAFF\r\n");
    EXPECT_THAT(CalibProblems(OpenCalibStructure(Init, "D:\\CALIB\\")),
                ElementsAre("CALIB: The file ends before its last group."));
}

}  // namespace Dorvane::Testing
