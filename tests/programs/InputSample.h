// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

// An adjustment input file with a row of every kind, the tagged rows and the note written with it.
namespace Dorvane::Testing {

inline const std::string SampleInput =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n"
    "\r\n"
    "  PROJECT = Dam\r\n"
    "     TASK = North\r\n"
    "     DATE = 20.11.2026 09:05:07\r\n"
    "\r\n"
    "LISTING = STATS\r\n"
    "\r\n"
    "Theodolite Stations\r\n"
    "ST1\r\n"
    "\r\n"
    "ST2            10.00000       20.00000        5.00000\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "END\r\n"
    "Object Points\r\n"
    "P7           1000.00000     2000.00000      100.00000\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "P8           1100.00000     2000.00000      101.00000\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "P9\r\n"
    "\r\n"
    "ST2\r\n"
    "\r\n"
    "END\r\n"
    "Distances \r\n"
    "ST1       P7            25.12345   0.00100   T\r\n"
    "ST1       P8            80.00000   0.00100\r\n"
    "ST2       P9            12.50000   0.00200\r\n"
    "END\r\n"
    "Height differences\r\n"
    "P7        P8           -1.25000      0.00050\r\n"
    "END\r\n"
    "Observations\r\n"
    "ST1       P7        123.45670   99.12340  0.00030 0.00040\r\n"
    "ST1       P8        223.45670   98.12340  0.00030 0.00040\r\n"
    "ST2       P8         12.00000   97.00000  0.00030 0.00040\r\n"
    "END\r\n"
    "Control Information\r\n"
    "Fixed Coordinates\r\n"
    "P7\r\n"
    "END\r\n"
    "Relative error point pairs\r\n"
    "P7        P8\r\n"
    "END\r\n";

inline const std::string SampleTaggedRows =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n"
    "STA ST1\r\n"
    "TRK ST1        P7        123.45670  0.00030 99.12340   0.00040     25.12345   0.00100\r\n"
    "TOT ST1        P8        223.45670  0.00030 98.12340   0.00040     80.00000   0.00100\r\n"
    "DST ST2        P9            12.50000   0.00200\r\n"
    "HGT P7         P8           -1.25000      0.00050\r\n"
    "ANG ST2        P8         12.00000   97.00000  0.00030 0.00040\r\n"
    "END\r\n";

inline const std::string EmptyNote =
    "[Stations]\r\n[Points]\r\n[Tracker]\r\n[Total]\r\n[Angle]\r\n[Distance]\r\n[Height]\r\n[Gyro]\r\n";

}  // namespace Dorvane::Testing
