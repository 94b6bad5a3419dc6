// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/Navigator.h"

// The commands of the data tree screen (frmTree), without the screen. Folders end in a backslash.
namespace Dorvane {

/// Stores the selected folder as the last path of the managed tree; an empty one leaves it as it is.
void RememberTreeFolder(const std::string& directory);

/// What is to be done with the folder that cmdOK has confirmed.
enum class TreeAnswer { Stay, Reduce, Upload, Input };

/// The click of cmdOK: stores the last path and tells by the title where the folder goes. A folder to reduce
/// must hold "SRV" somewhere in its path, else a message says so and the screen stays.
TreeAnswer ConfirmTreeFolder(const std::string& title, const std::string& directory);

/// The click of cmdEdit: starts the general editor on the file, beside the program; a message when the
/// profile does not name one. Reports as "frmTree-cmdEdit_Click".
void EditTreeFile(const std::string& directory, const std::string& file);

/// The click of cmdCopy: asks where to, and whether to overwrite what is there, and copies the file under the
/// copy meter. A copy onto the file itself leaves it as it is. Reports as "frmTree-cmdCopy_Click".
void CopyTreeFile(const std::string& directory, const std::string& file, Navigator& navigator);

}  // namespace Dorvane
