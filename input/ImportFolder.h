// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/InputScreen.h"

namespace Dorvane {

/// How the result files of a folder stand to its data files.
enum ResDates : std::int16_t {
    NothingToCompare = -1,
    NoResultFiles = 0,
    ResultsUpToDate = 1,
    DataIsNewer = 2,
    NoDataFiles = 3,
};

/// Compares the first result file that the extension's reduction names, and the folder has, with every data
/// file of the extension. `location` is the data type's section; `folder` ends in a backslash. Reports as
/// "basInput-CompareResDates" and is then NothingToCompare.
ResDates CompareResDates(const std::string& folder, const std::string& location,
                         const std::string& extension);

/// A last path with its part before the last replaced, as the folder tree is to open on it, when it has at
/// least five parts; else the path itself. The first occurrence of the part's text is replaced, by
/// ReplaceFirst, wherever it stands, and also when the path holds `word` already; both are meant.
std::string ProposePath(const std::string& lastPath, const std::string& word);

/// Asks for a folder: in the folder tree opened at `treePath`, or by dialog with a proposed file name.
/// Nothing when the operator cancels, and then the screen keeps what it shows.
std::optional<std::string> ChooseFolder(const InputServices& services, const std::string& caption,
                                        const std::string& treePath, const std::string& proposedName);

/// The click of cmdImport: asks for a folder of the selected input type, warns of missing or outdated result
/// files, and adds the folder to the tree; the type is proposed when the screen opens again. Reports as
/// "frmInput-cmdImport_Click"; error 35602 for a folder that stands in the tree already.
void ImportFolder(InputScreen& screen, const InputServices& services);

}  // namespace Dorvane
