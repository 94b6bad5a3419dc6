// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "database/basDatabase.h"
#include "datatree/SurveyReport.h"
#include "datatree/basTree.h"
#include "tests/faults/FaultLibrary.h"
#include "tests/faults/Steps.h"
#include "tests/support/TestSite.h"
#include "upload/SurveyIndex.h"

namespace Dorvane::Testing {

namespace {

const std::string Init = "D:\\TARVEX\\INIT\\";

void PutRegistries() {
    PutLines(Init + "CHOICES.SYS", {"DAM      1 Main dam"});
    PutLines(Init + "DAM.STR",
             {"DAM      Main dam", "", "NORTH    North", "SOUTH    South", "", "LEVEL    Levelling",
              "TOTAL    Total", "", "SRV11    11th", "SRV12    12th"});
    PutLines(Init + "DAM.PTH", {" *       DAM       SOUTH     LEVEL     SRV11"});
    PutLines(Init + "DAM.HIS",
             {"             DATA FILESYSTEM HISTORY", "", "Subdirectory                  Usage",
              "----------------------        ---------------------------", "DAM\\SOUTH\\LEVEL\\SRV11",
              "    Created     11-19-26      Eleventh"});
    PutLines(Init + "BIAS.STR", {"OTHER    1 2 3 4"});
}

bool AddOneSurvey(TellingDesktop& desktop) {
    SurveyServices services;
    services.WriteSrvNew = WriteSrvNew;
    services.WriteCoordNew = WriteLocationNew;
    services.LacksCoordFiles = LacksCoordFiles;
    const SurveyAnswer survey{"DAM", "NORTH", "LEVEL TOTAL ", "SRV12", "Twelfth"};
    TreeModel tree;
    TellSurveyAdded(survey, AddSurvey(survey, services, tree));
    return desktop.HasTold("Survey Added") && !desktop.HasTold("Program Error");
}

void PrepareLocation() {
    PutLines(Init + "BIAS.STR", {"OTHER    1 2 3 4"});
    MakeFolders("D:\\TARVEX\\COORD\\NORTH\\");
}

bool MakeLocation(TellingDesktop& desktop) {
    WriteLocationNew("D:\\TARVEX\\COORD\\NORTH\\", "NORTH");
    return !desktop.HasTold("Program Error");
}

void PrepareProfile() {
    PutLines("C:\\WINDOWS\\dv_tarvex.ini",
             {"; kept", "[Paths]", "Init=D:\\TARVEX\\INIT\\", "Temp=C:\\OLD\\", "[Tree]", "Last=D:\\"});
}

// The profile layer tells nothing. The operator takes for done what is read back.
bool WriteProfile(TellingDesktop&) {
    IniWriteSettings("dv_tarvex.ini", {{"Paths", "Temp", "C:\\TARVEX\\TEMP\\"}, {"Tree", "Sort", "Name"}});
    FaultsEnd();
    return IniReadString("dv_tarvex.ini", "Paths", "Temp") == "C:\\TARVEX\\TEMP\\" &&
           IniReadString("dv_tarvex.ini", "Tree", "Sort") == "Name";
}

}  // namespace

const std::vector<Step> SurveySteps = {{"survey", PutRegistries, AddOneSurvey},
                                       {"location", PrepareLocation, MakeLocation},
                                       {"profile", PrepareProfile, WriteProfile}};

}  // namespace Dorvane::Testing
