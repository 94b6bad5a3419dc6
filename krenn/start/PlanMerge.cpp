// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "krenn/start/PlanFrame.h"
#include "krenn/start/PlanSimilarity.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

bool HasOrientation(const PlanFrame& frame) {
    return std::any_of(frame.isOriented.begin(), frame.isOriented.end(), [](char c) { return c != 0; });
}

// A point in both frames with a set-up that is oriented in both; -1 if there is none.
int SharedSetup(const PlanFrame& frame, const PlanSights& sights, const PlanFrame& part) {
    for (int setup = 0; setup < sights.Setups(); ++setup) {
        const int station = sights.station[At(setup)];
        if (frame.isOriented[At(setup)] && part.isOriented[At(setup)] && frame.isPlaced[At(station)] &&
            part.isPlaced[At(station)])
            return setup;
    }
    return -1;
}

}  // namespace

bool MergeFrames(PlanFrame& frame, const PlanSights& sights, const PlanFrame& part, bool shiftAlone) {
    std::vector<Place> from;
    std::vector<Place> to;
    for (const int point : part.placed) {
        if (!frame.isPlaced[At(point)])
            continue;
        from.push_back(part.at[At(point)]);
        to.push_back(frame.at[At(point)]);
    }
    if (from.empty())
        return false;
    const bool keepsScale = frame.isMetric && part.isMetric;
    const int shared = keepsScale && from.size() < 3 ? SharedSetup(frame, sights, part) : -1;
    Similarity similarity;
    if (const auto robust = RobustSimilarity(from, to, keepsScale, !HasOrientation(part))) {
        similarity = *robust;
    } else if (shared >= 0) {
        const int station = sights.station[At(shared)];
        similarity.turn = frame.orientation[At(shared)] - part.orientation[At(shared)];
        ShiftOnto(similarity, part.at[At(station)], frame.at[At(station)]);
    } else if (shiftAlone) {
        ShiftOnto(similarity, from.front(), to.front());
    } else {
        return false;
    }
    for (const int point : part.placed) {
        if (!frame.isPlaced[At(point)])
            PlacePoint(frame, sights, point, similarity(part.at[At(point)]));
    }
    for (int setup = 0; setup < sights.Setups(); ++setup) {
        if (part.isOriented[At(setup)] && !frame.isOriented[At(setup)]) {
            OrientSetup(frame, sights, setup, part.orientation[At(setup)] + similarity.turn);
            frame.orientedBy[At(setup)] = part.orientedBy[At(setup)];
        }
    }
    return true;
}

}  // namespace Krenn
