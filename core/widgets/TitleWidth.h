// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace Dorvane {

/// The width at which a window's title is not cut, in the bold letters of title bars and with the icon and
/// the buttons that stand beside it.
int WidthOfTitle(const QWidget& window);

}  // namespace Dorvane
