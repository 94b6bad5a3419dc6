// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

// The help of the program. A screen's "Contents" and "Index" name the window in which the help comes, "Main".
namespace Dorvane {

/// The help file's drive path, in the program's folder.
std::string HelpFile();

/// Opens the help at its table of contents or at its index. Error 53 when there is no help.
void ShowHelpContents(const std::string& window);
void ShowHelpIndex(const std::string& window);

}  // namespace Dorvane
