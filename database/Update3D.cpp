// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Update3D.h"

#include <optional>

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "database/DatabaseFiles.h"
#include "database/Retrieval.h"
#include "database/basDatabase.h"
#include "input/CoordinateFiles.h"

namespace Dorvane {

namespace {

const char* const UpdateProcedure = "basDatabase-Update3DPoints";

// "mm-dd-yy" as its six digits.
std::string SixDigits(const std::string& date) {
    return Left(date, 2) + Mid(date, 4, 2) + Right(date, 2);
}

void HandOver(Guard& guard, CoordinateRetriever& retriever, const std::string& databaseFolder,
              const List1<Dbs3DPoint>& points, const std::string& date) {
    for (const Dbs3DPoint& point : points)
        guard.Run([&] {
            retriever.UpdatePoint(databaseFolder, ThreeDimensionalCode, point.Name, date, point.X, point.Y,
                                  point.Z, point.ErrorAngle, point.ErrorMajor, point.ErrorMinor, point.SZ, 0,
                                  0);
        });
}

void Tell(const std::string& text, const std::string& title, Icon picture = Icon::Information) {
    TheDesktop().ShowMessage({text, title, picture});
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
    if (!IsLocationKey(form.lblDirectory)) {
        Tell("Selected location not valid.  Please complete.", "Location Incomplete");
        return false;
    }
    return true;
}

bool UpdateChosen(const UpdateForm& form, const std::string& databaseFolder) {
    if (form.optBenchmark || form.optMonument || !form.opt3dim)
        return true;
    return MakeCoordBackups(databaseFolder, ThreeDimensionalCode) &&
           Update3DPoints(databaseFolder, form.lblUpDateFile);
}

}  // namespace

bool Update3DPoints(const std::string& databaseFolder, const std::string& updateFile) {
    CoordinateRetriever retriever;
    std::string date;
    std::string project;
    std::string task;
    bool anyPoints = false;
    const bool handedOver = Guarded(UpdateProcedure, [&](Guard& guard) {
        std::string folder;
        std::string file;
        SplitFolderFile(updateFile, folder, file);
        List1<Dbs3DPoint> points;
        anyPoints = ReadDbs3DFile(points, folder, file, date, project, task) > 0;
        if (anyPoints)
            HandOver(guard, retriever, databaseFolder, points, SixDigits(date));
    });
    // Also after a failure: what was handed over before it is to stay.
    const bool committed =
        Guarded(UpdateProcedure, [&](Guard& guard) { guard.Run([&] { retriever.Commit(); }); });
    if (!handedOver || !committed || !anyPoints)
        return handedOver && committed;
    return Guarded(UpdateProcedure, [&](Guard& guard) {
        guard.Run([&] {
            std::int32_t records = 0;
            retriever.UpdateReference(databaseFolder, LocationOfFolder(databaseFolder), date, project, task,
                                      records);
        });
    });
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

void ClickUpdate(const UpdateForm& form) {
    Guarded("frmDbUpdate-cmdUpdate_Click", [&](Guard&) {
        if (!ChoicesAreGood(form))
            return;
        if (UpdateChosen(form, Global().Coord_path + LocationOfKey(form.lblDirectory) + "\\"))
            Tell("Update complete", "Update Complete");
    });
}

}  // namespace Dorvane
