// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputScreen.h"

#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"
#include "datatree/basTarvex.h"
#include "input/InputTypes.h"
#include "input/UserDbFiles.h"
#include "input/Weights.h"

namespace Dorvane {

namespace {

constexpr const char* RootKey = "Data Types";

void AddTypeNodes(InputScreen& screen) {
    screen.trvInput.Clear();
    screen.trvInput.Add({.Key = RootKey,
                         .Parent = "",
                         .Caption = RootKey,
                         .Image = "sclsfolder",
                         .ExpandedImage = "sopnfolder",
                         .Expanded = true});
    for (const InputType& type : screen.Model.Types)
        screen.trvInput.Add({.Key = type.Name,
                             .Parent = RootKey,
                             .Caption = type.Name,
                             .Image = type.Icon,
                             .ExpandedImage = "",
                             .Expanded = false});
}

void EditResultFiles(const std::string& folder) {
    const GeneralEditor editor = ReadGeneralEditor();
    List1<FileEntry> files;
    GetFiles(files, folder, "*.RES");
    for (const FileEntry& file : files)
        RunAndWait(editor.Program() + " " + folder + file.Name);
}

bool Confirmed(const std::string& text, const std::string& title, Icon icon) {
    const Message message{.Text = text, .Title = title, .Picture = icon, .Choices = Buttons::YesNo};
    return TheDesktop().ShowMessage(message) == Answer::Yes;
}

void ClickFolder(InputScreen& screen, const std::string& key, const std::string& folder) {
    const Message question{.Text = "Do you wish to edit the *.RES files in folder " + key + "?",
                           .Title = "Edit Result File(s)",
                           .Picture = Icon::Question,
                           .Choices = Buttons::YesNoCancel};
    const Answer answer = TheDesktop().ShowMessage(question);
    if (answer == Answer::Yes)
        EditResultFiles(folder);
    if (answer != Answer::No)
        return;
    if (Confirmed("Do you wish to remove the folder " + key + " from the input file?", "Remove Folder",
                  Icon::Question) &&
        Confirmed("Are you sure you wish to remove the folder " + key + "?", "Are You Sure",
                  Icon::Exclamation))
        screen.trvInput.Remove(key);
}

}  // namespace

void OpenInputScreen(InputScreen& screen, const List1<PathRecord>& records, const InputServices& services) {
    Guarded("frmInput-Form_Load", [&](Guard&) {
        services.ShowStatus("Choose data type to import");
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
        screen.icmbInput = model.Types.Empty() ? std::int16_t{0} : std::int16_t{1};
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

void ClickInputNode(InputScreen& screen, const std::string& key) {
    Guarded("frmInput-trvInput_NodeClick", [&](Guard&) {
        std::string folder = key;
        if (FolderExists(folder)) {
            ClickFolder(screen, key, folder);
            return;
        }
        for (int i = 1; i <= screen.Model.Types.Count(); ++i)
            if (screen.Model.Types[i].Name == key)
                screen.icmbInput = static_cast<std::int16_t>(i);
    });
}

void EditInputFile(const InputScreen& screen) {
    Guarded("frmInput-cmdEdit_Click", [&](Guard& guard) {
        const std::string path = FileInHand(screen);
        if (FileExists(path))
            guard.Run([&] { TheDesktop().StartProgram(ReadGeneralEditor().Program() + " " + path); });
    });
}

void PrintInputFile(const InputScreen& screen) {
    if (!screen.lblFileName.empty())
        PrintGenFile(screen.FileFolder, screen.lblFileName, screen.FileFolder);
}

}  // namespace Dorvane
