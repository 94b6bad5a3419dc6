// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/OutputReader.h"

#include <array>
#include <optional>
#include <string_view>

#include "adjustment/PointIndex.h"
#include "core/LineReader.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// The listing, one line at a time: the raw line, and its words where they were asked for.
class Listing {
  public:
    explicit Listing(LineReader& reader) : Reader(reader) {}

    /// False at the end of the file; the line and its words then stay.
    bool Next() {
        if (Reader.AtEnd())
            return false;
        Line = Reader.ReadLine();
        return true;
    }
    bool NextWords() {
        if (!Next())
            return false;
        SplitLine();
        return true;
    }
    void SplitLine() { ParseFields(Words, Line); }

    bool Begins(std::string_view marker) const { return Line.substr(0, marker.size()) == marker; }
    bool HoldsAt(std::size_t column, std::string_view marker) const {
        return Line.size() >= column && Line.substr(column - 1, marker.size()) == marker;
    }

    std::int16_t WordCount() const { return Words.Count(); }

    /// Empty, and 0 as a number, where the line has no such word.
    std::string Word(int n) const { return n <= Words.Count() ? Words[n] : std::string(); }
    double Number(int n) const { return n <= Words.Count() ? LeadingNumber(Words[n]) : 0; }

  private:
    LineReader& Reader;
    std::string_view Line;
    List1<std::string> Words;
};

// The readers of the sections give false when the file ends inside them.

bool FindResults(Listing& listing) {
    while (listing.Next())
        if (listing.Begins("Final results"))
            return true;
    return false;
}

bool ReadStations(Listing& listing, List1<AdjustedPoint>& stations) {
    while (listing.WordCount() > 0) {
        AdjustedPoint station;
        station.Name = listing.Word(1);
        AdjustedPoint& added = stations.Add(station);
        if (!listing.NextWords())
            return false;
        added.Rot1 = listing.Number(3);
        added.Rot2 = listing.Number(4);
        added.Rot3 = listing.Number(5);
        if (!listing.NextWords())
            return false;
        added.X = listing.Number(3);
        added.Y = listing.Number(4);
        added.Z = listing.Number(5);
        if (!listing.NextWords())
            return false;
    }
    listing.NextWords();  // a file that ends here still holds all that this section promises
    return true;
}

bool ReadPoints(Listing& listing, List1<AdjustedPoint>& points) {
    while (listing.WordCount() > 0) {
        AdjustedPoint point;
        point.Name = listing.Word(1);
        if (listing.WordCount() == 2) {
            point.Z = listing.Number(2);
        } else {
            point.X = listing.Number(2);
            point.Y = listing.Number(3);
            point.Z = listing.Number(4);
        }
        points.Add(point);
        if (!listing.NextWords())
            return false;
    }
    return true;
}

bool ReadFinalResults(Listing& listing, AdjustmentResults& results) {
    if (!listing.Next() || !listing.NextWords())
        return false;
    if (listing.WordCount() == 1 && !ReadStations(listing, results.Stations))
        return false;
    return listing.HoldsAt(6, "the one-tailed") || ReadPoints(listing, results.Points);
}

bool ReadPairs(Listing& listing, List1<ObservationPair>& pairs) {
    if (!listing.NextWords())
        return false;
    while (listing.WordCount() > 0) {
        pairs.Add({listing.Word(1), listing.Word(2)});
        if (!listing.NextWords())
            return false;
    }
    return true;
}

bool ReadDeviationBlock(Listing& listing, AdjustedPoint* point) {
    if (point == nullptr)
        return listing.Next() && listing.Next();
    point->SX = listing.Number(2);
    point->SY = listing.Number(3);
    point->SZ = listing.Number(4);
    if (!listing.NextWords())
        return false;
    point->ErrorMajor = listing.Number(1);
    point->ErrorMinor = listing.Number(2);
    point->ErrorAngle = listing.Number(3);
    return listing.Next();
}

bool ReadPointDeviations(Listing& listing, AdjustmentResults& results, const PointIndex& stations,
                         const PointIndex& points) {
    if (!listing.Next() || !listing.NextWords())
        return false;
    while (listing.WordCount() > 0) {
        const std::string name = listing.Word(1);
        AdjustedPoint* found = stations.First(results.Stations, name);
        if (found == nullptr)
            found = points.First(results.Points, name);
        if (!ReadDeviationBlock(listing, found) || !listing.NextWords())
            return false;
    }
    return true;
}

// From the current line to the end of the file, which is this section's proper end.
void ReadHeightDeviations(Listing& listing, List1<AdjustedPoint>& points, const PointIndex& index) {
    do {
        listing.SplitLine();
        index.ForEach(points, listing.Word(1), [&](AdjustedPoint& point) { point.SZ = listing.Number(2); });
    } while (listing.Next());
}

// The names are looked up in indexes that are made at the first use, when both lists are complete.
class Deviations {
  public:
    explicit Deviations(AdjustmentResults& results) : Results(results) {}

    bool Read(Listing& listing) {
        if (!listing.Next())
            return false;
        if (!Stations) {
            Stations.emplace(Results.Stations);
            Points.emplace(Results.Points);
        }
        if (listing.Begins("Standard point"))
            return ReadPointDeviations(listing, Results, *Stations, *Points);
        ReadHeightDeviations(listing, Results.Points, *Points);
        return true;
    }

  private:
    AdjustmentResults& Results;
    std::optional<PointIndex> Stations;
    std::optional<PointIndex> Points;
};

struct ResidualTable {
    std::string_view Marker;
    List1<ObservationPair> AdjustmentResults::*Pairs;
};
constexpr std::array<ResidualTable, 4> ResidualTables = {{
    {"distance residuals", &AdjustmentResults::DistanceResiduals},
    {"height differences", &AdjustmentResults::HeightDifferences},
    {"horizontal direction", &AdjustmentResults::HorizontalDirections},
    {"vertical direction", &AdjustmentResults::VerticalDirections},
}};

// Reads the section that begins at the current line, if one does.
bool ReadSectionHere(Listing& listing, AdjustmentResults& results, Deviations& deviations) {
    for (const ResidualTable& table : ResidualTables)
        if (listing.Begins(table.Marker))
            return ReadPairs(listing, results.*table.Pairs);
    return !listing.Begins("Standard deviations") || deviations.Read(listing);
}

bool ReadListing(Listing& listing, AdjustmentResults& results, bool readAll) {
    if (!FindResults(listing) || !ReadFinalResults(listing, results))
        return false;
    if (!readAll)
        return true;
    Deviations deviations(results);
    while (listing.Next())
        if (!ReadSectionHere(listing, results, deviations))
            return false;
    return true;
}

}  // namespace

std::int16_t ReadOutputFile(const std::string& folder, const std::string& fileName,
                            AdjustmentResults& results, bool readAll) {
    results = AdjustmentResults();
    const std::string path = folder + fileName;
    if (!FileExists(path))
        return -1;
    std::int16_t result = 0;
    Guarded("basRead-ReadOutputFile", [&](Guard& guard) {
        std::optional<LineReader> reader;
        if (!guard.Run([&] { reader.emplace(path); }))
            return;
        Listing listing(*reader);
        if (ReadListing(listing, results, readAll))
            result = 1;
    });
    return result;
}

}  // namespace Dorvane
