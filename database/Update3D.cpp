// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Update3D.h"

#include <fmt/format.h>

#include <optional>

#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "database/DatabaseError.h"
#include "database/DatabaseFiles.h"
#include "database/Retrieval.h"
#include "database/UpdateOverview.h"
#include "database/basDatabase.h"
#include "input/CoordinateFiles.h"

namespace Dorvane {

namespace {

const char* const UpdateProcedure = "basDatabase-Update3DPoints";
const char* const NothingStored = "0 points stored";

// Runs one statement with the component, of which nothing is stored before the last.
template <class Statement>
bool RunStoring(Guard& guard, const Statement& statement) {
    return guard.Run([&] {
        try {
            statement();
        } catch (const RunTimeError& error) {
            if (IsDatabaseError(error))
                throw RefusedUpdate(error);
            throw;
        }
    });
}

// The number of points that the component took.
int HandOver(Guard& guard, CoordinateRetriever& retriever, const std::string& databaseFolder,
             const Dbs3DFile& file) {
    int taken = 0;
    const std::string date = SixDigits(file.Date);
    for (const Dbs3DPoint& point : file.Points)
        taken += RunStoring(guard, [&] {
            retriever.UpdatePoint(databaseFolder, ThreeDimensionalCode, point.Name, date, point.X, point.Y,
                                  point.Z, point.ErrorAngle, point.ErrorMajor, point.ErrorMinor, point.SZ, 0,
                                  0);
        });
    return taken;
}

void Tell(const std::string& text, const std::string& title) {
    TheDesktop().ShowMessage({text, title, Icon::Information});
}

bool ChoicesAreGood(const UpdateForm& form) {
    if (!form.optBenchmark && !form.optMonument && !form.optIdeals && !form.opt3dim) {
        Tell(
            "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
            "3-dimensional",
            "Missing Date Type Data");
        return false;
    }
    if (!FileExists(form.lblUpDateFile)) {
        Tell("Update file name " + form.lblUpDateFile + " does not exist.", "File Name Invalid");
        return false;
    }
    return RequireLocationKey(form.lblDirectory);
}

// What the update would do. Nothing for a file or a database that the backup or the update itself will tell
// of, or for a file without points.
std::optional<UpdateOverview> Compared(const std::string& databaseFolder, const std::string& updateFile,
                                       Dbs3DFile& file) {
    // What another one began there is finished first.
    const FolderLock lock(databaseFolder);
    try {
        const std::optional<Dbs3DFile> read = PeekDbs3DFile(updateFile);
        if (!read || read->Points.Empty())
            return std::nullopt;
        file = *read;
        return OverviewOf(databaseFolder, file);
    } catch (const RunTimeError& error) {
        if (!IsDatabaseError(error))
            return std::nullopt;
        UpdateOverview damaged;
        damaged.Refusal = error;
        return damaged;
    }
}

// False when the database refuses the update, which is told, or when the operator does not want it. Asked
// before the backup, which would replace the last good one for nothing.
bool MayUpdate(const std::string& databaseFolder, const UpdateForm& form) {
    Dbs3DFile file;
    const std::optional<UpdateOverview> overview = Compared(databaseFolder, form.lblUpDateFile, file);
    if (!overview)
        return true;
    if (overview->Refusal) {
        ReportError(RefusedUpdate(*overview->Refusal), UpdateProcedure);
        return false;
    }
    Message question{OverviewQuestion(*overview, LocationOfKey(form.lblDirectory), form.lblUpDateFile, file),
                     overview->StoredAlready ? "Update Stored Already" : "Update Overview", Icon::Question,
                     Buttons::YesNo};
    if (overview->StoredAlready)
        question.Default = Answer::No;
    return TheDesktop().ShowMessage(question) == Answer::Yes;
}

std::string StoredText(int points, const std::string& location) {
    return fmt::format("{} point{} stored in {}, backup kept", points, points == 1 ? "" : "s", location);
}

// The number of points stored; nothing when the click ends without the closing message.
std::optional<int> UpdateChosen(const UpdateForm& form, const UpdateView& view) {
    const std::string location = LocationOfKey(form.lblDirectory);
    const std::string databaseFolder = Global().Coord_path + location + "\\";
    view.Show("Comparing with the database ...");
    if (!MayUpdate(databaseFolder, form))
        return std::nullopt;
    view.Show("Updating the database ...");
    if (!MakeCoordBackups(databaseFolder, ThreeDimensionalCode))
        return std::nullopt;
    return Update3DPoints(databaseFolder, form.lblUpDateFile);
}

void Update(const UpdateForm& form, const UpdateView& view) {
    if (form.optBenchmark || form.optMonument || !form.opt3dim) {
        view.Show(NothingStored);
    } else {
        const std::optional<int> stored = UpdateChosen(form, view);
        view.Show(stored ? StoredText(*stored, LocationOfKey(form.lblDirectory)) : NothingStored);
        if (!stored)
            return;
    }
    Tell("Update complete", "Update Complete");
}

}  // namespace

std::optional<int> Update3DPoints(const std::string& databaseFolder, const std::string& updateFile) {
    int stored = 0;
    const bool done = Guarded(UpdateProcedure, [&](Guard& guard) {
        std::string folder;
        std::string name;
        SplitFolderFile(updateFile, folder, name);
        Dbs3DFile file;
        if (ReadDbs3DFile(file.Points, folder, name, file.Date, file.Project, file.Task) <= 0)
            return;
        CoordinateRetriever retriever;
        const int taken = HandOver(guard, retriever, databaseFolder, file);
        const bool committed = RunStoring(guard, [&] {
            std::int32_t records = 0;
            retriever.UpdateReference(databaseFolder, LocationOfFolder(databaseFolder), file.Date,
                                      file.Project, file.Task, records);
        });
        stored = committed ? taken : 0;
    });
    return done ? std::optional<int>(stored) : std::nullopt;
}

void ClickBrowseUpdate(UpdateForm& form) {
    Guarded("frmDbUpdate-cmdBrowse_Click", [&](Guard&) {
        FileDialog dialog;
        dialog.Folder = Global().Temp_path;
        dialog.Filter = "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs";
        dialog.FilterIndex = 2;
        dialog.Flags = 4;
        if (const std::optional<std::string> file = TheDesktop().AskFile(dialog))
            form.lblUpDateFile = *file;
    });
}

void ClickUpdate(const UpdateForm& form, const UpdateView& view) {
    view.Show("");
    const bool ended = Guarded("frmDbUpdate-cmdUpdate_Click", [&](Guard&) {
        if (ChoicesAreGood(form))
            Update(form, view);
    });
    if (!ended)
        view.Show(NothingStored);
}

}  // namespace Dorvane
