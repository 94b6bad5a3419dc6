// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <string>

#include "core/Globals.h"
#include "database/CoordinateRetriever.h"
#include "database/Update3D.h"
#include "database/UpdateOverview.h"
#include "database/basDatabase.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

constexpr int Points = 10000;
const std::string Folder = "D:\\TARVEX\\COORD\\NORTH\\";
const std::string UpdateFile = "C:\\TARVEX\\TEMP\\ALL.DBS";

// A location and an update file with as many points, already once in the database.
void PrepareLocation(Testing::TestSite& site) {
    site.LayOut();
    Testing::MakeFolders(Folder);
    WriteCoordNew(Folder, "NORTH");
    std::string text = "11-20-26  SRV12     NET1\r\n";
    for (int i = 1; i <= Points; ++i) {
        const std::string number = std::to_string(i);
        text += "P" + number + " 0.0 0.0 0.0 " + number +
                ".12345 -200.54321 50.00001 123.4 0.00123 0.00045 0.00067\r\n";
    }
    Testing::PutFile(UpdateFile, text);
    Update3DPoints(Folder, UpdateFile);
}

List1<std::string> AllNames() {
    List1<std::string> names;
    names[0] = std::to_string(Points);
    for (int i = 1; i <= Points; ++i)
        names.Add("P" + std::to_string(i));
    return names;
}

// The whole update of an existing database, its *.DBS file read and the reference written, flushed to disk.
void Update10000Points(benchmark::State& state) {
    Testing::TestSite site;
    PrepareLocation(site);
    for (auto _ : state)
        if (!Update3DPoints(Folder, UpdateFile))
            state.SkipWithError("the update failed");
}
BENCHMARK(Update10000Points)->Unit(benchmark::kMillisecond)->UseRealTime();

// What the operator is shown before that update: the *.DBS file against the database, nothing written.
void Overview10000Points(benchmark::State& state) {
    Testing::TestSite site;
    PrepareLocation(site);
    for (auto _ : state)
        if (!OverviewOf(Folder, *PeekDbs3DFile(UpdateFile)).StoredAlready)
            state.SkipWithError("the update is not known");
}
BENCHMARK(Overview10000Points)->Unit(benchmark::kMillisecond)->UseRealTime();

void RetrieveNamed10000Points(benchmark::State& state) {
    Testing::TestSite site;
    PrepareLocation(site);
    const List1<std::string> names = AllNames();
    for (auto _ : state) {
        std::int32_t count = 0;
        std::vector<RetrievedPoint> items;
        CoordinateRetriever().RetrieveNamed(Folder, 3, names, 0, count, items);
        if (count != Points)
            state.SkipWithError("points are missing");
    }
}
BENCHMARK(RetrieveNamed10000Points)->Unit(benchmark::kMillisecond)->UseRealTime();

// The result file of all current values in meters, written to disk.
void RetrieveCurrent10000Points(benchmark::State& state) {
    Testing::TestSite site;
    PrepareLocation(site);
    const List1<std::string> names = AllNames();
    const List1<double> bias{1000, 2000, 30, 12.5};
    for (auto _ : state) {
        std::string file;
        std::int32_t lines = 0;
        CoordinateRetriever().RetrieveCurrent(Folder, 3, names, Points, file, lines, Global().Temp_path, bias,
                                              1);
        if (lines != Points)
            state.SkipWithError("points are missing");
    }
}
BENCHMARK(RetrieveCurrent10000Points)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace Dorvane
