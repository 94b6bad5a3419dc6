// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Dorvane {

/// A file whose new content waits beside its place.
struct StagedContent {
    std::string Staged;
    std::string Path;
    std::string Sum;  // of the content, so that nothing else is ever taken for it
};

/// The note of a change that is under way. It stands as a file that is never listed in the folder of the
/// first file, and names what lies in that folder without its drive: other workstations may know it by
/// another one.
struct ChangeNote {
    std::string Who;
    std::vector<StagedContent> Files;
};

constexpr const char* ChangeNoteName = ".change.dv~";
std::string ChangeNotePath(const std::string& folder);
std::string SumOf(std::string_view content);

/// Raises what writing raises.
void WriteChangeNote(const std::string& folder, const ChangeNote& note);

/// A note that was not written by this system is empty.
ChangeNote ReadChangeNote(const std::string& folder);

}  // namespace Dorvane
