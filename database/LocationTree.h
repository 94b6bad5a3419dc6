// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Dorvane {

class DirectoryTree;

/// Fills the tree of locations of a database screen, its top expanded. A folder picture that is missing and a
/// location that comes back behind another are reported under `procedure`; the tree then holds what came
/// before.
void FillLocationTree(DirectoryTree& trvDirectory, const char* procedure);

}  // namespace Dorvane
