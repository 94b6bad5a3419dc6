// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/SurveyChoice.h"

#include <algorithm>
#include <array>

#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// A path of more parts preselects nothing.
constexpr int MostPreselectedParts = 5;

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

bool Holds(const List1<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void OfferFreeEpochs(SurveyChoice& choice, const StructureRecord& structure) {
    std::array<bool, StructureRecord::Room + 1> used{};
    for (const PathRecord& record : Global().PathRecords) {
        if (record.Root != choice.Root || record.Location != choice.Location ||
            !Holds(choice.ChosenTypes, record.Type))
            continue;
        for (int i = 1; i <= structure.EpochCount; ++i)
            if (structure.Epoch[i] == record.Epoch)
                used[static_cast<std::size_t>(i)] = true;
    }
    for (int i = 1; i <= structure.EpochCount; ++i)
        if (!used[static_cast<std::size_t>(i)])
            choice.Epochs.Add(structure.Epoch[i]);
}

// What the chosen system lacks, and where it is made.
std::string Lacks(const SurveyChoice& choice, const char* names) {
    return choice.Root + " has no " + names + ".  Enter them on the home menu under Edit > Data Structures.";
}

std::string WhyNoEpochs(const SurveyChoice& choice) {
    const StructureRecord* structure = ChosenStructure(choice);
    if (structure == nullptr || structure->EpochCount == 0)
        return Lacks(choice, "epochs");
    if (choice.ChosenTypes.Empty())
        return "";
    return "All epochs of " + choice.Root +
           " are used here by the selected data types.  Enter more on the home menu under Edit > Data "
           "Structures.";
}

// What the history file gives back of a text: as much as its column holds, on one line.
std::string HistoryText(const std::string& typed) {
    std::string text = Left(typed, HistoryRecord::LongestUsage);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return text;
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
        OfferRoots(choice);
        if (count > MostPreselectedParts)
            return;
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

std::string WhyEmpty(const SurveyChoice& choice, SurveyList list) {
    if (list == SurveyList::Root)
        return choice.Roots.Empty()
                   ? "There is no data system.  Make one on the home menu under Edit > Data Structures."
                   : "";
    if (!Holds(choice.Roots, choice.Root))
        return "";
    switch (list) {
        case SurveyList::Location: return choice.Locations.Empty() ? Lacks(choice, "locations") : "";
        case SurveyList::Type: return choice.Types.Empty() ? Lacks(choice, "data types") : "";
        default: return choice.Epochs.Empty() ? WhyNoEpochs(choice) : "";
    }
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
        answer = {choice.Root, choice.Location, "", choice.Epoch, HistoryText(history)};
        for (const std::string& type : choice.ChosenTypes)
            answer.TypeMulti += type + " ";
        complete = true;
    });
    return complete;
}

}  // namespace Dorvane
