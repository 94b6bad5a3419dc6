// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "datatree/TreeModel.h"
#include "input/ObservationModel.h"

// The folders on the input screen's tree. They stand below the node of their input type, whose key is its
// Name.
namespace Dorvane {

/// Key and text of the node above the input types.
inline constexpr const char* TreeRoot = "Data Types";

/// Raised by a tree control for a key that it does not hold.
constexpr int ElementNotFound = 35601;

/// The folders in the order of the input types, and of the tree below each: the type's Name and the folder.
/// Returns their number. Reports as "basInput-GetTreeFolders".
std::int16_t GetTreeFolders(const TreeModel& tree, const List1<InputType>& inputTypes,
                            List1<std::string>& typeNames, List1<std::string>& folders);

/// Removes every folder below the first `typeCount` input types; the types stay. Reports as
/// "basInput-ClearTreeFolders".
void ClearTreeFolders(TreeModel& tree, std::int16_t typeCount, const List1<InputType>& inputTypes);

/// Adds a folder below an input type. Error 35601 when there is no such type, 35602 when the folder stands in
/// the tree already, under whatever type.
void AddTreeFolder(TreeModel& tree, const std::string& typeName, const std::string& folder);

}  // namespace Dorvane
