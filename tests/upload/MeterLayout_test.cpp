// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/MeterLayout.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {
namespace {

TEST(MeterUnits, AreFivePixelsAndOneAndAHalfTextHeights) {
    const MeterUnits units(16);
    EXPECT_EQ(units.Across, 5);
    EXPECT_EQ(units.Down, 5);
    EXPECT_EQ(units.Pitch, 24);
    EXPECT_EQ(MeterUnits(15).Pitch, 23);
}

TEST(LayOutMeter, PutsTwoGroupsAndABarBelowTheAnimation) {
    const MeterLayout layout = LayOutMeter(272, 60, MeterUnits(16), {2, 2}, true);
    EXPECT_EQ(layout.Animation, (MeterBox{5, 5, 272, 60}));
    EXPECT_EQ(layout.Rows, (std::vector<MeterBox>{
                               {5, 70, 272, 24}, {5, 94, 272, 24}, {5, 128, 272, 24}, {5, 152, 272, 24}}));
    EXPECT_EQ(layout.Bar, (MeterBox{5, 60 + 6 * 5 + 4 * 24, 272, 32}));
    EXPECT_EQ(layout.ClientWidth, 282);
    EXPECT_EQ(layout.ClientHeight, 186 + 32 + 10);
}

TEST(LayOutMeter, NeedsFewerRowsForADeletion) {
    const MeterLayout layout = LayOutMeter(100, 40, MeterUnits(10), {2}, true);
    EXPECT_EQ(layout.Rows, (std::vector<MeterBox>{{5, 50, 100, 15}, {5, 65, 100, 15}}));
    EXPECT_EQ(layout.Bar, (MeterBox{5, 90, 100, 20}));
}

TEST(LayOutMeter, NeedsNoBarForASearch) {
    const MeterLayout layout = LayOutMeter(100, 40, MeterUnits(10), {1}, false);
    EXPECT_EQ(layout.Rows, (std::vector<MeterBox>{{5, 50, 100, 15}}));
    EXPECT_EQ(layout.Bar, MeterBox{});
    EXPECT_EQ(layout.ClientWidth, 110);
    EXPECT_EQ(layout.ClientHeight, 75);
}

}  // namespace
}  // namespace Dorvane::Testing
