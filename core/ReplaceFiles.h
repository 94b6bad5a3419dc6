// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace Dorvane {

/// A file that is to be replaced as a whole.
struct FileChange {
    std::string Path;
    std::string Content;
    std::string TimeOf = {};  // the file whose time stamp it takes; empty: the time of writing
};

/// Replaces files in their order, wholly or not at all, holding the folder of the first one (FolderLock.h).
/// All contents are on disk beside their places before the first is put there, and a note of the change
/// stands in that folder until it is done; so what is cut off from there on is finished by whoever holds the
/// folder next (BrokenChange.h). When a step fails, those before it are taken back and the failure is raised;
/// its description says so when even that did not succeed.
void ReplaceInOrder(const std::vector<FileChange>& files);

}  // namespace Dorvane
