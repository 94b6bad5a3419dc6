// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "programs/edittext/TextDocument.h"

// A file and its text: what may be done with it, and whether it is still the one that was read.
namespace Dorvane {

/// A longer file is read as it is scrolled and not edited.
constexpr Offset LongestEdited = 100'000'000;

enum class PathKind { Missing, File, Folder, Other };

/// What a path leads to. Other is what is no plain file, as a device. Raises what looking raises.
PathKind KindOf(const std::string& path);

/// True when the first bytes are not those of a text: many are control characters that no text has.
bool LooksBinary(const std::string& path);

struct TextFile {
    std::string Path;  // empty as long as the text has no file
    bool IsNew = false;
    bool OnlyRead = false;  // as it was asked for
    std::string ReadOnly;   // why the text cannot be edited; empty when it can
    std::string Mark;       // of the file as it was read or written last
    std::unique_ptr<TextDocument> Document;
};

/// Opens a file, or a new one where there is none. `readOnly` opens it to be looked at only. Raises what
/// reading raises.
TextFile OpenTextFile(const std::string& path, bool readOnly, Offset longestEdited = LongestEdited);

/// Writes the text to its file, or to `path` that is its file from now on. Raises what writing raises; the
/// text stays unsaved then.
void SaveTextFile(TextFile& file);
void SaveTextFileAs(TextFile& file, const std::string& path);

/// What became of the file on the disk since it was read or written.
enum class DiskState { Same, Changed, Gone };
DiskState LookAtDisk(const TextFile& file);

/// Takes the file on the disk as seen: the text is no longer what stands there.
void KeepMine(TextFile& file);

}  // namespace Dorvane
