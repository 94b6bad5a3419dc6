// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "programs/fieldbook/ReductionFiles.h"
#include "programs/level/LevelRun.h"

int main() {
    return Dorvane::RunProgram("LEVRED", [] {
        Dorvane::Drives::Open();
        return Dorvane::RunLevelReduction();
    });
}
