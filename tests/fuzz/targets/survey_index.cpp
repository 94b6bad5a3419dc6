// SPDX-License-Identifier: GPL-3.0-or-later
// The survey index SRV*.IDX.
#include "tests/fuzz/targets/FuzzSite.h"
#include "upload/SurveyIndex.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    Reading(Work + "SRV1.IDX", content, [&] {
        List1<SurveyIndexEntry> entries;
        const std::int16_t count = ReadSurveyIdxFile(entries, Work, "SRV1.IDX");
        Hold(count == entries.Count(), "the number of data lines is told");
        Hold(UpdateSrvIdx(Work, "SRV1.IDX", "BOOK", "GSI", "BOOK", "1/2/2026"), "an index takes a line");
        List1<SurveyIndexEntry> more;
        ReadSurveyIdxFile(more, Work, "SRV1.IDX");
        if (count > 0) {
            Hold(more.Count() == count + 1, "a line that is added is one more");
            Hold(more[count + 1] == SurveyIndexEntry{"BOOK", "GSI"}, "a line that is added reads back");
            for (int i = 1; i <= count; ++i)
                Hold(more[i] == entries[i], "the lines before it stay");
        }
        Put(Work + "SRV1.IDX", content);
    });
    return 0;
}
