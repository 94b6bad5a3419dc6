// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/MeterLayout.h"

namespace Dorvane {

MeterUnits::MeterUnits(int textHeight) : Pitch((3 * textHeight + 1) / 2) {}

MeterLayout LayOutMeter(int animationWidth, int animationHeight, const MeterUnits& units,
                        const std::vector<int>& groups, bool hasBar) {
    MeterLayout layout;
    layout.Animation = {units.Across, units.Down, animationWidth, animationHeight};
    int top = animationHeight + 2 * units.Down;
    for (const int rows : groups) {
        for (int row = 0; row < rows; ++row, top += units.Pitch)
            layout.Rows.push_back({units.Across, top, animationWidth, units.Pitch});
        top += 2 * units.Down;
    }
    if (hasBar) {
        layout.Bar = {units.Across, top, animationWidth, 4 * units.Pitch / 3};
        top += layout.Bar.Height + 2 * units.Down;
    }
    layout.ClientWidth = animationWidth + 2 * units.Across;
    layout.ClientHeight = top;
    return layout;
}

}  // namespace Dorvane
