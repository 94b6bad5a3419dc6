// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "krenn/Errors.h"
#include "krenn/Network.h"
#include "krenn/Scan.h"
#include "krenn/input/PointNames.h"
#include "krenn/input/RowFields.h"

namespace Krenn {

enum class Section { Header, None, Stations, Points, Distances, Heights, Angles, Control, Fixed, Pairs };

// What may follow a line of the lists of points.
enum class Expect {
    Name,
    Errors,  // the second line of a coordinate row, or a name
    Blank,   // the empty line behind a name without coordinates
};

struct FixedRow {
    int point;
    int line;
};

struct Sight {
    int from;
    int to;
};

// One reading of an input file. A fault of a row is thrown as a Failure and kept by ReadAll, which goes on
// with the next row.
struct InputState {
    LineCutter lines;
    Network network{};
    PointNames names{};
    Section section = Section::Header;
    const char* title = "";

    // The row at hand: its first line and that line's number, its words, its fields.
    std::string_view rowText{};
    int rowLine = 0;
    std::vector<Word> words{};
    RowFields fields{};

    Expect expect = Expect::Name;
    std::string_view nameText{};  // the last line with a name alone
    int nameLine = 0;
    std::string_view lastStation{};
    int lastStationPoint = -1;

    std::vector<char> isListed{};  // by point: named in a list of points
    std::vector<FixedRow> fixedRows{};
    std::vector<Failure> faults{};
    bool hasFirstHeaderLine = false;
    bool isOfWriter = false;  // the header is that of the writer, who ends every file with the pairs
    bool hasPairs = false;
    bool isStrayTold = false;

    // InputReader.cpp: header, titles, lists, names alone.
    void ReadAll();
    void Finish();
    bool TakeTitle();
    void EndSection();
    Failure FaultHere(const std::string& cause) const;
    void CloseList();
    void TellMissingBlank();
    void RefuseStrayLine();
    void ReadLine();
    void ReadHeaderLine();
    bool TakeWrittenList();
    void ReadListLine();
    void ReadNameForm();
    void NoteOtherErrors();
    int ListedPoint(std::string_view word);
    void TakeCoordinates();
    void ReadNameLine(std::size_t count);
    void PassFaultyRow();
    void CheckEnd();
    void ThrowFaults() const;
    void FixPoints();
    void NoteUnlistedNames();

    // InputObservations.cpp: rows of fields, their names, observations.
    [[noreturn]] void Refuse(ErrorNumber number, const std::string& cause) const;
    [[noreturn]] void RefuseRow(const RowLayout& layout) const;
    const RowLayout& Layout() const;
    void AssembleRow(const RowLayout& layout);
    bool JoinNextLine(const RowLayout& layout);
    int PointNamed(std::string_view word);
    void CheckNewName(std::string_view word) const;
    void CheckDoubtfulNames(const RowLayout& layout) const;
    Sight TakeSight();
    bool TakeWrittenObservation();
    void ReadObservation();
    void AddFields(bool hasMark);
    void AddDistance(bool hasMark);
    void AddHeight();
    void AddAngles();
    void AddObservation(Kind kind, Sight sight, double value, double sigma, const char* what);
};

// The second line of a coordinate row: three numbers, each with an exponent.
bool AreErrors(const std::vector<Word>& words);

}  // namespace Krenn
