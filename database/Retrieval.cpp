// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/Retrieval.h"

#include <algorithm>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "database/CoordinateUnits.h"
#include "database/DatabaseFiles.h"
#include "database/basDatabase.h"

namespace Dorvane {

namespace {

const char* const TreeTop = "DATABASE\\";

void Tell(const std::string& text, const std::string& title) {
    TheDesktop().ShowMessage({text, title, Icon::Information});
}

template <class Show, class Value>
void ShowIfAny(const Show& show, const Value& value) {
    if (show)
        show(value);
}

std::int32_t ChosenType(const RetrieveForm& form) {
    if (form.optBenchmark)
        return BenchmarkCode;
    if (form.optMonument)
        return MonumentCode;
    if (form.optIdeals)
        return IdealCode;
    return form.opt3dim ? ThreeDimensionalCode : 0;
}

std::int32_t ChosenUnits(const RetrieveForm& form) {
    if (form.optMeters)
        return Meters;
    if (form.optInches)
        return Inches;
    return form.optFeet ? Feet : 0;
}

List1<double> BiasOf(const std::string& location, const RetrieveView& view) {
    List1<double> bias{0, 0, 0, 0};
    if (!ReadBiasFile(location, bias)) {
        ShowIfAny(view.WaitCursor, false);
        TheDesktop().ShowMessage({"Bias not read in properly!", "Bias Problem", Icon::Exclamation});
        ShowIfAny(view.WaitCursor, true);
    }
    return bias;
}

void Retrieve(Guard& guard, RetrieveForm& form, const RetrieveView& view) {
    std::string path = form.lblDirectory;
    std::string databaseFolder;
    std::string resultFile;
    std::string typeWord;
    std::int32_t unitsCode = 0;
    std::int32_t typeCode = 0;
    if (!SetupRetrieve(form, path, databaseFolder, resultFile, typeWord, unitsCode, typeCode))
        return;
    guard.Run([&] { Drives::CopyFile(databaseFolder + typeWord + ".LST", Global().Work_path + "WORK.LST"); });
    List1<std::string> names;
    const std::int16_t count = ReadWorkListFile(names);
    const List1<double> bias = BiasOf(LocationOfFolder(path), view);
    guard.Run([&] {
        CoordinateRetriever retriever;
        std::string written;
        std::int32_t lines = 0;
        if (form.optCurrent)
            retriever.RetrieveCurrent(databaseFolder, typeCode, names, count, written, lines,
                                      Global().Temp_path, bias, unitsCode);
        else
            retriever.RetrieveAll(databaseFolder, typeCode, names, count, written, lines, Global().Temp_path,
                                  bias, unitsCode);
    });
    ShowIfAny(view.ShowStatus, std::string("Retreival Complete"));
    form.OutputVisible = true;
    form.OutputEnabled = true;
    form.PrintEnabled = Global().PrinterPresent;
}

}  // namespace

void SetupDbaseTree(TreeModel& tree) {
    tree.Clear();
    tree.Add({TreeTop, "", TreeTop});
    const List1<PathRecord>& records = Global().PathRecords;
    const PathRecord* entryBefore = nullptr;
    for (int i = 1; i <= records.Count(); ++i) {
        const PathRecord& record = records[i];
        if (i > 1 && record.Location == records[i - 1].Location)
            continue;
        const std::string rootKey = TreeTop + record.Root + "\\";
        if (entryBefore == nullptr || record.Root != entryBefore->Root)
            tree.Add({rootKey, TreeTop, record.Root});
        tree.Add({rootKey + record.Location + "\\", rootKey, record.Location});
        entryBefore = &record;
    }
}

bool IsLocationKey(const std::string& path) {
    return std::count(path.begin(), path.end(), '\\') == 3;
}

bool RequireLocationKey(const std::string& path) {
    if (IsLocationKey(path))
        return true;
    Tell("Selected location not valid.  Please complete.", "Location Incomplete");
    return false;
}

std::string LocationOfKey(const std::string& path) {
    return LocationOfFolder(path);
}

void HideOutput(RetrieveForm& form) {
    form.PrintEnabled = false;
    form.OutputEnabled = false;
    form.OutputVisible = false;
    form.lblOutputFile.clear();
}

bool SetupRetrieve(RetrieveForm& form, std::string& path, std::string& databaseFolder,
                   std::string& resultFile, std::string& typeWord, std::int32_t& unitsCode,
                   std::int32_t& typeCode) {
    if (!form.optAll && !form.optCurrent) {
        Tell(
            "Must select an option from the Coordinate Date box.  Either to retreive all coordinates or just "
            "the current "
            "coordinates",
            "Missing Coordinate Data");
        return false;
    }
    unitsCode = ChosenUnits(form);
    if (unitsCode == 0) {
        Tell("Must select an option from the Units box.  Either meters, inches, or feet.",
             "Missing Units Data");
        return false;
    }
    typeCode = ChosenType(form);
    if (typeCode == 0) {
        Tell(
            "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
            "3-dimensional",
            "Missing Date Type Data");
        return false;
    }
    if (!RequireLocationKey(path))
        return false;
    const DatabaseType& type = DatabaseTypeOf(typeCode);
    path = LocationOfKey(path) + "\\";
    databaseFolder = Global().Coord_path + path;
    resultFile = type.ResultFile();
    typeWord = type.Word;
    form.lblOutputFile = Global().Temp_path + resultFile;
    return true;
}

void ClickRetrieve(RetrieveForm& form, const RetrieveView& view) {
    ShowIfAny(view.WaitCursor, true);
    ShowIfAny(view.Animation, true);
    Guarded("frmDbRetrieve-cmdRetrieve_Click", [&](Guard& guard) { Retrieve(guard, form, view); });
    ShowIfAny(view.WaitCursor, false);
    ShowIfAny(view.Animation, false);
}

}  // namespace Dorvane
