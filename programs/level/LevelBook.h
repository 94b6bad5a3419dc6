// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/LineReader.h"
#include "programs/fieldbook/ProtocolText.h"

// A levelling book: lines (runs of the level) of set-ups, each with a backsight, a foresight and any number
// of intersights. Lengths in meters.
namespace Dorvane {

enum class StaffSight { Back, Fore, Inter };

/// One staff reading as it stands in the book.
struct StaffReading {
    StaffSight Kind = StaffSight::Back;
    bool Second = false;  // the second reading of a double one
    std::string Point;
    bool TurningPoint = false;
    double Reading = 0;
    std::optional<double> Distance;
    long Line = 0;
};

/// A set-up's sight to one point: the mean of its readings.
struct StaffMean {
    std::string Point;
    bool TurningPoint = false;
    std::vector<double> Readings;
    std::optional<double> Distance;
    long Line = 0;

    double Mean() const;
};

struct LevelSetUp {
    StaffMean Back;
    StaffMean Fore;
    std::vector<StaffMean> Inter;
    bool HasBack = false;
    bool HasFore = false;
};

struct LevelLine {
    std::string Name;                // may be empty
    std::string File;                // without its folder
    std::vector<LevelSetUp> SetUps;  // the foresight of each is the backsight point of the next
};

struct LevelFileCount {
    std::string File;
    long Lines = 0;  // of the file
    long Readings = 0;
    long Others = 0;  // comments and words that levelling does not need
    long Unreadable = 0;
};

struct LevelBook {
    std::vector<LevelLine> Lines;
    std::vector<LevelFileCount> Files;
    std::vector<Remark> Unreadable;
    std::vector<Remark> Warnings;
};

/// What corrects a reading r at the distance d, by the scale s and the collimation c. The line of sight has
/// risen by c d at the staff; an upright staff counts upward from the point, so the horizontal runs s r - c d
/// above it. An inverted staff counts downward, so the horizontal runs s r + c d below the point: the reading
/// is -(s r + c d).
struct StaffCorrection {
    double Scale = 1;
    double Collimation = 0;          // rise of the line of sight in meters per meter
    std::set<std::string> Inverted;  // points on which the staff stands upside down
};

/// Puts the readings of one file together to set-ups and lines.
///
/// A set-up is closed by the first reading of a kind that it has already, once it has a backsight and a
/// foresight; so backsight and foresight may come in either order, and second readings where they like. A
/// first reading repeated before that takes the place of the one before, which is named. A second reading
/// needs its first one, to the same point. An intersight belongs to the set-up that is open. When a set-up's
/// backsight point is not the foresight point of the one before, the line ends there and a new one begins,
/// with a warning. A set-up without one of the two sights, or with both to one point, is left out and ends
/// its line, with a warning; only the nameless turning point "*" may stand on both sides.
class LevelAssembler {
  public:
    LevelAssembler(LevelBook& book, const std::string& file, const StaffCorrection& correction);

    void Add(const StaffReading& reading);
    void BeginLine(const std::string& name);
    void End();

  private:
    void CloseSetUp();
    void CloseLine();
    void Warn(long line, const std::string& text);
    double Corrected(const StaffReading& reading);
    StaffMean Start(const StaffReading& reading);

    LevelBook& Book;
    std::string File;
    const StaffCorrection& Correction;
    LevelLine Open;
    LevelSetUp Present;
    bool Uncorrected = false;  // the missing distance for the collimation was named
};

/// Reads a book in the plain format, one entry a line, words separated by blanks, commas or tabs, case
/// ignored:
///   LINE [name]                       a line begins
///   BS point reading [distance]       backsight       BS2  its second reading
///   FS point reading [distance]       foresight       FS2  its second reading
///   IS point reading [distance]       intersight
/// A point that begins with "*" is a turning point. What follows ";" is a comment. A line that cannot be read
/// is named with its number, and the rest goes on.
void ReadPlainLevelBook(LevelBook& book, const std::string& file, LineReader& reader,
                        const StaffCorrection& correction);

/// Reads a book of a digital level in GSI format: word 41 with "?" begins a line; 11 is the point; 331 and
/// 335 are backsights, first and second, 332 and 336 foresights, 333 an intersight; 32 is the distance. A
/// point of digits alone is a turning point, unless a line begins or ends on it.
void ReadGsiLevelBook(LevelBook& book, const std::string& file, LineReader& reader,
                      const StaffCorrection& correction);

}  // namespace Dorvane
