// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

// What the editor of dv_tarvex.ini shows and changes of that profile. All other lines of the file stay as
// they are, and so does a key whose value is not changed.
namespace Dorvane {

/// A folder of section "Tarvex Info".
struct FolderKey {
    const char* Key;
    const char* Meaning;
};

/// The eight folders, in the order in which the program reads them.
constexpr std::array<FolderKey, 8> FolderKeys{{{"Data_drive", "Survey data"},
                                               {"Calib_path", "Calibrations"},
                                               {"Coord_path", "Coordinate database"},
                                               {"Init_path", "Structure and registry files"},
                                               {"Param_path", "Parameter files"},
                                               {"Temp_path", "Temporary files"},
                                               {"Work_path", "Work files"},
                                               {"Download_path", "Download files"}}};

struct TarvexProfile {
    std::array<std::string, FolderKeys.size()> Folders;
    std::string PathType;    // as it stands in the file; "2" is by hand, anything else the managed tree
    std::string EditorType;  // as it stands in the file; "0" is the general editor, anything else the own one
    std::string EditorPath;  // with a trailing backslash
    std::string EditorName;

    bool operator==(const TarvexProfile&) const = default;
};

TarvexProfile ReadTarvexProfile();

/// Writes the keys that differ from those in the file. The result is empty, or says which key could not be
/// written as it is: a value of more than 127 characters, or a file that cannot be changed.
std::string WriteTarvexProfile(const TarvexProfile& profile);

/// The folder with its trailing backslash; an empty text stays so.
std::string WithBackslash(std::string folder);

/// The folders that are named and do not exist, each once.
std::vector<std::string> MissingFolders(const TarvexProfile& profile);

/// Makes a folder with all that lie above it. Raises what the making raises.
void MakeFolderPath(const std::string& folder);

}  // namespace Dorvane
