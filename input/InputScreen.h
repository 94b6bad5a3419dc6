// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Globals.h"
#include "datatree/TreeModel.h"
#include "input/CoordinateSource.h"
#include "input/ObservationModel.h"

// The input screen as a record: what its controls hold, and the model that it collects. A slot reads the
// controls into it, calls a procedure, and shows what came back.
namespace Dorvane {

/// An entry of a list box. List boxes count from 0, as the system's controls do.
struct ListEntry {
    std::string Text;
    bool Selected = false;  // in lstUserDBFiles: checked

    bool operator==(const ListEntry&) const = default;
};

struct InputScreen {
    ObservationModel Model;

    TreeModel trvInput;              // "Data Types", the input types below it, their folders below them
    std::int16_t icmbInput = 0;      // selected input type, from 1; 0 none
    std::int16_t icmbDimension = 3;  // selected dimension, 1 to 3
    std::vector<ListEntry> lstCoordTypes;
    std::vector<ListEntry> lstCoordDirectorys;  // entry 0 is "User Defined"
    std::vector<ListEntry> lstUserDBFiles;      // at most 16 paths

    std::string txtProject;
    std::string txtTask;
    std::string lblDirectory;  // the folder chosen last
    std::string lblFileName;   // the input file in hand
    std::string FileFolder;    // where the input file in hand lies
    std::string Contents;      // what the input file in hand holds, in words; empty when there is none
    std::string SavedProject;  // the set-up as it was opened or saved last, in the form of a project file
    bool cmdEditEnabled = false;
    bool cmdPrintEnabled = false;
};

/// What the procedures need of the living screen. All but PickFolder and MakeSource are decoration and may
/// stay as they are.
struct InputServices {
    /// Shows a text in panel 1 of the status bar.
    std::function<void(const std::string& text)> ShowStatus = [](const std::string&) {};

    /// Shows the folder tree under a caption, modally, opened at a path. The folder that its OK chose;
    /// nothing after its Cancel.
    std::function<std::optional<std::string>(const std::string& caption, const std::string& path)> PickFolder;

    MakeCoordinateSource MakeSource;

    std::function<void(bool on)> ShowHourglass = [](bool) {};
    std::function<void(bool on)> ShowAnimation = [](bool) {};  // AppPath + "graphics\gears.avi"
};

/// What panel 1 of the status bar shows when nothing is to be told.
inline constexpr const char* IdleStatus = "Choose data type to import";

/// Fills the screen as it opens: the coordinate lists from the path records, the user files, dimension 3,
/// input types, weights and empty sets, and the tree with its root and a node per input type. The selected
/// type is the one that a folder was put under last, else the first. Reports as "frmInput-Form_Load".
void OpenInputScreen(InputScreen& screen, const List1<PathRecord>& records, const InputServices& services);

/// The entries of lstCoordDirectorys: "User Defined", then root, backslash and location of the first record
/// and of each whose location differs from that of the record before it.
std::vector<ListEntry> CoordDirectoryEntries(const List1<PathRecord>& records);

/// The path of the input file in hand, which stays that of the file that was made when another folder is
/// chosen; empty when there is none.
std::string FileInHand(const InputScreen& screen);

/// The click of a node of trvInput. On a folder it offers to edit the folder's *.RES files, one after another
/// in the general editor, or to remove the folder; on one that has vanished from the disk only to remove it;
/// on an input type it selects the type. Reports as "frmInput-trvInput_NodeClick".
void ClickInputNode(InputScreen& screen, const InputServices& services, const std::string& key);

/// The click of cmdEdit: starts the general editor on the input file in hand, if it exists. Reports as
/// "frmInput-cmdEdit_Click".
void EditInputFile(const InputScreen& screen);

/// The click of cmdPrint: prints the input file in hand, if there is one.
void PrintInputFile(const InputScreen& screen);

}  // namespace Dorvane
