// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/Page.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "krenn/Parallel.h"

namespace Krenn {
namespace {

constexpr std::size_t kWidest = 100;
constexpr std::size_t kRowsOfBlock = 8192;

void Pad(std::string& text, int width, std::size_t taken) {
    const auto wanted = static_cast<std::size_t>(std::max(width, 0));
    if (wanted > taken)
        text.append(wanted - taken, ' ');
}

// Digits of a number as to_chars writes them, in a buffer that holds every double with 20 decimals.
struct Digits {
    char buffer[340];
    std::string_view text;

    Digits(double value, std::chars_format form, int precision) {
        const auto [end, error] =
            std::to_chars(buffer, buffer + sizeof buffer, value, form, std::min(precision, 20));
        text = {buffer, static_cast<std::size_t>(end - buffer)};
        if (text.front() == '-' && text.find_first_not_of("-0.") == std::string_view::npos)
            text.remove_prefix(1);
    }
};

}  // namespace

void AppendLeft(std::string& text, std::string_view field, int width) {
    text += field;
    Pad(text, width, field.size());
}

void AppendRight(std::string& text, std::string_view field, int width) {
    Pad(text, width, field.size());
    text += field;
}

void AppendCount(std::string& text, long long value, int width) {
    char buffer[24];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    AppendRight(text, {buffer, static_cast<std::size_t>(end - buffer)}, width);
}

void AppendFixed(std::string& text, double value, int width, int decimals) {
    AppendRight(text, Digits(value, std::chars_format::fixed, decimals).text, width);
}

std::string Fixed(double value, int width, int decimals) {
    std::string text;
    AppendFixed(text, value, width, decimals);
    return text;
}

std::string Significant(double value, int width) {
    std::string text;
    AppendRight(text, Digits(value, std::chars_format::general, 4).text, width);
    return text;
}

void AppendRows(std::string& text, std::size_t count, int threads,
                const std::function<void(std::string& text, std::size_t i)>& print) {
    const auto several = static_cast<std::size_t>(ThreadsFor(threads));
    std::vector<std::string> blocks(std::min(several, count / kRowsOfBlock + 1));
    for (std::size_t done = 0; done < count; done += blocks.size() * kRowsOfBlock) {
        ParallelFor(static_cast<int>(blocks.size()), blocks.size(), [&](std::size_t block) {
            blocks[block].clear();
            const std::size_t first = done + block * kRowsOfBlock;
            for (std::size_t i = first; i < std::min(first + kRowsOfBlock, count); ++i)
                print(blocks[block], i);
        });
        for (const std::string& block : blocks)
            text += block;
    }
}

std::vector<std::string> SentenceLines(std::string_view sentence, std::size_t widest) {
    std::vector<std::string> lines;
    while (!sentence.empty()) {
        std::size_t end = sentence.size();
        if (end > widest) {
            const std::size_t blank = sentence.substr(0, widest + 1).rfind(' ');
            end = blank == std::string_view::npos || blank == 0 ? sentence.find(' ', 1) : blank;
            end = std::min(end, sentence.size());
        }
        lines.emplace_back(sentence.substr(0, end));
        sentence.remove_prefix(std::min(sentence.size(), end + 1));
    }
    return lines;
}

void Page::Paragraph(std::string_view indent, std::string_view sentence, int hanging) {
    std::string margin(indent);
    for (const std::string& line : SentenceLines(sentence, kWidest)) {
        Line("{}{}", margin, line);
        margin = std::string(indent) + std::string(static_cast<std::size_t>(hanging), ' ');
    }
}

}  // namespace Krenn
