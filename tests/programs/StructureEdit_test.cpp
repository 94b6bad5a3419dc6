// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Drives.h"
#include "datatree/basRead.h"
#include "programs/editors/ChoiceCheck.h"
#include "programs/editors/ChoiceEdit.h"
#include "tests/programs/StructureSample.h"

// The list of systems and their structure files, read and written.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

}  // namespace

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
    choices.Systems[0].Description = "In the list";  // as it was read
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_EQ(FileLines(Init + "DAM.STR").front(), "DAM      In the list");
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

}  // namespace Dorvane::Testing
