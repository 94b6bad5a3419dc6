// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "datatree/basRead.h"

namespace Dorvane {

namespace {

constexpr int MostLinesOfGroup = 20;

std::string CodeOf(std::string_view line) {
    return UpperCase(Trim(Left(line, 8)));
}
std::string DescriptionOf(std::string_view line) {
    return Trim(Mid(line, 10, 20));
}

void ReadHead(GuardedReader& file, StructureRecord& record) {
    const std::string& line = file.ReadLine();
    record.Name = CodeOf(line);
    record.Description = DescriptionOf(line);
    file.ReadLine();
}

void StoreEntry(const std::string& line, int index, List1<std::string>& codes,
                List1<std::string>& descriptions) {
    codes[index] = CodeOf(line);
    descriptions[index] = DescriptionOf(line);
}

// Reads a group that an empty line ends. A line of blanks is an entry with an empty code.
void ReadGroup(GuardedReader& file, List1<std::string>& codes, List1<std::string>& descriptions,
               std::int16_t& count) {
    for (int i = 1; i <= MostLinesOfGroup; ++i) {
        const std::string& line = file.ReadLine();
        if (line.empty()) {
            count = static_cast<std::int16_t>(i - 1);
            return;
        }
        StoreEntry(line, i, codes, descriptions);
    }
}

// Reads a group that the end of the file ends, and nothing else.
void ReadLastGroup(GuardedReader& file, List1<std::string>& codes, List1<std::string>& descriptions,
                   std::int16_t& count) {
    std::int16_t entries = 0;
    while (!file.AtEnd())
        StoreEntry(file.ReadLine(), ++entries, codes, descriptions);
    count = entries;
}

}  // namespace

List1<std::string> StructureRecord::Column() {
    List1<std::string> column;
    column.Resize(Room);
    return column;
}

std::int16_t ReadChoiceFile(List1<ChoiceRecord>& records, const std::string& folder,
                            const std::string& fileName) {
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return 0;
    records.Clear();
    const bool finished = Guarded("basRead-ReadChoiceFile", [&](Guard& guard) {
        GuardedReader file(guard, path);
        while (!file.AtEnd()) {
            const std::string& line = file.ReadLine();
            records.Add({CodeOf(line), LeadingInteger(Mid(line, 10, 1)), Trim(Mid(line, 12, 20))});
        }
    });
    if (!finished)
        records.Clear();
    return records.Count();
}

void ReadStrFile(List1<StructureRecord>& records, int index, const std::string& folder,
                 const std::string& fileName) {
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return;
    Guarded("basRead-ReadStrFile", [&](Guard& guard) {
        GuardedReader file(guard, path);
        StructureRecord& record = records[index];
        ReadHead(file, record);
        ReadGroup(file, record.Location, record.LocationDesc, record.LocationCount);
        ReadGroup(file, record.Type, record.TypeDesc, record.TypeCount);
        ReadLastGroup(file, record.Epoch, record.EpochDesc, record.EpochCount);
    });
}

void ReadCalibStrFile(List1<StructureRecord>& records, int index, const std::string& folder,
                      const std::string& fileName) {
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return;
    Guarded("basRead-ReadCalibStrFile", [&](Guard& guard) {
        GuardedReader file(guard, path);
        StructureRecord& record = records[index];
        ReadHead(file, record);
        ReadGroup(file, record.Location, record.LocationDesc, record.LocationCount);
        ReadLastGroup(file, record.Type, record.TypeDesc, record.TypeCount);
    });
}

}  // namespace Dorvane
