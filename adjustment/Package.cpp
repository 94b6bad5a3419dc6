// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/Package.h"

#include <algorithm>
#include <vector>

#include "core/Drives.h"
#include "core/Host.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int ErrorInLoadingLibrary = 48;
constexpr int NoSuchExport = 453;

// Room behind a short path, for a package that completes the path in place.
constexpr std::size_t SmallestBuffer = 261;

using StartCall = std::int16_t (*)(char*);
using GoCall = std::int16_t (*)(std::int32_t);
using StopCall = void (*)();

[[noreturn]] void Raise(int number, const std::string& description) {
    RunTimeError error(number);
    error.Description = description;
    throw error;
}

std::intptr_t Load() {
    const std::string name = KrennPackage::LibraryName();
    const std::string besideProgram = AppPath() + name;
    const bool isBeside = FileExists(besideProgram);
    std::string reason;
    const std::intptr_t library =
        Host::LoadLibrary(isBeside ? Drives::HostPath(besideProgram) : name, reason);
    if (library == 0 && isBeside)
        Raise(ErrorInLoadingLibrary, "Error in loading DLL: " + name + ": " + reason);
    if (library == 0)
        throw RunTimeError(FileNotFound, name);
    return library;
}

// The host hands out addresses as numbers.
template <class CallType>
CallType CallAt(std::intptr_t address) {
    return reinterpret_cast<CallType>(address);  // NOLINT(performance-no-int-to-ptr)
}

// The path as the package gets it: the host's name of the file where the host has no drive letters.
std::string PathForPackage(const std::string& inputPath) {
    if (Host::PathsAreDrivePaths())
        return inputPath;
    try {
        return Drives::HostPath(inputPath);
    } catch (const RunTimeError&) {
        // A path that leads nowhere, an empty one among them, is for the package to answer with its error
        // number.
        return inputPath;
    }
}

}  // namespace

std::string KrennPackage::LibraryName() {
    return Host::PathsAreDrivePaths() ? "KRENN.DLL" : "libkrenn.so";
}

KrennPackage::~KrennPackage() {
    if (Library != 0)
        Host::FreeLibrary(Library);
}

std::intptr_t KrennPackage::Export(const std::string& decorated, const std::string& plain) {
    if (Library == 0)
        Library = Load();
    std::intptr_t found = Host::FindExport(Library, decorated);
    if (found == 0)
        found = Host::FindExport(Library, plain);
    if (found == 0)
        Raise(NoSuchExport, "Can't find DLL entry point " + decorated + " in " + LibraryName());
    return found;
}

std::int16_t KrennPackage::Start(std::string& inputPath) {
    const auto start = CallAt<StartCall>(Export("_start@4", "start"));
    const std::string given = PathForPackage(inputPath);
    std::vector<char> copy(std::max(given.size() + 1, SmallestBuffer), '\0');
    std::copy(given.begin(), given.end(), copy.begin());
    const std::int16_t result = start(copy.data());
    const std::string left(copy.begin(), std::find(copy.begin(), copy.end(), '\0'));
    if (left != given)
        inputPath = left;
    return result;
}

std::int16_t KrennPackage::Go(std::int32_t type) {
    return CallAt<GoCall>(Export("_go@4", "go"))(type);
}

void KrennPackage::Stop() {
    CallAt<StopCall>(Export("_stop@0", "stop"))();
}

}  // namespace Dorvane
