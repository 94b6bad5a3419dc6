// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/RandomNetwork.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace KrennTest {
namespace {

constexpr double kGons = 200 / std::numbers::pi;
constexpr double kEarth = 6372508.025;

using Place = std::array<double, 3>;

double Circle(double gons) {
    gons = std::fmod(gons, 400.0);
    return gons < 0 ? gons + 400 : gons;
}

// The targets of a station: a ring of neighbours so that the network hangs together, then random ones.
std::vector<int> TargetsOf(int station, const NetworkSpec& spec, std::mt19937& random) {
    std::vector<int> targets;
    for (int i = 0; i < spec.points; ++i) {
        if (i != station)
            targets.push_back(i);
    }
    std::shuffle(targets.begin(), targets.end(), random);
    if (static_cast<int>(targets.size()) > spec.sightsPerStation)
        targets.resize(static_cast<std::size_t>(spec.sightsPerStation));
    const int next = (station + 1) % spec.stations;
    if (next != station && std::find(targets.begin(), targets.end(), next) == targets.end())
        targets.push_back(next);
    for (int i = spec.stations + station; i < spec.points; i += spec.stations) {
        if (std::find(targets.begin(), targets.end(), i) == targets.end())
            targets.push_back(i);
    }
    return targets;
}

// What an instrument reads without errors.
struct Sight {
    double direction, zenith, distance;
};

// The sight as light takes it: the target sinks by the curvature of the earth and rises by refraction.
Eigen::Vector3d SeenAs(const Place& from, const Place& to, double sinking) {
    Eigen::Vector3d seen(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
    seen.z() -= sinking * seen.head<2>().squaredNorm() / (2 * kEarth);
    return seen;
}

Sight Read(const NetworkSpec& spec, bool isTilted, const Eigen::Matrix3d& attitude, const Place& from,
           const Place& to) {
    Sight sight{};
    const Eigen::Vector3d seen = attitude * SeenAs(from, to, spec.curvature - spec.refraction);
    sight.direction = Circle(std::atan2(seen.x(), seen.y()) * kGons);
    sight.zenith = std::atan2(seen.head<2>().norm(), seen.z()) * kGons;
    const Eigen::Vector3d along = SeenAs(from, to, spec.curvature);
    const double length = spec.dimension == 2 ? along.head<2>().norm() : along.norm();
    sight.distance = length * (1 + spec.scale * (isTilted ? 2 : 1)) + spec.zeroPoint * (isTilted ? 0.5 : 1);
    return sight;
}

struct Dice {
    std::mt19937 random;
    std::uniform_real_distribution<double> unit{0, 1};
    std::normal_distribution<double> normal{0, 1};

    double Unit() { return unit(random); }
    double Normal() { return normal(random); }
};

// Any rotation, all equally likely.
Eigen::Matrix3d AnyRotation(Dice& dice) {
    Eigen::Vector4d q;
    for (double& component : q)
        component = dice.Normal();
    return Eigen::Quaterniond(q.normalized()).toRotationMatrix();
}

bool HasPlumbSight(const NetworkSpec& spec, const Eigen::Matrix3d& attitude, const RandomNetwork& network,
                   int station, const std::vector<int>& targets) {
    const auto place = [&](int i) { return network.truth.at(network.names[static_cast<std::size_t>(i)]); };
    return std::any_of(targets.begin(), targets.end(), [&](int target) {
        const double zenith = Read(spec, true, attitude, place(station), place(target)).zenith;
        return zenith < 10 || zenith > 190;
    });
}

// Turned by `zero` about the plumb line, or in any position that sights no target near its own axis.
Eigen::Matrix3d AttitudeOf(const NetworkSpec& spec, const RandomNetwork& network, int station,
                           const std::vector<int>& targets, double zero, Dice& dice) {
    if (station >= spec.tilted)
        return Eigen::AngleAxisd(zero, Eigen::Vector3d::UnitZ()).toRotationMatrix();
    Eigen::Matrix3d attitude = AnyRotation(dice);
    while (HasPlumbSight(spec, attitude, network, station, targets))
        attitude = AnyRotation(dice);
    return attitude;
}

void AddPoints(const NetworkSpec& spec, Dice& dice, RandomNetwork& network) {
    for (int i = 0; i < spec.points; ++i) {
        const std::string name = (i < spec.stations ? "S" : "P") + std::to_string(i + 1);
        network.names.push_back(name);
        network.truth[name] = {spec.size * dice.Unit(), spec.size * dice.Unit(), spec.relief * dice.Unit()};
    }
    for (int i = 0; i < spec.points; ++i) {
        const std::string& name = network.names[static_cast<std::size_t>(i)];
        const Place& at = network.truth[name];
        const bool isGiven = i >= spec.points - spec.given;
        const bool isFixed = i >= spec.points - spec.fixed;
        const double noise = isFixed ? 0 : spec.startNoise;
        const double dx = noise * dice.Normal();
        const double dy = noise * dice.Normal();
        const double dz = noise * dice.Normal();
        network.text.points.push_back(isGiven ? InputText::Given(name, at[0] + dx, at[1] + dy, at[2] + dz)
                                              : InputText::Named(name));
        if (isFixed)
            network.text.fixed.push_back(name);
    }
}

}  // namespace

double AzimuthGons(const std::array<double, 3>& from, const std::array<double, 3>& to) {
    return Circle(std::atan2(to[0] - from[0], to[1] - from[1]) * 200 / std::numbers::pi);
}

double PlanLength(const std::array<double, 3>& from, const std::array<double, 3>& to) {
    return std::hypot(to[0] - from[0], to[1] - from[1]);
}

double SlopeLength(const std::array<double, 3>& from, const std::array<double, 3>& to) {
    return std::hypot(PlanLength(from, to), to[2] - from[2]);
}

double ZenithGons(const std::array<double, 3>& from, const std::array<double, 3>& to) {
    return std::atan2(PlanLength(from, to), to[2] - from[2]) * 200 / std::numbers::pi;
}

RandomNetwork MakeNetwork(const NetworkSpec& spec) {
    Dice dice{std::mt19937(spec.seed)};
    RandomNetwork network;
    AddPoints(spec, dice, network);
    for (int s = 0; s < spec.stations; ++s) {
        const std::string& station = network.names[static_cast<std::size_t>(s)];
        const Place& from = network.truth[station];
        const double zero = 2 * std::numbers::pi * dice.Unit();
        const std::vector<int> targets = TargetsOf(s, spec, dice.random);
        const Eigen::Matrix3d attitude = AttitudeOf(spec, network, s, targets, zero, dice);
        const bool isTilted = s < spec.tilted;
        if (spec.dimension != 1)
            network.text.stations.push_back(InputText::Named(station));
        for (const int t : targets) {
            const std::string& target = network.names[static_cast<std::size_t>(t)];
            const Place& to = network.truth[target];
            if (spec.dimension == 1) {
                network.text.Height(station, target,
                                    to[2] - from[2] + spec.noise * spec.heightSigma * dice.Normal(),
                                    spec.heightSigma);
                continue;
            }
            const Sight sight = Read(spec, isTilted, attitude, from, to);
            if (spec.distances)
                network.text.Distance(station, target,
                                      sight.distance + spec.noise * spec.distanceSigma * dice.Normal(),
                                      spec.distanceSigma, isTilted);
            const double zenith =
                spec.dimension == 2 ? 0.0 : sight.zenith + spec.noise * spec.directionSigma * dice.Normal();
            if (spec.directions)
                network.text.Angles(
                    station, target,
                    Circle(sight.direction + spec.noise * spec.directionSigma * dice.Normal()), zenith,
                    spec.directionSigma);
        }
    }
    return network;
}

}  // namespace KrennTest
