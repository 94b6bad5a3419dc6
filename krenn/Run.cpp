// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Run.h"

#include <chrono>
#include <ctime>
#include <fstream>
#include <new>

#include "krenn/Adjustment.h"
#include "krenn/HostFile.h"
#include "krenn/InputReader.h"
#include "krenn/Listing.h"
#include "krenn/Scan.h"
#include "krenn/Statistics.h"

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

std::string ListingOf(const RunHeader& run) {
    const Type type = TypeOf(run.type);
    const Network network = ReadInput(ReadWholeFile(run.inputPath));
    const Adjustment adjustment = Adjust(network, type);
    return GoodListing(run, network, adjustment, Evaluate(network, adjustment));
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

ErrorNumber RunGuarded(const std::string& inputPath, int type) {
    if (inputPath.empty())
        return ErrorNumber::NoInputPath;
    const std::string listingPath = ListingPath(inputPath);
    if (listingPath == inputPath)
        return ErrorNumber::NotAnInputFile;
    const RunHeader run{Printable(inputPath, 500), type, Now()};
    RunHeader reading = run;
    reading.inputPath = inputPath;
    std::string text;
    const Failure failure = Guarded([&] { text = ListingOf(reading); });
    if (failure.number != ErrorNumber::Good)
        text = FailureListing(run, failure);
    const Failure writing = Guarded([&] { WriteWholeFile(listingPath, text); });
    return failure.number != ErrorNumber::Good ? failure.number : writing.number;
}

}  // namespace

ErrorNumber RunAdjustment(const std::string& inputPath, int type) noexcept {
    try {
        return RunGuarded(inputPath, type);
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
        return std::ifstream(inputPath, std::ios::binary) ? ErrorNumber::Good : ErrorNumber::InputNotReadable;
    } catch (...) {
        return ErrorNumber::OutOfMemory;
    }
}

}  // namespace Krenn
