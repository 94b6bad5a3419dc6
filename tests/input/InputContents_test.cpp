// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputContents.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {
namespace {

TEST(DescribeInput, CountsObservationsByKindAndPointsBySource) {
    ObservationModel model;
    model.TrackerSets = {ObsSet<TrackerObs>{{}, {}}, ObsSet<TrackerObs>{{}}};
    model.TotalSets = {ObsSet<TotalObs>{{}, {}, {}, {}}};
    model.HeightSets = {ObsSet<HeightObs>{{}}, ObsSet<HeightObs>{}};
    model.AngleSets = {ObsSet<AngleObs>{{}, {}, {}, {}, {}}};
    model.DistanceSets = {ObsSet<DistanceObs>{{}, {}}};
    for (const std::int16_t source : {0, 1, 2, 2, 3, 3, 3, 4, 4, 4, 4, 0})
        model.Points.Add({}).CoordSource = source;
    EXPECT_EQ(
        DescribeInput(model, "D:\\JOB\\", "NET.INP"),
        "NET.INP, NET.ORG, NET.SUM and NET.VER in D:\\JOB\\\r\n"
        "Observations : 3 tracker, 4 total, 1 height, 5 angle, 2 distance\r\n"
        "Points : 10 with coordinates (4 from ideals or a BDD file, 3 three-dimensional or from a file of "
        "points, 2 from monuments, 1 from benchmarks), 2 without");
}

TEST(DescribeInput, LeavesOutWhatThereIsNoneOf) {
    ObservationModel model;
    model.HeightSets = {ObsSet<HeightObs>{{}}};
    model.Points.Add({});
    EXPECT_EQ(DescribeInput(model, "D:\\", "A.INP"),
              "A.INP, A.ORG, A.SUM and A.VER in D:\\\r\n"
              "Observations : 1 height\r\n"
              "Points : 0 with coordinates, 1 without");
}

}  // namespace
}  // namespace Dorvane::Testing
