// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/HomeMenu.h"

#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "core/basMain.h"

namespace Dorvane {

namespace {

// True when the editor is there; else says that it is not.
bool EditorIsThere(const GeneralEditor& editor) {
    if (FileExists(editor.Program()))
        return true;
    TheDesktop().ShowMessage(
        {"Editor " + editor.Program() + " does not exist.  Can not edit file(s).", "Editor Not Found"});
    return false;
}

void Edit(const std::string& file) {
    const GeneralEditor editor = ReadGeneralEditor();
    if (EditorIsThere(editor))
        TheDesktop().StartProgram(editor.Program() + " " + file);
}

}  // namespace

std::array<HomeButton, HomeButtonCount> ReadHomeButtons() {
    std::array<HomeButton, HomeButtonCount> buttons;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        buttons[i].Title = IniReadString("dv_main.ini", "Main Titles", "Title" + number);
        buttons[i].Icon = IniReadString("dv_main.ini", "Main Icons", "Icon" + number);
        buttons[i].Tip = IniReadString("dv_main.ini", "Main Tips", "Tip" + number);
    }
    return buttons;
}

const std::vector<int>& ButtonsThatNeedFolders() {
    static const std::vector<int> indices = {0, 1, 2, 3, 4, 7, 8};
    return indices;
}

const std::vector<const char*>& MenusThatNeedFolders() {
    static const std::vector<const char*> names = {"mnuConfigure",   "mnuCalib",     "mnuDataTypeINI",
                                                   "mnuDownloadINI", "mnuInputINI",  "mnuMainINI",
                                                   "mnuErrorLog",    "mnuBiasValues"};
    return names;
}

void EditProfile(const std::string& name) {
    Edit(GetWindowsPath() + name);
}

void EditErrorLog() {
    const std::string log = AppPath() + "Error.log";
    if (FileExists(log))
        Edit(log);
    else
        TheDesktop().ShowMessage(
            {"Error log file does not exist.  Can not edit file.", "Error Log Not Found"});
}

void RunStructureEditor(const std::string& program) {
    if (Global().InitFailed)
        TheDesktop().ShowMessage({"Must fix Tarvex.ini file", "INI File Error", Icon::Exclamation});
    else
        RunAndWait(AppPath() + program);
}

bool EditStartUpProfile() {
    RunAndWait(AppPath() + "Programs\\EditTarvexINI.exe");
    Global().InitFailed = !InitializeGolbals();
    if (Global().InitFailed)
        TheDesktop().ShowMessage(
            {"Some or all paths in Tarvex.ini invaild.  Please correct.", "Paths Not Found"});
    return !Global().InitFailed;
}

std::string ChooseReductionFolder() {
    std::string folder;
    AskManualFolder(folder, "ReducePath", "Data Reduction Folder Selection");
    return folder;
}

}  // namespace Dorvane
