// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAbstractButton;

namespace Dorvane {

/// Gives a button that goes on an errand of the home menu the picture and the tip that dv_main.ini has for
/// the home menu's button `number` (1 to 10). What the profile does not name, or what is not there, stays as
/// it is. Error 481 for a picture that cannot be read.
void DressLikeHome(QAbstractButton& button, int number);

}  // namespace Dorvane
