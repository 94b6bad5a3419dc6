// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "input/InputScreen.h"

namespace Dorvane {

/// The lists of a project file in their order: folders as "type>folder", the selected coordinate locations,
/// the selected coordinate types. A line "End" closes each.
using ProjectLists = std::array<std::vector<std::string>, 3>;

ProjectLists ListsOf(const InputScreen& screen);

/// The content of the project file of the screen's set-up.
std::string ProjectText(const InputScreen& screen);

/// True for a line that closes a list. Those letters do so wherever they stand in it, also in a folder named
/// APPEND; meant.
bool EndsAList(const std::string& line);

/// The entries that an opening does not bring back, since one of them closes its list too early.
std::vector<std::string> Lost(const ProjectLists& saved);

/// The first entry that closes its list too early; empty when there is none.
std::string FirstThatEndsAList(const ProjectLists& lists);

}  // namespace Dorvane
