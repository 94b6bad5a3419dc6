// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Banner.h"

#include <array>
#include <string_view>

#include "adjustment/InputHeader.h"
#include "core/DateText.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"

namespace Dorvane {

namespace {

// Each row is 52 characters; the letters begin at columns 3, 16, 29 and 42.
constexpr std::array<std::string_view, 10> BlockLetters = {
    "  VV       VV       A       RRRRRRRRR    NN       NN",
    "  VV       VV      AAA      RR      RR   NNN      NN",
    "   VV     VV      AA AA     RR       RR  NNNN     NN",
    "   VV     VV      AA AA     RR      RR   NN NN    NN",
    "    VV   VV      AA   AA    RRRRRRRRR    NN  NN   NN",
    "    VV   VV      AA   AA    RR   RR      NN   NN  NN",
    "     VV VV      AAAAAAAAA   RR    RR     NN    NN NN",
    "     VV VV      AA     AA   RR     RR    NN     NNNN",
    "      VVV      AA       AA  RR      RR   NN      NNN",
    "       V       AA       AA  RR       RR  NN       NN",
};

constexpr std::string_view Frame = "  __________________________________________________";

struct HeaderTexts {
    std::string Project;
    std::string Task;
};

HeaderTexts ReadProjectAndTask(const std::string& inputPath) {
    LineReader reader(inputPath);
    reader.ReadLine();
    HeaderTexts texts;
    // Two lines of one keyword count as two, as the other readers of these lines count them.
    for (int found = 0; found < 2;) {
        const KeywordLine line = ReadKeywordLine(reader);
        if (line.Keyword == "PROJECT")
            texts.Project = line.Value;
        else if (line.Keyword == "TASK")
            texts.Task = line.Value;
        else
            continue;
        ++found;
    }
    return texts;
}

void WriteBanner(LineWriter& out, const HeaderTexts& texts, const DateTime& now) {
    out.Line(" ");
    for (const std::string_view row : BlockLetters)
        out.Line(row);
    out.Line(Frame);
    out.Line(" ");
    out.Line("                VARN Adjustment Output");
    out.Line(Frame);
    out.Line(" ");
    out.Line("  Project  = " + texts.Project);
    out.Line(" ");
    out.Line("  Task     = " + texts.Task);
    out.Line(" ");
    out.Line("  Run Date = " + ShortDate(now));
    out.Line(" ");
    out.Line("  Run Time = " + LongTime(now));
    out.Line(Frame);
}

}  // namespace

void AddVarnBanner(const std::string& inputPath, const std::string& outputPath) {
    const HeaderTexts texts = ReadProjectAndTask(inputPath);
    LineReader listing(outputPath);
    LineWriter out(outputPath);
    WriteBanner(out, texts, TheDesktop().Now());
    while (!listing.AtEnd())
        out.Line(listing.ReadLine());
    out.Close();
}

}  // namespace Dorvane
