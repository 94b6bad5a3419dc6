// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/krenn/InputText.h"
#include "tests/krenn/RandomNetwork.h"

namespace KrennTest {

// Every type of adjustment.
inline constexpr std::array kTypes{0, 1, 7, -1};

using Place = std::array<double, 3>;

// A square of fixed points, and rows of a station by its true place.
struct Square {
    InputText text;
    const std::vector<Place> corners{{0, 0, 0}, {100, 0, 2}, {100, 100, 5}, {0, 100, -3}};

    Square() {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            text.points.push_back(InputText::Given(Corner(i), corners[i][0], corners[i][1], corners[i][2]));
            text.fixed.push_back(Corner(i));
        }
    }

    static std::string Corner(std::size_t i) { return std::string(1, static_cast<char>('A' + i)); }

    void Polar(const std::string& name, const Place& from, const std::string& other, const Place& to) {
        text.Distance(name, other, SlopeLength(from, to), 0.001);
        text.Angles(name, other, AzimuthGons(from, to), ZenithGons(from, to), 0.001);
    }

    void Station(const std::string& name, const Place& from) {
        text.stations.push_back(InputText::Named(name));
        for (std::size_t i = 0; i < corners.size(); ++i)
            Polar(name, from, Corner(i), corners[i]);
    }
};

}  // namespace KrennTest
