// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "programs/editors/InputRows.h"

// What is left of an input file when rows are taken out of it.
namespace Dorvane {

enum class Fate {
    Stays,
    Taken,  // taken out by the operator
    Falls,  // goes with what was taken out
};

/// The fate of each row, from the rows that are taken out; fixed points and pairs are never taken out
/// themselves.
/// - A station takes the distances and angles observed on it with it.
/// - A point takes the distances and angles to it and its height differences with it.
/// - A name that no list holds any more takes every observation with it.
/// - The row of a fixed point goes when no list gives its coordinates any more or nothing names it, and that
///   of a pair when nothing names one of its points.
/// A name that stands in a list more than once is there as long as one of its rows is.
std::vector<Fate> Fates(const InputText& text, const std::vector<bool>& taken);

/// The file without the rows that do not stay, every other byte as it was.
std::string Remaining(const InputText& text, const std::vector<Fate>& fates);

/// The rows of stations and points that stay, and that observations name, but none that stays.
std::vector<std::size_t> UnusedRows(const InputText& text, const std::vector<Fate>& fates);

/// True when an observation stays.
bool HasObservations(const InputText& text, const std::vector<Fate>& fates);

}  // namespace Dorvane
