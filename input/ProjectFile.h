// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "input/InputScreen.h"

// Project files (*.gpf): what the operator set up on the input screen, as lines of text. Project, task, the
// dimension (1 to 3), one line "type>folder" per folder, "End", the selected coordinate locations, "End", the
// selected coordinate types, "End".
namespace Dorvane {

/// The menu entry "Save Project": asks for a path, asks again before it overwrites and before it writes what
/// an opening would not bring back, writes the file whole and keeps the path as the last project. True when
/// it was saved. Reports as "frmInput-mnuSaveProject".
bool SaveProject(InputScreen& screen, const InputServices& services);

/// To be asked before the screen is left: offers to save a set-up that was changed since it was opened or
/// saved. False when the operator wants to stay, or when it could not be saved.
bool MayLeave(InputScreen& screen, const InputServices& services);

/// The menu entry "Open Project": asks for a path, clears the screen's selections and folders and reads the
/// file. An entry that the screen does not list selects nothing. A folder whose input type is gone, or that
/// stands in the file twice, is an error and is left out; reported as "frmInput-mnuOpenProject".
void OpenProject(InputScreen& screen, const InputServices& services);

/// Takes one line of a project file into the screen. `section` says what the line is and goes on with the
/// file: 1 project, 2 task, 3 dimension, 4 folders, 5 locations, 6 types. False when the reading is to stop:
/// behind the last "End", or with a message when there is no such section. Error 5 for a folder line without
/// ">", error 35600 for a dimension that the screen does not have; those of AddTreeFolder are reported.
bool TakeProjectLine(InputScreen& screen, std::int16_t& section, const std::string& line,
                     const std::string& path);

}  // namespace Dorvane
