// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/widgets/Screen.h"

namespace Dorvane {

/// Runs an outside program with one window. It finds the drives, the profiles and its folders as the program
/// does that starts it, in whose folder Programs\ it lies. `open` makes the window, or nothing when it has
/// told that there is none; the program ends with it. "--version" tells the name and the version, and that is
/// all. The result is the exit code.
int RunEditor(int& count, char** arguments, const char* name, const std::function<ScreenDialog*()>& open);
int RunEditor(int& count, char** arguments, const char* name, const std::function<Screen*()>& open);

/// True when the profile names a folder of structure files that exists; else a message says that there is
/// none.
bool HasInitPath();

}  // namespace Dorvane
