// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/InputVersion.h"

#include <algorithm>
#include <array>

#include "adjustment/Versions.h"
#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int HighestVersion = 99;
constexpr std::size_t VersionEnding = 4;  // "_vNN"

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string VersionPath(const std::string& folder, const std::string& base, const std::string& version,
                        const char* extension) {
    return folder + base + "_v" + version + "." + extension;
}

std::string TwoDigits(int number) {
    return Right("0" + std::to_string(number), 2);
}

std::string NoteOf(const InputVersion& input, const std::vector<Fate>& fates, const std::string& comment) {
    VersionNotes notes = input.Notes;
    AddRemoved(notes, input.Text, input.Kinds, fates);
    SetComment(notes, comment);
    return FormatNote(notes);
}

}  // namespace

std::string VersionOf(const std::string& name) {
    if (name.size() <= VersionEnding)
        return "";
    const std::string ending = UpperCase(Right(name, VersionEnding));
    const bool version = ending[0] == '_' && ending[1] == 'V' && IsDigit(ending[2]) && IsDigit(ending[3]);
    return version ? ending.substr(2) : "";
}

std::string MasterOf(const std::string& name) {
    return VersionOf(name).empty() ? name : name.substr(0, name.size() - VersionEnding);
}

InputVersion OpenInputVersion(const std::string& path) {
    InputVersion input;
    std::string file;
    SplitFolderFile(path, input.Folder, file);
    const std::string name = BeforeFirstPoint(file);
    input.Version = VersionOf(name);
    input.Base = MasterOf(name);
    if (UpperCase(BehindFirstPoint(file)) == "ORG")
        file = WithExtension(file, "INP");
    input.File = OpenEditedFile(input.Folder + file);
    if (!input.File.Exists)
        throw RunTimeError(FileNotFound, input.File.Path);
    input.Problem = ReadInputRows(input.File.Content, input.Text);
    input.Kinds = KindsOf(input.Text, Drives::ReadFileIfThere(input.Folder + input.Base + ".ORG"));
    if (input.Version.empty())
        return input;
    input.Note = OpenEditedFile(VersionPath(input.Folder, input.Base, input.Version, "VER"));
    if (input.Note.Exists)
        ReadVersionFile(input.Folder, WithExtension(file, "VER"), input.Notes);
    return input;
}

std::string NextVersion(const std::string& folder, const std::string& base) {
    std::array<bool, HighestVersion + 1> taken{};
    int highest = 0;
    for (const Drives::Entry& entry : Drives::List(folder, base + "_v??.*")) {
        const std::string digits = VersionOf(BeforeFirstPoint(entry.Name));
        if (digits.empty())
            continue;
        const int number = std::stoi(digits);
        taken[static_cast<std::size_t>(number)] = true;
        highest = std::max(highest, number);
    }
    if (highest < HighestVersion)
        return TwoDigits(highest + 1);
    for (int number = 1; number <= HighestVersion; ++number)
        if (!taken[static_cast<std::size_t>(number)])
            return TwoDigits(number);
    return "";
}

// The note goes first: a note without its version is passed over, a version without its note is not.
std::string SaveAsNewVersion(const InputVersion& input, const std::vector<Fate>& fates,
                             const std::string& comment, std::string& version) {
    const FolderLock lock(input.Folder);
    version = NextVersion(input.Folder, input.Base);
    if (version.empty())
        return "All 99 versions of " + input.Base + ".INP are taken.";
    EditedFile note{.Path = VersionPath(input.Folder, input.Base, version, "VER"), .Content = ""};
    EditedFile file{.Path = VersionPath(input.Folder, input.Base, version, "INP"), .Content = ""};
    return SaveEditedFiles({{&note, NoteOf(input, fates, comment)}, {&file, Remaining(input.Text, fates)}});
}

std::string SaveVersion(InputVersion& input, const std::vector<Fate>& fates, const std::string& comment) {
    if (input.Version.empty())
        throw RunTimeError(InvalidProcedureCall);
    const std::string problem = SaveEditedFiles(
        {{&input.Note, NoteOf(input, fates, comment)}, {&input.File, Remaining(input.Text, fates)}});
    if (problem.empty())
        input = OpenInputVersion(input.File.Path);
    return problem;
}

}  // namespace Dorvane
