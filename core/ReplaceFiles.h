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

/// A file that gets another name, which must be free.
struct FileMove {
    std::string From;
    std::string To;
};

/// What is done wholly or not at all: first folders are made, parents before their children and those that
/// are there left as they are, then files replaced in their order, then files renamed. There is a file among
/// them.
struct Change {
    std::vector<std::string> Folders = {};
    std::vector<FileChange> Files;
    std::vector<FileMove> Moves = {};
};

/// Makes a change, holding the folder of its first file (see FolderLock.h). Behind the folders all contents
/// are on disk beside their places before the first is put there, and a note of the change stands in that
/// folder until it is done; so what is cut off from there on is finished by whoever holds the folder next
/// (BrokenChange.h), and before it leaves nothing but empty folders. When
/// a step fails, those before it are taken back and the failure is raised; its description says so when even
/// that did not succeed.
void MakeChange(const Change& change);

/// A change of files alone.
void ReplaceInOrder(const std::vector<FileChange>& changes);

}  // namespace Dorvane
