// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// The program's major, minor and revision numbers joined by ".".
std::string ProgramVersion();

/// Starts the platform's system information tool; a message when it has none.
void StartSystemInformation();

}  // namespace Dorvane
