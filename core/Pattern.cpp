// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Pattern.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/RunTimeError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

// A number as digits with the point behind the first `Whole` of them.
struct Decimal {
    std::string Digits;
    int Whole = 0;
};

// The shortest decimal form that gives the number back: what a person would call the number's value.
Decimal ShortestDecimal(double value) {
    std::array<char, 32> buffer{};
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    Decimal decimal;
    for (const char c : text.substr(0, mark))
        if (c != '.')
            decimal.Digits += c;
    int exponent = 0;
    std::string_view power = text.substr(mark + 1);
    if (power.front() == '+')
        power.remove_prefix(1);
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    decimal.Whole = exponent + 1;
    return decimal;
}

// Rounds half up to `fraction` digits behind the point and fills with zeros to exactly that many; the digits
// before the point are at least none.
Decimal Rounded(Decimal decimal, int fraction) {
    if (decimal.Whole < 0) {
        decimal.Digits.insert(0, static_cast<std::size_t>(-decimal.Whole), '0');
        decimal.Whole = 0;
    }
    const std::size_t keep = static_cast<std::size_t>(decimal.Whole + fraction);
    const bool up = keep < decimal.Digits.size() && decimal.Digits[keep] >= '5';
    decimal.Digits.resize(keep, '0');
    if (!up)
        return decimal;
    std::size_t i = keep;
    while (i > 0 && decimal.Digits[i - 1] == '9')
        decimal.Digits[--i] = '0';
    if (i > 0) {
        ++decimal.Digits[i - 1];
    } else {
        decimal.Digits.insert(0, 1, '1');
        ++decimal.Whole;
    }
    return decimal;
}

}  // namespace

Pattern::Pattern(std::string_view pattern) {
    const std::size_t point = pattern.find('.');
    HasPoint = point != std::string_view::npos;
    const std::string_view whole = pattern.substr(0, point);
    const std::string_view fraction = HasPoint ? pattern.substr(point + 1) : std::string_view();
    const std::size_t firstZero = whole.find('0');
    MinimumWhole = firstZero == std::string_view::npos ? 0 : static_cast<int>(whole.size() - firstZero);
    MaximumFraction = static_cast<int>(fraction.size());
    MinimumFraction = static_cast<int>(fraction.rfind('0') + 1);
}

std::string Pattern::operator()(double value) const {
    if (!std::isfinite(value))
        throw RunTimeError(Overflow);
    Decimal decimal = Rounded(ShortestDecimal(std::fabs(value)), MaximumFraction);
    const std::size_t leading =
        std::min(decimal.Digits.find_first_not_of('0'), static_cast<std::size_t>(decimal.Whole));
    std::string whole = decimal.Digits.substr(leading, static_cast<std::size_t>(decimal.Whole) - leading);
    std::string fraction = decimal.Digits.substr(static_cast<std::size_t>(decimal.Whole));
    while (static_cast<int>(fraction.size()) > MinimumFraction && fraction.back() == '0')
        fraction.pop_back();
    if (static_cast<int>(whole.size()) < MinimumWhole)
        whole.insert(0, static_cast<std::size_t>(MinimumWhole) - whole.size(), '0');
    const bool zero = decimal.Digits.find_first_not_of('0') == std::string::npos;
    std::string text = value < 0 && !zero ? "-" : "";
    text += whole;
    if (HasPoint)
        text += "." + fraction;
    return text;
}

std::string Pattern::operator()(double value, int width) const {
    return RightJustify((*this)(value), width);
}

}  // namespace Dorvane
