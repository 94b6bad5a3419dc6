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

/// Opens the help where a word is looked for in all pages.
void SearchHelp();

/// Opens the help at the page about a screen, which the key F1 does.
void ShowHelpOf(const std::string& screen);

/// The page about a screen by the name of its form: "input.html#weights". The first page where the manual has
/// none about it.
std::string HelpPageOf(const std::string& screen);

}  // namespace Dorvane
