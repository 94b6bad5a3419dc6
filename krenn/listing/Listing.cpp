// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/Listing.h"

#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

// A listing of a large network is hundreds of megabytes, which shall not move while it grows.
std::size_t ExpectedSize(const Report& report) {
    const auto name = static_cast<std::size_t>(report.nameWidth);
    return 20000 + report.adjustment.structure.measures.size() * (2 * name + 120) +
           report.network.points.size() * (3 * name + 500);
}

}  // namespace

std::string GoodListing(const RunHeader& run, const Network& network, const Adjustment& adjustment,
                        const Statistics& statistics) {
    const Judgement judgement = Judge(network, adjustment, statistics);
    const Report report{run, network, adjustment, statistics, judgement, NameWidth(network)};
    Page page;
    page.text.reserve(ExpectedSize(report));
    PrintRun(page, run);
    for (const auto print :
         {PrintSummary, PrintInput, PrintDatum, PrintIterations, PrintSolution, PrintCoordinates,
          PrintResults, PrintOtherUnknowns, PrintResiduals, PrintErrorSummary, PrintWorst, PrintSuspects,
          PrintRelative, PrintCorrelations, PrintDeviations})
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
