// SPDX-License-Identifier: GPL-3.0-or-later
// A total-station field book in GSI format, its reduction, protocol and result file.
#include <cmath>

#include "core/LineReader.h"
#include "input/ResultFiles.h"
#include "programs/total/TotalProtocol.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void CheckBook(const FieldBook& book) {
    for (const StationSetUp& setUp : book.SetUps)
        for (const Sight& sight : setUp.Sights) {
            Hold(!sight.Target.empty(), "a sight has a target");
            Hold(sight.Direction >= 0 && sight.Direction <= 400, "a direction lies in the circle");
            Hold(sight.Zenith >= 0 && sight.Zenith <= 400, "a zenith angle lies in the circle");
            Hold(!sight.Distance || *sight.Distance > 0, "a distance is longer than nothing");
        }
}

void Reduce(const FieldBook& book, ResultKind kind) {
    const TotalResult result = ReduceBook(book, kind);
    std::string file;
    const std::vector<std::string> lines = ResultLines(result, kind);
    for (const std::string& line : lines)
        file += line + "\r\n";
    TotalProtocol({"REDUCTION", {}, Work, "SRV1.IDX", "A.RES", static_cast<long>(lines.size())}, book, result,
                  {});
    Put(Work + "A.RES", file);
    List1<ResRecord> records;
    Hold(ReadGenericRes(records, Work, "A.RES") == static_cast<std::int16_t>(lines.size()),
         "each line of a result is read back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    FieldBook book;
    LineReader reader = LineReader::OfText(TextOf(data, size));
    ReadGsiBook(book, "BOOK.GSI", reader);
    Hold(reader.AtEnd(), "a book is read to its end");
    CheckBook(book);
    for (const ResultKind kind : {ResultKind::Total, ResultKind::Angle, ResultKind::Distance})
        Reduce(book, kind);
    return 0;
}
