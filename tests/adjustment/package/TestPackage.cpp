// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "tests/adjustment/package/Deeds.h"

// A package for the tests of its calls. Each call adds a line to the file named by PACKAGE_LOG; the results
// are the numbers in PACKAGE_START and PACKAGE_GO. PACKAGE_LEAVES is written over the path that was handed
// over. PACKAGE_START_DOES, PACKAGE_GO_DOES and PACKAGE_STOP_DOES name what a call does beside it, see
// Deeds.h.
namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

void Record(const std::string& line) {
    if (std::FILE* log = std::fopen(Variable("PACKAGE_LOG").c_str(), "a")) {
        std::fprintf(log, "%s\n", line.c_str());
        std::fclose(log);
    }
}

std::int16_t Number(const char* name) {
    return static_cast<std::int16_t>(std::atoi(Variable(name).c_str()));
}

std::int16_t Started(const char* names, char* path) {
    Record(std::string(names) + " start " + path);
    PackageDeeds::Do(Variable("PACKAGE_START_DOES"));
    const std::string leaves = Variable("PACKAGE_LEAVES");
    if (!leaves.empty())
        std::memcpy(path, leaves.c_str(), leaves.size() + 1);
    return Number("PACKAGE_START");
}

[[maybe_unused]] std::int16_t Gone(const char* names, std::int32_t type) {
    Record(std::string(names) + " go " + std::to_string(type));
    PackageDeeds::Do(Variable("PACKAGE_GO_DOES"));
    return Number("PACKAGE_GO");
}

}  // namespace

extern "C" {

std::int16_t start(char* path) {
    return Started("plain", path);
}
#ifndef PACKAGE_WITHOUT_GO
std::int16_t go(std::int32_t type) {
    return Gone("plain", type);
}
#endif
void stop() {
    Record("plain stop");
    PackageDeeds::Do(Variable("PACKAGE_STOP_DOES"));
}

#ifdef PACKAGE_DECORATED
// The tool beside this file gives these their decorated names, which no assembler here would take.
std::int16_t DecoratedStart(char* path) asm("_start.4");
std::int16_t DecoratedGo(std::int32_t type) asm("_go.4");
void DecoratedStop() asm("_stop.0");

std::int16_t DecoratedStart(char* path) {
    return Started("decorated", path);
}
std::int16_t DecoratedGo(std::int32_t type) {
    return Gone("decorated", type);
}
void DecoratedStop() {
    Record("decorated stop");
}
#endif
}
