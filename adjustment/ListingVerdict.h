// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// What the head of a listing says of the adjustment: the box "Summary", the counts under "Input", or the
/// cause of a failed run. Texts are the listing's own words.
struct ListingVerdict {
    enum class Mark { None, Good, Remark, Doubt, Failed };

    Mark Sign = Mark::None;    // None: there is no such head, and all else is empty
    std::string Result;        // "GOOD", "DOUBTFUL" ...; "RUN FAILED"
    std::string M0;            // four decimals, or "not determined"; empty for a failed run
    std::string Test;          // of m0, with its bounds; empty where there is none
    std::string Observations;  // their number
    std::string Iterations;    // likewise
    long Points = 0;           // stations and points
    std::string Doubt;         // the first doubt, or why the run failed
    int Doubts = 0;            // how many there are
    std::string When;          // date and time of the run

    bool operator==(const ListingVerdict&) const = default;
};

/// Reads the head of a listing; a banner before it is passed by. A file that is not there, or whose head is
/// not the package's, gives Mark::None. One that cannot be read is told as such in Result. Raises nothing.
ListingVerdict ReadListingVerdict(const std::string& path);

}  // namespace Dorvane
