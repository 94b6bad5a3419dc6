// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Scan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace Krenn {
namespace {

bool IsSeparator(char c) {
    return c == ' ' || c == '\t' || c == ',';
}

constexpr std::array<char, 256> UpperCharacters() {
    std::array<char, 256> upper{};
    for (unsigned code = 0; code < 256; ++code) {
        const bool isLower = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
        upper[code] = static_cast<char>(isLower ? code - 32 : code);
    }
    upper[0x9A] = static_cast<char>(0x8A);
    upper[0x9C] = static_cast<char>(0x8C);
    upper[0x9E] = static_cast<char>(0x8E);
    upper[0xFF] = static_cast<char>(0x9F);
    return upper;
}

constexpr std::array<char, 256> kUpper = UpperCharacters();
constexpr std::size_t kDecimals = 5;
constexpr double kDecimalScale = 1e5;
// Up to here a row of digits and its scale are both exact, so that one division rounds as it should.
constexpr std::size_t kExactDigits = 15;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

char UpperCharacter(char c) {
    return kUpper[static_cast<unsigned char>(c)];
}

bool LineCutter::Next() {
    if (rest.empty())
        return false;
    ++number;
    const char* const begin = rest.data();
    const char* const end = begin + rest.size();
    if (feed == nullptr || feed < begin) {
        const void* const found = std::memchr(begin, '\n', rest.size());
        feed = found == nullptr ? end : static_cast<const char*>(found);
    }
    const void* const found = std::memchr(begin, '\r', static_cast<std::size_t>(feed - begin));
    const char* const cut = found == nullptr ? feed : static_cast<const char*>(found);
    line = {begin, static_cast<std::size_t>(cut - begin)};
    const std::ptrdiff_t ends = cut == end ? 0 : *cut == '\r' && cut + 1 != end && cut[1] == '\n' ? 2 : 1;
    rest.remove_prefix(line.size() + static_cast<std::size_t>(ends));
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

std::size_t TakeWrittenNumber(std::string_view text, double& value) {
    const bool isNegative = !text.empty() && text.front() == '-';
    const std::size_t first = isNegative ? 1 : 0;
    std::size_t point = first;
    std::int64_t digits = 0;
    for (; point < text.size() && point - first < kExactDigits - kDecimals && IsDigit(text[point]); ++point)
        digits = digits * 10 + (text[point] - '0');
    const std::size_t end = point + 1 + kDecimals;
    const bool hasNeedlessZero = point > first + 1 && text[first] == '0';
    if (point == first || hasNeedlessZero || end > text.size() || text[point] != '.')
        return 0;
    for (std::size_t i = point + 1; i < end; ++i) {
        if (!IsDigit(text[i]))
            return 0;
        digits = digits * 10 + (text[i] - '0');
    }
    if (end < text.size() && (IsDigit(text[end]) || text[end] == '.'))
        return 0;
    const double size = static_cast<double>(digits) / kDecimalScale;
    value = isNegative ? -size : size;
    return end;
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
