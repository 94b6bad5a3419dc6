// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSummary.h"

#include <algorithm>
#include <cstring>

namespace Dorvane {

namespace {

// The place of a byte between two places, `end` when it is not there.
std::size_t FindByte(std::string_view text, char byte, std::size_t from, std::size_t end) {
    if (from >= end)
        return end;
    const void* found = std::memchr(text.data() + from, byte, end - from);
    return found == nullptr ? end : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

}  // namespace

std::size_t FindLineEnd(std::string_view text, std::size_t from) {
    const std::size_t feed = FindByte(text, '\n', from, text.size());
    const std::size_t end = FindByte(text, '\r', from, feed);
    return end == text.size() ? std::string_view::npos : end;
}

int LineEndLength(std::string_view text, std::size_t place) {
    if (place >= text.size())
        return 0;
    if (text[place] == '\n')
        return 1;
    if (text[place] != '\r')
        return 0;
    return place + 1 < text.size() && text[place + 1] == '\n' ? 2 : 1;
}

TextSummary Summarize(std::string_view text) {
    TextSummary sum;
    std::size_t start = 0;
    for (std::size_t end = FindLineEnd(text, 0); end != std::string_view::npos;
         end = FindLineEnd(text, start)) {
        const auto length = static_cast<Offset>(end - start);
        if (sum.Ends++ == 0)
            sum.Head = length;
        else
            sum.Longest = std::max(sum.Longest, length);
        start = end + static_cast<std::size_t>(LineEndLength(text, end));
    }
    sum.Tail = static_cast<Offset>(text.size() - start);
    if (sum.Ends == 0)
        sum.Head = sum.Tail;
    return sum;
}

TextSummary Joined(const TextSummary& first, const TextSummary& second) {
    TextSummary sum;
    sum.Ends = first.Ends + second.Ends;
    sum.Longest = std::max(first.Longest, second.Longest);
    if (first.Ends > 0 && second.Ends > 0)
        sum.Longest = std::max(sum.Longest, first.Tail + second.Head);
    sum.Head = first.Ends > 0 ? first.Head : first.Head + second.Head;
    sum.Tail = second.Ends > 0 ? second.Tail : first.Tail + second.Tail;
    return sum;
}

Offset LongestLine(const TextSummary& text) {
    return std::max({text.Longest, text.Head, text.Tail});
}

}  // namespace Dorvane
