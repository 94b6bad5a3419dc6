// SPDX-License-Identifier: GPL-3.0-or-later
#include <limits>

#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

constexpr int HeadLines = 4;
constexpr const char* DeletedUsage = "Deleted";

std::int16_t CountLines(Guard& guard, const std::string& path) {
    GuardedReader file(guard, path);
    std::int16_t lines = 0;
    for (; !file.AtEnd(); ++lines) {
        if (lines == std::numeric_limits<std::int16_t>::max())
            throw RunTimeError(Overflow);
        file.ReadLine();
    }
    return lines;
}

void GiveRoom(HistoryRecord& record) {
    record = HistoryRecord();
    record.Subdirectory.Resize(HistoryRecord::Room);
    record.Created.Resize(HistoryRecord::Room);
    record.Usage.Resize(HistoryRecord::Room);
}

std::string FolderOf(const std::string& heading) {
    return UpperCase(Trim(Left(heading, 40)));
}

// Reads the events of the folder whose heading is the current line, up to the heading of the next one or the
// last line of the file. The heading behind a deleted folder takes over its place.
void ReadEvents(GuardedReader& file, int lines, HistoryRecord& record, int entry) {
    for (;;) {
        const std::string& line = file.ReadLine();
        const std::string event = Mid(line, 5, 7);
        if (event == "Created" || event == "Deleted") {
            record.Created[entry] = Mid(line, 17, 8);
            record.Usage[entry] =
                event == "Created" ? Mid(line, 31, HistoryRecord::LongestUsage) : DeletedUsage;
            if (file.LineNumber() == lines)
                return;
        } else if (Left(line, 1) != " ") {
            if (record.Usage[entry] != DeletedUsage)
                return;
            record.Subdirectory[entry] = FolderOf(line);
        }
    }
}

}  // namespace

void ReadHisFile(List1<HistoryRecord>& records, int index, const std::string& folder,
                 const std::string& fileName) {
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return;
    Guarded("basRead-ReadHisFile", [&](Guard& guard) {
        const int lines = CountLines(guard, path);
        GuardedReader file(guard, path);
        for (int i = 1; i <= HeadLines + 1; ++i)
            file.ReadLine();
        HistoryRecord& record = records[index];
        GiveRoom(record);
        int entry = 1;
        for (; entry <= HistoryRecord::MostFolders; ++entry) {
            record.Subdirectory[entry] = FolderOf(file.Line());
            ReadEvents(file, lines, record, entry);
            if (file.LineNumber() == lines)
                break;
        }
        if (record.Usage[entry] == DeletedUsage)
            --entry;
        record.Count = static_cast<std::int16_t>(entry);
    });
}

}  // namespace Dorvane
