// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Krenn {

// How the instruments stand: all levelled, with one orientation a set-up, or those whose distances bear the
// tracker mark not levelled, with three rotations a set-up.
enum class TrackerModel { Levelled, Rotations };

// What a set-up of a levelled instrument, or of a tracker, is: all its rows on a point; each unbroken block
// of rows of one point under "Observations"; or such a block up to the row that sights a target again.
enum class SetupRule { Station, Block, Set };

enum class RefractionModel { Off, Given, Estimated };

// Parts of a network that nothing connects: adjusted each with its own datum, or refused with their names.
enum class PartsRule { Adjust, Refuse };

// The points that inner constraints run over.
enum class DatumRule { Given, All };

enum class Tails { One, Two };

// What the parameter file sets. One plain struct; each default is the value of a file that says nothing.
struct Parameters {
    // Observations that take part, by kind.
    bool directions = true;
    bool zenithAngles = true;
    bool distances = true;
    bool heightDifferences = true;

    // Model.
    TrackerModel tracker = TrackerModel::Levelled;
    SetupRule setups = SetupRule::Station;
    bool scale = false;      // scale of each distance meter is an unknown
    bool zeroPoint = false;  // zero point of each distance meter is an unknown
    RefractionModel refraction = RefractionModel::Off;
    double refractionCoefficient = 0.13;  // k, with RefractionModel::Given; the start value when estimated
    bool curvature = false;

    // Datum.
    PartsRule parts = PartsRule::Adjust;
    DatumRule datum = DatumRule::Given;

    // Iterations.
    int mostIterations = 50;
    double largestCorrection = 1e-6;  // meters; the iterations end when no coordinate moves by more

    // Tests. Probabilities are parts of 1.
    double confidence = 0.95;          // of the wide ellipses
    double globalRisk = 0.05;          // of the test of m0
    Tails globalTails = Tails::Two;    // the side or sides on which it refuses
    double localRisk = 0.001;          // of the test of one observation
    Tails localTails = Tails::Two;     // an error of known sign or of any
    double power = 0.8;                // of the tests, for the reliability
    bool posteriori = true;            // standard deviations are scaled with m0
    double correlationWarning = 0.98;  // unknowns that correlate by more are named
    double allowedConstant = 0.005;    // meters; a relative ellipse may have this half axis
    double allowedPerLength = 10e-6;   // and this part of the distance

    int threads = 0;  // 0: one a core; the results do not depend on it
};

}  // namespace Krenn
