// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/GridNetwork.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <iterator>
#include <numbers>
#include <random>
#include <vector>

namespace Dorvane {
namespace {

constexpr double kSpacing = 50;           // meters
constexpr double kHeights = 20;           // meters
constexpr double kStartError = 0.01;      // meters
constexpr double kAngleSigma = 0.0003;    // gons
constexpr double kDistanceSigma = 0.001;  // meters
constexpr double kGons = 200 / std::numbers::pi;

using Place = std::array<double, 3>;

struct Writer {
    std::mt19937 random{20};
    std::vector<Place> truth;
    std::string stations, distances, angles;
    int observations = 0;

    double Uniform(double most) { return std::uniform_real_distribution(-most, most)(random); }
    double Normal(double sigma) { return std::normal_distribution(0.0, sigma)(random); }

    void Station(std::size_t i) {
        Place start = truth[i];
        for (double& axis : start)
            axis += Uniform(kStartError);
        fmt::format_to(std::back_inserter(stations),
                       "P{:06}  {:>14.5f} {:>14.5f} {:>14.5f}\r\n"
                       "                1.00E+03       1.00E+03       1.00E+03\r\n",
                       i + 1, start[0], start[1], start[2]);
    }

    void Sight(std::size_t from, std::size_t to, double zero) {
        const double x = truth[to][0] - truth[from][0];
        const double y = truth[to][1] - truth[from][1];
        const double z = truth[to][2] - truth[from][2];
        const double horizontal = std::hypot(x, y);
        double direction = std::fmod(std::atan2(x, y) * kGons - zero + Normal(kAngleSigma) + 800, 400);
        if (direction >= 399.999995)
            direction = 0;
        const double zenith = std::atan2(horizontal, z) * kGons + Normal(kAngleSigma);
        const double distance = std::hypot(horizontal, z) + Normal(kDistanceSigma);
        fmt::format_to(std::back_inserter(distances), "P{:06}   P{:06}   {:>13.5f}{:>10.5f}\r\n", from + 1,
                       to + 1, distance, kDistanceSigma);
        fmt::format_to(std::back_inserter(angles),
                       "P{:06}   P{:06}   {:>9.5f}  {:>9.5f} {:>7.5f}{:>8.5f}\r\n", from + 1, to + 1,
                       direction, zenith, kAngleSigma, kAngleSigma);
        observations += 3;
    }
};

}  // namespace

GridNetwork MakeGridNetwork(int points) {
    Writer writer;
    const int width = static_cast<int>(std::ceil(std::sqrt(points)));
    for (int i = 0; i < points; ++i)
        writer.truth.push_back({1000 + kSpacing * (i % width) + writer.Uniform(5),
                                1000 + kSpacing * (i / width) + writer.Uniform(5),
                                100 + writer.Uniform(kHeights)});
    for (int i = 0; i < points; ++i) {
        writer.Station(static_cast<std::size_t>(i));
        const double zero = 200 + writer.Uniform(200);
        for (int row = i / width - 1; row <= i / width + 1; ++row) {
            for (int column = i % width - 1; column <= i % width + 1; ++column) {
                const int other = row * width + column;
                if (row >= 0 && column >= 0 && column < width && other < points && other != i)
                    writer.Sight(static_cast<std::size_t>(i), static_cast<std::size_t>(other), zero);
            }
        }
    }
    return {
        "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n\r\n  PROJECT = GRID\r\n     TASK = NETWORK\r\n"
        "     DATE = 01/02/2026 10:11:12\r\n\r\nLISTING = STATS\r\n\r\nTheodolite Stations\r\n" +
            writer.stations + "END\r\nObject Points\r\nEND\r\nDistances \r\n" + writer.distances +
            "END\r\nHeight differences\r\nEND\r\nObservations\r\n" + writer.angles +
            "END\r\nControl Information\r\nFixed Coordinates\r\nEND\r\nRelative error point pairs\r\nEND\r\n",
        writer.observations};
}

}  // namespace Dorvane
