// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Adjustment.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Cofactors.h"
#include "krenn/adjust/Iterate.h"
#include "krenn/adjust/Snooping.h"
#include "krenn/adjust/WeakPoints.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// The iterations by the type of the adjustment. Where least squares does not converge, the failure names the
// observations without which it does. Returns the cofactors of the dense type.
Eigen::MatrixXd IterateByType(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky,
                              NormalMatrix& normals) {
    try {
        if (adjustment.type == Type::Dense)
            return IterateDense(network, adjustment, adjustment.parameters);
        if (adjustment.type == Type::L1Norm)
            IterateL1(network, adjustment, cholesky, normals, adjustment.parameters);
        else
            IterateSparse(network, adjustment, cholesky, normals, adjustment.parameters);
        return {};
    } catch (Failure& failure) {
        if (failure.number != ErrorNumber::NoConvergence || adjustment.type == Type::L1Norm)
            throw;
        SnoopFromStart(network, adjustment, cholesky, normals);
        if (!adjustment.snooping.suspects.empty())
            failure.details.push_back(
                "Without these observations it converges; the errors suspected in them:");
        for (const Suspect& suspect : adjustment.snooping.suspects)
            failure.details.push_back(SuspectInWords(network, adjustment, suspect));
        throw;
    }
}

void CheckFinite(const Adjustment& adjustment) {
    bool isFinite = std::isfinite(adjustment.sumOfSquares);
    for (const auto& at : adjustment.state.at)
        isFinite = isFinite && std::isfinite(at[0] + at[1] + at[2]);
    for (const auto& entry : adjustment.cofactors.point)
        isFinite = isFinite && std::isfinite(entry[0] + entry[2] + entry[5]);
    if (!isFinite)
        throw Failure(ErrorNumber::NotFinite, "A coordinate or a variance is not finite.");
}

// Structure, start positions and unknowns.
void Prepare(const Network& network, Adjustment& adjustment) {
    const PhaseClock clock(adjustment.phases.approximate);
    adjustment.structure = FindStructure(network, adjustment.parameters);
    Approximation approximation = Approximate(network, adjustment.structure);
    for (const int point : approximation.contradicted)
        adjustment.structure.roles[At(point)].isContradicted = true;
    adjustment.start = std::move(approximation.aim);
    adjustment.state = std::move(approximation.state);
    adjustment.computedStarts = std::move(approximation.computed);
    adjustment.notes = adjustment.structure.notes;
    adjustment.notes.insert(adjustment.notes.end(), approximation.notes.begin(), approximation.notes.end());
    ReduceToHeldHeights(adjustment.structure, network, adjustment.state);
    std::vector<int> plumbLines;
    for (const int observation : LeaveOutPlumbAngles(adjustment.structure, adjustment.state))
        plumbLines.push_back(network.observations[At(observation)].line);
    plumbLines.erase(std::unique(plumbLines.begin(), plumbLines.end()), plumbLines.end());
    for (const int line : plumbLines)
        adjustment.notes.push_back(
            fmt::format("The sight of line {} is plumb; its angles are left out.", line));
    adjustment.unknowns = NumberUnknowns(adjustment.structure);
}

NormalMatrix StartNormals(const Network& network, Adjustment& adjustment, SparseCholesky& cholesky) {
    std::vector<int> held;
    for (const PartDatum& part : adjustment.datum.parts)
        held.insert(held.end(), part.held.begin(), part.held.end());
    NormalMatrix normals;
    {
        const PhaseClock clock(adjustment.phases.analyse);
        normals = MakePattern(adjustment.structure, adjustment.unknowns, held, network.relativePairs);
        Analyse(cholesky, normals);
    }
    const PhaseClock clock(adjustment.phases.linearise);
    FillNormals(normals, adjustment.structure, adjustment.unknowns, adjustment.state, {});
    return normals;
}

}  // namespace

Adjustment Adjust(const Network& network, Type type, const Parameters& parameters) {
    Adjustment adjustment;
    adjustment.type = type;
    adjustment.parameters = parameters;
    Prepare(network, adjustment);
    {
        const PhaseClock clock(adjustment.phases.linearise);
        adjustment.datum =
            FindDatum(network, adjustment.structure, adjustment.unknowns, adjustment.state, parameters.datum);
    }
    if (type == Type::Dense && adjustment.unknowns.Count() > kMostDenseUnknowns)
        throw Failure(ErrorNumber::NetworkTooLarge,
                      fmt::format("There are {} unknowns; the dense type takes at most {}.",
                                  adjustment.unknowns.Count(), kMostDenseUnknowns));

    SparseCholesky cholesky(parameters.threads);
    NormalMatrix normals = StartNormals(network, adjustment, cholesky);
    double leastPivot = 0;
    {
        const PhaseClock clock(adjustment.phases.factorise);
        leastPivot = CheckRank(network, adjustment, cholesky, normals);
    }
    const Eigen::MatrixXd inverse = IterateByType(network, adjustment, cholesky, normals);
    ConfirmDatum(adjustment.datum, adjustment.structure, adjustment.unknowns, adjustment.state);

    {
        const PhaseClock clock(adjustment.phases.invert);
        if (type == Type::SparseInverse)
            SparseCofactors(network, adjustment, cholesky, normals);
        else if (type == Type::Dense)
            DenseCofactors(network, adjustment, inverse);
    }
    CheckFinite(adjustment);
    NoteWeakPoints(network, adjustment, cholesky, normals, leastPivot);
    if (adjustment.hasCofactors)
        Snoop(network, adjustment, cholesky, normals);
    else if (type == Type::L1Norm)
        KeepLargestResiduals(adjustment);
    return adjustment;
}

}  // namespace Krenn
