// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/Globals.h"
#include "core/List1.h"
#include "datatree/Sorter.h"

// The structure files say what may exist in the data tree, the registries what does. Both are small texts of
// fixed columns in Init_path, kept by the surveyors. All lists count from 1. An absent file is an empty one
// and is silent; every other failure is reported as "basRead-" and the reader's name, and leaves the records
// with what they had by then.
namespace Dorvane {

/// One line of CHOICES.SYS: a system.
struct ChoiceRecord {
    std::string Name;         // columns 1-8, upper case
    std::int16_t Kind = 0;    // column 10; 1 is a system of the data tree, others have no tree
    std::string Description;  // columns 12-31

    bool operator==(const ChoiceRecord&) const = default;
};

/// One structure file. Each group has room for 16 entries, of which its count are in use. A calibration
/// structure holds its types in the Location group and its epochs in the Type group.
struct StructureRecord {
    static constexpr int Room = 16;
    static List1<std::string> Column();  // a list of `Room` empty texts

    std::string Name;
    std::string Description;
    List1<std::string> Location = Column();
    List1<std::string> LocationDesc = Column();
    std::int16_t LocationCount = 0;
    List1<std::string> Type = Column();
    List1<std::string> TypeDesc = Column();
    std::int16_t TypeCount = 0;
    List1<std::string> Epoch = Column();
    List1<std::string> EpochDesc = Column();
    std::int16_t EpochCount = 0;
};

/// The most systems that a screen's own array of structures holds.
constexpr int MostSystems = 16;

/// One history file. The lists have their room of 500 once a file was read; `Count` entries are in use.
struct HistoryRecord {
    static constexpr int Room = 500;
    static constexpr int MostFolders = 100;  // how many a reader fills
    static constexpr int LongestUsage = 60;  // how much of a usage text is read

    List1<std::string> Subdirectory;  // system, location, type and epoch joined by backslashes, upper case
    List1<std::string> Created;       // date text of the last event, mm-dd-yy
    List1<std::string> Usage;         // usage text of the last event, as it stands in the file, or "Deleted"
    std::int16_t Count = 0;
};

/// Reads CHOICES.SYS and returns the number of systems, each line being one. When the file is not there the
/// result is 0 and `records` stays as it was; after a failure there are no records.
std::int16_t ReadChoiceFile(List1<ChoiceRecord>& records, const std::string& folder,
                            const std::string& fileName);

/// Reads the structure file of a data system into `records[index]`: locations and data types up to an empty
/// line each, epochs to the end of the file. Error 9 for a 17th entry of a group or an index beyond the list,
/// error 62 when the file ends before the epochs are reached.
void ReadStrFile(List1<StructureRecord>& records, int index, const std::string& folder,
                 const std::string& fileName);

/// Reads the structure file of a calibration system, which has two groups, into `records[index]`.
void ReadCalibStrFile(List1<StructureRecord>& records, int index, const std::string& folder,
                      const std::string& fileName);

/// Reads a registry of folders, and for a data system walks the disk below Data_drive for the folders that
/// are not registered: those in each location's ADJUST, and those below each epoch. Fills the five name
/// fields of the records, in the order of the sorter, and returns their number. Error 9 for a file without
/// any line; error 6 for more than 32767 folders. After a failure there are no records.
std::int16_t ReadPthFile(List1<PathRecord>& records, const std::string& folder, const std::string& fileName,
                         Sorter& sorter);

/// Reads a registry of events into `records[index]`: the last event of each folder counts, and one whose last
/// event is "Deleted" gives its place to the next. At most 100 folders are read; when there are more, `Count`
/// is 101 and the last entry is empty. Error 62 for a file of fewer than five lines.
void ReadHisFile(List1<HistoryRecord>& records, int index, const std::string& folder,
                 const std::string& fileName);

}  // namespace Dorvane
