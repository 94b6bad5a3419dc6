// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/targets/AdjustmentRun.h"

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "krenn/input/ParameterFile.h"
#include "krenn/input/ParameterKeys.h"
#include "krenn/listing/Listing.h"
#include "tests/fuzz/targets/Target.h"
#include "tests/krenn/ListingReader.h"

namespace Dorvane::Fuzz {

namespace {

const Krenn::RunHeader Header{"A.INP", 1, "2026-11-20 09:05:07", {}, {}};

// A refusal has a number of its own, a cause, and a listing that nobody takes for a good one.
void CheckFailure(const Krenn::Failure& failure) {
    Hold(failure.number != Krenn::ErrorNumber::Good && failure.number != Krenn::ErrorNumber::Internal,
         "a refusal has a number that tells what is wrong");
    Hold(*failure.what() != 0, "a refusal has a cause");
    const std::string listing = Krenn::FailureListing(Header, failure);
    Hold(listing.starts_with(" RUN FAILED\r\n"), "the listing of a failure says so");
    Hold(KrennTest::ReadListingText(listing).result != 1, "the listing of a failure holds no results");
}

template <class Work>
bool Succeeds(const Work& work) {
    try {
        work();
        return true;
    } catch (const Krenn::Failure& failure) {
        CheckFailure(failure);
        return false;
    }
}

bool IsFinite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

void CheckResults(const Krenn::Network& network, const Krenn::Adjustment& adjustment,
                  const Krenn::Statistics& statistics) {
    Hold(adjustment.state.at.size() == network.points.size(), "each point has a place");
    for (const auto& place : adjustment.state.at)
        for (const double coordinate : place)
            Hold(std::isfinite(coordinate), "coordinates are numbers");
    Hold(IsFinite(adjustment.residual), "residuals are numbers");
    Hold(adjustment.residual.size() == adjustment.structure.measures.size(), "each measure has its residual");
    Hold(adjustment.sumOfSquares >= 0 && std::isfinite(adjustment.sumOfSquares),
         "the sum of squares is a number");
    Hold(adjustment.Redundancy() >= 0, "the redundancy is not negative");
    for (const double number : statistics.redundancyNumber)
        Hold(number >= 0 && number <= 1, "a redundancy number lies from 0 to 1");
    Hold(IsFinite(statistics.standardised), "standardised residuals are numbers");
    for (const auto& deviation : statistics.deviation)
        for (const double axis : deviation)
            Hold(axis >= 0 && std::isfinite(axis), "deviations are numbers");
}

void CheckListing(const std::string& text, const Krenn::Network& network,
                  const Krenn::Adjustment& adjustment) {
    const KrennTest::ReadListing listing = KrennTest::ReadListingText(text);
    Hold(listing.result == 1, "the listing of a good run is read to its end");
    const auto& roles = adjustment.structure.roles;
    const auto observed = std::count_if(roles.begin(), roles.end(),
                                        [](const Krenn::PointRole& role) { return role.part >= 0; });
    Hold(static_cast<std::ptrdiff_t>(listing.stations.size() + listing.points.size()) == observed,
         "the listing holds each observed point");
    for (std::size_t i = 0; i < roles.size(); ++i) {
        const KrennTest::ReadPoint* point =
            roles[i].part >= 0 ? listing.Find(network.points[i].name) : nullptr;
        if (point == nullptr || roles[i].heightGroup < 0)
            continue;
        const double z = adjustment.state.at[i][2] + adjustment.state.origin[2];
        Hold(std::abs(point->z - z) < 1e-4, "the listing holds the adjusted height");
    }
}

}  // namespace

std::optional<Krenn::Network> ReadNetwork(const std::string& text) {
    std::optional<Krenn::Network> network;
    Succeeds([&] { network = Krenn::ReadInput(text); });
    if (!network)
        return network;
    Hold(!network->observations.empty(), "a network has observations");
    const int points = static_cast<int>(network->points.size());
    for (const Krenn::Observation& each : network->observations) {
        Hold(each.from >= 0 && each.from < points && each.to >= 0 && each.to < points && each.from != each.to,
             "an observation leads from a point to another");
        Hold(each.sigma > 0 && std::isfinite(each.sigma) && std::isfinite(each.value),
             "it is made of numbers");
    }
    return network;
}

std::optional<Krenn::Parameters> ReadParameterText(const std::string& text) {
    std::optional<Krenn::Parameters> parameters;
    Succeeds([&] { parameters = Krenn::ParseParameters(text, "A.PAR"); });
    if (!parameters)
        return parameters;
    std::string written;
    for (const std::string& line : Krenn::Differences(*parameters))
        written += line + "\r\n";
    const Krenn::Parameters again = Krenn::ParseParameters(written, "A.PAR");
    for (const Krenn::ParameterKey& key : Krenn::ParameterKeys()) {
        const double value = key.get(*parameters);
        Hold(value >= key.get(again) && value <= key.get(again), "settings that are told read back the same");
        Hold(key.words.empty() || value < static_cast<double>(key.words.size()),
             "a word is one of those allowed");
    }
    return parameters;
}

void AdjustAndCheck(Krenn::Network network, Krenn::Type type, Krenn::Parameters parameters) {
    parameters.threads = 1;
    Succeeds([&] {
        Krenn::TakeOutKinds(network, parameters);
        const Krenn::Adjustment adjustment = Krenn::Adjust(network, type, parameters);
        const Krenn::Statistics statistics = Krenn::Evaluate(network, adjustment, parameters);
        CheckResults(network, adjustment, statistics);
        CheckListing(Krenn::GoodListing(Header, network, adjustment, statistics), network, adjustment);
    });
}

}  // namespace Dorvane::Fuzz
