// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/InputRows.h"

namespace Dorvane {

/// The kinds of which a version's note has a section each. The last two are no kinds of rows of this file:
/// gyro observations are not written to it, and the rows of fixed points and pairs stand in no note.
enum class NoteKind { Station, Point, Tracker, Total, Angle, Distance, Height, Gyro, None };

/// The kind of each row. A distance and the angles of one polar observation stand in two rows of the file;
/// the file of tagged rows that was written with it ("TOT", "TRK" ...) tells which belong together. For rows
/// that are not in there, and without it, a distance belongs to the next angles between the same names.
std::vector<NoteKind> KindsOf(const InputText& text, const std::string& taggedRows);

}  // namespace Dorvane
