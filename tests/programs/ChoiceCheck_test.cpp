// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Globals.h"
#include "programs/editors/ChoiceCheck.h"
#include "programs/editors/ChoiceEdit.h"
#include "tests/programs/StructureSample.h"

// What a structure cannot be changed to, and what it is warned of.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

}  // namespace

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
    EXPECT_EQ(SaveChoices(choices), "");
    EXPECT_THAT(ChoiceWarnings(choices), IsEmpty()) << "it cannot be renamed any more";
}

}  // namespace Dorvane::Testing
