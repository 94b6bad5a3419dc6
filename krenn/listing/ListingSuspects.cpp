// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "krenn/adjust/Snooping.h"
#include "krenn/listing/ListingParts.h"

namespace Krenn {

void PrintSuspects(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    const Snooping& snooping = adjustment.snooping;
    if (snooping.suspects.empty())
        return;
    page.Heading("Suspected gross errors");
    page.Paragraph("  ", adjustment.type == Type::L1Norm
                             ? "The largest residuals; the L1 norm leaves gross errors whole."
                             : "Found one after the other and estimated together (iterated data snooping); w "
                               "as if the others were not there.");
    for (const Suspect& suspect : snooping.suspects) {
        page.Line("  {}{}", Fixed(suspect.w, 9, 2),
                  "   " + SuspectInWords(report.network, adjustment, suspect));
        std::string alternatives;
        for (const int m : suspect.alternatives)
            alternatives +=
                (alternatives.empty() ? "" : "; ") +
                Describe(report.network, adjustment.structure.measures[static_cast<std::size_t>(m)]);
        if (!alternatives.empty())
            page.Paragraph("              ", "or as well: " + alternatives, 2);
    }
    if (snooping.redundancy > 0)
        page.Line("  Without {} m0 would be {:.4f}, redundancy {}.",
                  snooping.suspects.size() == 1 ? "it" : "them", snooping.m0, snooping.redundancy);
    if (!snooping.isComplete)
        page.Line("  There are more than these; take them out and adjust again.");
    if (!snooping.isSettled)
        page.Line("  The errors bend the network; adjust again without the first one before the others.");
}

}  // namespace Krenn
