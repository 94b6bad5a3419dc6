// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

// The layout of the drive letters on hosts that have none: links "c:", "d:" ... in one folder, each to a
// folder of the host. Host paths are in the host's encoding. Failures are RunTimeError, as for files.
namespace Dorvane::Drives {

/// A drive letter, in upper case, and the host folder that it leads to.
struct Link {
    char Letter = 0;
    std::string Folder;

    bool operator==(const Link&) const = default;
};

/// False where the host itself has drive letters.
bool CanLayOut();

/// The host path of the folder of links.
std::string LinksFolder();

/// All letters, rising, also those that lead to what is not there. A letter that is a folder of its own leads
/// to itself.
std::vector<Link> Links();

/// Lets a letter lead to a folder. It leads there or where it led before, never nowhere.
void SetLink(const Link& link);

/// Removes the link of a letter, nothing below it.
void RemoveLink(char letter);

/// What can be done in a host folder.
enum class Access { Missing, ReadOnly, Writable };
Access AccessTo(const std::string& hostFolder);

}  // namespace Dorvane::Drives
