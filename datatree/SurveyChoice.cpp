// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/SurveyChoice.h"

#include <algorithm>
#include <array>

#include "core/ReportError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// The structure of the chosen system, or nothing.
const StructureRecord* ChosenStructure(const SurveyChoice& choice) {
    for (int i = 1; i <= choice.Choices.Count(); ++i)
        if (choice.Structures[i].Name == choice.Root)
            return &choice.Structures[i];
    return nullptr;
}

void ClearEpochs(SurveyChoice& choice) {
    choice.Epochs.Clear();
    choice.Epoch.clear();
}

void ClearBelowRoot(SurveyChoice& choice) {
    choice.Locations.Clear();
    choice.Location.clear();
    choice.Types.Clear();
    choice.ChosenTypes.Clear();
    ClearEpochs(choice);
}

void OfferLocationsAndTypes(SurveyChoice& choice) {
    const StructureRecord* structure = ChosenStructure(choice);
    if (structure == nullptr)
        return;
    for (int i = 1; i <= structure->LocationCount; ++i)
        choice.Locations.Add(structure->Location[i]);
    for (int i = 1; i <= structure->TypeCount; ++i)
        choice.Types.Add(structure->Type[i]);
}

void OfferRoots(SurveyChoice& choice) {
    for (const ChoiceRecord& system : choice.Choices)
        if (system.Kind == 1)
            choice.Roots.Add(system.Name);
}

bool IsChosen(const SurveyChoice& choice, const std::string& type) {
    return std::find(choice.ChosenTypes.begin(), choice.ChosenTypes.end(), type) != choice.ChosenTypes.end();
}

void OfferFreeEpochs(SurveyChoice& choice, const StructureRecord& structure) {
    std::array<bool, StructureRecord::Room + 1> used{};
    for (const PathRecord& record : Global().PathRecords) {
        if (record.Root != choice.Root || record.Location != choice.Location ||
            !IsChosen(choice, record.Type))
            continue;
        for (int i = 1; i <= structure.EpochCount; ++i)
            if (structure.Epoch[i] == record.Epoch)
                used[static_cast<std::size_t>(i)] = true;
    }
    for (int i = 1; i <= structure.EpochCount; ++i)
        if (!used[static_cast<std::size_t>(i)])
            choice.Epochs.Add(structure.Epoch[i]);
}

}  // namespace

void ReadSystems(List1<ChoiceRecord>& choices, List1<StructureRecord>& structures) {
    const std::string& folder = Global().Init_path;
    choices.Clear();
    structures.Clear();
    structures.Resize(MostSystems);
    ReadChoiceFile(choices, folder, "CHOICES.SYS");
    for (int i = 1; i <= choices.Count(); ++i)
        ReadStrFile(structures, i, folder, choices[i].Name + ".STR");
}

void SetSurveyDirectory(SurveyChoice& choice, const std::string& directory) {
    Guarded("frmAddSurvey-lblDirectory_Change", [&](Guard&) {
        choice.Directory = directory;
        choice.Root.clear();
        choice.Roots.Clear();
        ClearBelowRoot(choice);
        ReadSystems(choice.Choices, choice.Structures);
        List1<std::string> parts;
        int count = 0;
        if (FolderExists(choice.Directory))
            count = SplitPathParts(choice.Directory, parts);
        else
            choice.Directory.clear();
        if (count > 5)
            return;
        OfferRoots(choice);
        if (count >= 2) {
            choice.Root = parts[2];
            OfferLocationsAndTypes(choice);
        }
        if (count >= 3)
            choice.Location = parts[3];
    });
}

void ChooseSurveyRoot(SurveyChoice& choice, const std::string& root) {
    Guarded("frmAddSurvey-lstRoot_Click", [&](Guard&) {
        choice.Root = root;
        ClearBelowRoot(choice);
        OfferLocationsAndTypes(choice);
    });
}

void ChooseSurveyLocation(SurveyChoice& choice, const std::string& location) {
    choice.Location = location;
    choice.ChosenTypes.Clear();
    ClearEpochs(choice);
}

void ChooseSurveyTypes(SurveyChoice& choice, const List1<std::string>& types) {
    Guarded("frmAddSurvey-lstTypeMulti_Click", [&](Guard&) {
        choice.ChosenTypes = types;
        ClearEpochs(choice);
        const StructureRecord* structure = ChosenStructure(choice);
        if (structure != nullptr)
            OfferFreeEpochs(choice, *structure);
    });
}

void ChooseSurveyEpoch(SurveyChoice& choice, const std::string& epoch) {
    choice.Epoch = epoch;
}

bool ConfirmSurvey(const SurveyChoice& choice, const std::string& history, SurveyAnswer& answer) {
    bool complete = false;
    Guarded("frmAddSurvey-cmdOK_Click", [&](Guard&) {
        if (choice.Root.empty() || choice.Location.empty() || choice.Epoch.empty()) {
            TheDesktop().ShowMessage({.Text = "All entries must be full to add direcotory.",
                                      .Title = "Missing Information",
                                      .Picture = Icon::Information});
            return;
        }
        if (history.empty() &&
            TheDesktop().ShowMessage(
                {.Text = "No History information entered.  Do you wish to enter something?",
                 .Title = "No History Information",
                 .Picture = Icon::Information,
                 .Choices = Buttons::YesNo}) == Answer::Yes)
            return;
        answer = {choice.Root, choice.Location, "", choice.Epoch, history};
        for (const std::string& type : choice.ChosenTypes)
            answer.TypeMulti += type + " ";
        complete = true;
    });
    return complete;
}

}  // namespace Dorvane
