// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/List1.h"

// The versions of an adjustment input file and the names that hang on them. The base of a file is its whole
// path up to the first point, also where that point stands in a folder's name; that is meant to be so.
namespace Dorvane {

/// The name under which the master file itself stands in a list of versions.
inline constexpr std::string_view MasterVersion = "Master";

/// The file of another extension beside an input file: "D:\X\A.INP" and "OUT" give "D:\X\A.OUT".
std::string WithExtension(std::string_view path, std::string_view extension);

/// True when the base is cut short: at a point in a folder's name, or before the last point of the file's
/// name. Other inputs may have the same base then, and the package, which takes the path up to the last point
/// of the file's name, writes under another name.
bool SharesItsBase(std::string_view path);

/// The two digits of a version's text ("07" of "Version 07"): its second word, when there are exactly two.
/// False for any other text, "Master" among them.
bool VersionDigits(std::string_view versionText, std::string& digits);

/// The file of an extension (without its point) that belongs to a version of `path`: base, "_v", the digits,
/// "." and the extension. The path as it stands for "Master" and for a text that names no version.
std::string OfVersion(std::string_view path, std::string_view versionText, std::string_view extension);

/// OfVersion with all that stands in `path` from its first point on in the extension's place.
std::string OfVersion(std::string_view path, std::string_view versionText);

/// Lists the versions of an input file: "Master" when the file itself exists, then "Version 01" to "Version
/// 99" in rising order, one for each "<name>_vNN.INP" beside it. Returns the number of entries. Error 5 for a
/// path without a folder.
std::int16_t GetVersions(std::string_view inputPath, List1<std::string>& versions);

}  // namespace Dorvane
