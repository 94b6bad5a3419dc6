// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/adjust/Adjustment.h"
#include "krenn/solve/SparseCholesky.h"

namespace Krenn {

// Iterated data snooping (Baarda 1968; Kok 1984) in units of sigma: with the residuals v = -R l, the
// redundancy matrix R = 1 - A Q A' and its diagonal r, the observation k with the largest |v| / sqrt(r) is
// taken out as if it had not been made,
//
//     g = R e_k,      v := v - g v_k / g_k,      r := r - g^2 / g_k,
//
// then the next one, and so on: the pivoted Cholesky factorisation of R, one column for each suspect. It ends
// when no |w| exceeds the value that the largest of n good observations exceeds with the risk of the global
// test. R does not depend on the datum.
//
// The sizes of all suspects S are then estimated together, nabla = -inverse(R_SS) v_S with the cofactors
// inverse(R_SS), and suspects that are good beside the others are taken back. The critical value is stretched
// by the median of what is left, so that standard errors that are all too small make no suspects.
//
// A large error bends the linearisation. When the residuals after the step that takes the suspects out are
// not those foretold, the search begins anew at the start positions, or else at the L1 solution, and follows
// the network without its suspects until they are.
inline constexpr int kMostSuspects = 10;
inline constexpr double kLeastRedundancy = 0.05;  // below, an observation is not suspected
inline constexpr double kAlike = 0.9;             // correlation of two tests that cannot be told apart

// Fills Adjustment::snooping when some |w| gives cause for it. Needs the cofactors; overwrites the factor.
void Snoop(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky, NormalMatrix& normals);

// The same for the L1 norm, whose residuals keep gross errors whole: the largest |v / sigma|.
void KeepLargestResiduals(Adjustment& adjustment);

// Fills Adjustment::snooping for a network whose iterations did not converge, from the start positions.
void SnoopFromStart(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                    NormalMatrix& normals);

// "slope distance ST1 to P7, line 40: 100.003 m".
std::string SuspectInWords(const Network& network, const Adjustment& adjustment, const Suspect& suspect);

}  // namespace Krenn
