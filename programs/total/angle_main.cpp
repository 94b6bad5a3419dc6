// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "programs/fieldbook/ReductionFiles.h"
#include "programs/total/TotalRun.h"

int main() {
    return Dorvane::RunProgram(Dorvane::AngleProgram.Name, [] {
        Dorvane::Drives::Open();
        return Dorvane::RunBookReduction(Dorvane::AngleProgram);
    });
}
