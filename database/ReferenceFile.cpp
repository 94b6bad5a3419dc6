// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ReferenceFile.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/ColumnLine.h"
#include "core/ReplaceFiles.h"
#include "core/Text.h"
#include "database/DatabaseError.h"
#include "database/DatabaseFiles.h"
#include "database/RecordFile.h"

namespace Dorvane {

namespace {

constexpr long HighestCount = 9999999;

std::string Checked(const std::string& given, const char* title, int width, const std::string& path) {
    std::string text = Trim(given);
    if (static_cast<int>(text.size()) > width)
        throw RefusedRecord(path, "the update",
                            fmt::format("the {} \"{}\" has more than {} characters", title, text, width));
    if (std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }))
        throw RefusedRecord(path, "the update", fmt::format("the {} holds a control character", title));
    return text;
}

}  // namespace

long AppendReference(const std::string& folder, const std::string& location,
                     const ReferenceRecord& reference) {
    const RecordFile file(folder + location + ".REF", ReferenceShape);
    ColumnLine line;
    line.At(1, Checked(reference.Date, "date", 8, file.Path()));
    line.At(10, Checked(reference.Project, "project", 10, file.Path()));
    line.At(21, Checked(reference.Task, "task", 10, file.Path()));

    const long records = file.Records() + 1;
    if (records + ReferenceShape.CountOfNew > HighestCount)
        throw FullFile(file.Path(), fmt::format("its header counts up to {}", HighestCount));
    std::string content = RecordHeader(ReferenceShape, records);
    content.append(file.AllRecords());
    content.append(PadRight(line.Text(), ReferenceShape.RecordLength - 2)).append("\r\n");
    ReplaceInOrder({{file.Path(), content}});
    return records;
}

}  // namespace Dorvane
