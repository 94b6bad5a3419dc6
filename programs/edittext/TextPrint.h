// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "programs/edittext/TextDocument.h"

namespace Dorvane {

/// The size in points at which lines of so many columns fit on a sheet, between 6 and 12.
int PrintPoints(Offset columns);

/// Prints the lines of a stretch of a text below the file's name, as the system prints its files. Raises what
/// printing raises.
void PrintText(const PieceText& text, const Selection& printed, const std::string& name);

}  // namespace Dorvane
