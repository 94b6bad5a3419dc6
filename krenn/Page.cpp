// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Page.h"

#include <algorithm>

namespace Krenn {
namespace {

constexpr std::size_t kWidest = 100;

}  // namespace

void Page::Paragraph(std::string_view indent, std::string_view sentence) {
    while (!sentence.empty()) {
        std::size_t end = sentence.size();
        if (end > kWidest) {
            const std::size_t blank = sentence.substr(0, kWidest).rfind(' ');
            end = blank == std::string_view::npos || blank == 0 ? sentence.find(' ') : blank;
            end = std::min(end, sentence.size());
        }
        Line("{}{}", indent, sentence.substr(0, end));
        sentence.remove_prefix(std::min(sentence.size(), end + 1));
    }
}

std::string Fixed(double value, int width, int decimals) {
    std::string digits = fmt::format("{:.{}f}", value, decimals);
    if (digits.front() == '-' && digits.find_first_of("123456789") == std::string::npos)
        digits.erase(0, 1);
    return fmt::format("{:>{}}", digits, width);
}

}  // namespace Krenn
