// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputRows.h"

#include "core/ColumnLine.h"
#include "core/Pattern.h"

namespace Dorvane {

namespace {

// The second line of every row of coordinates: their standard errors, so large that the coordinates only
// approximate.
constexpr const char* FixedErrors = "                1.00E+03       1.00E+03       1.00E+03";
constexpr const char* TrackerMark = "   T";

std::string C14(double meters) {
    static const Pattern pattern("########0.00000");
    return pattern(meters, 14);
}

std::string D13(double meters) {
    static const Pattern pattern("#######0.00000");
    return pattern(meters, 13);
}

std::string E10(double meters) {
    static const Pattern pattern("##0.00000");
    return pattern(meters, 10);
}

std::string A9(double gons) {
    static const Pattern pattern("###0.00000");
    return pattern(gons, 9);
}

const Pattern& ErrorPattern() {
    static const Pattern pattern("0.00000");
    return pattern;
}

std::string S7(double gons) {
    return ErrorPattern()(gons, 7);
}
std::string S8(double gons) {
    return ErrorPattern()(gons, 8);
}

ColumnLine DistanceLine(const std::string& station, const std::string& target, double distance,
                        double error) {
    ColumnLine line;
    line.At(1, station).At(11, target).At(21, D13(distance)).At(34, E10(error));
    return line;
}

template <class Observation>
std::string AnglesLine(const Observation& observation) {
    return ColumnLine()
        .At(1, observation.Station)
        .At(11, observation.Target)
        .At(21, A9(observation.HAngle))
        .At(32, A9(observation.ZAngle))
        .At(42, S7(observation.HAngleError))
        .At(49, S8(observation.ZAngleError))
        .Text();
}

template <class Observation>
std::string OrgPolar(const char* tag, const Observation& observation) {
    return ColumnLine()
        .At(1, tag)
        .At(5, observation.Station)
        .At(16, observation.Target)
        .At(26, A9(observation.HAngle))
        .At(37, S7(observation.HAngleError))
        .At(45, A9(observation.ZAngle))
        .At(56, S8(observation.ZAngleError))
        .At(64, D13(observation.SDist))
        .At(77, E10(observation.SDistError))
        .Text();
}

}  // namespace

std::string InpCoordinates(const std::string& name, double x, double y, double z) {
    return ColumnLine().At(1, name).At(10, C14(x)).At(25, C14(y)).At(40, C14(z)).Text() + "\r\n" +
           FixedErrors;
}

std::string InpName(const std::string& name) {
    return name + "\r\n";
}

std::string InpDistance(const TotalObs& observation) {
    return DistanceLine(observation.Station, observation.Target, observation.SDist, observation.SDistError)
        .Text();
}

std::string InpDistance(const TrackerObs& observation) {
    return DistanceLine(observation.Station, observation.Target, observation.SDist, observation.SDistError)
        .Then(TrackerMark)
        .Text();
}

std::string InpDistance(const DistanceObs& observation) {
    return DistanceLine(observation.Station, observation.Target, observation.Dist, observation.DistError)
        .Text();
}

std::string InpHeight(const HeightObs& observation) {
    return ColumnLine()
        .At(1, observation.Station)
        .At(11, observation.Target)
        .At(20, D13(observation.HDiff))
        .At(35, E10(observation.HDiffError))
        .Text();
}

std::string InpAngles(const TotalObs& observation) {
    return AnglesLine(observation);
}
std::string InpAngles(const TrackerObs& observation) {
    return AnglesLine(observation);
}
std::string InpAngles(const AngleObs& observation) {
    return AnglesLine(observation);
}

std::string OrgCoordinates(const std::string& tag, const std::string& name, double x, double y, double z) {
    return ColumnLine().At(1, tag).At(5, name).At(15, C14(x)).At(30, C14(y)).At(45, C14(z)).Text();
}

std::string OrgName(const std::string& tag, const std::string& name) {
    return ColumnLine().At(1, tag).At(5, name).Text();
}

std::string OrgRow(const TotalObs& observation) {
    return OrgPolar("TOT", observation);
}
std::string OrgRow(const TrackerObs& observation) {
    return OrgPolar("TRK", observation);
}

std::string OrgRow(const DistanceObs& observation) {
    return ColumnLine()
        .At(1, "DST")
        .At(5, observation.Station)
        .At(16, observation.Target)
        .At(26, D13(observation.Dist))
        .At(39, E10(observation.DistError))
        .Text();
}

std::string OrgRow(const HeightObs& observation) {
    return ColumnLine()
        .At(1, "HGT")
        .At(5, observation.Station)
        .At(16, observation.Target)
        .At(25, D13(observation.HDiff))
        .At(40, E10(observation.HDiffError))
        .Text();
}

std::string OrgRow(const AngleObs& observation) {
    return ColumnLine()
        .At(1, "ANG")
        .At(5, observation.Station)
        .At(16, observation.Target)
        .At(26, A9(observation.HAngle))
        .At(37, A9(observation.ZAngle))
        .At(47, S7(observation.HAngleError))
        .At(54, S8(observation.ZAngleError))
        .Text();
}

}  // namespace Dorvane
