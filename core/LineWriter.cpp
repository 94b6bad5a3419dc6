// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/LineWriter.h"

#include "core/FileThere.h"
#include "core/FolderLock.h"
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

std::string WithLines(const std::string& former, const std::string& lines, AppendTo begin) {
    if (lines.empty())
        return former;
    const std::string text = WithoutEndOfFileMark(former);
    const bool ended = text.empty() || text.back() == '\n' || text.back() == '\r';
    return text + (ended || begin == AppendTo::LastLine ? "" : std::string(LineEnd)) + lines;
}

void LineAppender::Close() {
    const FolderLock lock(Drives::FolderPart(Path));
    const std::string former = Buffer.empty() ? "" : Drives::ReadFileIfThere(Path);
    const std::string text = WithLines(former, Buffer, Begin);
    // Old programs read no further than an end-of-file mark, so lines behind it would be lost to them.
    if (text.compare(0, former.size(), former) == 0)
        Drives::AppendFile(Path, std::string_view(text).substr(former.size()));
    else
        Drives::WriteFile(Path, text);
    Buffer.clear();
}

}  // namespace Dorvane
