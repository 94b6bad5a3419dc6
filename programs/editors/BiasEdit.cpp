// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/BiasEdit.h"

#include <algorithm>
#include <set>

#include "core/ColumnLine.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "programs/editors/CodeEntry.h"

namespace Dorvane {

namespace {

constexpr int ValueColumn = 10;
constexpr std::size_t EntryWords = 5;
constexpr std::string_view Separators = " ,\t";

// The first words of a line, as they are read, and what follows them.
std::vector<std::string> FirstWords(const std::string& line, std::string& tail) {
    std::vector<std::string> words;
    std::size_t place = 0;
    while (words.size() < EntryWords) {
        place = line.find_first_not_of(Separators, place);
        if (place == std::string::npos)
            break;
        const std::size_t end = std::min(line.find_first_of(Separators, place), line.size());
        words.push_back(UpperCase(line.substr(place, end - place)));
        place = end;
    }
    tail = words.size() == EntryWords ? line.substr(place) : "";
    return words;
}

std::string KeyProblem(const std::string& key) {
    if (key.empty())
        return "has no location";
    if (key.size() > LongestCode)
        return "has more than 8 characters";
    if (key != UpperCase(key))
        return "is not in upper case";
    if (key.front() == ';')
        return "would be a comment";
    if (HasControlCharacter(key) || key.find_first_of(Separators) != std::string::npos)
        return "has a character that ends a word";
    return "";
}

}  // namespace

BiasLine ParseBiasLine(const std::string& line) {
    BiasLine result;
    result.Raw = line;
    if (line.empty() || line.front() == ' ' || line.front() == ';')
        return result;
    const std::vector<std::string> words = FirstWords(line, result.Tail);
    // Where the first word is not the first eight columns, no location finds the line.
    if (words.size() < EntryWords || words[0] != UpperCase(Trim(Left(line, LongestCode))) ||
        !std::all_of(words.begin() + 1, words.end(), [](const std::string& word) { return IsNumeric(word); }))
        return result;
    result.IsEntry = true;
    result.Key = words[0];
    std::copy(words.begin() + 1, words.end(), result.Values.begin());
    return result;
}

std::string FormatBiasLine(const BiasLine& line) {
    if (!line.IsEntry)
        return line.Raw;
    const BiasLine former = ParseBiasLine(line.Raw);
    if (former.IsEntry && former.Key == line.Key && former.Values == line.Values)
        return line.Raw;
    ColumnLine text;
    text.At(1, line.Key).At(ValueColumn, line.Values[0]);
    for (std::size_t i = 1; i < line.Values.size(); ++i)
        text.Then(" ").Then(line.Values[i]);
    return text.Then(line.Tail).Text();
}

std::string FormatBias(const std::vector<BiasLine>& lines) {
    std::string text;
    for (const BiasLine& line : lines)
        text += FormatBiasLine(line) + "\r\n";
    return text;
}

BiasEdit OpenBias(const std::string& folder) {
    BiasEdit bias;
    bias.File = OpenEditedFile(folder + "BIAS.STR");
    if (!bias.File.Exists)
        bias.Lines.push_back({"", true, "STDBIAS", {"0", "0", "0", "0"}, ""});
    LineReader reader = LineReader::OfText(bias.File.Content);
    while (!reader.AtEnd()) {
        const std::string line(reader.ReadLine());
        if (HasControlCharacter(line) && bias.Problem.empty())
            bias.Problem = "Line " + std::to_string(reader.LineNumber()) + " has a control character.";
        bias.Lines.push_back(ParseBiasLine(line));
    }
    return bias;
}

std::vector<std::string> BiasProblems(const BiasEdit& bias) {
    if (!bias.Problem.empty())
        return {"BIAS.STR: " + bias.Problem};
    std::vector<std::string> problems;
    std::set<std::string> keys;
    for (const BiasLine& line : bias.Lines) {
        if (!line.IsEntry)
            continue;
        std::string problem = KeyProblem(line.Key);
        if (problem.empty() && !keys.insert(line.Key).second)
            problem = "stands there twice";
        for (const std::string& value : line.Values)
            if (problem.empty() &&
                (!IsNumeric(value) || value.find_first_of(Separators) != std::string::npos))
                problem = "has a value that is no number: \"" + value + "\"";
        if (!problem.empty())
            problems.push_back((line.Key.empty() ? "A line" : line.Key) + " " + problem + ".");
    }
    return problems;
}

std::string SaveBias(BiasEdit& bias) {
    return SaveEditedFiles({{&bias.File, FormatBias(bias.Lines)}});
}

}  // namespace Dorvane
