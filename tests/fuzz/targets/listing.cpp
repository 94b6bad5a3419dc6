// SPDX-License-Identifier: GPL-3.0-or-later
// Listings of the adjustment, and the exports of what was read.
#include "adjustment/DbsFile.h"
#include "adjustment/Exporters.h"
#include "adjustment/ListingVerdict.h"
#include "adjustment/OutputReader.h"
#include "input/CoordinateFiles.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void Export(const AdjustmentResults& results) {
    WriteXyzFile(Work, "A.XYZ", results, "DAM", "NORTH", "01-02-26");
    WriteInuFile(Work, "A.INU", results);
    WriteTrgFile(Work, "A.TRG", results);
    WriteStaFile(Work, "A.STA", results);
    // What the operator was warned of need not read back.
    if (!WriteDbsFile(Work, "A.DBS", results, "DAM", "NORTH") || !DbsDoubts(results, "DAM", "NORTH").empty())
        return;
    const auto written = PeekDbs3DFile(Work + "A.DBS");
    Hold(written.has_value(), "an update file that was written reads back");
    Hold(written->Points.Count() == results.Stations.Count() + results.Points.Count(),
         "it has all stations and points");
    for (int i = 1; i <= results.Stations.Count(); ++i)
        HoldSame(results.Stations[i].Name, written->Points[i].Name, "in their order");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    Reading(Work + "A.OUT", content, [&] {
        AdjustmentResults all;
        const std::int16_t read = ReadOutputFile(Work, "A.OUT", all, true);
        Hold(read == 0 || read == 1, "a listing is read to its end or not");
        AdjustmentResults coordinates;
        ReadOutputFile(Work, "A.OUT", coordinates, false);
        Hold(ReadListingVerdict(Work + "A.OUT").Points >= 0, "points are counted");
        if (read == 1)
            Export(all);
    });
    return 0;
}
