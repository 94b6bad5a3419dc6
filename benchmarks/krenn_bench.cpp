// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "benchmarks/GridNetwork.h"

namespace Dorvane {
namespace {

// A folder that goes with all that is in it.
struct Folder {
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "krenn_bench_XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        path = name;
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
};

struct Outcome {
    double seconds = 0;    // from starting the process to its end
    double megabytes = 0;  // its peak
    std::map<std::string, double> report;
};

Outcome RunInFreshProcess(const std::string& input, const std::string& report) {
    std::string program = KRENN_RUN;
    std::string inputCopy = input;
    std::string reportCopy = report;
    char type[] = "1";
    char* const arguments[] = {program.data(), inputCopy.data(), type, reportCopy.data(), nullptr};
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) != 0)
        std::abort();
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        std::abort();
    Outcome outcome;
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    outcome.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
    std::ifstream file(report);
    std::string name;
    double value = 0;
    while (file >> name >> value)
        outcome.report[name] = value;
    return outcome;
}

// Input file in, listing out, all standard deviations: type 1 on a free grid network of `range` points.
void AdjustGrid(benchmark::State& state) {
    static std::map<double, double> secondsOf;
    const Folder folder;
    const std::string input = (folder.path / "GRID.INP").string();
    const GridNetwork network = MakeGridNetwork(static_cast<int>(state.range(0)));
    std::ofstream(input, std::ios::binary) << network.text;
    Outcome best;
    best.seconds = INFINITY;
    for (auto step : state) {
        static_cast<void>(step);
        const Outcome outcome = RunInFreshProcess(input, (folder.path / "report").string());
        state.SetIterationTime(outcome.seconds);
        if (outcome.seconds < best.seconds)
            best = outcome;
    }
    for (const auto& [name, value] : best.report)
        state.counters[name] = value;
    state.counters["MB"] = best.megabytes;
    state.counters["parse MB/s"] = static_cast<double>(network.text.size()) / 1e6 / best.report["parse"];
    const double points = static_cast<double>(state.range(0));
    if (!secondsOf.empty() && secondsOf.rbegin()->first < points)
        state.counters["exponent"] = std::log(best.seconds / secondsOf.rbegin()->second) /
                                     std::log(points / secondsOf.rbegin()->first);
    secondsOf[points] = best.seconds;
}
BENCHMARK(AdjustGrid)
    ->Name("Adjust/grid")
    ->Arg(1000)
    ->Iterations(10)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);
BENCHMARK(AdjustGrid)
    ->Name("Adjust/grid")
    ->Arg(10000)
    ->Iterations(3)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);
BENCHMARK(AdjustGrid)
    ->Name("Adjust/grid")
    ->Arg(100000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace Dorvane
