// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "adjustment/VarnState.h"
#include "core/List1.h"

// The browser of input versions: what was taken out of the master for each of them.
namespace Dorvane {

/// The eight sections of a note, each entry a line as it stands.
struct VersionNotes {
    List1<std::string> Stations;
    List1<std::string> Points;
    List1<std::string> Tracker;
    List1<std::string> Total;
    List1<std::string> Angle;
    List1<std::string> Distance;
    List1<std::string> Height;
    List1<std::string> Gyro;

    bool operator==(const VersionNotes&) const = default;
};

/// Reads a note. Its sections follow in a fixed order, told apart by their marker lines; a missing marker
/// leaves all that remains to the section before it. The first line is passed by whatever it holds. A failure
/// is reported as "basOpenInput-ReadVersionFile" and leaves what was read until then.
void ReadVersionFile(const std::string& folder, const std::string& fileName, VersionNotes& notes);

/// All that the browser's screen shows.
struct OpenInputState {
    std::string lblPath;
    std::string lblMaster;
    DropDownList cmbVersion;
    VersionNotes Lists;
};

/// Opens the browser on an input file and the version that the calling screen shows, if the file has it.
void OpenVersions(OpenInputState& state, const std::string& inputPath, const std::string& version);

/// A choice in cmbVersion (1 upward): shows the note of that version, or tells that there is none.
void ClickBrowsedVersion(OpenInputState& state, int selected);

/// The note's file name for a version of a master file; empty for a text that names no version.
std::string NoteName(const std::string& master, const std::string& versionText);

}  // namespace Dorvane
