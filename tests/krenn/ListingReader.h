// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace KrennTest {

// What a program that knows the listing only by its markers and word positions takes from it. Written anew
// here, from the layout alone, so that the package's own code is not its own judge.
struct ReadPoint {
    std::string name;
    double x = 0, y = 0, z = 0;
    double rotation[3] = {0, 0, 0};
    double sx = 0, sy = 0, sz = 0;
    double major = 0, minor = 0, angle = 0;
    bool hasDeviation = false;
};

using ReadPair = std::pair<std::string, std::string>;

struct ReadListing {
    int result = -1;  // 1 good, 0 ended inside a section
    std::vector<ReadPoint> stations, points;
    std::vector<ReadPair> directions, zeniths, distances, heights;

    const ReadPoint* Find(const std::string& name) const;
};

ReadListing ReadListingText(const std::string& text);

// The words of a line: separated by blanks, commas and tabs, upper case.
std::vector<std::string> WordsOf(const std::string& line);

}  // namespace KrennTest
