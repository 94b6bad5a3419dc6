// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextPrint.h"

#include <algorithm>

#include "core/Desktop.h"
#include "core/Globals.h"
#include "core/LineReader.h"

namespace Dorvane {

namespace {

const std::string Margin(5, ' ');

// The letters of 12 points, each 6/10 of the size wide, that a sheet of A4 or Letter has room for.
constexpr Offset ColumnsOf12 = 74;

}  // namespace

int PrintPoints(Offset columns) {
    const Offset wanted = std::max<Offset>(columns + static_cast<Offset>(Margin.size()), 1);
    return static_cast<int>(std::clamp<Offset>(12 * ColumnsOf12 / wanted, 6, 12));
}

void PrintText(const PieceText& text, const Selection& printed, const std::string& name) {
    const auto job = TheDesktop().BeginPrint("Courier", PrintPoints(text.LongestLine()));
    job->Line(Margin);
    job->Line(Margin + "File Name : " + name);
    job->Line(Margin);
    LineReader reader = LineReader::OfText(text.Read(printed.From(), printed.To() - printed.From()));
    while (!reader.AtEnd())
        job->Line(Margin + std::string(reader.ReadLine()));
    job->End();
}

}  // namespace Dorvane
