// SPDX-License-Identifier: GPL-3.0-or-later
// BIAS.STR, by the retrieval and by its editor.
#include "core/LineReader.h"
#include "database/basDatabase.h"
#include "programs/editors/BiasEdit.h"
#include "tests/fuzz/targets/FuzzSite.h"

#include <cmath>

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

// Unchanged lines stay byte for byte.
void Edit(const std::string& content) {
    const BiasEdit bias = OpenBias(Init);
    LineReader lines = LineReader::OfText(content);
    for (const BiasLine& line : bias.Lines) {
        Hold(!lines.AtEnd(), "the editor has no line too many");
        HoldSame(lines.ReadLine(), FormatBiasLine(line), "an unchanged line stays as it is");
    }
    Hold(lines.AtEnd(), "the editor has every line");
}

void EditEntry(BiasLine line) {
    if (!line.IsEntry)
        return;
    line.Values[2] = "12.5";
    const BiasLine again = ParseBiasLine(FormatBiasLine(line));
    Hold(again.IsEntry, "a changed entry is one");
    HoldSame(line.Key, again.Key, "a changed entry keeps its location");
    Hold(line.Values == again.Values, "a changed entry has the new values");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    Reading(Init + "BIAS.STR", content, [&] {
        List1<double> values{0, 0, 0, 0};
        const bool found = ReadBiasFile("NORTH", values);
        for (const double value : values)
            Hold(std::isfinite(value), "bias values are numbers");
        Edit(content);
        for (const BiasLine& line : OpenBias(Init).Lines) {
            Hold(!line.IsEntry || line.Key != "NORTH" || found, "the retrieval finds what the editor shows");
            EditEntry(line);
        }
    });
    return 0;
}
