// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace Krenn {

// Files under host paths, as the package needs them: one read whole, one written whole.

// Everything a regular file holds. Throws Failure InputNotReadable.
std::string ReadWholeFile(const std::string& path);

// The path of the file of this name beside the input, or of one whose name differs in case alone and that is
// not the input itself. Empty when there is none.
std::optional<std::string> FileBeside(const std::string& inputPath, const std::string& name);

// The listing of an input file: its path up to, not including, the last "." of the file name, and ".OUT". A
// file of that name in other case beside the input keeps its case.
std::string ListingPath(const std::string& inputPath);

// Writes a file beside its place, flushes it to disk and renames it, so that a reader finds the old or the
// new text and never half of one. Throws Failure ListingNotWritten.
void WriteWholeFile(const std::string& path, std::string_view text);

// Hands what a file holds to the disk; false on failure. One implementation per host.
bool FlushToDisk(std::FILE* file);

}  // namespace Krenn
