// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Distributions.h"

#include <cmath>
#include <numbers>

namespace Krenn {
namespace {

constexpr int kMostTerms = 100000;
constexpr double kSmall = 1e-15;

double LowerGammaSeries(double shape, double x) {
    double term = 1 / shape;
    double sum = term;
    for (int n = 1; n < kMostTerms && term > sum * kSmall; ++n) {
        term *= x / (shape + n);
        sum += term;
    }
    return sum * std::exp(-x + shape * std::log(x) - std::lgamma(shape));
}

// The upper function by its continued fraction, evaluated after Lentz.
double UpperGammaFraction(double shape, double x) {
    constexpr double kTiny = 1e-300;
    double b = x + 1 - shape;
    double c = 1 / kTiny;
    double d = 1 / b;
    double h = d;
    for (int n = 1; n < kMostTerms; ++n) {
        const double a = -n * (n - shape);
        b += 2;
        d = a * d + b;
        d = 1 / (std::abs(d) < kTiny ? kTiny : d);
        c = b + a / c;
        c = std::abs(c) < kTiny ? kTiny : c;
        h *= d * c;
        if (std::abs(d * c - 1) < kSmall)
            break;
    }
    return h * std::exp(-x + shape * std::log(x) - std::lgamma(shape));
}

// Wilson and Hilferty (1931).
double ChiSquareGuess(double probability, double freedom) {
    const double z = NormalQuantile(probability);
    const double k = 2 / (9 * freedom);
    const double root = 1 - k + z * std::sqrt(k);
    return root > 0 ? freedom * root * root * root : 0.0;
}

}  // namespace

double ChiSquareProbability(double value, double freedom) {
    if (value <= 0)
        return 0;
    const double shape = freedom / 2;
    const double x = value / 2;
    return x < shape + 1 ? LowerGammaSeries(shape, x) : 1 - UpperGammaFraction(shape, x);
}

double ChiSquareExceedance(double value, double freedom) {
    if (value <= 0)
        return 1;
    const double shape = freedom / 2;
    const double x = value / 2;
    return x < shape + 1 ? 1 - LowerGammaSeries(shape, x) : UpperGammaFraction(shape, x);
}

double ChiSquareQuantile(double probability, double freedom) {
    double low = 0;
    double high = ChiSquareGuess(probability, freedom) + 10 * std::sqrt(freedom) + 20;
    for (int i = 0; i < 200 && high - low > 1e-13 * high; ++i) {
        const double middle = (low + high) / 2;
        (ChiSquareProbability(middle, freedom) < probability ? low : high) = middle;
    }
    return (low + high) / 2;
}

double NormalExceedance(double value) {
    return std::erfc(value / std::numbers::sqrt2) / 2;
}

double NormalQuantile(double probability) {
    double low = -40;
    double high = 40;
    for (int i = 0; i < 200 && high - low > 1e-14; ++i) {
        const double middle = (low + high) / 2;
        (NormalExceedance(-middle) < probability ? low : high) = middle;
    }
    return (low + high) / 2;
}

double FisherQuantileOfTwo(double probability, double freedom) {
    return freedom / 2 * std::expm1(-2 / freedom * std::log1p(-probability));
}

}  // namespace Krenn
