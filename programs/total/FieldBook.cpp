// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/FieldBook.h"

#include <fmt/format.h>

#include <cmath>
#include <map>
#include <set>

#include "programs/fieldbook/Gsi.h"

namespace Dorvane {

namespace {

constexpr int Point = 11;
constexpr int HorizontalCircle = 21;
constexpr int ZenithAngle = 22;
constexpr int SlopeDistance = 31;
constexpr int Code = 41;
constexpr int CodeStation = 42;
constexpr int CodeHeight = 43;
constexpr int TargetHeight = 87;
constexpr int InstrumentHeight = 88;

/// Reads one file line by line; the set-up that is open, and what is known in it, is its state.
class GsiBookReader {
  public:
    GsiBookReader(FieldBook& book, const std::string& file) : Book(book), File(file) { Count.File = file; }

    void Read(LineReader& reader) {
        while (!reader.AtEnd()) {
            const std::string_view line = reader.ReadLine();
            LineNumber = reader.LineNumber();
            ++Count.Lines;
            if (line.find_first_not_of(" \t") != std::string_view::npos)
                ReadLine(line);
        }
        EndSetUp();
        EndStray();
        Book.Files.push_back(Count);
    }

  private:
    void ReadLine(std::string_view text) {
        std::string reason;
        const std::optional<GsiLine> line = ParseGsiLine(text, reason);
        if (!line) {
            Refuse(reason + ": \"" + Excerpt(text) + "\"");
            // A broken code block may have opened a set-up: sights behind it must not fall to the one before.
            if (text.starts_with("41") || text.starts_with("*41"))
                EndSetUp();
            return;
        }
        for (const std::string& damaged : line->Damaged)
            Warn("no word, left out: \"" + Excerpt(damaged) + "\"");
        const int first = line->Words.front().Index;
        if (first == Code)
            ReadCode(*line);
        else if (first == Point &&
                 (line->Find(HorizontalCircle) || line->Find(ZenithAngle) || !line->Damaged.empty()))
            ReadSight(*line);
        else
            ++Count.Others;
    }

    void ReadCode(const GsiLine& line) {
        if (GsiName(line.Words.front()) != "21") {
            ++Count.Codes;
            return;
        }
        EndSetUp();
        const GsiWord* const station = line.Find(CodeStation);
        const std::string name = station ? GsiName(*station) : "";
        if (name.empty()) {
            Refuse("code 21 without the name of a station in word 42");
            return;
        }
        EndStray();
        const GsiWord* const height = line.Find(CodeHeight);
        Height = height ? GsiTypedLength(*height) : std::nullopt;
        HeightWarned = false;
        Open = StationSetUp{name, File, LineNumber, {}};
        ++Count.SetUps;
    }

    void ReadSight(const GsiLine& line) {
        Sight sight;
        sight.Line = LineNumber;
        sight.Target = GsiName(line.Words.front());
        if (sight.Target.empty()) {
            Refuse("the point's name holds control characters");
            return;
        }
        if (!ReadAngles(line, sight))
            return;
        if (!Open) {
            if (Stray++ == 0)
                FirstStray = LineNumber;
            LastStray = LineNumber;
            return;
        }
        if (sight.Target == Open->Station) {
            Refuse("the station " + Open->Station + " sights itself");
            return;
        }
        const GsiWord* const distance = line.Find(SlopeDistance);
        sight.Distance = distance ? GsiLength(*distance) : std::nullopt;
        if (sight.Distance && *sight.Distance <= 0)
            sight.Distance.reset();
        ReadHeights(line, sight);
        Open->Sights.push_back(sight);
        ++Count.Sights;
    }

    bool ReadAngles(const GsiLine& line, Sight& sight) {
        const std::optional<double> direction = AngleOf(line, HorizontalCircle);
        const std::optional<double> zenith = AngleOf(line, ZenithAngle);
        if (!direction || !zenith) {
            Refuse(std::string("no readable ") +
                   (direction ? "zenith angle (word 22)" : "direction (word 21)") + " for " + sight.Target);
            return false;
        }
        if (*zenith < 0 || *zenith >= 400 || std::abs(*direction) > 400) {
            Refuse("an angle outside of the circle for " + sight.Target);
            return false;
        }
        sight.Direction = std::fmod(*direction + 400, 400);
        sight.Zenith = *zenith;
        return true;
    }

    static std::optional<double> AngleOf(const GsiLine& line, int index) {
        const GsiWord* const word = line.Find(index);
        return word ? GsiAngle(*word) : std::nullopt;
    }

    void ReadHeights(const GsiLine& line, Sight& sight) {
        const GsiWord* const instrument = line.Find(InstrumentHeight);
        const std::optional<double> own = instrument ? GsiTypedLength(*instrument) : std::nullopt;
        sight.InstrumentHeight = own ? *own : Height.value_or(0);
        if (!own && !Height && !HeightWarned) {
            HeightWarned = true;
            Book.Warnings.push_back(
                {File, Open->Line,
                 fmt::format("station {} has no instrument height, taken as 0", Open->Station)});
        }
        const GsiWord* const target = line.Find(TargetHeight);
        const std::optional<double> read = target ? GsiTypedLength(*target) : std::nullopt;
        TargetHeights.push_back(read);
    }

    // A target height that could not be read is the one read with the target's nearest earlier sight, else
    // with its next later one, else with the nearest earlier sight to any target.
    void FillTargetHeights() {
        std::map<std::string, double> own;
        for (std::size_t i = TargetHeights.size(); i-- > 0;)
            if (TargetHeights[i])
                own[Open->Sights[i].Target] = *TargetHeights[i];
        std::set<std::string> warned;
        double last = 0;
        for (std::size_t i = 0; i < TargetHeights.size(); ++i) {
            Sight& sight = Open->Sights[i];
            if (TargetHeights[i]) {
                last = *TargetHeights[i];
                own[sight.Target] = last;
                sight.TargetHeight = last;
                continue;
            }
            const auto known = own.find(sight.Target);
            sight.TargetHeight = known == own.end() ? last : known->second;
            if (warned.insert(sight.Target).second)
                Book.Warnings.push_back(
                    {File, sight.Line,
                     fmt::format("no target height for {} at {}, taken as {}", sight.Target, Open->Station,
                                 Fixed(sight.TargetHeight, 4, 0))});
        }
        TargetHeights.clear();
    }

    void EndSetUp() {
        if (!Open)
            return;
        FillTargetHeights();
        Book.SetUps.push_back(std::move(*Open));
        Open.reset();
    }

    // Sights in front of the first set-up are told in one line, not in hundreds.
    void EndStray() {
        if (Stray == 0)
            return;
        Count.Unreadable += Stray;
        Book.Unreadable.push_back(
            {File, FirstStray,
             Stray == 1 ? std::string("a sight without a station")
                        : fmt::format("{} sights without a station, to line {}", Stray, LastStray)});
        Stray = 0;
    }

    void Refuse(const std::string& reason) {
        ++Count.Unreadable;
        Book.Unreadable.push_back({File, LineNumber, reason});
    }
    void Warn(const std::string& text) { Book.Warnings.push_back({File, LineNumber, text}); }

    FieldBook& Book;
    std::string File;
    FileCount Count;
    long LineNumber = 0;
    std::optional<StationSetUp> Open;
    std::optional<double> Height;
    bool HeightWarned = false;
    std::vector<std::optional<double>> TargetHeights;  // as read, of the open set-up's sights
    long Stray = 0;
    long FirstStray = 0;
    long LastStray = 0;
};

}  // namespace

void ReadGsiBook(FieldBook& book, const std::string& file, LineReader& reader) {
    GsiBookReader(book, file).Read(reader);
}

}  // namespace Dorvane
