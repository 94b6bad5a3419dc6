// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CoordinateFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "datatree/GuardedReader.h"
#include "input/CountLines.h"

namespace Dorvane {

namespace {

constexpr double EarthRadius = 6372508.025;  // meters
constexpr double GeodLimit = 500.0;          // at and above this height Z is geodetic already

struct Bias {
    double X = 0;
    double Y = 0;
    double Z = 0;
};

void Tell(const std::string& title, const std::string& text) {
    TheDesktop().ShowMessage({.Text = text, .Title = title, .Picture = Icon::Stop});
}

bool TellIfMissing(const std::string& folder, const std::string& file, const std::string& ending) {
    if (FileExists(folder + file))
        return false;
    Tell("File Not Found", "File " + file + " does not exist in the choosen path!" + ending);
    return true;
}

void TakePoint(ObsPoint& point, const List1<std::string>& words) {
    point.Name = words[1];
    point.X = LeadingNumber(words[2]);
    point.Y = LeadingNumber(words[3]);
    point.Z = LeadingNumber(words[4]);
}

/// Reads the lines behind the first `skipped` ones into a list that is sized for them. `take` fills one
/// record from the words of its line, and refuses a line of the wrong length. The count of records, 0 when a
/// line was refused, which has been told.
template <class Record>
std::int16_t ReadRecords(Guard& guard, List1<Record>& records, const std::string& folder,
                         const std::string& file, int skipped,
                         const std::function<bool(Record&, const List1<std::string>&)>& take) {
    records.Clear();
    guard.Run([&] { records.Resize(CountLines(folder + file, skipped)); });
    GuardedReader lines(guard, folder + file);
    for (int i = 0; i < skipped; ++i)
        lines.ReadLine();
    List1<std::string> words;
    std::int16_t count = 0;
    while (!lines.AtEnd()) {
        ParseFields(words, lines.ReadLine());
        if (!take(records[++count], words)) {
            Tell("Problem Reading File", "Problem reading from " + file + "!");
            return 0;
        }
    }
    return count;
}

// False for a line of the wrong length.
bool TakeDbsPoint(Dbs3DPoint& point, const List1<std::string>& words) {
    if (words.Count() != 11)
        return false;
    point.Name = words[1];
    point.X = LeadingNumber(words[5]);
    point.Y = LeadingNumber(words[6]);
    point.Z = LeadingNumber(words[7]);
    point.ErrorAngle = LeadingNumber(words[8]);
    point.ErrorMajor = LeadingNumber(words[9]);
    point.ErrorMinor = LeadingNumber(words[10]);
    point.SZ = LeadingNumber(words[11]);
    return true;
}

// Reads the second line. False when it is no bias line.
bool ReadBias(Guard& guard, const std::string& path, Bias& bias) {
    GuardedReader lines(guard, path);
    lines.ReadLine();
    const std::string& line = lines.ReadLine();
    if (UpperCase(Trim(Left(line, 8))) != "BIAS")
        return false;
    bias.X = LeadingNumber(Mid(line, 10, 10));
    bias.Y = LeadingNumber(Mid(line, 22, 10));
    bias.Z = LeadingNumber(Mid(line, 34, 9));
    return true;
}

}  // namespace

std::int16_t ReadBddFile(List1<ObsPoint>& points, const std::string& folder, const std::string& file) {
    std::int16_t result = 0;
    Guarded("basRead-ReadBddFile", [&](Guard& guard) {
        if (TellIfMissing(folder, file, ""))
            return;
        Bias bias;
        if (!ReadBias(guard, folder + file, bias)) {
            Tell("Bias Not Found", "Bias does not exist in file " + file + "!");
            return;
        }
        result =
            ReadRecords<ObsPoint>(guard, points, folder, file, 2, [&](ObsPoint& point, const auto& words) {
                if (words.Count() != 7)
                    return false;
                TakePoint(point, words);
                point.Extra1 = LeadingNumber(words[5]);
                point.Extra2 = LeadingNumber(words[6]);
                point.Extra3 = LeadingNumber(words[7]);
                point.CoordSource = 4;
                if (point.Z < GeodLimit)
                    Geod(point, bias.X, bias.Y, bias.Z);
                return true;
            });
    });
    return result;
}

std::int16_t ReadGenFile(List1<ObsPoint>& points, const std::string& folder, const std::string& file) {
    std::int16_t result = 0;
    Guarded("basRead-ReadGenFile", [&](Guard& guard) {
        if (TellIfMissing(folder, file, ""))
            return;
        result =
            ReadRecords<ObsPoint>(guard, points, folder, file, 0, [](ObsPoint& point, const auto& words) {
                if (words.Count() != 4 && words.Count() != 7)
                    return false;
                TakePoint(point, words);
                point.CoordSource = 3;
                return true;
            });
    });
    return result;
}

void Geod(ObsPoint& point, double biasX, double biasY, double biasZ) {
    const double x = point.X - biasX;
    const double y = point.Y - biasY;
    const double z = std::sqrt(EarthRadius * EarthRadius + x * x + y * y) + point.Z - EarthRadius + biasZ;
    if (!std::isfinite(z))
        throw RunTimeError(Overflow);
    point.Z = z;
}

namespace {

// The names of the numbers of a line, from its fifth word on.
constexpr std::array<const char*, 7> DbsNumbers = {
    "X", "Y", "Z", "angle of the ellipse", "first half axis", "second half axis", "SZ"};
constexpr int FirstDbsNumber = 5;

bool HasDbsNumbers(const List1<std::string>& words) {
    return std::all_of(words.begin() + FirstDbsNumber - 1, words.end(), IsNumeric);
}

// A word that is no number would be stored as another one, and nobody would see it.
void CheckDbsNumbers(const List1<std::string>& words, const std::string& path, int line) {
    for (std::size_t i = 0; i < DbsNumbers.size(); ++i) {
        const std::string& word = words[FirstDbsNumber + static_cast<int>(i)];
        if (!IsNumeric(word))
            throw RunTimeError(TypeMismatch, fmt::format("{}, line {}: {} is \"{}\", which is no number",
                                                         path, line, DbsNumbers[i], word));
    }
}

}  // namespace

std::int16_t ReadDbs3DFile(List1<Dbs3DPoint>& points, const std::string& folder, const std::string& file,
                           std::string& header1, std::string& header2, std::string& header3) {
    std::int16_t result = 0;
    Guarded("basRead-ReadDbs3DFile", [&](Guard& guard) {
        if (TellIfMissing(folder, file, "  Can not read"))
            return;
        List1<std::string> header;
        ParseFields(header, GuardedReader(guard, folder + file).ReadLine());
        if (header.Count() != 3) {
            Tell("Header Error", "File " + file + " does not contain the proper header info!  Can not read");
            return;
        }
        header1 = header[1];
        header2 = header[2];
        header3 = header[3];
        int line = 1;
        result = ReadRecords<Dbs3DPoint>(guard, points, folder, file, 1,
                                         [&](Dbs3DPoint& point, const auto& words) {
                                             ++line;
                                             if (!TakeDbsPoint(point, words))
                                                 return false;
                                             CheckDbsNumbers(words, folder + file, line);
                                             return true;
                                         });
    });
    return result;
}

std::optional<Dbs3DFile> PeekDbs3DFile(const std::string& path) {
    if (!FileExists(path))
        return std::nullopt;
    LineReader lines(path);
    List1<std::string> words;
    if (lines.AtEnd() || ParseFields(words, lines.ReadLine()) != 3)
        return std::nullopt;
    Dbs3DFile file{words[1], words[2], words[3], {}};
    while (!lines.AtEnd()) {
        ParseFields(words, lines.ReadLine());
        Dbs3DPoint point;
        if (!TakeDbsPoint(point, words) || !HasDbsNumbers(words))
            return std::nullopt;
        file.Points.Add(point);
    }
    return file;
}

}  // namespace Dorvane
