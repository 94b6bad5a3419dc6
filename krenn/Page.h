// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace Krenn {

// The text of a listing while it grows; lines end in CR LF.
struct Page {
    std::string text;

    template <typename... Fields>
    void Line(fmt::format_string<Fields...> form, Fields&&... fields) {
        fmt::format_to(std::back_inserter(text), form, std::forward<Fields>(fields)...);
        text += "\r\n";
    }

    void Blank() { text += "\r\n"; }

    // A heading of a section that only people read: indented, so that no reader takes it for a marker.
    void Heading(std::string_view title) {
        Blank();
        Line(" {}", title);
        Line(" {}", std::string(title.size(), '-'));
    }

    // Words of a sentence in lines of at most some 100 characters behind an indent.
    void Paragraph(std::string_view indent, std::string_view sentence);
};

// A number with fixed decimals, at least `width` wide, never "-0.000".
std::string Fixed(double value, int width, int decimals);

}  // namespace Krenn
