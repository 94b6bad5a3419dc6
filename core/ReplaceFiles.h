// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace Dorvane {

/// A file that is to be replaced as a whole.
struct FileChange {
    std::string Path;
    std::string Content;
};

/// Replaces the files in their order, each in one step from its old content to its new one. All of them are
/// written out beside their places before the first is replaced, so a full disk changes none.
void ReplaceInOrder(const std::vector<FileChange>& changes);

}  // namespace Dorvane
