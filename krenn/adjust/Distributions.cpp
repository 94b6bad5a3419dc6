// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Distributions.h"

#include <cmath>
#include <numbers>
#include <utility>

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

double NotZero(double value) {
    constexpr double kTiny = 1e-300;
    return std::abs(value) < kTiny ? kTiny : value;
}

// A continued fraction b0 + a1 / (b1 + a2 / (b2 + ...)), evaluated after Lentz; term(n) gives {a_n, b_n}.
template <typename Term>
double ContinuedFraction(double b0, Term term) {
    double h = NotZero(b0);
    double c = h;
    double d = 0;
    for (int n = 1; n < kMostTerms; ++n) {
        const auto [a, b] = term(n);
        d = 1 / NotZero(b + a * d);
        c = NotZero(b + a / c);
        h *= c * d;
        if (std::abs(c * d - 1) < kSmall)
            break;
    }
    return h;
}

double UpperGammaFraction(double shape, double x) {
    const double fraction = ContinuedFraction(x + 1 - shape, [&](int n) {
        return std::pair{-n * (n - shape), x + 1 - shape + 2.0 * n};
    });
    return std::exp(-x + shape * std::log(x) - std::lgamma(shape)) / fraction;
}

// I_x(a, b); converges well for x below a / (a + b).
double BetaFraction(double a, double b, double x) {
    const double fraction = ContinuedFraction(1, [&](int n) {
        const double m = n / 2;
        const double top = n % 2 == 0 ? m * (b - m) * x / ((a + n - 1) * (a + n))
                                      : -(a + m) * (a + b + m) * x / ((a + n - 1) * (a + n));
        return std::pair{top, 1.0};
    });
    const double front =
        std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) + b * std::log1p(-x));
    return front / (a * fraction);
}

// Probability that t exceeds value >= 0.
double StudentExceedance(double value, double freedom) {
    const double x = freedom / (freedom + value * value);
    const double a = freedom / 2;
    const double both = x < (a + 1) / (a + 2.5) ? BetaFraction(a, 0.5, x) : 1 - BetaFraction(0.5, a, 1 - x);
    return both / 2;
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

double StudentQuantile(double probability, double freedom) {
    double low = 0;
    double high = 1;
    while (StudentExceedance(high, freedom) > 1 - probability)
        high *= 2;
    for (int i = 0; i < 200 && high - low > 1e-14 * high; ++i) {
        const double middle = (low + high) / 2;
        (StudentExceedance(middle, freedom) > 1 - probability ? low : high) = middle;
    }
    return (low + high) / 2;
}

double FisherQuantileOfTwo(double probability, double freedom) {
    return freedom / 2 * std::expm1(-2 / freedom * std::log1p(-probability));
}

}  // namespace Krenn
