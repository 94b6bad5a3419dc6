// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/tour/PictureBook.h"

// The tour through the screens on a site on which one field file has walked the whole road.
namespace Dorvane::Tour {

/// From the splash to the survey folder.
void WalkFirstHalf(PictureBook& book);

}  // namespace Dorvane::Tour
