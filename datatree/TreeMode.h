// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

// What the data tree screen (frmTree) is used for. It has no variable for that: its window title tells it,
// and everything is decided by comparing that title with fixed texts.
namespace Dorvane {

enum class TreeMode {
    Browse,     // "Access Subdirectories ..."
    Configure,  // "System Configuration ..."
    Reduce,     // "Data Reduction Directory Selection"
    Upload,     // "Upload Data To"
    Input,      // "VARN input file location", or what holds both "Input" and "field data from"
    Other,
};

/// The mode of a title. Case counts.
TreeMode TreeModeOf(const std::string& title);

/// One switch for each button of the screen.
struct TreeButtons {
    bool OK = false;
    bool Cancel = false;
    bool Home = false;
    bool Copy = false;
    bool Delete = false;
    bool Print = false;
    bool Edit = false;
    bool Add = false;
    bool Remove = false;
    bool Archive = false;

    bool operator==(const TreeButtons&) const = default;
};

/// The buttons that a title shows.
TreeButtons VisibleTreeButtons(const std::string& title);

/// The buttons that can be pressed while `file` is selected (empty: none): while browsing, those for files
/// need one, and printing a printer besides.
TreeButtons EnabledTreeButtons(const std::string& title, const std::string& file, bool printerPresent);

}  // namespace Dorvane
