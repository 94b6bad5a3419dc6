// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "datatree/basRead.h"
#include "datatree/basTarvex.h"

namespace Dorvane {

namespace {

constexpr int RootColumn = 10;
constexpr int LocationColumn = 20;
constexpr int TypeColumn = 30;
constexpr int EpochColumn = 40;
constexpr int SurveyColumn = 50;

std::string Name(std::string_view line, int column) {
    return UpperCase(Trim(Mid(line, column, 8)));
}

std::string ProjectsFolder(const std::string& root, const std::string& location) {
    return Global().Data_drive + root + "\\" + location + "\\ADJUST\\";
}

std::string EpochFolder(std::string_view line) {
    return Global().Data_drive + Name(line, RootColumn) + "\\" + Name(line, LocationColumn) + "\\" +
           Name(line, TypeColumn) + "\\" + Name(line, EpochColumn) + "\\";
}

// Adds a line for each folder in the ADJUST folder of each location. Lines of one location stand together, so
// each location is listed once.
void AddProjectFolders(List1<std::string>& lines) {
    const int registered = lines.Count();
    std::string lastLocation;
    List1<std::string> folders;
    for (int i = 1; i <= registered; ++i) {
        const std::string location = Name(lines[i], LocationColumn);
        if (location == lastLocation)
            continue;
        lastLocation = location;
        const std::string root = Name(lines[i], RootColumn);
        GetDirectories(folders, ProjectsFolder(root, location));
        const std::string head = " *       " + PadRight(root, 10) + PadRight(location, 10) + "ADJUST    ";
        // What of a long name reached the last column would be read as a deeper folder.
        for (const std::string& folder : folders)
            lines.Add(head + Left(folder, SurveyColumn - EpochColumn));
    }
}

// Adds a line for each folder below an epoch or a project; what is added here is not looked into.
void AddDeeperFolders(List1<std::string>& lines) {
    const int known = lines.Count();
    List1<std::string> folders;
    for (int i = 1; i <= known; ++i) {
        if (GetDirectories(folders, EpochFolder(lines[i])) == 0)
            continue;
        const std::string head = PadRight(Left(lines[i], SurveyColumn - 1), SurveyColumn - 1);
        for (const std::string& folder : folders)
            lines.Add(head + folder);
    }
}

PathRecord RecordOf(std::string_view line) {
    PathRecord record;
    record.Root = Name(line, RootColumn);
    record.Location = Name(line, LocationColumn);
    record.Type = Name(line, TypeColumn);
    record.Epoch = Name(line, EpochColumn);
    record.Survey = Name(line, SurveyColumn);
    return record;
}

}  // namespace

std::int16_t ReadPthFile(List1<PathRecord>& records, const std::string& folder, const std::string& fileName,
                         Sorter& sorter) {
    records.Clear();
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return 0;
    const bool finished = Guarded("basRead-ReadPthFile", [&](Guard& guard) {
        sorter.Clear();
        GuardedReader file(guard, path);
        while (!file.AtEnd())
            sorter.Add(file.ReadLine());
        const int registered = sorter.Count();
        List1<std::string> lines;
        for (int i = 1; i <= registered; ++i)
            lines.Add(sorter.Item(i));
        if (Name(lines[1], RootColumn) != "CALIB") {
            AddProjectFolders(lines);
            AddDeeperFolders(lines);
            // It is meant that line `registered` enters the sorter a second time, so that the last item is
            // lost.
            for (int i = registered; i <= lines.Count(); ++i)
                sorter.Add(lines[i]);
        }
        for (int i = 1; i <= lines.Count(); ++i)
            records.Add(RecordOf(sorter.Item(i)));
        sorter.Clear();
    });
    if (!finished)
        records.Clear();
    return records.Count();
}

}  // namespace Dorvane
