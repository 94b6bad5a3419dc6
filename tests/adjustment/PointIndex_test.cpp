// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/PointIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace Dorvane {
namespace {

List1<AdjustedPoint> Named(const std::vector<std::string>& names) {
    List1<AdjustedPoint> points;
    for (const std::string& name : names)
        points.Add(AdjustedPoint()).Name = name;
    return points;
}

std::vector<std::int16_t> AllOf(List1<AdjustedPoint>& points, const PointIndex& index,
                                const std::string& name) {
    std::vector<std::int16_t> found;
    index.ForEach(points, name, [&](AdjustedPoint& point) {
        found.push_back(static_cast<std::int16_t>(&point - &points[0]));
    });
    return found;
}

TEST(PointIndex, FindsTheFirstOfAName) {
    List1<AdjustedPoint> points = Named({"A", "B", "A"});
    const PointIndex index(points);
    EXPECT_EQ(index.First(points, "A"), &points[1]);
    EXPECT_EQ(index.First(points, "B"), &points[2]);
    EXPECT_EQ(index.First(points, "C"), nullptr);
    EXPECT_EQ(index.First(points, ""), nullptr);
}

TEST(PointIndex, OfAnEmptyListFindsNothing) {
    List1<AdjustedPoint> points;
    const PointIndex index(points);
    EXPECT_EQ(index.First(points, "A"), nullptr);
    EXPECT_THAT(AllOf(points, index, "A"), testing::IsEmpty());
}

TEST(PointIndex, FindsWhatAScanFromFirstToLastFinds) {
    std::mt19937 random(20261120);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> names;
        for (unsigned i = random() % 30; i > 0; --i)
            names.push_back("P" + std::to_string(random() % 12));
        List1<AdjustedPoint> points = Named(names);
        const PointIndex index(points);
        for (int n = 0; n < 13; ++n) {
            const std::string wanted = "P" + std::to_string(n);
            std::vector<std::int16_t> scanned;
            for (std::int16_t i = 1; i <= points.Count(); ++i)
                if (points[i].Name == wanted)
                    scanned.push_back(i);
            EXPECT_EQ(AllOf(points, index, wanted), scanned);
            EXPECT_EQ(index.First(points, wanted), scanned.empty() ? nullptr : &points[scanned.front()]);
        }
    }
}

}  // namespace
}  // namespace Dorvane
