// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "core/Drives.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// One line of a listing, and what a reading of everything gives when the file is cut behind it.
struct ListingLine {
    const char* Text;
    int ResultWhenCutHere;
};

/// A whole listing with every section, written by hand: stations ST1 and ST2, points P1 and P2 (a height
/// only), residual tables of each kind, deviations of ST1, of an unknown name and of P1.
inline const std::vector<ListingLine>& GoodListing() {
    static const std::vector<ListingLine> lines = {
        {" ", 0},
        {"                VARN Adjustment Output", 0},
        {"  Final results of an earlier page", 0},
        {"", 0},
        {"Final results", 0},
        {"   a line that is skipped", 0},
        {"  St1", 0},
        {"  rotation   1   0.00001   -0.00002   123.45678", 0},
        {"  position   1   1000.12345   2000.5   -30.25", 0},
        {"  ST2", 0},
        {"  rotation   1   1.00001,2.00002\t3.00003", 0},
        {"  position   1   1100.0   2100.0   31.0   extra words", 0},
        {"   ", 1},
        {"  p1    1500.11111   2500.22222   35.33333", 0},
        {"  P2    36.5", 0},
        {"", 1},
        {"  distance residuals set in are no marker", 1},
        {"distance residuals and their tests", 0},
        {"  ST1   P1   12.34500   0.00010", 0},
        {"  st2   P1   13.34500   0.00020", 0},
        {"", 1},
        {"some text", 1},
        {"height differences", 0},
        {"  P1   P2   1.16667", 0},
        {"", 1},
        {"horizontal direction residuals", 0},
        {"  ST1   P1   100.0000", 0},
        {"  ST1   ST2   200.0000", 0},
        {"  ST2   P1   300.0000", 0},
        {"", 1},
        {"vertical direction residuals", 0},
        {"  ST1   P1   99.0000", 0},
        {"", 1},
        {"Standard deviations of the results", 0},
        {"Standard point errors", 0},
        {"   name   sx   sy   sz", 0},
        {"  ST1   0.00101   0.00102   0.00103", 0},
        {"        0.00104   0.00105   45.6", 0},
        {"   this line is skipped", 0},
        {"  NOBODY   9   9   9", 0},
        {"        9   9   9", 0},
        {"   9", 0},
        {"  P1   0.00201   0.00202   0.00203", 0},
        {"        0.00204   0.00205   46.7   words behind", 0},
        {"", 0},
        {"", 1},
        {"end of listing", 1},
    };
    return lines;
}

inline std::vector<std::string> GoodListingLines(std::size_t count) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < count; ++i)
        lines.emplace_back(GoodListing()[i].Text);
    return lines;
}
inline std::vector<std::string> GoodListingLines() {
    return GoodListingLines(GoodListing().size());
}

/// Writes a listing without waiting for the disk, for tests that write many.
inline void PutListing(const std::string& folder, const std::string& name, const std::string& content) {
    MakeFolders(folder);
    std::ofstream file(Drives::HostPath(folder + name), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
}

}  // namespace Dorvane::Testing
