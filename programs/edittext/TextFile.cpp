// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextFile.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

constexpr std::size_t LookedAt = 64 << 10;

// A control character that no text file has.
bool IsForeign(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' &&
           c != '\x1B' && c != EndOfFileMark;
}

std::string WhyReadOnly(const std::string& path, bool asked, Offset size, Offset longest) {
    if (asked)
        return "opened to be read";
    if (size > longest)
        return "longer than " + std::to_string(longest / 1'000'000) + " MB";
    return Drives::MayReplace(path) ? "" : "the file or its folder cannot be written";
}

}  // namespace

PathKind KindOf(const std::string& path) {
    Drives::Entry entry;
    if (!Drives::Find(path, entry))
        return PathKind::Missing;
    if (entry.IsFolder)
        return PathKind::Folder;
    try {
        const Drives::PiecewiseFile file(path);
        return PathKind::File;
    } catch (const RunTimeError& failure) {
        if (failure.Number == PathFileAccess)
            return PathKind::Other;
        throw;
    }
}

bool LooksBinary(const std::string& path) {
    const std::string head = Drives::PiecewiseFile(path).Read(0, LookedAt);
    const auto foreign = std::count_if(head.begin(), head.end(), IsForeign);
    return foreign * 10 > static_cast<std::ptrdiff_t>(head.size());
}

TextFile OpenTextFile(const std::string& path, bool readOnly, Offset longestEdited) {
    TextFile file;
    file.Path = path;
    file.OnlyRead = readOnly;
    file.Mark = Drives::ChangeMark(path);
    file.IsNew = file.Mark.empty();
    const Offset size = file.IsNew ? 0 : Drives::FileLength(path);
    file.ReadOnly = WhyReadOnly(path, readOnly, size, longestEdited);
    if (size > longestEdited)
        file.Document = std::make_unique<TextDocument>(std::make_unique<FileSource>(path));
    else
        file.Document = std::make_unique<TextDocument>(file.IsNew ? "" : Drives::ReadFile(path));
    return file;
}

void SaveTextFile(TextFile& file) {
    Drives::WriteFile(file.Path, file.Document->Content());
    file.Mark = Drives::ChangeMark(file.Path);
    file.IsNew = false;
    file.Document->SetSaved();
}

void SaveTextFileAs(TextFile& file, const std::string& path) {
    Drives::WriteFile(path, file.Document->Content());
    file.Path = path;
    file.Mark = Drives::ChangeMark(path);
    file.IsNew = false;
    file.OnlyRead = false;
    if (file.Document->Text().Size() <= LongestEdited)
        file.ReadOnly.clear();
    file.Document->SetSaved();
}

DiskState LookAtDisk(const TextFile& file) {
    if (file.Path.empty())
        return DiskState::Same;
    const std::string mark = Drives::ChangeMark(file.Path);
    if (mark == file.Mark)
        return DiskState::Same;
    return mark.empty() ? DiskState::Gone : DiskState::Changed;
}

void KeepMine(TextFile& file) {
    file.Mark = Drives::ChangeMark(file.Path);
    file.Document->SetUnsaved();
}

}  // namespace Dorvane
