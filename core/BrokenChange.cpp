// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/BrokenChange.h"

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

// A note that somebody planted must not lead anything out of its folder.
bool LiesIn(const std::string& folder, const std::string& path) {
    return EqualIgnoringCase(Left(path, static_cast<int>(folder.size())), folder) &&
           path.find("..") == std::string::npos;
}

// What is in its place already waits no longer.
bool PutInPlace(const StagedContent& file) {
    if (!Drives::IsThere(file.Staged) || SumOf(Drives::ReadFile(file.Staged)) != file.Sum)
        return false;
    Drives::PutInPlace(file.Staged, file.Path);
    return true;
}

}  // namespace

void FinishBrokenChange(const std::string& folder) {
    if (!Drives::IsThere(ChangeNotePath(folder)))
        return;
    const ChangeNote note = ReadChangeNote(folder);
    bool finished = false;
    for (const StagedContent& file : note.Files)
        finished |= LiesIn(folder, file.Staged) && LiesIn(folder, file.Path) && PutInPlace(file);
    Drives::DeleteFile(ChangeNotePath(folder));
    if (finished)
        TheDesktop().ShowMessage({"A change in " + folder + " that " + note.Who +
                                      " had begun was broken off.  It has been finished now.",
                                  "Unfinished Change", Icon::Information});
}

}  // namespace Dorvane
