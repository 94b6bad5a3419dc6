// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EditedFile.h"

#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/ReplaceFiles.h"
#include "core/basGeneral.h"

namespace Dorvane {

EditedFile OpenEditedFile(const std::string& path) {
    EditedFile file;
    file.Path = path;
    file.Exists = FileExists(path);
    if (file.Exists)
        file.Content = Drives::ReadFile(path);
    return file;
}

std::string SaveEditedFiles(const std::vector<EditedChange>& changes) {
    std::vector<std::string> folders;
    for (const EditedChange& change : changes)
        folders.push_back(Drives::FolderPart(change.File->Path));
    const FolderLock lock(folders);
    std::vector<FileChange> writes;
    for (const EditedChange& change : changes) {
        if (change.File->Exists && change.File->Content == change.Content)
            continue;
        const EditedFile now = OpenEditedFile(change.File->Path);
        if (now.Exists && !change.File->Exists)
            return change.File->Path + " is there already and would be lost.";
        if (now.Exists != change.File->Exists || now.Content != change.File->Content)
            return change.File->Path + " was changed by another program in the meantime.";
        writes.push_back({change.File->Path, change.Content});
    }
    ReplaceInOrder(writes);
    for (const EditedChange& change : changes) {
        change.File->Exists = true;
        change.File->Content = change.Content;
    }
    return "";
}

}  // namespace Dorvane
