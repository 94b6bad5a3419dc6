// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

// What the launcher offers is listed in a profile: in section "Utilities" `Number` tells how many there are,
// and `Title<n>`, `Tip<n>`, `Needs<n>` and `Command<n>` what each is. In the last two, names between percent
// signs stand for the program's values: AppPath, WindowsPath, Editor (the general editor) and the eight
// folders of dv_tarvex.ini by their keys.
namespace Dorvane {

struct Utility {
    std::string Title;
    std::string Tip;
    std::string Needs;    // the file or folder that has to be there; empty: none
    std::string Command;  // the command line
};

/// The utilities of a profile, at most 40; one without a title or a command is left out.
std::vector<Utility> ReadUtilities(const std::string& profile);

/// A text with the program's values in the places of their names. A name that is not known stands as it is.
std::string ExpandNames(const std::string& text);

/// Starts a utility beside this program. A message when what it needs is not there; raises 53 when there is
/// no such program.
void StartUtility(const Utility& utility);

}  // namespace Dorvane
