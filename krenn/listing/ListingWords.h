// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "krenn/adjust/Statistics.h"

namespace Krenn {

const char* KindName(MeasureKind kind);

// An observation in words: kind, names and line of the input file.
std::string Describe(const Network& network, const Measure& measure);

// Unit of residuals: milligons or millimeters, and the factor to it from radians or meters.
bool IsAngle(MeasureKind kind);
double ResidualUnit(MeasureKind kind);
const char* ResidualUnitName(MeasureKind kind);

// The error that an observation is suspected of, radians or meters: -v / r, or -v without redundancy numbers.
double SuspectedError(const Adjustment& adjustment, const Statistics& statistics, std::size_t measure);

std::string Capitalised(std::string sentence);

// A part of 1 as a percentage with as few digits as it needs: "95 %", "0.1 %".
std::string Percent(double part);

// A probability with three digits; "below 1e-16" where digits would promise too much.
std::string Probability(double probability);

const char* TailsName(Tails tails);

// Width of a column of names: the longest name, within reason, and a blank.
int NameWidth(const Network& network);

}  // namespace Krenn
