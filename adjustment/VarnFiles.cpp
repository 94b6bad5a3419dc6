// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/VarnFiles.h"

#include <optional>
#include <string>

#include "adjustment/Versions.h"
#include "adjustment/basVarn.h"
#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/basPrint.h"

namespace Dorvane {

namespace {

// Folder and name of a path; one that was typed without a backslash is a name without a folder.
void SplitTyped(const std::string& path, std::string& folder, std::string& file) {
    folder.clear();
    file = path;
    if (path.find('\\') != std::string::npos)
        SplitFolderFile(path, folder, file);
}

std::string StartFolder(const std::string& input) {
    std::string folder;
    std::string file;
    SplitTyped(input, folder, file);
    if (FolderExists(folder))
        return folder;
    folder = LastTreePath();
    return FolderExists(folder) ? folder : "";
}

FileDialog InputDialog(const std::string& folder) {
    FileDialog dialog;
    dialog.Purpose = FileDialog::Kind::Open;
    dialog.Folder = folder;
    dialog.Filter = "All Files (*.*)|*.*|Input Files(*.inp)|*.inp|Master Files(*.org)|*.org|";
    dialog.FilterIndex = 2;
    dialog.Flags = 4;
    return dialog;
}

void Refuse(const std::string& text) {
    TheDesktop().ShowMessage({text, "Input File Error", Icon::Exclamation});
}

// True when a chosen file may become the input: a master copy and a version need their master input file.
bool HasMaster(const std::string& folder, const std::string& name) {
    const std::string upper = UpperCase(name);
    if (Contains(upper, ".ORG")) {
        if (FileExists(folder + WithExtension(name, "INP")))
            return true;
        Refuse("No *.INP file exists for this master file " + name + ".  Please correct.");
        return false;
    }
    const std::size_t mark = upper.find("_V");
    if (mark == std::string::npos || FileExists(folder + name.substr(0, mark) + ".INP"))
        return true;
    Refuse("No *.INP master file exists for this version file " + name + ".  Please correct.");
    return false;
}

void EditInput(VarnState& state, const std::string& editor) {
    const std::string file = OfVersion(state.txtInput, state.cmbVersion.Text());
    if (state.mnuTextEditorTicked) {
        TheDesktop().StartProgram(editor + " " + file);
        return;
    }
    RunAndWait(AppPath() + "programs\\editinp.exe " + file);
    ListVersions(state);
}

void EditParameters(VarnState& state, const std::string& editor) {
    const std::string file = OfVersion(state.lblPar.Caption, state.cmbVersion.Text());
    if (state.mnuTextEditorTicked)
        TheDesktop().StartProgram(editor + " " + file);
    else
        RunAndWait(AppPath() + "programs\\editpar.exe " + file);
    state.lblPar.Colour = FileExists(file) ? LabelColour::Black : LabelColour::LightRed;
}

void PrintWhole(const std::string& path) {
    std::string folder;
    std::string file;
    SplitTyped(path, folder, file);
    if (!folder.empty() && !file.empty())
        PrintGenFile(folder, file, folder);
}

}  // namespace

void BrowseInput(VarnState& state) {
    Guarded("frmVarn-cmdBrowse", [&](Guard& guard) {
        const std::string start = StartFolder(state.txtInput);
        std::optional<std::string> chosen;
        guard.Run([&] { chosen = TheDesktop().AskFile(InputDialog(start)); });
        if (!chosen)
            return;
        std::string folder;
        std::string name;
        SplitFolderFile(*chosen, folder, name);
        if (!HasMaster(folder, name))
            return;
        guard.Run([&] { ChangeInput(state, *chosen); });
        StoreLastTreePath(folder);
    });
}

void EditFiles(VarnState& state) {
    Guarded("frmVarn-cmdEdit", [&](Guard& guard) {
        const std::string editor = ReadGeneralEditor().Program();
        if (!FileExists(editor)) {
            TheDesktop().ShowMessage({"Editor " + editor + " does not exitst.  Can not edit file(s).",
                                      "Editor Not Found", Icon::Exclamation});
            return;
        }
        if (state.chkInputFile.Ticked)
            guard.Run([&] { EditInput(state, editor); });
        if (state.chkParFile.Ticked)
            guard.Run([&] { EditParameters(state, editor); });
        if (state.chkOutputFile.Ticked)
            guard.Run([&] {
                TheDesktop().StartProgram(editor + " " +
                                          OfVersion(state.lblOutput.Caption, state.cmbVersion.Text()));
            });
    });
}

void PrintFiles(const VarnState& state) {
    Guarded("frmVarn-cmdPrint", [&](Guard& guard) {
        if (state.chkInputFile.Ticked)
            guard.Run([&] { PrintWhole(state.txtInput); });
        if (state.chkParFile.Ticked)
            guard.Run([&] { PrintWhole(state.lblPar.Caption); });
        if (state.chkOutputFile.Ticked)
            guard.Run([&] { PrintWhole(state.lblOutput.Caption); });
    });
}

}  // namespace Dorvane
