// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/fieldbook/Gsi.h"
#include "programs/level/LevelBook.h"

namespace Dorvane {

namespace {

/// The counts and the refusals of one file.
class FileTally {
  public:
    FileTally(LevelBook& book, const std::string& file) : Book(book) { Count.File = file; }
    ~FileTally() { Book.Files.push_back(Count); }
    FileTally(const FileTally&) = delete;
    FileTally& operator=(const FileTally&) = delete;

    void Refuse(long line, const std::string& reason) {
        ++Count.Unreadable;
        Book.Unreadable.push_back({Count.File, line, reason});
    }

    LevelFileCount Count;

  private:
    LevelBook& Book;
};

struct Keyword {
    const char* Word;
    StaffSight Kind;
    bool Second;
};

constexpr Keyword Keywords[] = {{"BS", StaffSight::Back, false},
                                {"BS2", StaffSight::Back, true},
                                {"FS", StaffSight::Fore, false},
                                {"FS2", StaffSight::Fore, true},
                                {"IS", StaffSight::Inter, false}};

std::optional<double> NumberOf(const std::string& word) {
    constexpr double longest = 1e6;  // meters; nothing a staff or a tape shows
    try {
        const double value = IsNumeric(word) ? StrictNumber(word) : 2 * longest;
        return std::abs(value) <= longest ? std::optional<double>(value) : std::nullopt;
    } catch (const RunTimeError&) {
        return std::nullopt;  // beyond the range of a number
    }
}

// The reason why the words are no reading; empty when they are.
std::string ReadPlainReading(const List1<std::string>& words, const Keyword& keyword, StaffReading& reading) {
    if (words.Count() < 3)
        return std::string(keyword.Word) + " wants a point and a reading";
    const std::optional<double> value = NumberOf(words[3]);
    if (!value)
        return "the reading is no number: \"" + words[3] + "\"";
    if (words.Count() >= 4) {
        reading.Distance = NumberOf(words[4]);
        if (!reading.Distance)
            return "the distance is no number: \"" + words[4] + "\"";
    }
    reading.Kind = keyword.Kind;
    reading.Second = keyword.Second;
    reading.Point = words[2];
    reading.TurningPoint = words[2].front() == '*';
    reading.Reading = *value;
    return "";
}

// Text of a length and with a number of words that an entry can have.
bool IsPlainLine(std::string_view text) {
    constexpr std::size_t longest = 256;
    constexpr auto mostSeparators = 49;
    return text.size() <= longest &&
           std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x20 || c == '\t'; }) &&
           std::count_if(text.begin(), text.end(),
                         [](char c) { return c == ' ' || c == '\t' || c == ','; }) <= mostSeparators;
}

constexpr int Point = 11;
constexpr int Distance = 32;
constexpr int Staff = 33;
constexpr int Code = 41;

// The staff reading among a line's words and what it is; null when there is none that levelling uses.
const GsiWord* FindStaffWord(const GsiLine& line, StaffReading& reading) {
    struct Meaning {
        int Extension;
        StaffSight Kind;
        bool Second;
    };
    constexpr Meaning meanings[] = {{1, StaffSight::Back, false},
                                    {2, StaffSight::Fore, false},
                                    {3, StaffSight::Inter, false},
                                    {5, StaffSight::Back, true},
                                    {6, StaffSight::Fore, true}};
    for (const Meaning& meaning : meanings) {
        if (const GsiWord* const word = line.Find(Staff, meaning.Extension)) {
            reading.Kind = meaning.Kind;
            reading.Second = meaning.Second;
            return word;
        }
    }
    return nullptr;
}

bool IsDigitsOnly(const std::string& name) {
    return std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// A line begins and ends on marks, whatever their names are.
void MakeEndsMarks(LevelBook& book, std::size_t firstLine) {
    for (std::size_t i = firstLine; i < book.Lines.size(); ++i) {
        book.Lines[i].SetUps.front().Back.TurningPoint = false;
        book.Lines[i].SetUps.back().Fore.TurningPoint = false;
    }
}

}  // namespace

void ReadPlainLevelBook(LevelBook& book, const std::string& file, LineReader& reader,
                        const StaffCorrection& correction) {
    FileTally tally(book, file);
    LevelAssembler assembler(book, file, correction);
    while (!reader.AtEnd()) {
        const std::string_view whole = reader.ReadLine();
        const std::string_view text = whole.substr(0, whole.find(';'));
        const long number = reader.LineNumber();
        ++tally.Count.Lines;
        if (text.find_first_not_of(" \t,") == std::string_view::npos) {
            tally.Count.Others += whole.empty() ? 0 : 1;
            continue;
        }
        if (!IsPlainLine(text)) {
            tally.Refuse(number, "no line of a levelling book: \"" + Excerpt(text) + "\"");
            continue;
        }
        List1<std::string> words;
        ParseFields(words, text);
        if (words[1] == "LINE") {
            assembler.BeginLine(words.Count() >= 2 ? words[2] : "");
            continue;
        }
        const Keyword* const keyword =
            std::find_if(std::begin(Keywords), std::end(Keywords),
                         [&](const Keyword& known) { return words[1] == known.Word; });
        if (keyword == std::end(Keywords)) {
            tally.Refuse(number, "no entry of a levelling book: \"" + Excerpt(text) + "\"");
            continue;
        }
        StaffReading reading;
        reading.Line = number;
        if (const std::string reason = ReadPlainReading(words, *keyword, reading); !reason.empty()) {
            tally.Refuse(number, reason);
            continue;
        }
        ++tally.Count.Readings;
        assembler.Add(reading);
    }
    assembler.End();
}

void ReadGsiLevelBook(LevelBook& book, const std::string& file, LineReader& reader,
                      const StaffCorrection& correction) {
    FileTally tally(book, file);
    LevelAssembler assembler(book, file, correction);
    const std::size_t firstLine = book.Lines.size();
    while (!reader.AtEnd()) {
        const std::string_view text = reader.ReadLine();
        const long number = reader.LineNumber();
        ++tally.Count.Lines;
        if (text.find_first_not_of(" \t") == std::string_view::npos)
            continue;
        std::string reason;
        const std::optional<GsiLine> line = ParseGsiLine(text, reason);
        if (!line) {
            tally.Refuse(number, reason + ": \"" + Excerpt(text) + "\"");
            continue;
        }
        StaffReading reading;
        reading.Line = number;
        const GsiWord& first = line->Words.front();
        const GsiWord* const staff = first.Index == Point ? FindStaffWord(*line, reading) : nullptr;
        if (first.Index == Code && Contains(first.Data, "?"))
            assembler.BeginLine("");
        if (!staff) {
            if (!line->Damaged.empty())
                tally.Refuse(number, "no word: \"" + Excerpt(line->Damaged.front()) + "\"");
            else
                ++tally.Count.Others;
            continue;
        }
        const std::optional<double> value = GsiLength(*staff);
        reading.Point = GsiName(first);
        if (!value || reading.Point.empty()) {
            tally.Refuse(number,
                         value ? "the point's name holds control characters" : "no readable staff reading");
            continue;
        }
        reading.Reading = *value;
        reading.TurningPoint = IsDigitsOnly(reading.Point);
        if (const GsiWord* const distance = line->Find(Distance))
            reading.Distance = GsiLength(*distance);
        ++tally.Count.Readings;
        assembler.Add(reading);
    }
    assembler.End();
    MakeEndsMarks(book, firstLine);
}

}  // namespace Dorvane
