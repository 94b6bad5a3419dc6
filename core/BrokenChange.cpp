// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/BrokenChange.h"

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

bool IsThere(const std::string& path) {
    Drives::Entry entry;
    return Drives::Find(path, entry);
}

// A note that somebody planted must not lead anything out of its folder.
bool LiesIn(const std::string& folder, const std::string& path) {
    return EqualIgnoringCase(Left(path, static_cast<int>(folder.size())), folder) &&
           path.find("..") == std::string::npos;
}

bool MakeFolder(const std::string& folder) {
    if (IsThere(folder))
        return false;
    Drives::CreateFolder(folder);
    return true;
}

// What is in its place already waits no longer.
bool PutInPlace(const StagedContent& file) {
    if (!IsThere(file.Staged) || SumOf(Drives::ReadFile(file.Staged)) != file.Sum)
        return false;
    Drives::PutInPlace(file.Staged, file.Path);
    return true;
}

bool Move(const FileMove& move) {
    if (!IsThere(move.From) || IsThere(move.To))
        return false;
    Drives::RenameFile(move.From, move.To);
    return true;
}

}  // namespace

void FinishBrokenChange(const std::string& folder) {
    if (!IsThere(ChangeNotePath(folder)))
        return;
    const ChangeNote note = ReadChangeNote(folder);
    bool finished = false;
    for (const std::string& made : note.Folders)
        finished |= LiesIn(folder, made) && MakeFolder(made);
    for (const StagedContent& file : note.Files)
        finished |= LiesIn(folder, file.Staged) && LiesIn(folder, file.Path) && PutInPlace(file);
    for (const FileMove& move : note.Moves)
        finished |= LiesIn(folder, move.From) && LiesIn(folder, move.To) && Move(move);
    Drives::DeleteFile(ChangeNotePath(folder));
    if (finished)
        TheDesktop().ShowMessage({"A change in " + folder + " that " + note.Who +
                                      " had begun was broken off.  It has been finished now.",
                                  "Unfinished Change", Icon::Information});
}

}  // namespace Dorvane
