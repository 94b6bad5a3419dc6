// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/EditedFile.h"
#include "programs/editors/InputRemoval.h"
#include "programs/editors/VersionNote.h"

// Versions of an adjustment input file: <base>_vNN.INP with its note <base>_vNN.VER beside the master
// <base>.INP, which is read only.
namespace Dorvane {

struct InputVersion {
    std::string Folder;   // with its trailing backslash
    std::string Base;     // the master's name up to its first point
    std::string Version;  // two digits; empty when the master is open
    EditedFile File;
    EditedFile Note;      // of the open version
    std::string Problem;  // what was not understood; such a file is shown as far as it was, and never written
    InputText Text;
    std::vector<NoteKind> Kinds;  // of each row
    VersionNotes Notes;           // of the open version; empty for the master
};

/// The two digits at the end of "<base>_vNN"; empty when the name is that of a master.
std::string VersionOf(const std::string& name);

/// "<base>" of "<base>_vNN"; the name itself when it is that of a master.
std::string MasterOf(const std::string& name);

/// Opens an input file, a master or a version; for a file of tagged rows (.ORG), the input file written with
/// it. Raises what reading raises, and error 53 when there is no such file.
InputVersion OpenInputVersion(const std::string& path);

/// The digits of the version that comes next: one above the highest of which any file is there; when that is
/// 99, the lowest that is free. So a new version never meets the listing of one that is gone. Empty when all
/// are taken.
std::string NextVersion(const std::string& folder, const std::string& base);

/// Writes what stays as the next version, with its note, and tells its digits in `version`. The result is
/// empty or says what is in the way; then nothing was written. Raises what writing raises.
std::string SaveAsNewVersion(const InputVersion& input, const std::vector<Fate>& fates,
                             const std::string& comment, std::string& version);

/// Writes what stays over the open version and adds to its note, and opens it anew. As above.
std::string SaveVersion(InputVersion& input, const std::vector<Fate>& fates, const std::string& comment);

}  // namespace Dorvane
