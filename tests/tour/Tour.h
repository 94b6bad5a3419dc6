// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/tour/PictureBook.h"

// The tour through the screens on a site on which one field file has walked the whole road.
namespace Dorvane {
class AppNavigator;
}

namespace Dorvane::Tour {

/// The dialogs of the start-up, and the home menu of a start that failed.
void WalkStartUp(PictureBook& book);

/// From the home menu to the survey folder.
void WalkFirstHalf(PictureBook& book, AppNavigator& navigator);

/// From the reduction to the coordinate database.
void WalkSecondHalf(PictureBook& book, AppNavigator& navigator);

}  // namespace Dorvane::Tour
