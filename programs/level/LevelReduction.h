// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/level/LevelBook.h"

// From set-ups to height differences between marks. Lengths in meters.
namespace Dorvane {

/// One run between two marks that follow each other in a line, or from a mark to an intersight.
struct LevelRun {
    std::string From;
    std::string To;
    double Difference = 0;         // To less From: backsights less foresights
    std::optional<double> Length;  // of its sights, when all have a distance
    double Imbalance = 0;          // backsight less foresight distances, of those known
    int SetUps = 0;
    bool Inter = false;
    std::size_t Line = 0;  // index of its line in the book
};

/// Two marks and all runs between them, in either direction.
struct LevelSection {
    std::string From;  // as in the first run
    std::string To;
    std::vector<LevelRun> Runs;
    double Mean = 0;                    // of all runs, the backward ones with their sign turned
    std::optional<double> Discrepancy;  // mean forward plus mean backward; nothing when one is missing
    std::optional<double> Length;       // mean
};

/// A line as a whole; closed when it ends on the mark where it began.
struct LevelLineSum {
    std::string Name;
    std::string File;
    std::string From;
    std::string To;
    int SetUps = 0;
    double Difference = 0;
    std::optional<double> Length;
};

struct LevelResult {
    std::vector<LevelSection> Sections;  // in the order of their first runs
    std::vector<LevelLineSum> Lines;
    /// Standard deviation of the mean of forward and backward run over 1 km, by 1/2 sqrt(sum(d^2/L)/n), d the
    /// discrepancies of the sections measured in both directions, L their lengths in km.
    std::optional<double> KilometerDeviation;
    std::vector<Remark> Warnings;
};

/// Reduces a book. A run from a turning point at the head of a line, or to one at its end, has no mark to
/// hold on and is named in the warnings.
LevelResult ReduceLevelBook(const LevelBook& book);

/// The result file's lines: from, to, height difference of each section with 5 decimals.
std::vector<std::string> LevelResLines(const LevelResult& result);

}  // namespace Dorvane
