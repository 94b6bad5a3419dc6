// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// Puts the package's banner at the head of its listing: the name in block letters, project and task from the
/// head of the input file, run date and run time. The lines of the listing follow unchanged, each ended by CR
/// LF. Raises error 53 for a missing file and 62 for an input file without two PROJECT or TASK lines; a
/// failure at any moment leaves the listing as it was.
void AddVarnBanner(const std::string& inputPath, const std::string& outputPath);

}  // namespace Dorvane
