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

/// Replaces the files in their order, each in one step from its old content to its new one. All of them are
/// written out beside their places before the first is replaced, so a full disk changes none. When one of
/// them cannot take its place, those replaced before it get their old content back, files that were not there
/// go, and the failure is raised; its description says so when even that did not succeed.
void ReplaceInOrder(const std::vector<FileChange>& changes);

}  // namespace Dorvane
