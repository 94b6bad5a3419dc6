// SPDX-License-Identifier: GPL-3.0-or-later
#include <ostream>

#include "core/Globals.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/basDatabase.h"
#include "datatree/SurveyChoice.h"
#include "datatree/basTree.h"
#include "programs/road/RoadWalk.h"
#include "reduction/ReduceTabs.h"
#include "reduction/ReductionEnd.h"
#include "reduction/ReductionRun.h"
#include "upload/DataTypes.h"
#include "upload/SurveyIndex.h"
#include "upload/UploadRun.h"
#include "upload/UploadState.h"

namespace Dorvane::Road {

namespace {

// The data type that has a field book's extension; empty when none has.
std::string DataTypeOf(const std::string& fileName) {
    List1<DataType> types;
    ReadIniDataTypes(types);
    const std::string extension = UpperCase(BehindFirstPoint(fileName));
    for (const DataType& type : types)
        for (const std::string& candidate : type.Extensions)
            if (candidate == extension)
                return type.Name;
    return "";
}

class PrintedMeter : public FileMeter {
  public:
    explicit PrintedMeter(Walk& walk) : Road(walk) {}
    void ShowFile(const std::string& from, const std::string& to) override { Road.Say(from + " -> " + to); }

  private:
    Walk& Road;
};

}  // namespace

void AddTheSurvey(Walk& walk) {
    walk.Step("A survey is added");
    SurveyChoice choice;
    SetSurveyDirectory(choice, Global().Data_drive);
    walk.Need(choice.Roots.Count() > 0, "CHOICES.SYS names no data system");
    ChooseSurveyRoot(choice, choice.Roots[1]);
    walk.Need(choice.Locations.Count() > 0, "the system has no location");
    ChooseSurveyLocation(choice, choice.Locations[1]);
    walk.Type = DataTypeOf(walk.FieldFile);
    walk.Need(!walk.Type.empty(), "no data type has the extension of " + walk.FieldFile);
    ChooseSurveyTypes(choice, {walk.Type});
    walk.Need(choice.Epochs.Count() > 0, "no epoch is free");
    ChooseSurveyEpoch(choice, choice.Epochs[1]);

    SurveyAnswer answer;
    walk.Need(ConfirmSurvey(choice, "First survey of the road", answer), "the choice is not complete");
    SurveyServices services;
    services.WriteSrvNew = [](const std::string& folder, const std::string& index) {
        WriteSrvNew(folder, index);
    };
    services.WriteCoordNew = [](const std::string& folder, const std::string& location) {
        WriteLocationNew(folder, location);
    };
    services.LacksCoordFiles = LacksCoordFiles;
    TreeModel tree;
    const SurveyReport report = AddSurvey(answer, services, tree);
    for (const std::string& made : report.Made)
        walk.Say("made: " + made);

    walk.Root = choice.Root;
    walk.Location = choice.Location;
    walk.Epoch = choice.Epoch;
    const std::string location = Global().Data_drive + walk.Root + "\\" + walk.Location + "\\";
    walk.SurveyFolder = location + walk.Type + "\\" + walk.Epoch + "\\";
    walk.ProjectFolder = location + "ADJUST\\" + walk.Epoch + "\\";
    walk.Need(tree.Find(walk.SurveyFolder) != nullptr, "the tree does not show " + walk.SurveyFolder);
    walk.Say("the tree has " + std::to_string(tree.Nodes().size()) + " nodes");
    walk.Done();
}

void UploadTheBook(Walk& walk) {
    walk.Step("The field book is uploaded: copied, indexed, its source renamed");
    UploadState state;
    LoadUploadState(state);
    state.FromPath = walk.FieldFolder;
    state.ToPath = walk.SurveyFolder;
    TotalUpdate(state);
    walk.Say("data type " + state.DataTypeName + ", selection " + state.FileSelection);
    PrintedMeter meter(walk);
    UploadSelection(state, meter);
    walk.Say(state.Outcome.Long);
    SaveUploadState(state);
    walk.Need(FileExists(walk.SurveyFolder + walk.FieldFile), walk.FieldFile + " did not arrive");
    walk.Need(!FileExists(walk.FieldFolder + walk.FieldFile), "the source kept its name");
    walk.Done();
}

void ReduceTheBook(Walk& walk) {
    walk.Step("The field book is reduced by an outside program");
    ReduceState state;
    walk.Need(SetupReduceTabs(walk.SurveyFolder, state), "the survey folder has no reduction");
    int tab = 0;
    for (int i = 1; i <= state.Tabs.Count(); ++i)
        if (state.Tabs[i].Extension == UpperCase(BehindFirstPoint(walk.FieldFile)))
            tab = i;
    walk.Need(tab != 0, "no tab has the extension of " + walk.FieldFile);
    if (RunReduction(state, tab))
        TellReductionEnd(state, tab);
    const ReductionState& result = state.Tabs[tab].Reduction;
    walk.Say("tab " + state.Tabs[tab].Name + ": state picture " + result.Picture.Picture);
    walk.Need(result.Picture.Tag == "1", "the program left no results");
    walk.Done();
}

}  // namespace Dorvane::Road
