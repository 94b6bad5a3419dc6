// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CoordinateSources.h"

#include <unordered_map>
#include <unordered_set>

#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/CoordinateFiles.h"
#include "input/UserDbFiles.h"

namespace Dorvane {

namespace {

List1<ObsPoint> ReadUserPoints(const List1<std::string>& paths) {
    List1<ObsPoint> combined;
    for (const std::string& path : paths) {
        std::string folder;
        std::string file;
        SplitFolderFile(path, folder, file);
        List1<ObsPoint> points;
        const bool biased = Contains(UpperCase(file), ".BDD");
        const std::int16_t count =
            biased ? ReadBddFile(points, folder, file) : ReadGenFile(points, folder, file);
        if (count >= 1)
            AppendIdealData(combined, points, count);
    }
    return combined;
}

void CopyCoordinates(ObsPoint& point, const ObsPoint& source) {
    point.X = source.X;
    point.Y = source.Y;
    point.Z = source.Z;
    point.Extra1 = source.Extra1;
    point.Extra2 = source.Extra2;
    point.Extra3 = source.Extra3;
    point.CoordSource = source.CoordSource;
}

// Gives every named point the coordinates of the first line of its name. The names without one, their count
// as text at index 0.
List1<std::string> TakeFromUserPoints(List1<ObsPoint>& points, const List1<std::string>& names,
                                      const List1<ObsPoint>& userPoints) {
    std::unordered_map<std::string, const ObsPoint*> firstOfName;
    for (const ObsPoint& point : userPoints)
        firstOfName.emplace(point.Name, &point);
    std::unordered_set<std::string> found;
    List1<std::string> remaining;
    for (const std::string& name : names) {
        if (firstOfName.contains(name))
            found.insert(name);
        else
            remaining.Add(name);
    }
    for (ObsPoint& point : points)
        if (found.contains(point.Name))
            CopyCoordinates(point, *firstOfName.at(point.Name));
    remaining[0] = std::to_string(remaining.Count());
    return remaining;
}

// The points of a name, so that an answer reaches all of them.
using PointsByName = std::unordered_multimap<std::string, ObsPoint*>;

void TakeAnswers(const PointsByName& pointsByName, const std::vector<RetrievedPoint>& answers,
                 std::int16_t typeCode) {
    for (const RetrievedPoint& answer : answers) {
        const auto [first, last] = pointsByName.equal_range(Trim(answer.Name));
        for (auto named = first; named != last; ++named) {
            ObsPoint& point = *named->second;
            point.X = answer.X;
            point.Y = answer.Y;
            point.Z = answer.Z;
            point.Extra1 = answer.Extra1;
            point.Extra2 = answer.Extra2;
            point.CoordSource = typeCode;
        }
    }
}

void TakeFromDatabase(Guard& guard, List1<ObsPoint>& points, const List1<std::string>& remaining,
                      const CoordSelection& selection, const MakeCoordinateSource& makeSource) {
    PointsByName pointsByName;
    for (ObsPoint& point : points)
        pointsByName.emplace(point.Name, &point);
    for (const std::string& location : selection.Locations) {
        std::string system;
        std::string name;
        SplitFolderFile(location, system, name);
        const std::string folder = Global().Coord_path + name + "\\";
        for (const std::int16_t typeCode : selection.Types) {
            std::vector<RetrievedPoint> answers;
            guard.Run([&] {
                answers.clear();
                std::int32_t count = 0;
                makeSource()->RetrieveNamed(folder, typeCode, remaining, 0, count, answers);
            });
            TakeAnswers(pointsByName, answers, typeCode);
        }
    }
}

}  // namespace

std::int16_t CoordTypeCode(const std::string& entry) {
    if (entry == "Benchmarks")
        return 1;
    if (entry == "Monuments")
        return 2;
    if (entry == "3 Dimensional")
        return 3;
    return entry == "Ideals" ? std::int16_t{4} : std::int16_t{0};
}

CoordSelection CollectCoordSelection(const InputScreen& screen) {
    CoordSelection selection;
    for (std::size_t i = 1; i < screen.lstCoordDirectorys.size(); ++i)
        if (screen.lstCoordDirectorys[i].Selected)
            selection.Locations.Add(screen.lstCoordDirectorys[i].Text);
    if (!selection.Locations.Empty()) {
        for (const ListEntry& entry : screen.lstCoordTypes) {
            if (!entry.Selected)
                continue;
            // The list of types is sized by the locations once a second type comes; meant.
            if (!selection.Types.Empty() && selection.Types.Count() >= selection.Locations.Count())
                throw RunTimeError(SubscriptOutOfRange);
            selection.Types.Add(CoordTypeCode(entry.Text));
        }
    }
    if (!screen.lstCoordDirectorys.empty() && screen.lstCoordDirectorys[0].Selected)
        selection.UserFiles = ReadUserFiles();
    return selection;
}

void AppendIdealData(List1<ObsPoint>& list, const List1<ObsPoint>& records, std::int16_t recordCount) {
    Guarded("basInput-AppendIdealData", [&](Guard&) {
        const int former = list.Count();
        list.Resize(former + recordCount);
        for (int i = 1; i <= recordCount; ++i)
            list[former + i] = records[i];
    });
}

void UpdateCoordData(List1<ObsPoint>& points, const List1<std::string>& names,
                     const CoordSelection& selection, const MakeCoordinateSource& makeSource) {
    Guarded("basInput-UpdateCoordData", [&](Guard& guard) {
        const List1<ObsPoint> userPoints = ReadUserPoints(selection.UserFiles);
        const List1<std::string> remaining = TakeFromUserPoints(points, names, userPoints);
        TakeFromDatabase(guard, points, remaining, selection, makeSource);
    });
}

}  // namespace Dorvane
