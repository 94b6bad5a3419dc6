// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Krenn {

// Probability that a chi-square value of `freedom` degrees stays below `value` (regularised incomplete gamma
// function; Abramowitz and Stegun 6.5.29 and 26.4). Freedom >= 1, value >= 0.
double ChiSquareProbability(double value, double freedom);

// Probability of a larger value than `value`: 1 minus the above, without loss of digits where it is small.
double ChiSquareExceedance(double value, double freedom);

// The value that a chi-square of `freedom` degrees stays below with `probability`, 0 < probability < 1.
double ChiSquareQuantile(double probability, double freedom);

// The value that a standard normal variable stays below with `probability`, 0 < probability < 1.
double NormalQuantile(double probability);

// Probability that a standard normal variable exceeds `value`.
double NormalExceedance(double value);

// The value that Student's t with `freedom` >= 1 degrees stays below with `probability`, 0.5 <= probability <
// 1 (regularised incomplete beta function; Abramowitz and Stegun 26.5.8 and 26.7.1).
double StudentQuantile(double probability, double freedom);

// The value that F(2, freedom) stays below with `probability`; in closed form because of the 2.
double FisherQuantileOfTwo(double probability, double freedom);

}  // namespace Krenn
