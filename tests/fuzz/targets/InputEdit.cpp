// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "programs/editors/InputRemoval.h"
#include "programs/editors/InputRows.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/Target.h"

namespace Dorvane::Fuzz {

namespace {

bool SameRow(const InputRow& a, const InputRow& b) {
    return a.Kind == b.Kind && a.Name == b.Name && a.Target == b.Target && a.Values == b.Values &&
           a.Tracker == b.Tracker;
}

std::ptrdiff_t RowsOf(const InputText& text, RowKind kind) {
    return std::count_if(text.Rows.begin(), text.Rows.end(),
                         [kind](const InputRow& row) { return row.Kind == kind; });
}

std::ptrdiff_t Observed(const Krenn::Network& network, Krenn::Kind kind) {
    return std::count_if(network.observations.begin(), network.observations.end(),
                         [kind](const Krenn::Observation& each) { return each.kind == kind; });
}

void CompareCounts(const InputText& text, const Krenn::Network& network) {
    Hold(RowsOf(text, RowKind::Height) == Observed(network, Krenn::Kind::HeightDifference),
         "editor and package read as many height differences");
    Hold(RowsOf(text, RowKind::Distance) ==
             Observed(network, Krenn::Kind::Distance) + network.distancesNotObserved,
         "editor and package read as many distances");
    Hold(RowsOf(text, RowKind::Angle) ==
             Observed(network, Krenn::Kind::ZenithAngle) + network.zenithsNotObserved,
         "editor and package read as many angles");
}

void TakeOut(const InputText& text, unsigned eachTaken) {
    std::vector<bool> taken(text.Rows.size());
    for (std::size_t i = 0; i < taken.size(); ++i)
        taken[i] =
            i % eachTaken == eachTaken - 1 && (text.Rows[i].IsListed() || text.Rows[i].IsObservation());
    const std::vector<Fate> fates = Fates(text, taken);
    InputText left;
    HoldSame("", ReadInputRows(Remaining(text, fates), left), "what is left can be read");
    std::size_t next = 0;
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        if (fates[i] != Fate::Stays)
            continue;
        Hold(next < left.Rows.size() && SameRow(left.Rows[next], text.Rows[i]),
             "each row that stays is there");
        ++next;
    }
    Hold(next == left.Rows.size(), "no other row is there");
}

}  // namespace

void EditAndCheck(const std::string& text, const std::optional<Krenn::Network>& network, unsigned eachTaken) {
    InputText rows;
    const std::string problem = ReadInputRows(text, rows);
    if (network)
        HoldSame("", problem, "the editor reads what the package reads");
    if (!problem.empty())
        return;
    HoldSame(text, Remaining(rows, std::vector<Fate>(rows.Rows.size(), Fate::Stays)),
             "without a row taken out the file stays");
    if (network)
        CompareCounts(rows, *network);
    TakeOut(rows, eachTaken);
}

}  // namespace Dorvane::Fuzz
