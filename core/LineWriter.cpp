// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineWriter.h"

#include "core/LineReader.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr std::string_view LineEnd = "\r\n";
}  // namespace

LineWriter::LineWriter(std::string_view path) : File(path) {}

void LineWriter::Line(std::string_view text) {
    Buffer.append(text).append(LineEnd);
}

void LineWriter::Close() {
    File.Write(Buffer);
    File.Commit();
    Buffer.clear();
}

void LineAppender::Line(std::string_view text) {
    Buffer.append(text).append(LineEnd);
}

void LineAppender::Close() {
    const std::string former = FileExists(Path) && !Buffer.empty() ? Drives::ReadFile(Path) : "";
    const std::string text = WithoutEndOfFileMark(former);
    const bool ended = text.empty() || text.back() == '\n' || text.back() == '\r';
    const std::string added = (ended || Begin == AppendTo::LastLine ? "" : std::string(LineEnd)) + Buffer;
    // Old programs read no further than the mark, so lines behind it would be lost to them.
    if (text != former)
        Drives::WriteFile(Path, text + added);
    else
        Drives::AppendFile(Path, added);
    Buffer.clear();
}

}  // namespace Dorvane
