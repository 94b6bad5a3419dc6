// SPDX-License-Identifier: GPL-3.0-or-later
// Coordinate files: with a bias line (*.BDD, *.INU), of plain lines, and the update file of the database
// (*.DBS).
#include "input/CoordinateFiles.h"

#include <cmath>

#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void CheckPoints(const List1<ObsPoint>& points, std::int16_t count) {
    if (count == 0)
        return;
    Hold(count == points.Count(), "the number of points is told");
    for (const ObsPoint& point : points) {
        Hold(!point.Name.empty(), "a point has a name");
        Hold(std::isfinite(point.X) && std::isfinite(point.Y) && std::isfinite(point.Z),
             "coordinates are numbers");
    }
}

void ReadUpdate() {
    List1<Dbs3DPoint> points;
    std::string date;
    std::string project;
    std::string task;
    const std::int16_t count = ReadDbs3DFile(points, Work, "A.DBS", date, project, task);
    const auto seen = PeekDbs3DFile(Work + "A.DBS");
    if (count > 0) {
        Hold(seen.has_value(), "what is read can be looked at");
        Hold(seen->Points == points, "a look sees what is read");
        HoldSame(date + project + task, seen->Date + seen->Project + seen->Task, "a look sees the head");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    Reading(Work + "A.DBS", content, [&] {
        List1<ObsPoint> biased;
        CheckPoints(biased, ReadBddFile(biased, Work, "A.DBS"));
        List1<ObsPoint> plain;
        CheckPoints(plain, ReadGenFile(plain, Work, "A.DBS"));
        ReadUpdate();
    });
    return 0;
}
