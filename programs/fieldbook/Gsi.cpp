// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/fieldbook/Gsi.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr double Foot = 0.3048;  // meters

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A word's head is two digits, four characters and the sign.
constexpr std::size_t HeadLength = 7;

bool ReadWord(std::string_view text, std::size_t dataLength, GsiWord& word) {
    const std::size_t length = HeadLength + dataLength;
    if (text.size() < length || !IsDigit(text[0]) || !IsDigit(text[1]))
        return false;
    if (text[6] != '+' && text[6] != '-')
        return false;
    if (text.size() > length && text[length] != ' ' && text[length] != '\t')
        return false;
    word.Index = (text[0] - '0') * 10 + (text[1] - '0');
    word.Info = text.substr(2, 4);
    word.Negative = text[6] == '-';
    word.Data = text.substr(HeadLength, dataLength);
    return true;
}

// The data as a number in the last digit's units; or, with a written point, in whole units.
struct Reading {
    double Value = 0;
    bool HasPoint = false;
};

std::optional<Reading> ReadNumber(const GsiWord& word) {
    const std::string digits = Trim(word.Data);
    const auto points = std::count(digits.begin(), digits.end(), '.');
    const bool clean =
        std::all_of(digits.begin(), digits.end(), [](char c) { return IsDigit(c) || c == '.'; });
    if (!clean || points > 1 || digits.size() == static_cast<std::size_t>(points))
        return std::nullopt;
    Reading reading{0, points == 1};
    std::from_chars(digits.data(), digits.data() + digits.size(), reading.Value);
    if (word.Negative)
        reading.Value = -reading.Value;
    return reading;
}

std::optional<double> Scaled(const GsiWord& word, double lastDigits, double unit) {
    const std::optional<Reading> reading = ReadNumber(word);
    if (!reading)
        return std::nullopt;
    return (reading->HasPoint ? reading->Value : reading->Value / lastDigits) * unit;
}

std::optional<double> Sexagesimal(const GsiWord& word) {
    const std::optional<Reading> reading = ReadNumber(word);
    if (!reading || reading->HasPoint)
        return std::nullopt;
    const double whole = std::abs(reading->Value);
    const double tenths = std::fmod(whole, 1000);
    const double minutes = std::fmod(std::floor(whole / 1000), 100);
    const double degrees = std::floor(whole / 100000);
    if (tenths > 600 || minutes > 59)
        return std::nullopt;
    const double gons = (degrees + minutes / 60 + tenths / 36000) / 0.9;
    return word.Negative ? -gons : gons;
}

}  // namespace

const GsiWord* GsiLine::Find(int index) const {
    for (const GsiWord& word : Words)
        if (word.Index == index)
            return &word;
    return nullptr;
}

const GsiWord* GsiLine::Find(int index, int extension) const {
    for (const GsiWord& word : Words)
        if (word.Index == index && word.Extension() == extension)
            return &word;
    return nullptr;
}

std::optional<GsiLine> ParseGsiLine(std::string_view line, std::string& reason) {
    const bool wide = !line.empty() && line.front() == '*';
    if (wide)
        line.remove_prefix(1);
    const std::size_t dataLength = wide ? 16 : 8;
    GsiLine parsed;
    for (;;) {
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string_view::npos)
            break;
        line.remove_prefix(start);
        GsiWord word;
        if (ReadWord(line, dataLength, word)) {
            parsed.Words.push_back(std::move(word));
            line.remove_prefix(HeadLength + dataLength);
            continue;
        }
        const std::string_view damaged = line.substr(0, line.find_first_of(" \t"));
        if (parsed.Words.empty()) {
            reason = wide ? "the first word is no word of 16 characters"
                          : "the first word is no word of 8 characters";
            return std::nullopt;
        }
        parsed.Damaged.emplace_back(damaged);
        line.remove_prefix(damaged.size());
    }
    if (parsed.Words.empty()) {
        reason = "no word";
        return std::nullopt;
    }
    return parsed;
}

std::optional<double> GsiLength(const GsiWord& word) {
    switch (word.Unit()) {
        case '0': return Scaled(word, 1000, 1);
        case '1': return Scaled(word, 1000, Foot);
        case '6': return Scaled(word, 10000, 1);
        case '7': return Scaled(word, 10000, Foot);
        case '8': return Scaled(word, 100000, 1);
        default: return std::nullopt;
    }
}

std::optional<double> GsiTypedLength(const GsiWord& word) {
    return word.Unit() == '.' ? Scaled(word, 1000, 1) : GsiLength(word);
}

std::optional<double> GsiAngle(const GsiWord& word) {
    switch (word.Unit()) {
        case '2': return Scaled(word, 100000, 1);
        case '3': return Scaled(word, 100000, 1 / 0.9);
        case '4': return Sexagesimal(word);
        case '5': return Scaled(word, 10000, 400.0 / 6400.0);
        default: return std::nullopt;
    }
}

std::string GsiName(const GsiWord& word) {
    std::string name = Trim(word.Data);
    const std::size_t start = name.find_first_not_of("0 ");
    if (start == std::string::npos)
        return "0";
    name = UpperCase(name.substr(start));
    for (char& c : name) {
        if (c == ' ' || c == ',' || c == '\t')
            c = '_';
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            return "";
    }
    return name;
}

}  // namespace Dorvane
