// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/SpaceFrame.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>

#include "krenn/start/Attitude.h"
#include "krenn/start/PlanSimilarity.h"
#include "krenn/start/SpaceMotion.h"
#include "krenn/start/SpaceResection.h"

namespace Krenn {
namespace {

constexpr double kLeastSine = 0.02;  // of two rays; flatter ones do not place a point

using Vector = Eigen::Vector3d;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// Points in a coordinate system of their own.
struct Body {
    int part;
    std::vector<int> points;
    std::vector<Vector> at;

    std::optional<Vector> Find(int point) const {
        const auto found = std::find(points.begin(), points.end(), point);
        if (found == points.end())
            return std::nullopt;
        return at[static_cast<std::size_t>(found - points.begin())];
    }
};

struct Space {
    const Structure& structure;
    State& state;
    KnownPlaces& known;
    std::vector<std::vector<TiltedSight>> sights;             // per set-up; none in parts not wanted
    std::map<std::pair<int, int>, std::vector<double>> legs;  // slope distances of a pair, lower point first
    std::vector<Body> bodies;                                 // of single set-ups, kept for the vote
    std::vector<Body> waiting;                                // not yet moved into the network
    std::vector<int> placed;

    bool IsKnown(int point) const { return known.plan[At(point)] && known.height[At(point)]; }
    Vector Of(int point) const { return Vector(state.at[At(point)].data()); }
    void Set(int point, const Vector& at) { state.at[At(point)] = {at(0), at(1), at(2)}; }
    void Place(int point, const Vector& at) {
        Set(point, at);
        known.plan[At(point)] = known.height[At(point)] = 1;
        placed.push_back(point);
    }
    std::optional<double> Length(int a, int b) const {
        const auto found = legs.find(std::minmax(a, b));
        if (found == legs.end())
            return std::nullopt;
        return MedianOf(found->second);
    }
};

void GatherLegs(Space& space, const std::vector<char>& isWanted) {
    for (std::size_t setup = 0; setup < space.sights.size(); ++setup) {
        const int station = space.structure.setups[setup].point;
        if (!isWanted[At(space.structure.roles[At(station)].part)])
            space.sights[setup].clear();
        for (const TiltedSight& sight : space.sights[setup])
            space.legs[std::minmax(station, sight.to)];
    }
    for (const Measure& measure : space.structure.measures) {
        if (measure.kind != MeasureKind::SlopeDistance)
            continue;
        const auto found = space.legs.find(std::minmax(measure.from, measure.to));
        if (found != space.legs.end())
            found->second.push_back(measure.value);
    }
    std::erase_if(space.legs, [](const auto& leg) { return leg.second.empty(); });
}

void MakeBodies(Space& space) {
    for (std::size_t setup = 0; setup < space.sights.size(); ++setup) {
        const int station = space.structure.setups[setup].point;
        Body body{space.structure.roles[At(station)].part, {station}, {Vector::Zero()}};
        for (const TiltedSight& sight : space.sights[setup]) {
            const auto length = space.Length(station, sight.to);
            if (!length || body.Find(sight.to))
                continue;
            body.points.push_back(sight.to);
            body.at.push_back(*length * sight.seen);
        }
        if (body.points.size() >= 2)
            space.bodies.push_back(std::move(body));
    }
    space.waiting = space.bodies;
}

Eigen::Matrix3Xd Columns(const std::vector<Vector>& vectors) {
    Eigen::Matrix3Xd columns(3, static_cast<Eigen::Index>(vectors.size()));
    for (std::size_t i = 0; i < vectors.size(); ++i)
        columns.col(static_cast<Eigen::Index>(i)) = vectors[i];
    return columns;
}

std::optional<Motion> MotionInto(const Space& space, const Body& body) {
    std::vector<Vector> from;
    std::vector<Vector> to;
    for (std::size_t i = 0; i < body.points.size(); ++i) {
        if (!space.IsKnown(body.points[i]))
            continue;
        from.push_back(body.at[i]);
        to.push_back(space.Of(body.points[i]));
    }
    return RobustMotion(Columns(from), Columns(to));
}

std::size_t CountKnown(const Space& space, const Body& body) {
    return static_cast<std::size_t>(std::count_if(body.points.begin(), body.points.end(),
                                                  [&](int point) { return space.IsKnown(point); }));
}

// Moves the waiting frame with the most known points into the network.
bool AttachBody(Space& space) {
    std::vector<std::pair<std::size_t, std::size_t>> order;
    for (std::size_t i = 0; i < space.waiting.size(); ++i) {
        const std::size_t count = CountKnown(space, space.waiting[i]);
        if (count >= 3)
            order.emplace_back(count, space.waiting.size() - i);
    }
    std::sort(order.rbegin(), order.rend());
    for (const auto& [count, fromEnd] : order) {
        const auto chosen = space.waiting.end() - static_cast<std::ptrdiff_t>(fromEnd);
        const auto motion = MotionInto(space, *chosen);
        if (!motion)
            continue;
        for (std::size_t i = 0; i < chosen->points.size(); ++i) {
            if (!space.IsKnown(chosen->points[i]))
                space.Place(chosen->points[i], (*motion)(chosen->at[i]));
        }
        space.waiting.erase(chosen);
        return true;
    }
    return false;
}

bool JoinInto(Body& body, const Body& other) {
    std::vector<Vector> from;
    std::vector<Vector> to;
    for (std::size_t i = 0; i < other.points.size(); ++i) {
        if (const auto at = body.Find(other.points[i])) {
            from.push_back(other.at[i]);
            to.push_back(*at);
        }
    }
    const auto motion = RobustMotion(Columns(from), Columns(to));
    if (!motion)
        return false;
    for (std::size_t i = 0; i < other.points.size(); ++i) {
        if (body.Find(other.points[i]))
            continue;
        body.points.push_back(other.points[i]);
        body.at.push_back((*motion)(other.at[i]));
    }
    return true;
}

bool JoinBodies(Space& space) {
    for (std::size_t i = 0; i < space.waiting.size(); ++i) {
        for (std::size_t k = i + 1; k < space.waiting.size(); ++k) {
            if (space.waiting[i].part != space.waiting[k].part ||
                !JoinInto(space.waiting[i], space.waiting[k]))
                continue;
            space.waiting.erase(space.waiting.begin() + static_cast<std::ptrdiff_t>(k));
            return true;
        }
    }
    return false;
}

// The rotation from the network into a set-up on a known point, from at least two sights to known points.
std::optional<Eigen::Matrix3d> RotationOf(const Space& space, std::size_t setup) {
    const int station = space.structure.setups[setup].point;
    if (!space.IsKnown(station))
        return std::nullopt;
    std::vector<Vector> lies;
    std::vector<Vector> seen;
    double widest = 0;
    for (const TiltedSight& sight : space.sights[setup]) {
        const Vector to = space.Of(sight.to) - space.Of(station);
        if (!space.IsKnown(sight.to) || to.norm() < kPlumb)
            continue;
        lies.push_back(to.normalized());
        seen.push_back(sight.seen);
        widest = std::max(widest, seen.front().cross(seen.back()).norm());
    }
    if (widest < kLeastSine)
        return std::nullopt;
    return RotationBetween(Columns(lies), Columns(seen));
}

struct SpaceRay {
    Vector from;
    Vector along;
    std::optional<double> length;
};

// Where a new point lies: the polar sight, or the crossing of two rays, that the rays pass nearest.
std::optional<Vector> PlaceOnRays(const std::vector<SpaceRay>& rays) {
    std::vector<Vector> candidates;
    for (std::size_t i = 0; i < rays.size(); ++i) {
        if (rays[i].length)
            candidates.push_back(rays[i].from + *rays[i].length * rays[i].along);
        for (std::size_t k = i + 1; k < rays.size(); ++k) {
            const Vector normal = rays[i].along.cross(rays[k].along);
            if (normal.norm() < kLeastSine)
                continue;
            const Vector base = rays[k].from - rays[i].from;
            const double s = base.cross(rays[k].along).dot(normal) / normal.squaredNorm();
            const double t = base.cross(rays[i].along).dot(normal) / normal.squaredNorm();
            if (s > 0 && t > 0)
                candidates.push_back(0.5 *
                                     (rays[i].from + s * rays[i].along + rays[k].from + t * rays[k].along));
        }
    }
    std::optional<Vector> best;
    double least = INFINITY;
    for (const Vector& candidate : candidates) {
        double miss = 0;
        for (const SpaceRay& ray : rays) {
            const Vector to = candidate - ray.from;
            miss += std::min(0.05, (to.normalized() - ray.along).norm());
            if (ray.length)
                miss += std::min(0.05, std::abs(to.norm() - *ray.length) / *ray.length);
        }
        if (miss < least) {
            least = miss;
            best = candidate;
        }
    }
    return best;
}

bool PlaceByRays(Space& space) {
    std::map<int, std::vector<SpaceRay>> rays;
    for (std::size_t setup = 0; setup < space.sights.size(); ++setup) {
        if (space.sights[setup].empty())
            continue;
        const auto rotation = RotationOf(space, setup);
        if (!rotation)
            continue;
        const int station = space.structure.setups[setup].point;
        for (const TiltedSight& sight : space.sights[setup]) {
            if (!space.IsKnown(sight.to))
                rays[sight.to].push_back(
                    {space.Of(station), rotation->transpose() * sight.seen, space.Length(station, sight.to)});
        }
    }
    bool any = false;
    for (const auto& [point, ofPoint] : rays) {
        if (const auto at = PlaceOnRays(ofPoint)) {
            space.Place(point, *at);
            any = true;
        }
    }
    return any;
}

bool ResectStation(Space& space) {
    for (std::size_t setup = 0; setup < space.sights.size(); ++setup) {
        const int station = space.structure.setups[setup].point;
        if (space.IsKnown(station))
            continue;
        std::vector<Vector> points;
        std::vector<Vector> seen;
        for (const TiltedSight& sight : space.sights[setup]) {
            if (!space.IsKnown(sight.to))
                continue;
            points.push_back(space.Of(sight.to));
            seen.push_back(sight.seen);
        }
        if (const auto at = ResectInSpace(Columns(points), Columns(seen))) {
            space.Place(station, *at);
            return true;
        }
    }
    return false;
}

bool StartPart(Space& space) {
    for (auto body = space.waiting.begin(); body != space.waiting.end(); ++body) {
        const auto& roles = space.structure.roles;
        bool hasKnown = false;
        for (std::size_t i = 0; i < roles.size(); ++i)
            hasKnown |= roles[i].part == body->part && space.known.plan[i];
        if (hasKnown)
            continue;
        for (std::size_t i = 0; i < body->points.size(); ++i)
            space.Place(body->points[i], body->at[i]);
        space.waiting.erase(body);
        return true;
    }
    return false;
}

// Puts each placed point where the frames that hold it want it most: at the prediction with the least sum of
// distances to the others.
void Vote(Space& space) {
    std::map<int, std::vector<Vector>> wishes;
    for (const Body& body : space.bodies) {
        const auto motion = MotionInto(space, body);
        for (std::size_t i = 0; motion && i < body.points.size(); ++i)
            wishes[body.points[i]].push_back((*motion)(body.at[i]));
    }
    for (const int point : space.placed) {
        const auto& ofPoint = wishes[point];
        double least = INFINITY;
        for (const Vector& wish : ofPoint) {
            double sum = 0;
            for (const Vector& other : ofPoint)
                sum += (other - wish).norm();
            if (ofPoint.size() >= 3 && sum < least) {
                least = sum;
                space.Set(point, wish);
            }
        }
    }
}

}  // namespace

bool PlaceInSpace(const Structure& structure, const std::vector<char>& isWanted, bool mayStart, State& state,
                  KnownPlaces& known) {
    Space space{structure, state, known, GatherTiltedSights(structure), {}, {}, {}, {}};
    GatherLegs(space, isWanted);
    MakeBodies(space);
    while (AttachBody(space) || PlaceByRays(space) || ResectStation(space) ||
           (mayStart && StartPart(space)) || JoinBodies(space)) {
    }
    Vote(space);
    Vote(space);
    return !space.placed.empty();
}

}  // namespace Krenn
