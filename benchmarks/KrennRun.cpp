// SPDX-License-Identifier: GPL-3.0-or-later

// One run of the adjustment package in a process of its own, for krenn_bench: KrennRun INPUT TYPE REPORT
// makes what start and go make of the input file, and writes where the time went.

#include <fmt/format.h>

#include <fstream>
#include <string>

#include "krenn/Run.h"

int main(int count, char** arguments) {
    if (count != 4)
        return 1;
    const std::string input = arguments[1];
    Krenn::RunReport report;
    if (Krenn::CheckInput(input) != Krenn::ErrorNumber::Good ||
        Krenn::RunAdjustment(input, std::stoi(arguments[2]), &report) != Krenn::ErrorNumber::Good)
        return 2;
    const Krenn::Phases& phases = report.phases;
    std::ofstream file(arguments[3]);
    file << fmt::format("observations {}\niterations {}\n", report.observations, report.iterations)
         << fmt::format(
                "parse {}\napproximate {}\nlinearise {}\nanalyse {}\nfactorise {}\nsolve {}\ninvert {}\nlist "
                "{}\n",
                phases.parse, phases.approximate, phases.linearise, phases.analyse, phases.factorise,
                phases.solve, phases.invert, phases.list);
    return file.flush() ? 0 : 3;
}
