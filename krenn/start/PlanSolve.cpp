// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanSolve.h"

#include <algorithm>
#include <numeric>

#include "krenn/Mixer.h"
#include "krenn/start/PlanRays.h"

namespace Krenn {
namespace {

constexpr std::size_t kMostFrames = 200;
constexpr double kFreeBase = 100;  // meters between the first two points of a frame without any distance

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

struct Seed {
    int first = -1;
    int second = -1;
    int setup = -1;
    double length = 0;   // 0: no distance, the frame gets an arbitrary scale
    double reading = 0;  // direction from first to second
};

// The polar sights of a set-up as seeds; without `wantsDistance` all its directions.
std::vector<Seed> SeedsOf(const PlanSights& sights, int setup, bool wantsDistance) {
    std::vector<Seed> seeds;
    const int station = sights.station[At(setup)];
    for (const PlanSights::Sight& sight : sights.out[At(setup)]) {
        const auto length = wantsDistance ? LengthBetween(sights, station, sight.other) : std::nullopt;
        if (length || !wantsDistance)
            seeds.push_back({station, sight.other, setup, length.value_or(0), sight.reading});
    }
    return seeds;
}

// The best start of a new frame among points that no frame holds: the set-up with the most polar sights, or
// with a variant any that has half as many, else two points with a distance, else a station and a target.
Seed FindSeed(const PlanSights& sights, const std::vector<char>& isCovered, bool wantsDistance,
              unsigned variant) {
    std::vector<std::size_t> counts(At(sights.Setups()), 0);
    for (int setup = 0; setup < sights.Setups(); ++setup) {
        if (!isCovered[At(sights.station[At(setup)])])
            counts[At(setup)] = SeedsOf(sights, setup, wantsDistance).size();
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    if (most != counts.end() && *most > 0) {
        auto chosen = most - counts.begin();
        std::size_t sight = 0;
        if (variant > 0) {
            Mixer mixer{variant};
            std::vector<std::ptrdiff_t> good;
            for (std::size_t i = 0; i < counts.size(); ++i) {
                if (2 * counts[i] >= *most)
                    good.push_back(static_cast<std::ptrdiff_t>(i));
            }
            chosen = good[mixer.Below(good.size())];
            sight = mixer.Below(counts[static_cast<std::size_t>(chosen)]);
        }
        return SeedsOf(sights, static_cast<int>(chosen), wantsDistance)[sight];
    }
    if (!wantsDistance)
        return {};
    for (int i = 0; i < sights.Points(); ++i) {
        const int point = (i + static_cast<int>(variant)) % sights.Points();
        if (isCovered[At(point)] || sights.legs[At(point)].empty())
            continue;
        const PlanSights::Leg& leg = sights.legs[At(point)].front();
        return {point, leg.other, -1, leg.length, 0};
    }
    return {};
}

PlanFrame FrameFrom(const PlanSights& sights, const Seed& seed) {
    PlanFrame frame(sights.Points(), sights.Setups());
    frame.isMetric = seed.length > 0;
    frame.isFree = true;
    PlacePoint(frame, sights, seed.first, {0, 0});
    if (seed.setup >= 0)
        OrientSetup(frame, sights, seed.setup, 0);
    PlacePoint(frame, sights, seed.second,
               PolarFrom({0, 0}, seed.reading, frame.isMetric ? seed.length : kFreeBase), seed.first);
    GrowFrame(frame, sights, Strictness::Weak);
    return frame;
}

bool JoinFrames(std::vector<PlanFrame>& frames, const PlanSights& sights, bool shiftAlone) {
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::size_t j = i + 1; j < frames.size(); ++j) {
            // The frame of the known points keeps its place; of two free ones the one that knows its scale
            // does.
            if (frames[i].isFree && !frames[i].isMetric && frames[j].isMetric)
                std::swap(frames[i], frames[j]);
            if (!MergeFrames(frames[i], sights, frames[j], shiftAlone && i == 0))
                continue;
            frames.erase(frames.begin() + static_cast<std::ptrdiff_t>(j));
            GrowFrame(frames[i], sights, Strictness::Weak);
            return true;
        }
    }
    return false;
}

bool IsComplete(const std::vector<PlanFrame>& frames, const PlanSights& sights) {
    return !frames.empty() && frames.front().placed.size() == At(sights.Points());
}

bool AddFrame(std::vector<PlanFrame>& frames, const PlanSights& sights, unsigned variant) {
    if (frames.size() >= kMostFrames)
        return false;
    std::vector<char> isCovered(At(sights.Points()), 0);
    for (const PlanFrame& frame : frames) {
        for (const int point : frame.placed)
            isCovered[At(point)] = 1;
    }
    Seed seed = FindSeed(sights, isCovered, true, variant);
    if (seed.first < 0)
        seed = FindSeed(sights, isCovered, false, variant);
    if (seed.first < 0)
        return false;
    frames.push_back(FrameFrom(sights, seed));
    return true;
}

bool GrowAmbiguous(std::vector<PlanFrame>& frames, const PlanSights& sights) {
    return std::any_of(frames.begin(), frames.end(),
                       [&](PlanFrame& frame) { return GrowFrame(frame, sights, Strictness::Ambiguous); });
}

PlanFrame KnownFrame(const PlanSights& sights, const PlanTask& task) {
    PlanFrame frame(sights.Points(), sights.Setups());
    std::vector<int> order(At(sights.Points()));
    std::iota(order.begin(), order.end(), 0);
    if (task.variant > 0) {
        Mixer mixer{task.variant};
        for (std::size_t i = order.size(); i > 1; --i)
            std::swap(order[i - 1], order[mixer.Below(i)]);
    }
    for (const int point : order) {
        if (task.known[At(point)])
            PlacePoint(frame, sights, point, *task.known[At(point)]);
    }
    GrowFrame(frame, sights, Strictness::Weak);
    return frame;
}

std::vector<char> HeldOf(const PlanTask& task) {
    std::vector<char> isHeld;
    for (const auto& known : task.known)
        isHeld.push_back(known ? 1 : 0);
    return isHeld;
}

}  // namespace

PlanSolution SolvePlan(const PlanSights& sights, const PlanTask& task) {
    std::vector<PlanFrame> frames;
    bool usedGuess = false;
    const std::vector<char> isHeld = HeldOf(task);
    const bool hasKnown = std::find(isHeld.begin(), isHeld.end(), 1) != isHeld.end();
    if (hasKnown)
        frames.push_back(KnownFrame(sights, task));
    bool triedRays = false;
    while (!IsComplete(frames, sights)) {
        if (JoinFrames(frames, sights, false) || AddFrame(frames, sights, task.variant))
            continue;
        if (!triedRays) {
            triedRays = true;
            for (PlanFrame& frame : FramesOfRays(sights))
                frames.push_back(std::move(frame));
            continue;
        }
        if (task.mayGuess && GrowAmbiguous(frames, sights)) {
            usedGuess = true;
            continue;
        }
        if (!(task.mayGuess && hasKnown && JoinFrames(frames, sights, true)))
            break;
    }
    if (frames.empty())
        frames.emplace_back(sights.Points(), sights.Setups());
    if (!hasKnown)
        std::stable_sort(frames.begin(), frames.end(), [](const PlanFrame& a, const PlanFrame& b) {
            return a.placed.size() > b.placed.size();
        });
    SettleFrame(frames.front(), sights, isHeld);
    return {std::move(frames.front()), usedGuess};
}

}  // namespace Krenn
