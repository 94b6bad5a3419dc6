// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// What the home menu (frmMain) shows and what its menus do, without the screen. Failures are reported by the
// caller.
namespace Dorvane {

constexpr int HomeButtonCount = 10;

/// One of the buttons, as dv_main.ini describes it. What the profile does not name is empty.
struct HomeButton {
    std::string Title;
    std::string Icon;  // file name in graphics\ below the program's folder
    std::string Tip;
};

/// The buttons in their order; the first one is key `Title1` and index 0 of the screen.
std::array<HomeButton, HomeButtonCount> ReadHomeButtons();

/// The indices of the buttons and the names of the menu items that are of no use while the folders of
/// dv_tarvex.ini are not right. The way out, through mnuTarvexINI, stays open.
const std::vector<int>& ButtonsThatNeedFolders();
const std::vector<const char*>& MenusThatNeedFolders();

/// Starts the general editor on a profile file, a bare name; a message when there is no such editor.
void EditProfile(const std::string& name);

/// The same for Error.log in the program's folder; another message when nothing was logged yet.
void EditErrorLog();

/// Runs an editor of the structure files, as "Programs\EditChoice.exe", and waits for its end; a message
/// instead while the folders are not right.
void RunStructureEditor(const std::string& program);

/// Runs the editor of dv_tarvex.ini and takes over what it left. False, after a message, when some path leads
/// nowhere; InitFailed tells the same.
bool EditStartUpProfile();

/// The folder to reduce, chosen by hand and remembered; empty when cancelled or when it does not exist.
std::string ChooseReductionFolder();

}  // namespace Dorvane
