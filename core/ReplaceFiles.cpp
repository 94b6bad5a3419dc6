// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReplaceFiles.h"

#include <list>
#include <optional>

#include "core/Drives.h"
#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

std::optional<std::string> ContentOf(const std::string& path) {
    Drives::Entry entry;
    if (!Drives::Find(path, entry))
        return std::nullopt;
    return Drives::ReadFile(path);
}

// False when the file does not have its former state again.
bool PutBack(const std::string& path, const std::optional<std::string>& former) {
    try {
        if (ContentOf(path) == former)
            return true;
        if (former)
            Drives::WriteFile(path, *former);
        else
            Drives::DeleteFile(path);
        return true;
    } catch (const RunTimeError&) {
        return false;  // the caller tells it with the failure that led here
    }
}

}  // namespace

void ReplaceInOrder(const std::vector<FileChange>& changes) {
    std::list<Drives::StagedFile> files;
    std::vector<std::optional<std::string>> former;
    for (const FileChange& change : changes) {
        Drives::StagedFile& file = files.emplace_back(change.Path);
        file.Write(change.Content);
        if (!change.TimeOf.empty())
            file.TakeTimeOf(change.TimeOf);
        former.push_back(ContentOf(change.Path));
    }
    std::size_t inPlace = 0;
    try {
        for (Drives::StagedFile& file : files) {
            file.Commit();
            ++inPlace;
        }
    } catch (RunTimeError& error) {
        files.clear();  // what waits beside the files may take the room that the old content needs
        // The file that failed is among them: its flush may fail when it has taken its place already.
        for (std::size_t i = inPlace + 1; i-- > 0;)
            if (!PutBack(changes[i].Path, former[i]))
                error.Description += "; " + changes[i].Path + " could not be put back";
        throw;
    }
}

}  // namespace Dorvane
