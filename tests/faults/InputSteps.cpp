// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "database/CoordinateRetriever.h"
#include "input/CreateInput.h"
#include "input/TreeFolders.h"
#include "tests/faults/FaultLibrary.h"
#include "tests/faults/Steps.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Survey = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";
const std::string Job = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV12\\";

void PrepareInput() {
    PutLines("C:\\WINDOWS\\dv_datatype.ini",
             {"[Data Types]", "Epochs=TPS", "[TPS]", "Extension=GSI", "GSI_Reduce=REDTOT.EXE TOTAL.RES"});
    PutLines("C:\\WINDOWS\\dv_input.ini",
             {"[Tracker]", "Number=1", "Name1=Laser", "Icon1=laser.bmp", "Location1=TPS", "HAngle1=0.0005",
              "ZAngle1=0.0006", "SDist1=0.0001", "[TPS]", "3dResFile=TOTALRES TOTAL.RES"});
    PutLines(Survey + "TOTAL.RES", {"ST1 P7 123.4567 99.1234 25.12345", "ST1 P8 23.4567 98.1234 26.12345"});
    for (const char* name : {"NET.INP", "NET.ORG", "NET.SUM", "NET.VER"})
        PutLines(Job + name, {std::string("former ") + name});
    PutLines(Job + "NET.OUT", {"former listing"});
}

// The folders are read anew each time: what stands on the screen is none of the step.
bool CreateInput(TellingDesktop& desktop) {
    InputScreen screen;
    InputServices services;
    services.PickFolder = [](const std::string&, const std::string&) { return std::optional(Job); };
    services.MakeSource = [] { return std::make_unique<CoordinateRetriever>(); };
    desktop.AskedText = "NET";
    FaultsPause();
    OpenInputScreen(screen, {}, services);
    AddTreeFolder(screen.trvInput, "Laser", Survey);
    FaultsResume();
    CreateInputFile(screen, services);
    return desktop.HasTold("Input File Creation");
}

}  // namespace

const std::vector<Step> InputSteps = {{"input", PrepareInput, CreateInput}};

}  // namespace Dorvane::Testing
