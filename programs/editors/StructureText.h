// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/CodeEntry.h"

namespace Dorvane {

/// A structure file as a text that can be written again: the system, a heading, and groups of names with an
/// empty line between them. A data system has three groups (locations, data types, epochs), a calibration
/// system two (types, epochs).
struct StructureText {
    std::string Name;
    std::string Description;
    std::string Heading = "CODE     DESCRIPTION";
    std::vector<std::vector<CodeEntry>> Groups;

    bool operator==(const StructureText&) const = default;
};

/// An empty structure of so many groups.
StructureText NewStructure(const std::string& name, const std::string& description, std::size_t groups);

/// Takes a file apart. The result is empty when all of it was understood, else it says with the line's number
/// what would be lost if the file were written again; `structure` then holds what was understood by there.
std::string ParseStructure(const std::string& content, std::size_t groups, StructureText& structure);

/// The file: names in columns 1 to 8, descriptions from column 10.
std::string FormatStructure(const StructureText& structure);

}  // namespace Dorvane
