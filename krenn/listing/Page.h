// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Krenn {

// Fields of a line, appended to its text. A field is at least `width` wide; one that is longer pushes the
// rest of its line to the right and is never cut.
void AppendLeft(std::string& text, std::string_view field, int width);
void AppendRight(std::string& text, std::string_view field, int width);
void AppendCount(std::string& text, long long value, int width);

// With fixed decimals, up to 20; never "-0.000".
void AppendFixed(std::string& text, double value, int width, int decimals);

// The same as texts of their own.
std::string Fixed(double value, int width, int decimals);

// A number with four significant digits, as a person would write it: 0.01234, 1.234e-07.
std::string Significant(double value, int width);

// Appends what print(text, i) appends for each i from 0 to count - 1, in this order. Many rows are printed in
// blocks on `threads` threads (0: one a core), each of which calls `print` for its own.
void AppendRows(std::string& text, std::size_t count, int threads,
                const std::function<void(std::string& text, std::size_t i)>& print);

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
        if (!text.empty() && !text.ends_with("\r\n\r\n"))
            Blank();
        Line(" {}", title);
        Line(" {}", std::string(title.size(), '-'));
    }

    // Words of a sentence in lines of at most some 100 characters behind an indent. Further lines have
    // `hanging` blanks more.
    void Paragraph(std::string_view indent, std::string_view sentence, int hanging = 0);
};

// The words of a sentence in lines of at most `widest` characters; a longer word has a line of its own.
std::vector<std::string> SentenceLines(std::string_view sentence, std::size_t widest);

}  // namespace Krenn
