// SPDX-License-Identifier: GPL-3.0-or-later
// Result files of the reductions (*.RES). A byte 0xFF parts the two files of the angles.
#include "input/ResultFiles.h"

#include <cmath>

#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void CheckRecords(const List1<ResRecord>& records, std::int16_t count) {
    // After a stop there are none, whatever the list still holds.
    if (count == 0)
        return;
    Hold(count == records.Count(), "the number of records is told");
    for (const ResRecord& record : records) {
        Hold(!record.Station.empty() && !record.Target.empty(), "a record has two names");
        Hold(std::isfinite(record.Value1) && std::isfinite(record.Value2) && std::isfinite(record.Value3),
             "values are numbers");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    const std::size_t part = std::min(content.find('\xFF'), content.size());
    const std::string second = part < content.size() ? content.substr(part + 1) : content;
    Reading(Work + "A.RES", content, [&] {
        List1<ResRecord> records;
        CheckRecords(records, ReadGenericRes(records, Work, "A.RES"));
    });
    Put(Work + "ZENITH.RES", second);
    Reading(Work + "REDIR.RES", content.substr(0, part), [&] {
        List1<ResRecord> records;
        CheckRecords(records, ReadAngleRes(records, Work, "REDIR.RES", "ZENITH.RES"));
        List1<ResRecord> reversed;
        CheckRecords(reversed, ReadAngleRes(reversed, Work, "ZENITH.RES", "REDIR.RES"));
    });
    return 0;
}
