// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace Dorvane {

/// A file as an editor has read it. What is not there is empty and no failure.
struct EditedFile {
    std::string Path;
    bool Exists = false;
    std::string Content;
};

/// Raises what reading raises.
EditedFile OpenEditedFile(const std::string& path);

/// A file and what it is to hold now.
struct EditedChange {
    EditedFile* File;
    std::string Content;
};

/// Replaces the files whose content changes, in their order, all or none as far as the disk allows, and keeps
/// the new contents as read. The result is empty, or says which file another program has made or changed in
/// the meantime; then none was touched. Raises what writing raises.
std::string SaveEditedFiles(const std::vector<EditedChange>& changes);

}  // namespace Dorvane
