// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <random>

#include "krenn/Network.h"
#include "tests/krenn/InputText.h"

namespace KrennTest {

using Places = std::map<std::string, std::array<double, 3>>;

struct NetworkSpec {
    unsigned seed = 1;
    int dimension = 3;
    int stations = 5;  // the first points are stations
    int points = 9;    // all points
    int sightsPerStation = 6;
    double size = 1000;       // side of the square that the points lie in, meters
    double relief = 60;       // range of heights, meters
    double noise = 1;         // observation noise in units of the standard errors
    double startNoise = 0.5;  // meters on given coordinates
    int given = 9;            // how many of the points have coordinates
    int fixed = 0;            // how many of the given ones are fixed, exactly
    bool distances = true;
    bool directions = true;
    double directionSigma = 0.001;  // gons
    double distanceSigma = 0.002;
    double heightSigma = 0.001;

    // Instruments as they are, in three dimensions.
    int tilted = 0;         // so many stations hold trackers in any position, upside down too
    double scale = 0;       // distances are too long by this part; those of trackers by twice as much
    double zeroPoint = 0;   // meters that distances are too long; those of trackers by half as much
    double curvature = 0;   // 1: over the curved earth
    double refraction = 0;  // coefficient k
};

// A random network over a square of a kilometer with heights within 60 m, together with its true places.
struct RandomNetwork {
    InputText text;
    Places truth;
    std::vector<std::string> names;
};

RandomNetwork MakeNetwork(const NetworkSpec& spec);

// Direction or azimuth in gons, 0 to 400; zenith angle; distances between true places.
double AzimuthGons(const std::array<double, 3>& from, const std::array<double, 3>& to);
double ZenithGons(const std::array<double, 3>& from, const std::array<double, 3>& to);
double PlanLength(const std::array<double, 3>& from, const std::array<double, 3>& to);
double SlopeLength(const std::array<double, 3>& from, const std::array<double, 3>& to);

}  // namespace KrennTest
