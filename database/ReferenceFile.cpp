// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ReferenceFile.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/ColumnLine.h"
#include "core/Text.h"
#include "database/DatabaseError.h"
#include "database/DatabaseFiles.h"
#include "database/RecordFile.h"

namespace Dorvane {

namespace {

constexpr long HighestCount = 9999999;
constexpr int DateWidth = 8;
constexpr int ProjectColumn = 10;
constexpr int TaskColumn = 21;
constexpr int TextWidth = 10;  // of project and task

std::string Checked(const std::string& given, const char* title, int width, const std::string& path) {
    std::string text = Trim(given);
    if (static_cast<int>(text.size()) > width)
        throw RefusedRecord(path, "the update",
                            fmt::format("the {} \"{}\" has more than {} characters", title, text, width));
    if (std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
        throw RefusedRecord(path, "the update", fmt::format("the {} holds a control character", title));
    return text;
}

std::string ReferenceLine(const ReferenceRecord& reference, const std::string& path) {
    ColumnLine line;
    line.At(1, Checked(reference.Date, "date", DateWidth, path));
    line.At(ProjectColumn, Checked(reference.Project, "project", TextWidth, path));
    line.At(TaskColumn, Checked(reference.Task, "task", TextWidth, path));
    return PadRight(line.Text(), ReferenceShape.RecordLength - 2);
}

RecordFile OpenReference(const std::string& folder, const std::string& location) {
    return RecordFile(folder + location + ".REF", ReferenceShape);
}

}  // namespace

FileChange ReferenceWith(const std::string& folder, const std::string& location,
                         const ReferenceRecord& reference, long& updates) {
    const RecordFile file = OpenReference(folder, location);
    const std::string line = ReferenceLine(reference, file.Path());
    updates = file.Records() + 1;
    if (updates + ReferenceShape.CountOfNew > HighestCount)
        throw FullFile(file.Path(), fmt::format("its header counts up to {}", HighestCount));
    FileChange change{file.Path(), RecordHeader(ReferenceShape, updates)};
    change.Content.append(file.AllRecords()).append(line).append("\r\n");
    return change;
}

bool HasReference(const std::string& folder, const std::string& location, const ReferenceRecord& reference) {
    const RecordFile file = OpenReference(folder, location);
    const std::string line = ReferenceLine(reference, file.Path());
    for (long number = 1; number <= file.Records(); ++number)
        if (file.Record(number) == line)
            return true;
    return false;
}

std::optional<ReferenceRecord> LastReference(const std::string& folder, const std::string& location) {
    const RecordFile file = OpenReference(folder, location);
    if (file.Records() == 0)
        return std::nullopt;
    const std::string_view line = file.Record(file.Records());
    return ReferenceRecord{Trim(Left(line, DateWidth)), Trim(Mid(line, ProjectColumn, TextWidth)),
                           Trim(Mid(line, TaskColumn, TextWidth))};
}

}  // namespace Dorvane
