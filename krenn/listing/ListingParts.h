// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/listing/Judgement.h"
#include "krenn/listing/Listing.h"
#include "krenn/listing/ListingWords.h"
#include "krenn/listing/Page.h"

namespace Krenn {

// What the sections of a listing are printed from.
struct Report {
    const RunHeader& run;
    const Network& network;
    const Adjustment& adjustment;
    const Statistics& statistics;
    const Judgement& judgement;
    int nameWidth;
};

// The sections in their order. Lines that only people read begin with a blank, so that no name, title or
// sentence is ever taken for a marker; lines at column 1 are those that programs read.
void PrintRun(Page& page, const RunHeader& run);
void PrintSummary(Page& page, const Report& report);
void PrintInput(Page& page, const Report& report);
void PrintDatum(Page& page, const Report& report);
void PrintIterations(Page& page, const Report& report);
void PrintSolution(Page& page, const Report& report);
void PrintCoordinates(Page& page, const Report& report);
void PrintResults(Page& page, const Report& report);
void PrintOtherUnknowns(Page& page, const Report& report);
void PrintResiduals(Page& page, const Report& report);
void PrintErrorSummary(Page& page, const Report& report);
void PrintWorst(Page& page, const Report& report);
void PrintSuspects(Page& page, const Report& report);
void PrintRelative(Page& page, const Report& report);
void PrintCorrelations(Page& page, const Report& report);
void PrintDeviations(Page& page, const Report& report);

}  // namespace Krenn
