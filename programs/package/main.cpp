// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <exception>

#include "adjustment/Package.h"
#include "adjustment/PackageChannel.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"

// Makes the calls of the adjustment package for the program that started it.
namespace Dorvane {

namespace {

using Words = PackageChannel::Words;

Words ErrorAnswer(int number, const std::string& description) {
    return {"error", std::to_string(number), description};
}

Words ExceptionAnswer(const std::string& what) {
    return ErrorAnswer(InternalError, "The adjustment package ended unexpectedly (" + what + ")");
}

void TakePlace(const Words& words) {
    if (!words[1].empty())
        Drives::Open(words[1]);
    Global().ProgramFolder = words[2];
    if (!words[3].empty())
        Global().CurrentDrive = words[3].front();
}

Words Call(AdjustmentPackage& package, const Words& request) {
    if (request[0] == "start" && request.size() == 2) {
        std::string path = request[1];
        const std::int16_t result = package.Start(path);
        return {"done", std::to_string(result), path};
    }
    if (request[0] == "go" && request.size() == 2)
        return {"done", std::to_string(package.Go(NumberOfWord(request[1]).value_or(0)))};
    package.Stop();
    return {"done"};
}

Words Answer(AdjustmentPackage& package, const Words& request) {
    try {
        return Call(package, request);
    } catch (const RunTimeError& error) {
        return ErrorAnswer(error.Number, error.Description);
    } catch (const std::exception& error) {
        return ExceptionAnswer(error.what());
    } catch (...) {
        return ExceptionAnswer("unknown exception");
    }
}

void Serve(PackageChannel& channel) {
    Words request;
    if (channel.Receive(-1, request) != Host::Arrival::Text || request.size() != 4)
        return;
    TakePlace(request);
    KrennPackage package;
    while (channel.Receive(-1, request) == Host::Arrival::Text) {
        const Words answer = Answer(package, request);
        if (!channel.Send(answer) || (request[0] == "stop" && answer[0] == "done"))
            return;
    }
}

}  // namespace

}  // namespace Dorvane

int main(int argc, char** argv) {
    const Dorvane::Host::Channel line = Dorvane::Host::ChannelOfArgument(argc == 2 ? argv[1] : "");
    if (line == -1) {
        std::fputs("KRENNRUN is started by the adjustment screen, not by hand.\n", stderr);
        return 1;
    }
    try {
        Dorvane::PackageChannel channel(line);
        Dorvane::Serve(channel);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "KRENNRUN: %s\n", failure.what());
        return 1;
    }
}
