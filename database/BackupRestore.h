// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/ReplaceFiles.h"
#include "database/Update3D.h"

// The way back behind an update: the backups of the three-dimensional files and of the reference file take
// the places of their files, and these become the backup, so that the way back can be gone back too.
namespace Dorvane {

/// What has to be written, and in which order. The backups come first, so that a restoring that is cut off
/// loses no value, and at each step the database is sound: all of the backup or all of the present state. A
/// file that is missing leaves its backup as it is.
std::vector<FileChange> RestoringChanges(const std::string& databaseFolder);

/// The click of cmdRestore: asks with the state that the backup holds, and brings it back as a whole. A
/// location without a complete backup is told. A failure, a damaged backup among them, is reported as
/// "frmDbUpdate-cmdRestore_Click" and changes nothing.
void ClickRestore(const UpdateForm& form, const UpdateView& view = {});

}  // namespace Dorvane
