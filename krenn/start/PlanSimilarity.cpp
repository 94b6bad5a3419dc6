// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanSimilarity.h"

#include <algorithm>
#include <cmath>

#include "krenn/Mixer.h"

namespace Krenn {
namespace {

constexpr int kTrials = 150;  // half the places may be wrong: 150 pairs miss a good one once in 1e18
constexpr std::size_t kMostJudges = 500;
constexpr double kInlier = 4;  // times the median miss

Place MeanOf(const std::vector<Place>& places) {
    Place mean{};
    for (const Place& place : places) {
        mean[0] += place[0] / static_cast<double>(places.size());
        mean[1] += place[1] / static_cast<double>(places.size());
    }
    return mean;
}

double SpreadOf(const std::vector<Place>& places) {
    double spread = 0;
    for (const Place& place : places)
        spread = std::max(spread, DistanceTo(places.front(), place));
    return spread;
}

// Of many places a part is enough to judge by.
double MedianMiss(const Similarity& similarity, const std::vector<Place>& from,
                  const std::vector<Place>& to) {
    const std::size_t step = from.size() / kMostJudges + 1;
    std::vector<double> misses;
    for (std::size_t i = 0; i < from.size(); i += step)
        misses.push_back(DistanceTo(similarity(from[i]), to[i]));
    // Two of three places can always be met when only two have to be.
    const std::size_t rank = std::min(misses.size() - 1, std::max<std::size_t>(misses.size() / 2, 2));
    std::nth_element(misses.begin(), misses.begin() + static_cast<std::ptrdiff_t>(rank), misses.end());
    return misses.size() == 3 ? misses[1] : misses[rank];
}

Similarity OfInliers(const Similarity& start, const std::vector<Place>& from, const std::vector<Place>& to,
                     bool keepsScale, double median) {
    std::vector<Place> inFrom;
    std::vector<Place> inTo;
    const double bound = kInlier * median + 1e-9;
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (DistanceTo(start(from[i]), to[i]) > bound)
            continue;
        inFrom.push_back(from[i]);
        inTo.push_back(to[i]);
    }
    if (inFrom.size() < 2 || SpreadOf(inFrom) <= 0)
        return start;
    return BestSimilarity(inFrom, inTo, keepsScale, start.isMirrored);
}

}  // namespace

double MedianOf(std::vector<double> numbers) {
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>((numbers.size() - 1) / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

Place Similarity::operator()(const Place& place) const {
    const double x = place[0];
    const double y = isMirrored ? -place[1] : place[1];
    return {scale * (x * std::cos(turn) + y * std::sin(turn)) + shift[0],
            scale * (-x * std::sin(turn) + y * std::cos(turn)) + shift[1]};
}

void ShiftOnto(Similarity& similarity, const Place& from, const Place& to) {
    similarity.shift = {};
    const Place moved = similarity(from);
    similarity.shift = {to[0] - moved[0], to[1] - moved[1]};
}

Similarity BestSimilarity(const std::vector<Place>& from, const std::vector<Place>& to, bool keepsScale,
                          bool isMirrored) {
    const Place fromMean = MeanOf(from);
    const Place toMean = MeanOf(to);
    double along = 0;
    double across = 0;
    double square = 0;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const double x = from[i][0] - fromMean[0];
        const double y = (from[i][1] - fromMean[1]) * (isMirrored ? -1 : 1);
        const double u = to[i][0] - toMean[0];
        const double v = to[i][1] - toMean[1];
        along += u * x + v * y;
        across += u * y - v * x;
        square += x * x + y * y;
    }
    Similarity similarity;
    similarity.isMirrored = isMirrored;
    similarity.turn = std::atan2(across, along);
    similarity.scale = keepsScale || square <= 0 ? 1.0 : std::hypot(along, across) / square;
    ShiftOnto(similarity, fromMean, toMean);
    return similarity;
}

std::optional<Similarity> RobustSimilarity(const std::vector<Place>& from, const std::vector<Place>& to,
                                           bool keepsScale, bool mayMirror) {
    if (from.size() < 2 || SpreadOf(from) < 1e-3 || SpreadOf(to) < 1e-3)
        return std::nullopt;
    Similarity best = BestSimilarity(from, to, keepsScale, false);
    double bestMedian = from.size() == 2 ? 0 : MedianMiss(best, from, to);
    if (from.size() == 2)
        return best;
    Mixer mixer;
    const std::size_t pairs = from.size() * (from.size() - 1) / 2;
    for (std::size_t trial = 0, i = 0, k = 1; trial < std::min<std::size_t>(pairs, kTrials); ++trial) {
        if (pairs > kTrials) {
            i = mixer.Below(from.size());
            k = mixer.Below(from.size());
        }
        const double length = DistanceTo(from[i], from[k]);
        for (const bool isMirrored : {false, true}) {
            if ((isMirrored && !mayMirror) || length <= 1e-3)
                continue;
            const Similarity trialFit =
                BestSimilarity({from[i], from[k]}, {to[i], to[k]}, keepsScale, isMirrored);
            const double median = MedianMiss(trialFit, from, to);
            if (median < bestMedian) {
                bestMedian = median;
                best = trialFit;
            }
        }
        if (++k >= from.size() && pairs <= kTrials) {
            ++i;
            k = i + 1;
        }
    }
    if (mayMirror) {
        const Similarity mirrored = BestSimilarity(from, to, keepsScale, true);
        if (MedianMiss(mirrored, from, to) < bestMedian)
            best = mirrored;
    }
    const Similarity better = OfInliers(best, from, to, keepsScale, MedianMiss(best, from, to));
    return MedianMiss(better, from, to) <= 2 * MedianMiss(best, from, to) + 1e-9 ? better : best;
}

}  // namespace Krenn
