// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputScreen.h"

#include "core/ProfileStore.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "datatree/basTarvex.h"
#include "input/InputTypes.h"
#include "input/ProjectLists.h"
#include "input/TreeFolders.h"
#include "input/UserDbFiles.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

void AddTypeNodes(InputScreen& screen) {
    screen.trvInput.Clear();
    screen.trvInput.Add({.Key = TreeRoot,
                         .Parent = "",
                         .Caption = TreeRoot,
                         .Image = "sclsfolder",
                         .ExpandedImage = "sopnfolder",
                         .Expanded = true});
    for (const InputType& type : screen.Model.Types)
        screen.trvInput.Add({.Key = type.Name,
                             .Parent = TreeRoot,
                             .Caption = type.Name,
                             .Image = type.Icon,
                             .ExpandedImage = "",
                             .Expanded = false});
}

void EditResultFiles(const std::string& folder) {
    const GeneralEditor editor = ReadGeneralEditor();
    List1<FileEntry> files;
    if (GetFiles(files, folder, "*.RES") == 0 || !HasGeneralEditor(editor))
        return;
    for (const FileEntry& file : files)
        RunAndWait(editor.Program() + " " + folder + file.Name);
}

bool Confirmed(const std::string& text, const std::string& title) {
    const Message message{
        .Text = text, .Title = title, .Picture = Icon::Exclamation, .Choices = Buttons::YesNo};
    return TheDesktop().ShowMessage(message) == Answer::Yes;
}

void OfferRemoval(InputScreen& screen, const InputServices& services, const std::string& key) {
    if (!Confirmed("Do you wish to remove the folder " + key + " from the input file?", "Remove Folder") ||
        !Confirmed("Are you sure you wish to remove the folder " + key + "?", "Are You Sure"))
        return;
    screen.trvInput.Remove(key);
    services.ShowStatus("Folder " + key + " removed");
}

void ClickFolder(InputScreen& screen, const InputServices& services, const std::string& key,
                 const std::string& folder) {
    const Message question{.Text = "Do you wish to edit the *.RES files in folder " + key + "?",
                           .Title = "Edit Result File(s)",
                           .Picture = Icon::Exclamation,
                           .Choices = Buttons::YesNoCancel};
    const Answer answer = TheDesktop().ShowMessage(question);
    if (answer == Answer::Yes)
        EditResultFiles(folder);
    if (answer == Answer::No)
        OfferRemoval(screen, services, key);
}

// The type of a name, from 1; 0 when there is none.
std::int16_t TypeNamed(const List1<InputType>& types, const std::string& name) {
    for (int i = 1; i <= types.Count(); ++i)
        if (types[i].Name == name)
            return static_cast<std::int16_t>(i);
    return 0;
}

// The type that a folder was put under last, else the first one.
std::int16_t ProposedType(const List1<InputType>& types) {
    const std::int16_t last = TypeNamed(types, IniReadString(InputProfile, "Project", "Last Type"));
    return last == 0 && !types.Empty() ? std::int16_t{1} : last;
}

}  // namespace

void OpenInputScreen(InputScreen& screen, const List1<PathRecord>& records, const InputServices& services) {
    Guarded("frmInput-Form_Load", [&](Guard&) {
        services.ShowStatus(IdleStatus);
        screen.lstCoordTypes = {{"3 Dimensional"}, {"Monuments"}, {"Benchmarks"}, {"Ideals"}};
        screen.lstCoordDirectorys = CoordDirectoryEntries(records);
        screen.lstUserDBFiles = LoadUserDbList();
        screen.icmbDimension = 3;
        ObservationModel& model = screen.Model;
        ReadIniInputTypes(model.Types);
        ReadIniWeights(model.DistanceWeights, model.AngleWeights, model.TotalWeights, model.TrackerWeights,
                       model.HeightWeights);
        EmptyModel(model);
        AddTypeNodes(screen);
        screen.icmbInput = ProposedType(model.Types);
        screen.SavedProject = ProjectText(screen);
    });
}

std::vector<ListEntry> CoordDirectoryEntries(const List1<PathRecord>& records) {
    std::vector<ListEntry> entries{{"User Defined"}};
    for (int i = 1; i <= records.Count(); ++i) {
        // Only neighbours are compared: a location that comes back after another one is meant to stand twice.
        if (i == 1 || records[i].Location != records[i - 1].Location)
            entries.push_back({records[i].Root + "\\" + records[i].Location});
    }
    return entries;
}

std::string FileInHand(const InputScreen& screen) {
    return screen.lblFileName.empty() ? "" : screen.FileFolder + screen.lblFileName;
}

void ClickInputNode(InputScreen& screen, const InputServices& services, const std::string& key) {
    Guarded("frmInput-trvInput_NodeClick", [&](Guard&) {
        std::string folder = key;
        if (FolderExists(folder)) {
            ClickFolder(screen, services, key, folder);
            return;
        }
        if (key == TreeRoot)
            return;
        const std::int16_t type = TypeNamed(screen.Model.Types, key);
        if (type != 0)
            screen.icmbInput = type;
        else
            OfferRemoval(screen, services, key);  // its folder has vanished from the disk
    });
}

void EditInputFile(const InputScreen& screen) {
    Guarded("frmInput-cmdEdit_Click", [&](Guard& guard) {
        const std::string path = FileInHand(screen);
        if (!FileExists(path))
            return;
        const GeneralEditor editor = ReadGeneralEditor();
        if (HasGeneralEditor(editor))
            guard.Run([&] { TheDesktop().StartProgram(editor.Program() + " " + path); });
    });
}

void PrintInputFile(const InputScreen& screen) {
    if (!screen.lblFileName.empty())
        PrintGenFile(screen.FileFolder, screen.lblFileName, screen.FileFolder);
}

}  // namespace Dorvane
