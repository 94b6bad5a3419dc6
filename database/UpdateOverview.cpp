// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/UpdateOverview.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>

#include "core/Pattern.h"
#include "core/Text.h"
#include "database/CoordinateSet.h"
#include "database/DatabaseError.h"
#include "database/ReferenceFile.h"

namespace Dorvane {

namespace {

constexpr std::size_t NamesShown = 5;
constexpr std::size_t BehindDate = 15;  // characters of name and date

// The first names, and whether there are more.
std::string Shown(const std::vector<std::string>& names) {
    const auto end = names.begin() + static_cast<std::ptrdiff_t>(std::min(names.size(), NamesShown));
    return fmt::format("{}{}", fmt::join(names.begin(), end, ", "), names.size() > NamesShown ? ", ..." : "");
}

// Goes through the file line by line, as the update would.
class Comparison {
  public:
    Comparison(const std::string& databaseFolder, const Dbs3DFile& file)
        : Folder(databaseFolder), Set(databaseFolder, ThreeDimensionalCode), Update(file) {}

    UpdateOverview Run() {
        for (const Dbs3DPoint& point : Update.Points)
            Take(point);
        Result.Repeated.assign(Repeated.begin(), Repeated.end());
        TellRefusedPoints();
        CheckRoom();
        CheckReference();
        return Result;
    }

  private:
    void Take(const Dbs3DPoint& point) {
        std::string line;
        try {
            line = RecordLine(Set.Type(),
                              {point.Name, SixDigits(Update.Date), point.X, point.Y, point.Z,
                               point.ErrorAngle, point.ErrorMajor, point.ErrorMinor, point.SZ, 0, 0},
                              DataPath());
        } catch (const RunTimeError& error) {
            if (error.Number != RecordRefused)
                throw;
            ++Result.Refused;
            RefusedNames.push_back(point.Name);
            if (!Result.Refusal)
                Result.Refusal = error;
            return;
        }
        AllHeld = AllHeld && Set.Holds(line);
        Compare(line);
    }

    // As the values are, or would be, stored. Most lines are settled as texts, which is quick.
    void Compare(const std::string& line) {
        std::string& before = Before[line.substr(0, NameLength)];
        if (!before.empty())
            Repeated.insert(Trim(Left(line, NameLength)));
        const std::string_view former = before.empty() ? Set.CurrentLine(line) : before;
        if (former.empty())
            ++Result.New;
        else if (former.substr(BehindDate) == std::string_view(line).substr(BehindDate))
            ++Result.Unchanged;
        else
            CompareValues(before.empty() ? *Set.Current(line.substr(0, NameLength)) : RecordOf(before),
                          RecordOf(line));
        before = line;
    }

    void CompareValues(CoordinateRecord former, const CoordinateRecord& value) {
        former.Date = value.Date;
        ++(former == value ? Result.Unchanged : Result.Changed);
        Measure(former, value);
    }

    CoordinateRecord RecordOf(const std::string& line) const {
        return RecordOfLine(Set.Type(), line, DataPath(), 0);
    }

    void Measure(const CoordinateRecord& former, const CoordinateRecord& value) {
        struct Coordinate {
            double CoordinateRecord::*Value;
            const char* Title;
        };
        for (const Coordinate& coordinate :
             {Coordinate{&CoordinateRecord::X, "X"}, Coordinate{&CoordinateRecord::Y, "Y"},
              Coordinate{&CoordinateRecord::Z, "Z"}}) {
            const double change = value.*coordinate.Value - former.*coordinate.Value;
            if (std::abs(change) > std::abs(Result.Largest.Meters))
                Result.Largest = {value.Name, change, coordinate.Title};
        }
    }

    void TellRefusedPoints() {
        if (!Result.Refusal)
            return;
        Result.Refusal->Description +=
            fmt::format(".  Points of the file: {} new, {} changed, {} unchanged, {} refused ({})",
                        Result.New, Result.Changed, Result.Unchanged, Result.Refused, Shown(RefusedNames));
    }

    void CheckRoom() {
        if (!Result.Refusal && Update.Points.Count() > Set.Room())
            Result.Refusal =
                FullFile(DataPath(), fmt::format("its lines are numbered up to {}", HighestRecordNumber));
    }

    void CheckReference() {
        const std::string location = LocationOfFolder(Folder);
        const ReferenceRecord reference{Update.Date, Update.Project, Update.Task};
        try {
            long updates = 0;
            ReferenceWith(Folder, location, reference, updates);
            Result.StoredAlready =
                AllHeld && Result.Refused == 0 && HasReference(Folder, location, reference);
        } catch (const RunTimeError& error) {
            if (!IsDatabaseError(error))
                throw;
            if (!Result.Refusal)
                Result.Refusal = error;
        }
    }

    std::string DataPath() const { return Folder + Set.Type().DataFile(); }

    std::string Folder;
    CoordinateSet Set;
    const Dbs3DFile& Update;
    UpdateOverview Result;
    bool AllHeld = true;
    std::vector<std::string> RefusedNames;
    std::unordered_map<std::string, std::string> Before;  // the lines of the file so far, by their names
    std::set<std::string> Repeated;
};

std::string LargestText(const LargestChange& largest) {
    if (largest.Name.empty())
        return "none";
    return fmt::format("{}, {} meters in {}", largest.Name, Pattern("0.00000")(largest.Meters), largest.In);
}

}  // namespace

UpdateOverview OverviewOf(const std::string& databaseFolder, const Dbs3DFile& file) {
    return Comparison(databaseFolder, file).Run();
}

std::string OverviewQuestion(const UpdateOverview& overview, const std::string& location,
                             const std::string& path, const Dbs3DFile& file) {
    std::string text = fmt::format("{}\r\n{}, {}, {}\r\n\r\n", path, file.Date, file.Project, file.Task);
    if (overview.StoredAlready)
        text += "This update is in the database of " + location +
                " already: its date, project and task, and every value of it.\r\n\r\n";
    text += fmt::format(
        "New points : {}\r\nChanged points : {}\r\nUnchanged points : {}\r\nRefused points : {}\r\n"
        "Largest change : {}\r\n",
        overview.New, overview.Changed, overview.Unchanged, overview.Refused, LargestText(overview.Largest));
    if (!overview.Repeated.empty())
        text += fmt::format("More than once in the file : {}\r\n", Shown(overview.Repeated));
    return text + (overview.StoredAlready ? "\r\nDo you wish to store it again?"
                                          : "\r\nDo you wish to update " + location + "?");
}

RunTimeError RefusedUpdate(RunTimeError reason) {
    reason.Source = "CoordinateRetriever";
    reason.Description += ".  Nothing was changed.";
    return reason;
}

std::string SixDigits(const std::string& date) {
    return Left(date, 2) + Mid(date, 4, 2) + Right(date, 2);
}

}  // namespace Dorvane
