// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <string>

#include "core/FolderLock.h"
#include "database/CoordinateRetriever.h"
#include "database/basDatabase.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"
#include "tests/support/Workstations.h"

namespace Dorvane {
namespace {

constexpr int Workstations = 5;
constexpr int Points = 10000;
constexpr int PointsOfOne = 100;
const std::string Folder = "D:\\TARVEX\\COORD\\NORTH\\";

void Update(const std::string& prefix, int points) {
    CoordinateRetriever retriever;
    for (int i = 1; i <= points; ++i)
        retriever.UpdatePoint(Folder, 3, prefix + std::to_string(i), "112026", i, 2, 3, 0, 0, 0, 0, 0, 0);
    std::int32_t records = 0;
    retriever.UpdateReference(Folder, "NORTH", "11-20-26", prefix, "NET1", records);
}

// A lock that nobody else wants, taken and let go.
void HoldAFolder(benchmark::State& state) {
    const Testing::TestSite site;
    Testing::MakeFolders(Folder);
    for (auto _ : state)
        const FolderLock lock(Folder);
}
BENCHMARK(HoldAFolder)->Unit(benchmark::kMicrosecond)->UseRealTime();

// Five workstations that bring 100 points each into one database of 10,000, all at the same time.
void FiveWorkstationsUpdateOneDatabase(benchmark::State& state) {
    Testing::TestSite site;
    const Testing::ScriptedDesktop desktop;
    site.LayOut();
    Testing::MakeFolders(Folder);
    WriteCoordNew(Folder, "NORTH");
    Update("P", Points);
    for (auto _ : state)
        Testing::Together(Workstations,
                          [](int number) { Update("W" + std::to_string(number), PointsOfOne); });
}
BENCHMARK(FiveWorkstationsUpdateOneDatabase)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace Dorvane
