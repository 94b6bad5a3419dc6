// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Desktop.h"
#include "core/List1.h"

// The general routines on which the file formats rest. Positions and lists count from 1.
namespace Dorvane {

/// True when the path is an existing folder. Appends the missing backslash to the caller's variable, also
/// when the folder does not exist; an empty path stays empty. "A:\" counts as found where there is such a
/// drive, also without a disk. Raises nothing.
bool FolderExists(std::string& path);

/// True when a file matches the path, whose last part may be a pattern. A folder is no file. Raises nothing.
bool FileExists(std::string_view path);

/// Starts a command line and waits for its end, by the desktop. A program that cannot be started is silent.
void RunAndWait(const std::string& commandLine);

/// Position of the last occurrence of a character, counted from the right: 1 for the last character of the
/// trimmed, upper-cased text, 0 when it does not occur.
int FindLastChar(std::string_view text, char character);

/// Splits at the last backslash, which the folder keeps. Error 5 when the path has none.
void SplitFolderFile(std::string_view path, std::string& folder, std::string& file);

/// Cuts a path at its backslashes; a trailing one yields no empty part. Returns the number of parts.
std::int16_t SplitPathParts(std::string_view path, List1<std::string>& parts);

/// The program's folder with exactly one trailing backslash.
std::string AppPath();

/// Cuts a line into words separated by runs of blanks, commas or tabs, trimmed and in upper case. Returns
/// their number. Error 9 for a 51st word.
std::int16_t ParseFields(List1<std::string>& fields, std::string_view line);

/// Replaces the first occurrence of the target, case-sensitively. Empty when there is none or the target is
/// empty. When exactly one character follows the occurrence it is lost; the routine is meant to be so.
std::string ReplaceFirst(std::string_view text, std::string_view target, std::string_view replacement);

/// Shows the printer dialog; false when cancelled. The three numbers are the dialog's settings.
bool PrinterSetup(int& copies, int& fromPage, int& toPage);

/// The same for a caller that has no use for the settings.
bool PrinterSetup();

/// A folder picker made of a file-open dialog. The folder with its trailing backslash, empty when cancelled.
std::string BrowseForFolder(std::string startFolder, const std::string& defaultFileName,
                            const std::string& title);

/// Yields to events until the time has passed. 1 when the cancel flag became true (it is then set back to
/// false), 0 when the time was reached.
int PauseFor(int minutes, int seconds, bool* cancel = nullptr);

/// The folder of the profile files, with a trailing backslash; empty when there is none.
std::string GetWindowsPath();

/// The text before its first NUL.
std::string StripAtNul(std::string_view text);

/// The editor of section "General Editor": `Path` and `Name` joined with nothing between them.
struct GeneralEditor {
    std::string Path;
    std::string Name;
    std::string Program() const { return Path + Name; }
};
GeneralEditor ReadGeneralEditor();

/// True when the profile names an editor; else a message says that it does not. Without a program at its head
/// a command line would start the file that is to be edited.
bool HasGeneralEditor(const GeneralEditor& editor);

}  // namespace Dorvane
