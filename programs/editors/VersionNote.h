// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "adjustment/basOpenInput.h"
#include "programs/editors/InputRemoval.h"
#include "programs/editors/ObservationKinds.h"

// The note of a version: what was taken out of the master for it, a row in a line, under the kind of the row.
// The operator's comment stands above the stations, each of its lines behind a ";", so that whoever shows the
// note shows it first.
namespace Dorvane {

/// The comment of a note; its lines are parted by LF.
std::string CommentOf(const VersionNotes& notes);
void SetComment(VersionNotes& notes, const std::string& comment);

/// A row as it stands in a note: its names and its numbers, with the mark of a tracker.
std::string NoteEntry(const InputRow& row);

/// Adds the rows that do not stay. Error 6 when a kind gets more than 32767 entries.
void AddRemoved(VersionNotes& notes, const InputText& text, const std::vector<NoteKind>& kinds,
                const std::vector<Fate>& fates);

std::string FormatNote(const VersionNotes& notes);

}  // namespace Dorvane
