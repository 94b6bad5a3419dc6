// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineReader.h"

#include <utility>

#include "core/Drives.h"
#include "core/RunTimeError.h"

namespace Dorvane {

std::string WithoutEndOfFileMark(std::string text) {
    text.erase(text.find_last_not_of(EndOfFileMark) + 1);
    return text;
}

LineReader::LineReader(std::string_view path) : Text(WithoutEndOfFileMark(Drives::ReadFile(path))) {}

LineReader LineReader::OfText(std::string text) {
    LineReader reader;
    reader.Text = WithoutEndOfFileMark(std::move(text));
    return reader;
}

std::string_view LineReader::ReadLine() {
    if (AtEnd())
        throw RunTimeError(InputPastEnd);
    const std::size_t start = Position;
    while (Position < Text.size() && Text[Position] != '\r' && Text[Position] != '\n')
        ++Position;
    const std::string_view line = std::string_view(Text).substr(start, Position - start);
    if (Position < Text.size()) {
        const bool carriageReturn = Text[Position++] == '\r';
        if (carriageReturn && Position < Text.size() && Text[Position] == '\n')
            ++Position;
    }
    ++Lines;
    return line;
}

}  // namespace Dorvane
