// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/DateText.h"

// What differs between hosts, each procedure once per host (Host_posix.cpp, Host_windows.cpp). Paths are host
// paths in the host's encoding (UTF-8). Failures are RunTimeError.
namespace Dorvane::Host {

bool PathsAreDrivePaths();  // true where the host itself has drive letters

std::string EnvironmentVariable(const std::string& name);
void SetEnvironment(const std::string& name, const std::string& value);  // for programs started from here
std::string UserDataFolder();                                            // ends in a separator
std::string ProgramFolder();  // folder of the running executable, ends in a separator
std::string WorkingFolder();  // the process's current folder

struct FileInfo {
    bool Exists = false;
    bool IsFolder = false;
    std::int64_t Size = 0;
    DateTime Modified;
};
FileInfo Inspect(
    const std::string& path);  // a link counts as what it leads to; errors but absence are raised

/// True for a drive, where the host has letters, and for any other entry, where a folder of links has them:
/// be there a disk in the drive, or the link's end, or not.
bool DriveOrLinkIsThere(const std::string& path);

std::vector<std::string> FolderNames(
    const std::string& folder);  // without "." and ".."; raises 76 when missing
std::string RealPath(
    const std::string& path);  // links followed as far as it exists; the path itself if it fails
void CreateFolder(const std::string& path);
void CreateLink(const std::string& link, const std::string& target);
std::string LinkTarget(const std::string& link);  // as it stands in the link; empty for what is none
bool MayWrite(const std::string& folder);         // whether this user may make files in a folder

std::string ReadFile(const std::string& path);

/// Opens a file that is read piece by piece; what is no plain file is refused. Returns a handle.
std::intptr_t OpenPieces(const std::string& path);
/// Reads up to `count` bytes from `offset` on. The result tells how many there were, fewer at the end.
std::size_t ReadPiece(std::intptr_t handle, std::int64_t offset, char* into, std::size_t count);
void ClosePieces(std::intptr_t handle);

/// A text that is another one after each change of the file, empty when there is none.
std::string ChangeMark(const std::string& path);
/// True when this user may replace the file, or make it where it is not there.
bool MayReplace(const std::string& path);

void AppendFile(const std::string& path, std::string_view content);

/// Files on their way to their place carry this ending and are never listed.
constexpr std::string_view StagedEnding = ".dv~";

/// Makes a new file for writing beside `target`, with the target's permissions where there is one; raises
/// where the target could not be written. No other program writes it, and no link is followed. Returns a
/// handle, and its path in `staged`.
std::intptr_t OpenStaged(std::string& staged, const std::string& target);
void WriteStaged(std::intptr_t handle, std::string_view content);   // from the file's beginning
void CloseStaged(std::intptr_t handle);                             // drops the handle, nothing else
void FlushStaged(std::intptr_t handle, const std::string& target);  // onto the disk
/// Puts what is on disk in its place.
void CommitStaged(std::intptr_t handle, const std::string& staged, const std::string& target);
void CopyTimeStamp(const std::string& from, std::intptr_t handle);
void DeleteRemains(const std::string& staged);  // unless a living program writes it

void Rename(const std::string& from, const std::string& to);
void Delete(const std::string& path);

DateTime Now();

/// Starts a program with its arguments, no shell between, in a folder. Raises 53 when it cannot be started.
/// Waits for its end when asked to.
void Start(const std::string& program, const std::vector<std::string>& arguments, const std::string& folder,
           bool wait);

/// Claims a name for this process on this workstation, across users and their environments. A handle that
/// lasts as long as the process, or -1 when another process holds the claim. However a process ends, its
/// claim ends with it, and nothing of it stays on the disk. Error 52 for a name of more than 107 bytes.
std::intptr_t ClaimSingleInstance(const std::string& name);

/// A library loaded at run time; 0 where it or the export is not there.
std::intptr_t LoadLibrary(const std::string& path, std::string& reason);
std::intptr_t FindExport(std::intptr_t library, const std::string& name);
void FreeLibrary(std::intptr_t library);

}  // namespace Dorvane::Host
