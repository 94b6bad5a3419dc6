// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

// How the small windows of file work are laid out: an animation, below it groups of text rows, below them a
// bar. All lengths are in screen pixels.
namespace Dorvane {

struct MeterBox {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const MeterBox&) const = default;
};

/// The units of the layout: 5 pixels across and down, and a row's pitch, 1.5 times the text height.
struct MeterUnits {
    int Across = 5;
    int Down = 5;
    int Pitch = 0;

    explicit MeterUnits(int textHeight);
};

/// Where everything goes.
struct MeterLayout {
    MeterBox Animation;
    std::vector<MeterBox> Rows;  // all rows of all groups, from the top
    MeterBox Bar;                // of no size where there is none
    int ClientWidth = 0;         // the animation's width and a unit on either side
    int ClientHeight = 0;
};

/// Lays out an animation of the given size, groups with that many rows each, and a bar of four thirds of a
/// pitch where there is one. A group lies two units below what stands above it, the first one two units below
/// the animation's height.
MeterLayout LayOutMeter(int animationWidth, int animationHeight, const MeterUnits& units,
                        const std::vector<int>& groups, bool hasBar);

}  // namespace Dorvane
