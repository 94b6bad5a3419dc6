// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/Globals.h"
#include "core/List1.h"
#include "datatree/TreeModel.h"

// What the data tree screen (frmTree) shows of a selected folder, and what its print button does.
namespace Dorvane {

/// One item of the file list.
struct FileItem {
    std::string Name;
    std::string Icon;

    bool operator==(const FileItem&) const = default;
};

/// What the controls under the tree hold.
struct TreeSelection {
    std::string Directory;     // lblDirectory
    std::string File;          // lblFile
    List1<FileItem> Files;     // lsvFiles
    std::string CreationDate;  // lblCreationDate
    std::string History;       // lblHistory
};

/// The icon of a file in the folder of a node: "direct", "dist", "level", "reduce", "input" or "form", by the
/// first rule that fits. A file whose name ends in three numeric characters takes the kind that its folder
/// tells.
std::string FileIcon(const std::string& key, const std::string& name);

/// Sets the creation date and the usage of the folder that a key names; the last record of it counts. False,
/// and both texts as they were, when there is no record of it.
bool LookUpHistory(const List1<PathRecord>& records, const std::string& key, std::string& created,
                   std::string& usage);

/// A click on a node: lists its files and looks up its history. A folder without files clears date and
/// history; one with files but without a record is meant to keep those shown before. Reports as
/// "frmTree-trvDirectory_NodeClick".
void ClickNode(TreeSelection& selection, const std::string& key);

/// The folder and all those above it, the drive first, each ending in a backslash.
std::vector<std::string> AncestorChain(const std::string& folder);

/// Goes to a folder, as the change of lblTempDirectory does: every folder of the chain that the tree holds is
/// expanded and clicked, so the deepest one stays selected. An empty text does nothing. Reports as
/// "frmTree-lblTempDirectory_Change".
void GoToDirectory(TreeModel& tree, TreeSelection& selection, const std::string& folder);

/// The click of cmdPrint on a file: prints it by the program that "File Types" of dv_datatype.ini names for
/// its extension, when that program exists, and else as text; then says so. Reports as
/// "frmTree-cmdPrint_Click".
void PrintTreeFile(const std::string& directory, const std::string& file);

}  // namespace Dorvane
