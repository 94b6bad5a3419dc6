// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"
#include "programs/editors/StructureRules.h"
#include "programs/editors/StructureText.h"

// CHOICES.SYS and the structure files of the data systems in it. A file of which a part is not understood is
// shown as far as it is, and never written.
namespace Dorvane {

constexpr std::size_t DataGroups = 3;

/// A system of CHOICES.SYS and, when it is a data system, its structure.
struct SystemEdit {
    std::string Name;
    std::string Kind = "1";  // column 10 as it stands; "1" is a data system
    std::string Description;
    StructureText Structure = NewStructure("", "", DataGroups);
    StructureText Former = NewStructure("", "", DataGroups);  // as it was read
    EditedFile File;                                          // <name>.STR
    std::string Problem;  // what of it is not understood; it is not written then
    std::string FormerDescription;

    bool IsData() const { return Kind == "1"; }
    bool IsNew() const { return File.Path.empty(); }  // not read from CHOICES.SYS; its name can be chosen
};

struct ChoiceEdit {
    std::string Folder;  // Init_path
    EditedFile File;     // CHOICES.SYS
    std::string Problem;
    std::vector<SystemEdit> Systems;
    std::vector<SystemEdit> Former;  // as they were read
    KnownNames Known;
};

/// Reads the files of a folder, which ends in a backslash. Raises what reading raises.
ChoiceEdit OpenChoices(const std::string& folder);

/// Makes a system a data system or another one. A system that becomes a data system shows what its structure
/// file holds.
void SetDataSystem(SystemEdit& system, bool data);

/// Takes CHOICES.SYS apart into names, kinds and descriptions; the result as that of ParseStructure.
std::string ParseChoices(const std::string& content, std::vector<SystemEdit>& systems);
std::string FormatChoices(const std::vector<SystemEdit>& systems);

/// Writes what has changed, the structures before CHOICES.SYS, so that a listed system always has one. A
/// system that was taken out of the list keeps its structure file. The result as that of SaveEditedFiles.
std::string SaveChoices(ChoiceEdit& choices);

}  // namespace Dorvane
