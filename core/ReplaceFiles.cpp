// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReplaceFiles.h"

#include <list>

#include "core/Drives.h"

namespace Dorvane {

void ReplaceInOrder(const std::vector<FileChange>& changes) {
    std::list<Drives::StagedFile> files;
    for (const FileChange& change : changes)
        files.emplace_back(change.Path).Write(change.Content);
    for (Drives::StagedFile& file : files)
        file.Commit();
}

}  // namespace Dorvane
