// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace Krenn {

// Where the time of a run went, in seconds of the clock on the wall.
struct Phases {
    double parse = 0;        // the input file into a Network
    double approximate = 0;  // structure, start positions
    double linearise = 0;    // datum, normal equations, residuals
    double analyse = 0;      // pattern, ordering and supernodes
    double factorise = 0;
    double solve = 0;
    double invert = 0;  // entries of the inverse, and what is made of them
    double list = 0;    // statistics, listing, writing it
};

// Adds the time from its making to its end to one of the phases.
struct PhaseClock {
    explicit PhaseClock(double& thePhase) : phase(thePhase), start(std::chrono::steady_clock::now()) {}
    ~PhaseClock() {
        phase += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    PhaseClock(const PhaseClock&) = delete;
    PhaseClock& operator=(const PhaseClock&) = delete;

    double& phase;
    std::chrono::steady_clock::time_point start;
};

}  // namespace Krenn
