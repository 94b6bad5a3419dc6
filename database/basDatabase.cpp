// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/basDatabase.h"

#include <vector>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/ReplaceFiles.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/DatabaseFiles.h"
#include "datatree/GuardedReader.h"

namespace Dorvane {

namespace {

constexpr int KeyLength = 8;
constexpr int BiasCount = 4;

const char* const BiasFile = "BIAS.STR";
const char* const DefaultKey = "STDBIAS";
const char* const StandardBias = "STDBIAS  0 0 0 0";  // as the bias editor writes it

// Files are made type by type in this order, all data files before all indexes.
constexpr std::int32_t OrderOfMaking[] = {ThreeDimensionalCode, BenchmarkCode, IdealCode, MonumentCode};

bool FindBias(Guard& guard, const std::string& key, List1<double>& biasValues) {
    GuardedReader file(guard, Global().Init_path + BiasFile);
    while (!file.AtEnd()) {
        const std::string& line = file.ReadLine();
        if (line.empty() || line.front() == ' ' || line.front() == ';')
            continue;
        if (Trim(UpperCase(Left(line, KeyLength))) != key)
            continue;
        List1<std::string> words;
        if (ParseFields(words, line) < BiasCount + 1)
            continue;
        biasValues.Resize(BiasCount);
        for (int i = 1; i <= BiasCount; ++i)
            biasValues[i] = LeadingNumber(words[i + 1]);
        return true;
    }
    return false;
}

bool FindBiasOf(Guard& guard, const std::string& location, List1<double>& biasValues) {
    return FindBias(guard, UpperCase(Trim(location)), biasValues) || FindBias(guard, DefaultKey, biasValues);
}

// An end-of-file mark stays the last character: old programs read no further.
std::string WithLine(std::string text, const std::string& line) {
    const bool marked = text.ends_with(EndOfFileMark);
    if (marked)
        text.pop_back();
    if (!text.empty() && text.back() != '\n' && text.back() != '\r')
        text += "\r\n";
    text += line + "\r\n";
    return marked ? text + EndOfFileMark : text;
}

// A location's new, empty files in the order of their making.
std::vector<FileChange> NewCoordFiles(const std::string& folder, const std::string& location) {
    std::vector<FileChange> files;
    for (const std::int32_t code : OrderOfMaking) {
        const DatabaseType& type = DatabaseTypeOf(code);
        files.push_back({folder + type.DataFile(), RecordHeader(type.DataShape(), 0)});
    }
    for (const std::int32_t code : OrderOfMaking)
        files.push_back({folder + DatabaseTypeOf(code).IndexFile(), RecordHeader(IndexShape, 0)});
    for (const std::int32_t code : OrderOfMaking)
        files.push_back({folder + DatabaseTypeOf(code).ListFile(), ""});
    files.push_back({folder + location + ".REF", RecordHeader(ReferenceShape, 0)});
    return files;
}

std::vector<FileChange> MissingCoordFiles(const std::string& folder, const std::string& location) {
    std::vector<FileChange> files = NewCoordFiles(folder, location);
    std::erase_if(files, [](const FileChange& file) { return Drives::IsFile(file.Path); });
    return files;
}

// Adds the standard where there is neither it nor the location's own; false after a failure, which is told.
bool HasBiasBehind(const std::string& location) {
    if (Global().Init_path.empty())
        return true;
    const std::string path = Global().Init_path + BiasFile;
    bool stands = false;
    Guarded("basDatabase-AddStandardBias", [&](Guard& guard) {
        const FolderLock lock(Global().Init_path);
        List1<double> values;
        stands = Drives::IsFile(path) && FindBiasOf(guard, location, values);
        if (!stands)
            stands = guard.Run(
                [&] { Drives::WriteFile(path, WithLine(Drives::ReadFileIfThere(path), StandardBias)); });
    });
    return stands;
}

}  // namespace

void WriteCoordNew(const std::string& folder, const std::string& location) {
    ReplaceInOrder(NewCoordFiles(folder, location));
}

bool LacksCoordFiles(const std::string& folder, const std::string& location) {
    return !MissingCoordFiles(folder, location).empty();
}

void WriteLocationNew(const std::string& folder, const std::string& location) {
    // The files come last: what lacks them is completed by the next making.
    if (!HasBiasBehind(location))
        return;
    const FolderLock lock(folder);
    ReplaceInOrder(MissingCoordFiles(folder, location));
}

void AddStandardBias(const std::string& location) {
    HasBiasBehind(location);
}

bool MakeCoordBackups(const std::string& folder, std::int32_t typeCode) {
    return Guarded("basDatabase-MakeCoordBackups", [&](Guard& guard) {
        if (typeCode < BenchmarkCode || typeCode > IdealCode)
            return;
        // The ideals' files are asked for without their "S"; that they are then missing is meant to be so.
        const std::string word = typeCode == IdealCode ? "IDEAL" : DatabaseTypeOf(typeCode).Word;
        const FolderLock lock(folder);
        std::vector<FileChange> copies;
        for (const std::string& file :
             {word + ".LST", word + ".IDX", word + ".DAT", LocationOfFolder(folder) + ".REF"})
            guard.Run([&] {
                const std::string original = folder + file;
                copies.push_back({folder + BackupPrefix + file, Drives::ReadFile(original), original});
            });
        guard.Run([&] { ReplaceInOrder(copies); });
    });
}

bool ReadBiasFile(const std::string& location, List1<double>& biasValues) {
    bool found = false;
    Guarded("basRead-ReadBiasFile", [&](Guard& guard) { found = FindBiasOf(guard, location, biasValues); });
    return found;
}

std::int16_t ReadWorkListFile(List1<std::string>& names) {
    names.Clear();
    const std::string path = Global().Work_path + "WORK.LST";
    const bool read = Guarded("basRead-ReadWorkListFile", [&](Guard& guard) {
        if (!FileExists(path))
            return;
        GuardedReader file(guard, path);
        while (!file.AtEnd())
            names.Add(Trim(Left(file.ReadLine(), NameLength)));
    });
    if (!read)
        names.Clear();
    return names.Count();
}

}  // namespace Dorvane
