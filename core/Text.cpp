// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/RunTimeError.h"

namespace Dorvane {

namespace {

// The characters of bytes 0x80 to 0x9F; the code page leaves five of them to the control characters.
constexpr std::array<char32_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char Byte(char c) {
    return static_cast<unsigned char>(c);
}

constexpr char UpperOf(char c) {
    const unsigned char b = Byte(c);
    const bool plain = b >= 'a' && b <= 'z';
    const bool accented = b >= 0xE0 && b <= 0xFE && b != 0xF7;
    if (plain || accented)
        return static_cast<char>(b - 0x20);
    switch (b) {
        case 0x9A:
        case 0x9C:
        case 0x9E: return static_cast<char>(b - 0x10);
        case 0xFF: return static_cast<char>(0x9F);
        default: return c;
    }
}

constexpr std::array<char, 256> UpperTable = [] {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[static_cast<std::size_t>(i)] = UpperOf(static_cast<char>(i));
    return table;
}();

char Upper(char c) {
    return UpperTable[Byte(c)];
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsGap(char c) {
    return c == ' ' || c == '\t';
}

std::size_t Size(int count) {
    return static_cast<std::size_t>(std::max(count, 0));
}

// Reads the number at the head of a text without gaps. `used` is its length, 0 when there is none.
double NumberAtHead(std::string_view text, std::size_t& used) {
    std::size_t end = 0;
    const auto digits = [&] {
        const std::size_t start = end;
        while (end < text.size() && IsDigit(text[end]))
            ++end;
        return end - start;
    };
    used = 0;
    if (end < text.size() && (text[end] == '+' || text[end] == '-'))
        ++end;
    std::size_t count = digits();
    if (end < text.size() && text[end] == '.') {
        ++end;
        count += digits();
    }
    if (count == 0)
        return 0;
    std::string number(text.substr(0, end));
    if (end < text.size() && (Upper(text[end]) == 'E' || Upper(text[end]) == 'D')) {
        const std::size_t mark = end++;
        if (end < text.size() && (text[end] == '+' || text[end] == '-'))
            ++end;
        if (digits() == 0)
            end = mark;
        else
            number.append("e").append(text.substr(mark + 1, end - mark - 1));
    }
    used = end;
    if (number.front() == '+')
        number.erase(0, 1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny = number.find("e-") != std::string::npos;
        if (!tiny)
            throw RunTimeError(Overflow);
        return 0;
    }
    return value;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The length of the UTF-8 sequence at the head of `text`, 0 when it is malformed; `character` takes its
// value.
std::size_t DecodeUtf8(std::string_view text, char32_t& character) {
    const unsigned char first = Byte(text[0]);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    if (length == 0 || text.size() < length)
        return 0;
    character = length == 1 ? first : first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = Byte(text[i]);
        if ((next & 0xC0) != 0x80)
            return 0;
        character = (character << 6) | (next & 0x3Fu);
    }
    // A character spelled longer than it needs to be is malformed: a name must not hide a backslash so.
    constexpr std::array<char32_t, 5> Least = {0, 0, 0x80, 0x800, 0x10000};
    return character < Least[length] ? 0 : length;
}

char ByteOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto* found = std::find(HighControls.begin(), HighControls.end(), character);
    return found == HighControls.end() ? '?' : static_cast<char>(0x80 + (found - HighControls.begin()));
}

}  // namespace

std::string UpperCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), Upper);
    return result;
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return "";
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Left(std::string_view text, int count) {
    return std::string(text.substr(0, Size(count)));
}

std::string Right(std::string_view text, int count) {
    const std::size_t length = std::min(Size(count), text.size());
    return std::string(text.substr(text.size() - length));
}

std::string Mid(std::string_view text, int start, int count) {
    const std::size_t first = Size(start - 1);
    return first >= text.size() ? "" : std::string(text.substr(first, Size(count)));
}

std::string Mid(std::string_view text, int start) {
    return Mid(text, start, std::numeric_limits<int>::max());
}

int InStr(std::string_view text, std::string_view target, int start) {
    const std::size_t found = text.find(target, Size(start - 1));
    return found == std::string_view::npos ? 0 : static_cast<int>(found) + 1;
}

bool Contains(std::string_view text, std::string_view target) {
    return text.find(target) != std::string_view::npos;
}

bool ContainsIgnoringCase(std::string_view text, std::string_view target) {
    return std::search(text.begin(), text.end(), target.begin(), target.end(),
                       [](char a, char b) { return Upper(a) == Upper(b); }) != text.end() ||
           target.empty();
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Upper(x) == Upper(y); });
}

std::string BeforeFirstPoint(std::string_view text) {
    return std::string(text.substr(0, text.find('.')));
}

std::string BehindFirstPoint(std::string_view text) {
    const std::size_t point = text.find('.');
    return std::string(point == std::string_view::npos ? text : text.substr(point + 1));
}

std::string PadRight(std::string_view text, int width) {
    std::string result(text);
    if (result.size() < Size(width))
        result.resize(Size(width), ' ');
    return result;
}

std::string RightJustify(std::string_view text, int width) {
    std::string result(text);
    if (result.size() < Size(width))
        result.insert(0, Size(width) - result.size(), ' ');
    return result;
}

double LeadingNumber(std::string_view text) {
    std::size_t used = 0;
    if (text.find_first_of(" \t") == std::string_view::npos)
        return NumberAtHead(text, used);
    std::string compact;
    std::copy_if(text.begin(), text.end(), std::back_inserter(compact), [](char c) { return !IsGap(c); });
    return NumberAtHead(compact, used);
}

std::int16_t LeadingInteger(std::string_view text) {
    const double value = std::nearbyint(LeadingNumber(text));
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        throw RunTimeError(Overflow);
    return static_cast<std::int16_t>(value);
}

bool IsNumeric(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return false;
    text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
    std::size_t used = 0;
    try {
        NumberAtHead(text, used);
    } catch (const RunTimeError&) {
        return false;  // a number beyond all range is none
    }
    return used == text.size();
}

double StrictNumber(std::string_view text) {
    if (!IsNumeric(text))
        throw RunTimeError(TypeMismatch, std::string(text));
    return LeadingNumber(text);
}

std::string Utf8FromText(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char c : text) {
        const unsigned char b = Byte(c);
        AppendUtf8(utf8, b >= 0x80 && b < 0xA0 ? HighControls[b - 0x80u] : char32_t{b});
    }
    return utf8;
}

std::string TextFromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        char32_t character = 0;
        const std::size_t length = DecodeUtf8(utf8, character);
        text += length == 0 ? '?' : ByteOf(character);
        utf8.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

}  // namespace Dorvane
