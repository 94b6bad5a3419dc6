// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/LineReader.h"
#include "programs/fieldbook/ProtocolText.h"

// A total-station field book: set-ups and their sights in the order of the book. Angles in gons, lengths in
// meters.
namespace Dorvane {

/// One pointing. Face 1 has zenith angles up to 200 gons, face 2 those above.
struct Sight {
    long Line = 0;  // of its file
    std::string Target;
    double Direction = 0;            // of the horizontal circle, 0 to 400
    double Zenith = 0;               // 0 to 400
    std::optional<double> Distance;  // slope, from the tilting axis to the target
    double InstrumentHeight = 0;
    double TargetHeight = 0;

    int Face() const { return Zenith <= 200 ? 1 : 2; }
};

struct StationSetUp {
    std::string Station;
    std::string File;  // without its folder
    long Line = 0;     // of the block that opens it
    std::vector<Sight> Sights;
};

/// What one file held, by lines; Unreadable counts lines of which nothing was used.
struct FileCount {
    std::string File;
    long Lines = 0;
    long SetUps = 0;
    long Sights = 0;
    long Codes = 0;   // code blocks that open no set-up
    long Others = 0;  // lines of other words, as coordinates
    long Unreadable = 0;
};

struct FieldBook {
    std::vector<StationSetUp> SetUps;
    std::vector<FileCount> Files;
    std::vector<Remark> Unreadable;
    std::vector<Remark> Warnings;
};

/// Reads one GSI file behind what the book holds already. A block of word 41 with code 21 opens a set-up:
/// word 42 is its station, word 43 the instrument height (none: 0, with a warning, unless sights bring word
/// 88). A line of words 11, 21 and 22 is a sight; word 31 its slope distance (0 is none), 87 its target
/// height, 88 an instrument height for this sight. Without a readable word 87 the height holds, with a
/// warning, that was read in the set-up with the target's nearest earlier sight, else with its next later
/// one, else with the nearest earlier sight to any target; else 0. A line that cannot be read is named with
/// its number, and the rest goes on; so is each damaged word in a line of which the rest serves.
void ReadGsiBook(FieldBook& book, const std::string& file, LineReader& reader);

}  // namespace Dorvane
