// SPDX-License-Identifier: GPL-3.0-or-later
// The adjustment's input file as it stands, by the package, the editor and the readers of its head. The first
// byte tells the type of adjustment and which rows the editor takes out.
#include <array>

#include "adjustment/Banner.h"
#include "adjustment/InputHeader.h"
#include "tests/fuzz/targets/AdjustmentRun.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

constexpr std::array Types{Krenn::Type::SparseInverse, Krenn::Type::Sparse, Krenn::Type::Dense,
                           Krenn::Type::L1Norm};
constexpr std::size_t MostObservations = 60;
const std::string Listing = " GOOD\r\nFinal results\r\n";

void ReadHead() {
    std::string project;
    std::string task;
    std::string date;
    Quietly([&] { ReadInputHeader(Work, "A.INP", project, task, date); });
    Put(Work + "A.OUT", Listing);
    const bool headed = Quietly([&] { AddVarnBanner(Work + "A.INP", Work + "A.OUT"); });
    const std::string listing = Content(Work + "A.OUT");
    Hold(headed ? listing.ends_with(Listing) : listing == Listing,
         "below its banner a listing stays as it is");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    Choices choices(data, size);
    const unsigned first = choices.Byte();
    const std::string text = choices.Tail();
    Reading(Work + "A.INP", text, [] { ReadHead(); });
    const std::optional<Krenn::Network> network = ReadNetwork(text);
    EditAndCheck(text, network, 2 + first / 4 % 8);
    if (network && network->observations.size() <= MostObservations)
        AdjustAndCheck(*network, Types[first % 4], {});
    return 0;
}
