// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdlib>
#include <iterator>
#include <string>

#include "krenn/input/InputReader.h"

// How fast the adjustment package reads an input file of the writer's columns: a square grid, every point a
// station that sights its up to eight neighbours with direction, zenith angle and slope distance.
namespace {

std::string NameOf(int row, int column) {
    return fmt::format("P{:03}{:03}", row, column);
}

// Calls visit(station, target) with the names of every sight.
template <typename Visit>
void EachSight(int side, Visit visit) {
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            for (int i = 0; i < 9; ++i) {
                const int toRow = row + i / 3 - 1;
                const int toColumn = column + i % 3 - 1;
                if (i != 4 && toRow >= 0 && toRow < side && toColumn >= 0 && toColumn < side)
                    visit(NameOf(row, column), NameOf(toRow, toColumn));
            }
        }
    }
}

std::string GridFile(int side) {
    std::string text =
        "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n\r\n  PROJECT = GRID\r\n     TASK = BENCH\r\n"
        "     DATE = 1/2/2026\r\n\r\nLISTING = STATS\r\n\r\nTheodolite Stations\r\n";
    const auto out = std::back_inserter(text);
    for (int i = 0; i < side * side; ++i)
        fmt::format_to(out, "{}\r\n\r\n", NameOf(i / side, i % side));
    text += "END\r\nObject Points\r\n";
    for (int i = 0; i < side * side; ++i)
        fmt::format_to(out,
                       "{:<9}{:>14.5f} {:>14.5f} {:>14.5f}\r\n"
                       "                1.00E+03       1.00E+03       1.00E+03\r\n",
                       NameOf(i / side, i % side), 5000 + i / side * 97.1, 2000 + i % side * 103.7,
                       120 + i % 17 * 1.3);
    int seed = 0;
    text += "END\r\nDistances \r\n";
    EachSight(side, [&](const std::string& from, const std::string& to) {
        fmt::format_to(out, "{:<10}{:<10}{:>13.5f}{:>10.5f}\r\n", from, to, 90 + seed++ % 7919 * 0.00731,
                       0.002);
    });
    text += "END\r\nHeight differences\r\nEND\r\nObservations\r\n";
    EachSight(side, [&](const std::string& from, const std::string& to) {
        fmt::format_to(out, "{:<10}{:<10}{:>9.5f}  {:>9.5f} {:>7.5f}{:>8.5f}\r\n", from, to,
                       seed % 39989 * 0.01, 95 + seed % 9973 * 0.001, 0.0005, 0.0005);
        ++seed;
    });
    return text +
           "END\r\nControl Information\r\nFixed Coordinates\r\nEND\r\nRelative error point pairs\r\nEND\r\n";
}

void ReadGrid(benchmark::State& state) {
    const int side = static_cast<int>(state.range(0));
    const std::string text = GridFile(side);
    std::size_t observations = 0;
    for (auto step : state) {
        static_cast<void>(step);
        const Krenn::Network network = Krenn::ReadInput(text);
        observations = network.observations.size();
        if (network.points.size() != static_cast<std::size_t>(side) * static_cast<std::size_t>(side))
            std::abort();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["observations"] = static_cast<double>(observations);
}
BENCHMARK(ReadGrid)
    ->Name("ReadInput/side of the grid")
    ->Arg(32)
    ->Arg(100)
    ->Arg(316)
    ->Unit(benchmark::kMillisecond);

}  // namespace
