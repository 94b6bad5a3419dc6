// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BackupRestore.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "database/CoordinateSet.h"
#include "database/ReferenceFile.h"
#include "database/Retrieval.h"

namespace Dorvane {

namespace {

std::array<std::string, 4> FilesOf(const std::string& databaseFolder) {
    const DatabaseType& type = DatabaseTypeOf(ThreeDimensionalCode);
    return {type.DataFile(), type.IndexFile(), type.ListFile(), LocationOfFolder(databaseFolder) + ".REF"};
}

bool HasBackup(const std::string& databaseFolder) {
    const auto files = FilesOf(databaseFolder);
    return std::all_of(files.begin(), files.end(), [&](const std::string& file) {
        return FileExists(databaseFolder + BackupPrefix + file);
    });
}

std::string LastUpdateText(const std::optional<ReferenceRecord>& update) {
    return update ? fmt::format("{}, {}, {}", update->Date, update->Project, update->Task) : "none";
}

// Reads the backup as a database of its own, which raises where it is damaged or of two halves.
std::string Question(const std::string& databaseFolder, const std::string& location) {
    const CoordinateSet backup(databaseFolder + BackupPrefix, ThreeDimensionalCode);
    const std::optional<ReferenceRecord> update = LastReference(databaseFolder + BackupPrefix, location);
    Drives::Entry data;
    Drives::Find(databaseFolder + BackupPrefix + backup.Type().DataFile(), data);
    return fmt::format(
        "Do you wish to restore the backup of {}?\r\n\r\n"
        "State of : {}\r\nPoints : {}\r\nLast update : {}\r\n\r\n"
        "The present files become the backup.",
        location, GeneralDate(data.Modified), backup.PointCount(), LastUpdateText(update));
}

void Restore(Guard& guard, const std::string& location, const UpdateView& view) {
    const std::string databaseFolder = Global().Coord_path + location + "\\";
    // What another one began there is finished before the operator reads what the backup holds.
    { const FolderLock lock(databaseFolder); }
    if (!HasBackup(databaseFolder)) {
        TheDesktop().ShowMessage(
            {"There is no complete backup of " + location + ".", "No Backup", Icon::Information});
        return;
    }
    const Message question{Question(databaseFolder, location), "Restore Backup", Icon::Question,
                           Buttons::YesNo, Answer::No};
    if (TheDesktop().ShowMessage(question) != Answer::Yes)
        return;
    const bool restored = guard.Run([&] {
        const FolderLock lock(databaseFolder);
        ReplaceInOrder(RestoringChanges(databaseFolder));
    });
    if (!restored)
        return;
    view.Show("Backup of " + location + " restored");
    TheDesktop().ShowMessage(
        {"The backup of " + location + " is restored.", "Restore Complete", Icon::Information});
}

}  // namespace

std::vector<FileChange> RestoringChanges(const std::string& databaseFolder) {
    std::vector<FileChange> backups;
    std::vector<FileChange> restored;
    for (const std::string& file : FilesOf(databaseFolder)) {
        const std::string original = databaseFolder + file;
        const std::string backup = databaseFolder + BackupPrefix + file;
        restored.push_back({original, Drives::ReadFile(backup), backup});
        if (Drives::IsFile(original))
            backups.push_back({backup, Drives::ReadFile(original), original});
    }
    // An index may be behind its data, never before it: on the way to fewer values it goes first.
    if (backups.size() == restored.size()) {
        const bool fewer = restored[0].Content.size() < backups[0].Content.size();
        std::vector<FileChange>& shrinking = fewer ? restored : backups;
        std::swap(shrinking[0], shrinking[1]);
    }
    backups.insert(backups.end(), restored.begin(), restored.end());
    return backups;
}

void ClickRestore(const UpdateForm& form, const UpdateView& view) {
    view.Show("");
    Guarded("frmDbUpdate-cmdRestore_Click", [&](Guard& guard) {
        if (RequireLocationKey(form.lblDirectory))
            Restore(guard, LocationOfKey(form.lblDirectory), view);
    });
}

}  // namespace Dorvane
