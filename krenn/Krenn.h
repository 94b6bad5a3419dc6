// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The three calls of the adjustment package. They are made in the order start, go, stop, once each per run,
// on one thread; the package keeps one run at a time. The calls block until they are done.
//
//     min  sum over all observations of (v_i / sigma_i)^2
//
// with v = adjusted minus observed, over the coordinates of the points and one orientation per station; see
// docs/adjustment.md for the model, the files and the table of error numbers.

#include <cstdint>

#if defined(_WIN32)
#define KRENN_CALL __declspec(dllexport)
#else
#define KRENN_CALL __attribute__((visibility("default")))
#endif

extern "C" {

// Takes the full path of the input file, zero-terminated, in the host's form. The text is copied and not
// changed. 0: the file can be opened; 1: no path; 2: it cannot be opened (go then says so in the listing).
KRENN_CALL std::int16_t start(char* path);

// Adjusts as the parameter file `<base>.PAR` beside the input tells, which is written with its defaults when
// there is none, and writes `<base>.OUT`; <base> is the path up to the last "." of the file name. type: 0
// sparse without inversion, 1 sparse with inversion, 7 dense with full inversion, -1 L1 norm. 0: good; else
// an error number (Errors.h), and the listing says what is wrong and what to do.
KRENN_CALL std::int16_t go(std::int32_t type);

// Ends the run and forgets the path.
KRENN_CALL void stop();
}
