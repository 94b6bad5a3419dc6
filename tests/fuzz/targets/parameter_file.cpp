// SPDX-License-Identifier: GPL-3.0-or-later
// Parameter files of the adjustment as they stand, by the package and by their editor.
#include "programs/editors/ParameterText.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

// What the package takes has no line that the editor would have to refuse.
void Edit(const std::string& content) {
    const ParameterEdit parameters = OpenParameters(Work + "A.PAR");
    HoldSame(content, FormatParameters(parameters), "unchanged lines stay as they are");
    Hold(ParameterProblems(parameters).empty(), "unchanged lines have no problems");
    for (const ParameterLine& line : parameters.Lines)
        if (line.IsEntry)
            DescribeParameter(line.Key);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    ReadParameterText(content);
    Reading(Work + "A.PAR", content, [&] { Edit(content); });
    return 0;
}
