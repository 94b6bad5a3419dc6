// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "krenn/Model.h"
#include "krenn/PlanFrame.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// x' = s (x cos a + y sin a) + tx, y' = s (-x sin a + y cos a) + ty; y is turned over before for a mirror
// image.
struct Similarity {
    double turn = 0;
    double scale = 1;
    Place shift{};
    bool isMirrored = false;

    Place operator()(const Place& place) const {
        const double x = place[0];
        const double y = isMirrored ? -place[1] : place[1];
        return {scale * (x * std::cos(turn) + y * std::sin(turn)) + shift[0],
                scale * (-x * std::sin(turn) + y * std::cos(turn)) + shift[1]};
    }
};

Place MeanOf(const std::vector<Place>& places) {
    Place mean{};
    for (const Place& place : places) {
        mean[0] += place[0] / static_cast<double>(places.size());
        mean[1] += place[1] / static_cast<double>(places.size());
    }
    return mean;
}

void ShiftOnto(Similarity& similarity, const Place& from, const Place& to) {
    similarity.shift = {};
    const Place moved = similarity(from);
    similarity.shift = {to[0] - moved[0], to[1] - moved[1]};
}

// The least-squares similarity of two lists of places, after Helmert; with `keepsScale` the scale is 1.
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

double MisfitOf(const Similarity& similarity, const std::vector<Place>& from, const std::vector<Place>& to) {
    double sum = 0;
    for (std::size_t i = 0; i < from.size(); ++i)
        sum += DistanceTo(similarity(from[i]), to[i]);
    return sum;
}

bool HasOrientation(const PlanFrame& frame) {
    return std::any_of(frame.isOriented.begin(), frame.isOriented.end(), [](char c) { return c != 0; });
}

}  // namespace

bool MergeFrames(PlanFrame& frame, const PlanSights& sights, const PlanFrame& part, bool shiftAlone) {
    std::vector<Place> from;
    std::vector<Place> to;
    double spread = 0;
    int oriented = -1;
    for (const int point : part.placed) {
        if (!frame.isPlaced[At(point)])
            continue;
        from.push_back(part.at[At(point)]);
        to.push_back(frame.at[At(point)]);
        spread = std::max(spread, DistanceTo(to.front(), to.back()));
        if (part.isOriented[At(point)] && frame.isOriented[At(point)])
            oriented = point;
    }
    if (from.empty())
        return false;
    const bool keepsScale = frame.isMetric && part.isMetric;
    Similarity similarity;
    if (from.size() >= 2 && spread > kPlumb) {
        similarity = BestSimilarity(from, to, keepsScale, false);
        if (!HasOrientation(part)) {
            const Similarity mirrored = BestSimilarity(from, to, keepsScale, true);
            if (MisfitOf(mirrored, from, to) < MisfitOf(similarity, from, to))
                similarity = mirrored;
        }
    } else if (oriented >= 0 && keepsScale) {
        similarity.turn = frame.orientation[At(oriented)] - part.orientation[At(oriented)];
        ShiftOnto(similarity, from.front(), to.front());
    } else if (shiftAlone) {
        ShiftOnto(similarity, from.front(), to.front());
    } else {
        return false;
    }
    for (const int point : part.placed) {
        if (!frame.isPlaced[At(point)])
            PlacePoint(frame, sights, point, similarity(part.at[At(point)]));
    }
    for (const int point : part.placed) {
        if (part.isOriented[At(point)] && !frame.isOriented[At(point)])
            OrientStation(frame, sights, point, part.orientation[At(point)] + similarity.turn);
    }
    return true;
}

}  // namespace Krenn
