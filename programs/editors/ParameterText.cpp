// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/ParameterText.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/editors/CodeEntry.h"
#include "programs/editors/InputVersion.h"

namespace Dorvane {

namespace {

constexpr std::string_view Blanks = " \t";
constexpr char CommentMark = ';';

// A piece of a line.
struct Piece {
    std::size_t Start = 0;
    std::size_t Length = 0;
};

// Where the parts of an entry stand in its line.
struct EntryPlaces {
    Piece Key;
    Piece Value;
    Piece Comment;  // behind its mark
    bool HasComment = false;
};

Piece Shrunk(std::string_view line, std::size_t start, std::size_t end) {
    while (start < end && Blanks.find(line[start]) != std::string_view::npos)
        ++start;
    while (end > start && Blanks.find(line[end - 1]) != std::string_view::npos)
        --end;
    return {start, end - start};
}

std::string Of(std::string_view line, const Piece& piece) {
    return std::string(line.substr(piece.Start, piece.Length));
}

std::string_view WithoutEnd(std::string_view raw) {
    while (!raw.empty() && (raw.back() == '\r' || raw.back() == '\n'))
        raw.remove_suffix(1);
    return raw;
}

// False when the line is no entry.
bool FindEntry(std::string_view line, EntryPlaces& places) {
    const std::size_t mark = std::min(line.find(CommentMark), line.size());
    const std::size_t sign = line.find('=');
    if (sign >= mark || HasControlCharacter(line))
        return false;
    places.Key = Shrunk(line, 0, sign);
    places.Value = Shrunk(line, sign + 1, mark);
    // An empty value stands behind the blank that follows the sign.
    if (places.Value.Length == 0)
        places.Value.Start = std::min(sign + 2, mark);
    places.HasComment = mark < line.size();
    places.Comment = places.HasComment ? Shrunk(line, mark + 1, line.size()) : Piece{line.size(), 0};
    return places.Key.Length > 0 && Of(line, places.Key).find_first_of(Blanks) == std::string::npos;
}

std::string FormatLine(const ParameterLine& line, const std::string& lineEnd) {
    if (!line.IsEntry)
        return line.Raw;
    EntryPlaces places;
    const std::string_view former = WithoutEnd(line.Raw);
    if (line.Raw.empty() || !FindEntry(former, places))
        return line.Key + " = " + line.Value + (line.Comment.empty() ? "" : "   ; " + line.Comment) + lineEnd;
    std::string text = line.Raw;
    // From the right to the left, so that the places stay true.
    if (line.Comment != Of(former, places.Comment)) {
        if (line.Comment.empty())
            text.erase(places.Value.Start + places.Value.Length,
                       former.size() - places.Value.Start - places.Value.Length);
        else if (places.HasComment)
            text.replace(places.Comment.Start, places.Comment.Length, line.Comment);
        else
            text.insert(former.size(), "   ; " + line.Comment);
    }
    if (line.Value != Of(former, places.Value))
        text.replace(places.Value.Start, places.Value.Length, line.Value);
    if (line.Key != Of(former, places.Key))
        text.replace(places.Key.Start, places.Key.Length, line.Key);
    return text;
}

std::string TextProblem(const ParameterLine& line) {
    if (line.Key.empty())
        return "has no key";
    if (line.Key.find_first_of("=; \t,") != std::string::npos)
        return "has a character that no key can have";
    if (line.Value.empty())
        return "has no value";
    if (line.Value.find(CommentMark) != std::string::npos)
        return "has a value with the \";\" of a comment";
    if (HasControlCharacter(line.Key + line.Value + line.Comment))
        return "has a control character";
    return "";
}

std::string UnknownKey(const std::string& key) {
    const Krenn::ParameterKey* nearest = Krenn::NearestParameterKey(key);
    return fmt::format("The adjustment does not know the key {}{}.", key,
                       nearest == nullptr ? "" : fmt::format("; {} is one", nearest->key));
}

std::string ValueProblem(const ParameterLine& line) {
    const Krenn::ParameterKey* key = Krenn::FindParameterKey(line.Key);
    Krenn::Parameters ignored;
    return key == nullptr ? UnknownKey(line.Key) : Krenn::SetParameter(*key, line.Value, ignored);
}

// What a file that is not there begins with; the name of the master's when it is that.
std::string FirstContent(const std::string& path, std::string& master) {
    std::string folder;
    std::string file;
    SplitFolderFile(path, folder, file);
    const std::string name = BeforeFirstPoint(file);
    if (!VersionOf(name).empty()) {
        const std::string of = MasterOf(name) + file.substr(name.size());
        const EditedFile former = OpenEditedFile(folder + of);
        if (former.Exists) {
            master = of;
            return former.Content;
        }
    }
    return Krenn::DefaultParameterText();
}

void ReadLines(const std::string& content, ParameterEdit& parameters) {
    std::size_t start = 0;
    while (start < content.size()) {
        std::size_t end = std::min(content.find_first_of("\r\n", start), content.size());
        if (end < content.size())
            end += content.compare(end, 2, "\r\n") == 0 ? 2 : 1;
        parameters.Lines.push_back(ParseParameterLine(content.substr(start, end - start)));
        start = end;
    }
}

}  // namespace

ParameterLine ParseParameterLine(const std::string& raw) {
    ParameterLine line;
    line.Raw = raw;
    EntryPlaces places;
    const std::string_view text = WithoutEnd(raw);
    if (!FindEntry(text, places))
        return line;
    line.IsEntry = true;
    line.Key = Of(text, places.Key);
    line.Value = Of(text, places.Value);
    line.Comment = Of(text, places.Comment);
    return line;
}

ParameterEdit OpenParameters(const std::string& path) {
    ParameterEdit parameters;
    parameters.File = OpenEditedFile(path);
    ReadLines(parameters.File.Exists ? parameters.File.Content : FirstContent(path, parameters.Master),
              parameters);
    if (!parameters.Lines.empty()) {
        const std::string& first = parameters.Lines.front().Raw;
        const std::size_t text = WithoutEnd(first).size();
        if (text < first.size())
            parameters.LineEnd = first.substr(text);
    }
    return parameters;
}

std::string FormatParameters(const ParameterEdit& parameters) {
    std::string text;
    for (const ParameterLine& line : parameters.Lines) {
        const std::string next = FormatLine(line, parameters.LineEnd);
        // The last line of a file may have no end; what follows it begins a line of its own.
        const bool open = !text.empty() && text.back() != '\n' && text.back() != '\r';
        if (open && !next.empty())
            text += parameters.LineEnd;
        text += next;
    }
    return text;
}

void ApplyParameters(ParameterEdit& parameters, const std::vector<WantedParameter>& wanted) {
    const int former = static_cast<int>(parameters.Lines.size());
    std::map<int, ParameterLine> kept;
    std::map<int, std::vector<ParameterLine>> behind;
    // Before the first entry is behind the last line above it; without any, at the end of the text.
    int last = 0;
    while (last < former && !parameters.Lines[static_cast<std::size_t>(last)].IsEntry)
        ++last;
    while (last == former && last > 0 &&
           WithoutEnd(parameters.Lines[static_cast<std::size_t>(last) - 1].Raw) ==
               std::string_view(&EndOfFileMark, 1))
        --last;
    for (const WantedParameter& entry : wanted) {
        ParameterLine line{"", true, entry.Key, entry.Value, entry.Comment};
        if (entry.Place > 0 && entry.Place <= former) {
            line.Raw = parameters.Lines[static_cast<std::size_t>(entry.Place) - 1].Raw;
            last = entry.Place;
            kept[last] = line;
        } else {
            behind[last].push_back(line);
        }
    }
    std::vector<ParameterLine> lines = behind[0];
    for (int place = 1; place <= former; ++place) {
        const ParameterLine& line = parameters.Lines[static_cast<std::size_t>(place) - 1];
        if (!line.IsEntry)
            lines.push_back(line);
        else if (kept.count(place) > 0)
            lines.push_back(kept[place]);
        lines.insert(lines.end(), behind[place].begin(), behind[place].end());
    }
    parameters.Lines = std::move(lines);
}

std::string DescribeParameter(const std::string& key) {
    const Krenn::ParameterKey* known = Krenn::FindParameterKey(key);
    return known == nullptr ? UnknownKey(key)
                            : fmt::format("{}: {}; takes {}, without it {}", known->key, known->meaning,
                                          Krenn::ParameterAllowed(*known), Krenn::ParameterDefault(*known));
}

std::vector<std::string> ParameterProblems(const ParameterEdit& parameters) {
    std::vector<std::string> problems;
    std::map<std::string, int> count;
    for (const ParameterLine& line : parameters.Lines)
        if (line.IsEntry)
            ++count[UpperCase(line.Key)];
    for (const ParameterLine& line : parameters.Lines) {
        if (!line.IsEntry || FormatLine(line, "") == line.Raw)
            continue;
        std::string problem = TextProblem(line);
        if (problem.empty() && count[UpperCase(line.Key)] > 1 &&
            !EqualIgnoringCase(ParseParameterLine(line.Raw).Key, line.Key))
            problem = "stands there twice";
        if (!problem.empty())
            problem = (line.Key.empty() ? "A line" : line.Key) + " " + problem + ".";
        else
            problem = ValueProblem(line);
        if (!problem.empty())
            problems.push_back(problem);
    }
    return problems;
}

std::vector<std::string> ParameterWords(const std::string& key) {
    const Krenn::ParameterKey* known = Krenn::FindParameterKey(key);
    if (known == nullptr)
        return {};
    return {known->words.begin(), known->words.end()};
}

std::string SaveParameters(ParameterEdit& parameters) {
    return SaveEditedFiles({{&parameters.File, FormatParameters(parameters)}});
}

}  // namespace Dorvane
