// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdlib>
#include <string>

#include "adjustment/Exporters.h"
#include "adjustment/OutputReader.h"
#include "core/Drives.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

constexpr int Stations = 200;
constexpr int Points = 10000;

std::string PointName(int i) {
    return fmt::format("P{:05}", i);
}
std::string StationName(int i) {
    return fmt::format("ST{:03}", i);
}

std::string ResidualTable(const char* marker, int rows) {
    std::string text = std::string(marker) + " and their standardised residuals\r\n";
    for (int i = 0; i < rows; ++i)
        text += fmt::format("  {:<10} {:<10} {:14.5f} {:14.5f} {:10.5f} {:8.2f}\r\n",
                            StationName(i % Stations + 1), PointName(i % Points + 1), 100.0 + i * 0.00731,
                            100.0 + i * 0.00732, 0.00012, 1.25);
    return text + "\r\n";
}

std::string DeviationBlock(const std::string& name) {
    return fmt::format(
        "  {:<10} {:10.5f} {:10.5f} {:10.5f}\r\n             {:10.5f} {:10.5f} {:10.3f}\r\n\r\n", name,
        0.00123, 0.00234, 0.00345, 0.00251, 0.00119, 123.456);
}

// A network of 200 stations and 10,000 points with `rows` residuals of each kind, in the package's sections.
std::string Listing(int rows) {
    std::string text = "Final results\r\n\r\n";
    for (int i = 1; i <= Stations; ++i)
        text += fmt::format(
            "  {}\r\n  orientation gons {:14.5f} {:14.5f} {:14.5f}\r\n  X Y Z       meters {:14.5f} "
            "{:14.5f} {:14.5f}\r\n",
            StationName(i), 0.00001, 0.00002, 123.45678, 1000.0 + i, 2000.0 + i, 30.0 + i);
    text += "\r\n";
    for (int i = 1; i <= Points; ++i)
        text += fmt::format("  {:<10} {:14.5f} {:14.5f} {:14.5f}\r\n", PointName(i), 1000.0 + i * 0.37,
                            2000.0 + i * 0.41, 30.0 + i * 0.001);
    text += "\r\n";
    for (const char* marker :
         {"distance residuals", "height differences", "horizontal direction", "vertical direction"})
        text += ResidualTable(marker, rows);
    text += "Standard deviations\r\nStandard point errors\r\n\r\n";
    for (int i = 1; i <= Stations; ++i)
        text += DeviationBlock(StationName(i));
    for (int i = 1; i <= Points; ++i)
        text += DeviationBlock(PointName(i));
    return text + "\r\n";
}

void ReadListing(benchmark::State& state) {
    const Testing::TestSite site;
    const int rows = static_cast<int>(state.range(0));
    Testing::PutFile("D:\\ADJ\\NET.OUT", Listing(rows));
    AdjustmentResults results;
    for (auto step : state) {
        static_cast<void>(step);
        if (ReadOutputFile("D:\\ADJ\\", "NET.OUT", results, true) != 1)
            std::abort();
    }
    if (results.Points.Count() != Points || results.VerticalDirections.Count() != rows ||
        results.Points[Points].SX == 0)
        std::abort();
}
BENCHMARK(ReadListing)
    ->Name("ReadOutputFile/10000 points/residuals of each kind")
    ->Arg(10000)
    ->Arg(32767)
    ->Unit(benchmark::kMillisecond);

void WriteExport(benchmark::State& state) {
    const Testing::TestSite site;
    Testing::ScriptedDesktop desktop;
    Testing::MakeFolders("D:\\ADJ\\");
    AdjustmentResults results;
    for (int i = 1; i <= Points; ++i) {
        AdjustedPoint& point =
            results.Points.Add({PointName(i), 1000 + i * 0.37, 2000 + i * 0.41, 30 + i * 0.001});
        point.SX = point.SY = point.SZ = 0.00123;
    }
    for (auto step : state) {
        static_cast<void>(step);
        if (!WriteXyzFile("D:\\ADJ\\", "NET.XYZ", results, "NORTH", "LEVEL", "11/20/2026"))
            std::abort();
    }
}
BENCHMARK(WriteExport)->Name("WriteXyzFile/10000 points")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Dorvane
