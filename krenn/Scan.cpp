// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Scan.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Krenn {
namespace {

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',';
}

char UpperCharacter(char c) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 'a' && code <= 'z')
        return static_cast<char>(code - 32);
    if (code >= 0xE0 && code <= 0xFE && code != 0xF7)
        return static_cast<char>(code - 32);
    switch (code) {
        case 0x9A: return static_cast<char>(0x8A);
        case 0x9C: return static_cast<char>(0x8C);
        case 0x9E: return static_cast<char>(0x8E);
        case 0xFF: return static_cast<char>(0x9F);
        default: return c;
    }
}

}  // namespace

bool LineCutter::Next() {
    if (rest.empty())
        return false;
    ++number;
    std::size_t end = 0;
    while (end < rest.size() && rest[end] != '\n' && rest[end] != '\r')
        ++end;
    if (end == rest.size()) {
        line = rest;
        rest = {};
        return true;
    }
    line = rest.substr(0, end);
    const bool isPair = rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n';
    rest.remove_prefix(end + (isPair ? 2 : 1));
    return true;
}

void AppendWords(std::string_view line, std::vector<Word>& words) {
    std::size_t at = 0;
    while (at < line.size()) {
        if (IsSeparator(line[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < line.size() && !IsSeparator(line[end]))
            ++end;
        words.push_back({line.substr(at, end - at), static_cast<int>(at) + 1});
        at = end;
    }
}

std::optional<double> FullNumber(std::string_view text) {
    const bool hasSign = !text.empty() && (text.front() == '+' || text.front() == '-');
    const std::string_view digits = text.substr(hasSign ? 1 : 0);
    if (digits.empty() || (digits.front() != '.' && (digits.front() < '0' || digits.front() > '9')))
        return std::nullopt;
    // from_chars knows no leading plus.
    if (text.front() == '+')
        text = digits;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperCharacter);
    return upper;
}

bool SameText(std::string_view left, std::string_view right) {
    left = Trimmed(left);
    right = Trimmed(right);
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(),
                      [](char a, char b) { return UpperCharacter(a) == UpperCharacter(b); });
}

std::string Printable(std::string_view text, std::size_t limit) {
    const bool isCut = text.size() > limit;
    std::string printable(text.substr(0, limit));
    for (char& c : printable) {
        if (static_cast<unsigned char>(c) < 32 || c == 127)
            c = c == '\t' ? ' ' : '?';
    }
    if (isCut)
        printable += " ...";
    return printable;
}

}  // namespace Krenn
