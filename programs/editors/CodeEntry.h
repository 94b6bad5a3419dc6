// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// Names and descriptions as the structure files hold them. A name becomes the name of a folder or of a file.
namespace Dorvane {

constexpr int LongestCode = 8;
constexpr int LongestDescription = 20;

/// A name and what it means in words.
struct CodeEntry {
    std::string Code;
    std::string Description;

    bool operator==(const CodeEntry&) const = default;
};

/// What is wrong with a name as the name of a folder of at most 8 characters, upper case, or with a
/// description, which is the caption in the tree; empty when nothing is.
std::string CodeProblem(const std::string& code);
std::string DescriptionProblem(const std::string& description);

/// A further rule for the names of a group, which says in the same way what is wrong with a name.
using CodeRule = std::function<std::string(const std::string& code)>;

/// What is wrong with each entry of a group, its first fault; empty for one without.
std::vector<std::string> EntryFaults(const std::vector<CodeEntry>& entries, const CodeRule& rule);

/// A fault or a doubt as a sentence of its own, which begins with the name of the entry.
std::string NoteOf(const CodeEntry& entry, const std::string& fault);

/// What forbids writing the entries of a group: more than 16 of them, and the faults of names and
/// descriptions that were not in the group before. Each is a sentence that begins with the name of the group.
std::vector<std::string> GroupProblems(const std::string& group, const std::vector<CodeEntry>& entries,
                                       const std::vector<CodeEntry>& former = {}, const CodeRule& rule = {});

/// The names that were in a group before and are no more.
std::vector<std::string> RemovedCodes(const std::vector<CodeEntry>& entries,
                                      const std::vector<CodeEntry>& former);

/// True when a line has a character that no text has: anything below the blank but the tab.
bool HasControlCharacter(std::string_view line);

}  // namespace Dorvane
