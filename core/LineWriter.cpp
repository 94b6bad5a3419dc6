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
    std::string former = FileExists(Path) ? Drives::ReadFile(Path) : "";
    if (former.ends_with(EndOfFileMark)) {
        // Old programs read no further than the mark, so lines behind it would be lost to them.
        former.pop_back();
        Drives::WriteFile(Path, former + Buffer);
    } else {
        Drives::AppendFile(Path, Buffer);
    }
    Buffer.clear();
}

}  // namespace Dorvane
