// SPDX-License-Identifier: GPL-3.0-or-later
// The database files of a location: good ones, then changed byte by byte as the input says. A database that
// is damaged is refused or read rightly, and a refused update changes no file.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "database/CoordinateRecord.h"
#include "database/CoordinateRetriever.h"
#include "database/DatabaseError.h"
#include "database/ReferenceFile.h"
#include "database/basDatabase.h"
#include "tests/fuzz/targets/FuzzSite.h"
#include "tests/support/TestSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

const std::string North = "D:\\TARVEX\\COORD\\NORTH\\";
const std::array<std::string, 4> Names{"3DIM.DAT", "3DIM.IDX", "3DIM.LST", "NORTH.REF"};

using Files = std::array<std::string, Names.size()>;

Files Present() {
    Files files;
    for (std::size_t i = 0; i < Names.size(); ++i)
        files[i] = Content(North + Names[i]);
    return files;
}

void PutAll(const Files& files) {
    for (std::size_t i = 0; i < Names.size(); ++i)
        Put(North + Names[i], files[i]);
}

void Update(const std::string& name, double x) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, ThreeDimensionalCode, name, "010226", x, 2, 3, 50.5, .1, .2, .3, 0, 0);
    std::int32_t records = 0;
    retriever.UpdateReference(North, "NORTH", "01-02-26", "DAM", "TASK", records);
}

const Files& Whole() {
    static const Files whole = [] {
        Testing::MakeFolders(North);
        WriteCoordNew(North, "NORTH");
        for (int i = 0; i < 4; ++i)
            Update("P" + std::to_string(i % 3), i);
        return Present();
    }();
    return whole;
}

// Each change is a file, a place and a byte or a cut; without any the files stay good.
Files Changed(Choices& choices) {
    static const std::string spoilers(" 0123456789.-P\r\n\0\x1A\xFF", 20);
    Files files = Whole();
    while (!choices.AtEnd()) {
        std::string& file = files[choices.Below(Names.size())];
        const std::size_t place = choices.Byte() * 256 + choices.Byte();
        if (file.empty())
            continue;
        const std::size_t at = place % file.size();
        switch (choices.Below(5)) {
            case 0: file[at] = spoilers[choices.Below(static_cast<unsigned>(spoilers.size()))]; break;
            case 1: file[at] = static_cast<char>(choices.Byte()); break;
            case 2:
                file.insert(at, 1, spoilers[choices.Below(static_cast<unsigned>(spoilers.size()))]);
                break;
            case 3: file.erase(at, choices.Below(40) + 1); break;
            default: file.resize(at); break;
        }
    }
    return files;
}

std::vector<RetrievedPoint> Points(std::initializer_list<const char*> names) {
    List1<std::string> list;
    for (const char* name : names)
        list.Add(name);
    list[0] = std::to_string(names.size());
    std::vector<RetrievedPoint> items;
    std::int32_t count = 0;
    CoordinateRetriever().RetrieveNamed(North, ThreeDimensionalCode, list, 0, count, items);
    Hold(count == static_cast<std::int32_t>(items.size()), "the number of points is told");
    for (const RetrievedPoint& item : items)
        Hold(std::isfinite(item.X) && std::isfinite(item.Y) && std::isfinite(item.Z),
             "coordinates are numbers");
    return items;
}

void Retrieve() {
    const List1<std::string> names{"P0", "P1", "NONE"};
    const List1<double> bias{1, 2, 3, 4};
    std::string file;
    std::int32_t lines = 0;
    CoordinateRetriever().RetrieveAll(North, ThreeDimensionalCode, names, names.Count(), file, lines,
                                      "C:\\TARVEX\\TEMP\\", bias, 1);
    CoordinateRetriever().RetrieveCurrent(North, ThreeDimensionalCode, names, names.Count(), file, lines,
                                          "C:\\TARVEX\\TEMP\\", bias, 3);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    Choices choices(data, size);
    Whole();
    const Files files = Changed(choices);
    PutAll(files);
    Quietly([] { Points({"P0", "P1", "P2", "NONE"}); });
    Quietly([] { Retrieve(); });
    Quietly([] { LastReference(North, "NORTH"); });
    Hold(Present() == files, "reading changes no file");
    if (Quietly([] { Update("NEW", 12.5); }))
        Hold(Quietly([] {
                 const auto points = Points({"NEW"});
                 Hold(points.size() == 1 && std::abs(points[0].X - 12.5) < 1e-9,
                      "a point that was taken is there");
             }),
             "a database that took a point can be read");
    else
        Hold(Present() == files, "a refused update changes no file");
    return 0;
}
