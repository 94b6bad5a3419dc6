// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fmt/format.h>

#include <array>
#include <string>
#include <vector>

namespace KrennTest {

// An input file put together in a test, row by row, in the layout of the system's own writer.
struct InputText {
    std::vector<std::string> stations, points, distances, heights, angles, fixed, pairs;

    static std::string Named(const std::string& name) { return name + "\r\n\r\n"; }

    static std::string Given(const std::string& name, double x, double y, double z) {
        return fmt::format(
            "{:<9}{:>14.5f} {:>14.5f} {:>14.5f}\r\n"
            "                1.00E+03       1.00E+03       1.00E+03\r\n",
            name, x, y, z);
    }

    void Distance(const std::string& from, const std::string& to, double value, double sigma,
                  bool isTracker = false) {
        distances.push_back(fmt::format("{:<10}{:<10}{:>13.5f}{:>10.5f}{}\r\n", from, to, value, sigma,
                                        isTracker ? "   T" : ""));
    }

    void Height(const std::string& from, const std::string& to, double value, double sigma) {
        heights.push_back(fmt::format("{:<10}{:<9}{:>13.5f}  {:>10.5f}\r\n", from, to, value, sigma));
    }

    void Angles(const std::string& from, const std::string& to, double direction, double zenith,
                double sigma) {
        angles.push_back(fmt::format("{:<10}{:<10}{:>9.5f}  {:>9.5f} {:>7.5f}{:>8.5f}\r\n", from, to,
                                     direction, zenith, sigma, sigma));
    }

    std::string Text() const {
        const auto join = [](const std::vector<std::string>& rows) {
            std::string text;
            for (const std::string& row : rows)
                text += row;
            return text;
        };
        const auto lines = [](const std::vector<std::string>& rows) {
            std::string text;
            for (const std::string& row : rows)
                text += row + "\r\n";
            return text;
        };
        return "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n\r\n  PROJECT = DAM\r\n     TASK = NORTH\r\n"
               "     DATE = 01/02/2026 10:11:12\r\n\r\nLISTING = STATS\r\n\r\nTheodolite Stations\r\n" +
               join(stations) + "END\r\nObject Points\r\n" + join(points) + "END\r\nDistances \r\n" +
               join(distances) + "END\r\nHeight differences\r\n" + join(heights) + "END\r\nObservations\r\n" +
               join(angles) + "END\r\nControl Information\r\nFixed Coordinates\r\n" + lines(fixed) +
               "END\r\nRelative error point pairs\r\n" + lines(pairs) + "END\r\n";
    }
};

}  // namespace KrennTest
