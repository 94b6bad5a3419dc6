// SPDX-License-Identifier: GPL-3.0-or-later
// Parameter files made of mostly well-formed lines, and changes that their editor makes in them: what it
// writes, the package takes.
#include <fmt/format.h>

#include "programs/editors/ParameterText.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

const std::vector<std::string> Ends{"\r\n", "\r\n", "\n", "\r"};
const std::vector<std::string> Gaps{" ", "", "  ", "\t"};
const std::vector<std::string> Comments{"", "", "   ; by hand", ";", " ;; = 3", ";a\t b "};

std::string Value(Choices& choices, const Krenn::ParameterKey& key) {
    if (choices.Rarely(12))
        return choices.Bytes(3);
    if (!key.words.empty())
        return choices.OneOf(key.words);
    if (key.isWhole)
        return std::to_string(static_cast<long>(key.lowest) + choices.Below(3));
    const double value = key.lowest + (key.highest - key.lowest) * choices.Below(101) / 100;
    return choices.Rarely(3) ? fmt::format("{:e}", value) : fmt::format("{}", value);
}

std::string Line(Choices& choices) {
    if (choices.Rarely(6))
        return choices.Bytes(choices.Below(12)) + choices.OneOf(Ends);
    const Krenn::ParameterKey& key = choices.OneOf(Krenn::ParameterKeys());
    const std::string gap = choices.OneOf(Gaps);
    return gap + key.key + gap + "=" + choices.OneOf(Gaps) + Value(choices, key) + choices.OneOf(Comments) +
           choices.OneOf(Ends);
}

// Entries that stay, are changed, are left out, and one that is new.
std::vector<WantedParameter> Wanted(Choices& choices, const ParameterEdit& parameters) {
    std::vector<WantedParameter> wanted;
    for (std::size_t i = 0; i < parameters.Lines.size(); ++i) {
        const ParameterLine& line = parameters.Lines[i];
        const Krenn::ParameterKey* key = Krenn::FindParameterKey(line.Key);
        const unsigned fate = choices.Below(4);
        if (!line.IsEntry || fate == 3)
            continue;
        const bool changes = fate == 2 && key != nullptr;
        wanted.push_back({static_cast<int>(i) + 1, line.Key, changes ? Value(choices, *key) : line.Value,
                          choices.Rarely(4) ? "new comment" : line.Comment});
    }
    const Krenn::ParameterKey& key = choices.OneOf(Krenn::ParameterKeys());
    wanted.push_back({static_cast<int>(parameters.Lines.size()) + 1, key.key, Value(choices, key), ""});
    return wanted;
}

void Edit(Choices& choices, bool isTaken) {
    ParameterEdit parameters = OpenParameters(Work + "A.PAR");
    const std::vector<WantedParameter> wanted = Wanted(choices, parameters);
    ApplyParameters(parameters, wanted);
    if (!ParameterProblems(parameters).empty())
        return;
    const std::string written = FormatParameters(parameters);
    if (isTaken)
        Hold(ReadParameterText(written).has_value(), "the package takes what the editor finds no fault with");
    Put(Work + "A.PAR", written);
    std::size_t next = 0;
    for (const ParameterLine& line : OpenParameters(Work + "A.PAR").Lines) {
        if (!line.IsEntry)
            continue;
        Hold(next < wanted.size(), "no entry is there that is not wanted");
        HoldSame(wanted[next].Key, line.Key, "an entry has its key");
        HoldSame(wanted[next].Value, line.Value, "an entry has its value");
        HoldSame(wanted[next].Comment, line.Comment, "an entry has its comment");
        ++next;
    }
    Hold(next == wanted.size(), "every entry that is wanted is there");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    Choices choices(data, size);
    std::string content;
    for (unsigned lines = choices.Below(12); lines > 0; --lines)
        content += Line(choices);
    const bool isTaken = ReadParameterText(content).has_value();
    Reading(Work + "A.PAR", content, [&] {
        Edit(choices, isTaken);
        Put(Work + "A.PAR", content);
    });
    return 0;
}
