// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Run.h"

#include <fmt/format.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <new>

#include "krenn/HostFile.h"
#include "krenn/Scan.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "krenn/input/ParameterFile.h"
#include "krenn/input/ParameterKeys.h"
#include "krenn/listing/Listing.h"

namespace Krenn {
namespace {

std::string Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    char text[32] = "";
    if (const std::tm* local = std::localtime(&now))
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", local);
    return text;
}

Type TypeOf(int type) {
    if (type != 0 && type != 1 && type != 7 && type != -1)
        throw Failure(ErrorNumber::UnknownType, fmt::format("Type {} is not known.", type));
    return static_cast<Type>(type);
}

// What becomes known of the run is put into its header, also for the listing of a failure.
std::string ListingOf(const std::string& inputPath, RunHeader& run, RunReport& report) {
    const Type type = TypeOf(run.type);
    Network network;
    {
        const PhaseClock clock(report.phases.parse);
        network = ReadInput(ReadWholeFile(inputPath));
    }
    // Only beside what is an input file a parameter file is written.
    const FoundParameters found = ParametersBeside(inputPath);
    run.parameterFile = found.file;
    run.options = Differences(found.parameters);
    TakeOutKinds(network, found.parameters);
    const Adjustment adjustment = Adjust(network, type, found.parameters);
    const double parse = report.phases.parse;
    report = {adjustment.phases, static_cast<int>(network.points.size()),
              static_cast<int>(network.observations.size()), static_cast<int>(adjustment.iterations.size())};
    report.phases.parse = parse;
    const PhaseClock clock(report.phases.list);
    return GoodListing(run, network, adjustment, Evaluate(network, adjustment, found.parameters));
}

// Runs `work`; every kind of exception becomes a Failure in `failure`, with Good when there was none.
template <typename Work>
Failure Guarded(Work work) {
    try {
        work();
        return {ErrorNumber::Good, ""};
    } catch (const Failure& failure) {
        return failure;
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::OutOfMemory, "Memory ran out."};
    } catch (const std::exception& exception) {
        return {ErrorNumber::Internal, Printable(exception.what(), 300)};
    } catch (...) {
        return {ErrorNumber::Internal, "An unknown exception."};
    }
}

ErrorNumber RunGuarded(const std::string& inputPath, int type, RunReport& report) {
    if (inputPath.empty())
        return ErrorNumber::NoInputPath;
    const std::string listingPath = ListingPath(inputPath);
    if (listingPath == inputPath)
        return ErrorNumber::NotAnInputFile;
    RunHeader run{Printable(inputPath, 500), type, Now(), {}, {}};
    std::string text;
    const Failure failure = Guarded([&] { text = ListingOf(inputPath, run, report); });
    if (failure.number != ErrorNumber::Good)
        text = FailureListing(run, failure);
    const PhaseClock clock(report.phases.list);
    const Failure writing = Guarded([&] { WriteWholeFile(listingPath, text); });
    return failure.number != ErrorNumber::Good ? failure.number : writing.number;
}

}  // namespace

ErrorNumber RunAdjustment(const std::string& inputPath, int type, RunReport* report) noexcept {
    try {
        RunReport own;
        return RunGuarded(inputPath, type, report != nullptr ? *report : own);
    } catch (const Failure& failure) {
        return failure.number;
    } catch (const std::bad_alloc&) {
        return ErrorNumber::OutOfMemory;
    } catch (...) {
        return ErrorNumber::Internal;
    }
}

ErrorNumber CheckInput(const std::string& inputPath) noexcept {
    if (inputPath.empty())
        return ErrorNumber::NoInputPath;
    try {
        // To open a pipe would wait for its other end.
        std::error_code error;
        const bool isFile = std::filesystem::is_regular_file(inputPath, error) && !error;
        return isFile && std::ifstream(inputPath, std::ios::binary) ? ErrorNumber::Good
                                                                    : ErrorNumber::InputNotReadable;
    } catch (...) {
        return ErrorNumber::OutOfMemory;
    }
}

}  // namespace Krenn
