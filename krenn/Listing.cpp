// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Listing.h"

#include "krenn/ListingParts.h"

namespace Krenn {

std::string GoodListing(const RunHeader& run, const Network& network, const Adjustment& adjustment,
                        const Statistics& statistics) {
    const Judgement judgement = Judge(network, adjustment, statistics);
    const Report report{run, network, adjustment, statistics, judgement, NameWidth(network)};
    Page page;
    PrintRun(page, run);
    for (const auto print :
         {PrintSummary, PrintInput, PrintDatum, PrintIterations, PrintSolution, PrintCoordinates,
          PrintResults, PrintOtherUnknowns, PrintResiduals, PrintErrorSummary, PrintWorst, PrintRelative,
          PrintCorrelations, PrintDeviations})
        print(page, report);
    return std::move(page.text);
}

std::string FailureListing(const RunHeader& run, const Failure& failure) {
    const ErrorMeaning& meaning = MeaningOf(failure.number);
    Page page;
    page.Line(" RUN FAILED");
    page.Blank();
    page.Line("  Error {}: {}", static_cast<int>(failure.number), meaning.title);
    page.Blank();
    page.Paragraph("  ", failure.what());
    for (const std::string& detail : failure.details)
        page.Paragraph("    ", detail, 2);
    page.Blank();
    page.Paragraph("  ", std::string("What to do: ") + meaning.advice);
    page.Blank();
    page.Line("  There are no results of this run.");
    page.Blank();
    PrintRun(page, run);
    return std::move(page.text);
}

}  // namespace Krenn
