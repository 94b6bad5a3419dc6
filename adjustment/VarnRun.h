// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "adjustment/Package.h"
#include "adjustment/VarnState.h"

// The run of the adjustment screen.
namespace Dorvane {

/// What the run shows while it goes. Each may be left empty.
struct VarnRunView {
    std::function<void()> BeginWait;      // wait cursor, the animation opened and playing
    std::function<void()> ShowNumbers;    // lblStartReturn or lblGoReturn has changed
    std::function<void()> StopAnimation;  // before the closing message
    std::function<void()> EndWait;        // animation closed and hidden, normal cursor; comes in any case
};

/// The run: Start, Go with the chosen type and Stop of the package on the input file of the chosen version,
/// the banner on the listing when Go gave 0, and the closing message. Without a chosen type Go is not called
/// and counts as 0. What fails in between (no package, no PROJECT and TASK lines in the input) is raised, and
/// the listing is then as the package left it. So is a Go that gave 0 and has written no listing: one of an
/// earlier run is not taken for it (error 53). Which files there are, and what the listing says, is shown in
/// any case.
///
/// Where the names of the files are cut short (SharesItsBase) the operator is asked first.
///
/// RunCancelled out of a call of the package ends the run in silence; Notice tells of it.
void RunVarn(VarnState& state, AdjustmentPackage& package, const VarnRunView& view);

}  // namespace Dorvane
