// SPDX-License-Identifier: GPL-3.0-or-later
// Registries of folders (*.PTH, of a data system and of the calibrations) and of events (*.HIS).
#include "datatree/basRead.h"
#include "datatree/basTree.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

std::int16_t ReadRegistry(List1<PathRecord>& records, const std::string& name) {
    Sorter sorter;
    const std::int16_t count = ReadPthFile(records, Init, name, sorter);
    Hold(count == records.Count(), "the number of folders is told");
    return count;
}

int Find(const HistoryRecord& history, const std::string& folder) {
    for (int i = 1; i <= history.Count; ++i)
        if (history.Subdirectory[i] == folder)
            return i;
    return 0;
}

void ReadFolders(const std::string& content) {
    Reading(Init + "DAM.PTH", content, [&] {
        List1<PathRecord> records;
        ReadRegistry(records, "DAM.PTH");
        TreeModel tree;
        TarvexTreeSetup(records, records.Count(), tree);
        UpdatePthFileAdd("DAM", "NEWLOC", "LEVEL", "SRV9");
        List1<PathRecord> more;
        ReadRegistry(more, "DAM.PTH");
        if (records.Count() > 0)
            Hold(more.Count() == records.Count() + 1, "a folder that is added is one more");
        Put(Init + "DAM.PTH", content);
    });
    Reading(Init + "CALIB.PTH", content, [&] {
        List1<PathRecord> records;
        ReadRegistry(records, "CALIB.PTH");
        TreeModel tree;
        TarvexTreeSetup(records, records.Count(), tree);
    });
}

void ReadEvents(const std::string& content) {
    Reading(Init + "DAM.HIS", content, [&] {
        List1<HistoryRecord> before;
        before.Resize(1);
        ReadHisFile(before, 1, Init, "DAM.HIS");
        Hold(before[1].Count >= 0 && before[1].Count <= HistoryRecord::MostFolders + 1,
             "no more folders than there is room for");
        UpdateHisFileAdd("DAM", "NEWLOC", "LEVEL", "SRV9", "by hand", "01-02-26");
        List1<HistoryRecord> after;
        after.Resize(1);
        ReadHisFile(after, 1, Init, "DAM.HIS");
        for (int i = 1; i <= before[1].Count && i < HistoryRecord::MostFolders; ++i)
            Hold(Find(after[1], before[1].Subdirectory[i]) > 0, "an event that is added loses no folder");
        Put(Init + "DAM.HIS", content);
    });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    ReadFolders(content);
    ReadEvents(content);
    return 0;
}
