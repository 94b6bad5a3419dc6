// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ChildPackage.h"

#include <utility>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

using Words = PackageChannel::Words;

constexpr int Tick = 25;  // milliseconds between two looks at what else is to be done

[[noreturn]] void Raise(int number, const std::string& description) {
    RunTimeError error(number);
    error.Description = description;
    throw error;
}

[[noreturn]] void RaiseUnexpectedEnd(const std::string& how) {
    Raise(InternalError, "The adjustment package ended unexpectedly (" + how + ")");
}

}  // namespace

ChildPackage::ChildPackage(std::function<void()> whileWaiting) : WhileWaiting(std::move(whileWaiting)) {}

ChildPackage::~ChildPackage() = default;

std::string ChildPackage::RunnerPath() {
    return AppPath() + "Programs\\KRENNRUN.EXE";
}

void ChildPackage::Begin() {
    Own.reset();
    const std::string program = RunnerPath();
    if (!FileExists(program))
        throw RunTimeError(FileNotFound, program);
    Own = std::make_unique<Runner>(Drives::HostPath(program));
    // It finds the library and the input file from the same place as this program would.
    const Globals& global = Global();
    const std::string drive(global.CurrentDrive == 0 ? 0 : 1, global.CurrentDrive);
    if (!Own->Channel.Send({"place", global.DrivesFolder, AppPath(), drive}))
        RaiseEnd();
}

void ChildPackage::RaiseEnd() {
    RaiseUnexpectedEnd(Own->Process.End());
}

// Waits for an answer. False when the process has ended without one.
bool ChildPackage::ReceiveOrWait(Words& answer) {
    for (;;) {
        // What the process has left behind is still read; a process of the package's own may hold its channel
        // open beyond its end.
        const bool ended = Own->Process.HasEnded();
        const Host::Arrival arrival = Own->Channel.Receive(ended ? 0 : Tick, answer);
        if (arrival == Host::Arrival::Text)
            return true;
        if (arrival == Host::Arrival::End || ended)
            return false;
        if (WhileWaiting)
            WhileWaiting();
    }
}

bool ChildPackage::HasAnsweredGo(const Words& request, Words& answer) {
    return request[0] == "go" && Own->Channel.Receive(0, answer) == Host::Arrival::Text;
}

Words ChildPackage::Ask(const Words& request) {
    if (!Own)
        Begin();
    Words answer;
    try {
        if (!Own->Channel.Send(request) || !ReceiveOrWait(answer))
            RaiseEnd();
    } catch (const RunCancelled&) {
        if (!HasAnsweredGo(request, answer)) {
            Own->Process.End();
            throw;
        }
    } catch (...) {
        Own->Process.End();
        throw;
    }
    const std::optional<int> number = answer.size() > 1 ? NumberOfWord(answer[1]) : std::nullopt;
    if (answer[0] == "error" && answer.size() == 3 && number)
        Raise(*number, answer[2]);
    const std::size_t expected = request[0] == "start" ? 3 : request[0] == "go" ? 2 : 1;
    if (answer[0] != "done" || answer.size() != expected || (expected > 1 && !number)) {
        Own->Process.End();
        RaiseUnexpectedEnd("its answer was none");
    }
    return answer;
}

std::int16_t ChildPackage::Start(std::string& inputPath) {
    Begin();
    const Words answer = Ask({"start", inputPath});
    inputPath = answer[2];
    return static_cast<std::int16_t>(*NumberOfWord(answer[1]));
}

std::int16_t ChildPackage::Go(std::int32_t type) {
    return static_cast<std::int16_t>(*NumberOfWord(Ask({"go", std::to_string(type)})[1]));
}

void ChildPackage::Stop() {
    Ask({"stop"});
    // The run is over when the process is, which may still have to tidy up. How it ends is of no matter now.
    Words nothing;
    while (ReceiveOrWait(nothing)) {
    }
    Own.reset();
}

}  // namespace Dorvane
