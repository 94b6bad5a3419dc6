// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "programs/edittext/TextFile.h"

namespace Dorvane {

/// What an editor is started with: "--read" opens the file to be read only.
struct TextArguments {
    std::string Path;  // a drive path, empty when none was named
    bool ReadOnly = false;
};
TextArguments ReadTextArguments(int count, const char* const* arguments);

/// Opens what a path leads to, as far as it is a text: a folder, or no path, lets the operator choose a file;
/// one that is not there is offered as new; what does not look like text is asked about. Nothing when there
/// is nothing to edit, after a word why. Raises what reading raises.
std::optional<TextFile> AskTextFile(const std::string& path, bool readOnly);

/// Lets the operator choose a file of a folder.
std::optional<TextFile> ChooseTextFile(const std::string& folder, const std::string& title, bool readOnly);

}  // namespace Dorvane
