// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/DateText.h"

// The only room that knows the host's files. Everything else speaks drive-letter paths with backslashes in
// code page 1252. A path is found ignoring case. On Windows the mapping is the identity; elsewhere a folder
// of links named "c:", "d:" ... "z:" leads to the host's folders, and a path without a letter lies on the
// current drive. Host errors are raised as RunTimeError with the classic numbers: 53 no such file, 76 no such
// path, 70 or 75 no permission, 61 disk full, 58 exists already, 67 too many files, 57 anything of the
// device.
namespace Dorvane::Drives {

/// One entry of a folder.
struct Entry {
    std::string Name;  // as it stands on the disk
    bool IsFolder = false;
    std::int64_t Size = 0;  // bytes
    DateTime Modified;      // local time
};

/// Takes the folder of links named by DORVANE_DRIVES or, without it, the one in the user's data folder, and
/// lays out a first one: "c:" with WINDOWS\ and TEMP\ inside, "z:" the host's root.
void Open();

/// Takes a given host folder as the folder of links, laid out in the same way.
void Open(const std::string& hostFolder);

/// The host's name of a drive path, in the host's encoding. Each part is found ignoring case; parts that do
/// not exist stand as given; ".." never leaves the drive, and a link does only in one of
/// Globals::LinkFolders. Error 68 for a drive that is not there, 52 for a path with an illegal character or
/// the name of a device, 70 for such a link.
std::string HostPath(std::string_view path);

/// The drive path of a host path, which need not exist: by the drive link that it goes through, or by the
/// drive whose folder is nearest above it.
std::string DrivePath(const std::string& hostPath);

/// The letters of the drives that are there, in upper case, rising.
std::string DriveLetters();

/// True when there is a drive of this letter, be there a disk in it or not.
bool HasDrive(char letter);

/// Makes a drive the current one; the current folder on it stays. Error 68 when it is not there.
void ChangeDrive(char letter);

/// The host folder in which an outside program is started: the current drive's, or the process's own.
std::string CurrentHostFolder();

/// Entries of a folder that match a DOS pattern ("*.*" matches every name), "." and ".." left out, by name
/// ignoring case. A backslash or a control character in a name of the host is shown as "?", which no path may
/// hold, so that it leads nowhere. Empty when the folder does not exist. Errors other than a missing folder
/// are raised.
std::vector<Entry> List(std::string_view folder, std::string_view pattern = "*.*");

/// True when a name matches a DOS pattern, ignoring case and blanks at the pattern's end.
bool Matches(std::string_view name, std::string_view pattern);

/// The entry that a path names, if there is one. A missing folder on the way is not an error.
bool Find(std::string_view path, Entry& entry);
bool IsThere(std::string_view path);

/// The folder of a path with its backslash; empty where the path has none.
std::string FolderPart(std::string_view path);

std::string ReadFile(std::string_view path);
std::int64_t FileLength(std::string_view path);

/// A file that is read piece by piece, so that a long one need not be in memory. It stays open: what replaces
/// the file under its name does not change what is read. Raises error 75 or 70 for what is no plain file.
class PiecewiseFile {
  public:
    explicit PiecewiseFile(std::string_view path);
    ~PiecewiseFile();
    PiecewiseFile(const PiecewiseFile&) = delete;
    PiecewiseFile& operator=(const PiecewiseFile&) = delete;

    std::int64_t Length() const { return Bytes; }  // bytes when it was opened

    /// `count` bytes from `offset` on, fewer at the file's end.
    std::string Read(std::int64_t offset, std::size_t count) const;

  private:
    std::int64_t Bytes = 0;
    std::intptr_t Handle;
};

/// A text that is another one after each change of the file, empty when there is none.
std::string ChangeMark(std::string_view path);

/// True when this user may replace the file, or make it where it is not there.
bool MayReplace(std::string_view path);

/// Appends in one write, making the file when absent. What a full disk cut is taken back, so that the file
/// holds all of `content` or none of it.
void AppendFile(std::string_view path, std::string_view content);

/// Replaces or makes a file as a whole (see StagedFile).
void WriteFile(std::string_view path, std::string_view content);

/// Copies byte for byte, time stamp included, replacing the target as a whole.
void CopyFile(std::string_view from, std::string_view to);

/// Error 58 when the new name exists.
void RenameFile(std::string_view from, std::string_view to);
void DeleteFile(std::string_view path);

/// Makes one folder; a parent is never made. Error 75 when it exists, 76 when the parent is missing.
void CreateFolder(std::string_view path);

/// Puts a file that a StagedFile has left behind in the place of its file.
void PutInPlace(std::string_view staged, std::string_view path);

/// A file that is written beside its place and takes it only when it is whole and on disk. Opening already
/// fails where the file could not be written. Without Commit the former file stays as it was.
class StagedFile {
  public:
    explicit StagedFile(std::string_view path);
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// The whole content of the file. A second call replaces that of the first, so a failure can be retried.
    void Write(std::string_view content);

    /// Gives it the time stamp of another file.
    void TakeTimeOf(std::string_view path);

    /// Sees to it that what was written is on disk; Commit does so, too.
    void Flush();

    /// The drive path at which it is on its way.
    std::string Path() const;
    void Commit();

  private:
    struct State;
    std::unique_ptr<State> Own;
};

}  // namespace Dorvane::Drives
