// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileMeter.h"

#include "core/Globals.h"

namespace Dorvane {

OpenMeter::OpenMeter(FileMeter& meter, int fileCount) : Meter(meter) {
    Meter.Open(fileCount);
}

OpenMeter::~OpenMeter() {
    Meter.Close();
}

void OpenMeter::Begin(const std::string& from, const std::string& to) {
    Meter.ShowFile(from, to);
    TheDesktop().YieldEvents();
}

}  // namespace Dorvane
