// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/ChoiceEdit.h"

// What forbids saving the systems and their structures, and what is doubtful in them. What stood in the files
// before can stay, whatever it is; it is only told. All raise what reading the registries and folders raises.
namespace Dorvane {

/// The titles of the three groups of a structure.
constexpr const char* GroupTitles[DataGroups] = {"Locations", "Data types", "Epochs"};

/// What forbids saving, each in a sentence; empty when nothing does.
std::vector<std::string> ChoiceProblems(const ChoiceEdit& choices);

/// What is doubtful in what is new, each in a sentence: one location of two systems, misleading names.
std::vector<std::string> ChoiceWarnings(const ChoiceEdit& choices);

/// What there is to say of each system, and of each entry of a group: its fault, or what is doubtful in it.
std::vector<std::string> SystemNotes(const ChoiceEdit& choices);
std::vector<std::string> EntryNotes(const ChoiceEdit& choices, const SystemEdit& system, std::size_t group);

/// Why a system, or an entry of a group, cannot be removed: the folder that uses it; empty when it can, as
/// one that is new or stands there twice.
std::string WhySystemStays(const ChoiceEdit& choices, const SystemEdit& system);
std::string WhyEntryStays(const SystemEdit& system, std::size_t group, const std::string& code);

}  // namespace Dorvane
