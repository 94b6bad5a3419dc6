// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/krenn/RandomNetwork.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace KrennTest {
namespace {

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
    std::mt19937 random(spec.seed);
    std::uniform_real_distribution<double> unit(0, 1);
    std::normal_distribution<double> normal(0, 1);
    RandomNetwork network;
    for (int i = 0; i < spec.points; ++i) {
        const std::string name = (i < spec.stations ? "S" : "P") + std::to_string(i + 1);
        network.names.push_back(name);
        network.truth[name] = {1000 * unit(random), 1000 * unit(random), 60 * unit(random)};
    }
    for (int i = 0; i < spec.points; ++i) {
        const std::string& name = network.names[static_cast<std::size_t>(i)];
        const auto& at = network.truth[name];
        const bool isGiven = i >= spec.points - spec.given;
        const bool isFixed = i >= spec.points - spec.fixed;
        const double noise = isFixed ? 0 : spec.startNoise;
        const double dx = noise * normal(random);
        const double dy = noise * normal(random);
        const double dz = noise * normal(random);
        network.text.points.push_back(isGiven ? InputText::Given(name, at[0] + dx, at[1] + dy, at[2] + dz)
                                              : InputText::Named(name));
        if (isFixed)
            network.text.fixed.push_back(name);
    }
    for (int s = 0; s < spec.stations; ++s) {
        const std::string& station = network.names[static_cast<std::size_t>(s)];
        const auto& from = network.truth[station];
        const double zero = 400 * unit(random);
        if (spec.dimension != 1)
            network.text.stations.push_back(InputText::Named(station));
        for (const int t : TargetsOf(s, spec, random)) {
            const std::string& target = network.names[static_cast<std::size_t>(t)];
            const auto& to = network.truth[target];
            if (spec.dimension == 1) {
                network.text.Height(station, target,
                                    to[2] - from[2] + spec.noise * spec.heightSigma * normal(random),
                                    spec.heightSigma);
                continue;
            }
            const double length = spec.dimension == 2 ? PlanLength(from, to) : SlopeLength(from, to);
            if (spec.distances)
                network.text.Distance(station, target,
                                      length + spec.noise * spec.distanceSigma * normal(random),
                                      spec.distanceSigma);
            const double zenith = spec.dimension == 2 ? 0.0
                                                      : ZenithGons(from, to) +
                                                            spec.noise * spec.directionSigma * normal(random);
            if (spec.directions)
                network.text.Angles(
                    station, target,
                    Circle(AzimuthGons(from, to) - zero + spec.noise * spec.directionSigma * normal(random)),
                    zenith, spec.directionSigma);
        }
    }
    return network;
}

}  // namespace KrennTest
