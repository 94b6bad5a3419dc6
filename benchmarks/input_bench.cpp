// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <string>

#include "input/CreateInput.h"
#include "input/ResultFiles.h"
#include "input/TreeFolders.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using namespace Testing;

const std::string Survey = "D:\\SURVEY\\";
const std::string Job = "D:\\JOB\\";

// Result lines as a reduction writes them: stations of some hundred sights to points that come again.
std::string ResultLines(int count, int points) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "ST" + std::to_string(i / 300) + " P" + std::to_string(i % points) + " " +
                std::to_string(100 + i * 0.00371) + " " + std::to_string(95 + i * 0.00013) + " " +
                std::to_string(20 + i * 0.00217) + "\r\n";
    return text;
}

void ReadGenericResultLines(benchmark::State& state) {
    const TestSite site;
    ScriptedDesktop desktop;
    PutFile(Survey + "TOTAL.RES", ResultLines(32767, 10000));
    List1<ResRecord> records;
    for (auto _ : state)
        if (ReadGenericRes(records, Survey, "TOTAL.RES") != 32767)
            state.SkipWithError("not every line was read");
}
BENCHMARK(ReadGenericResultLines)->Unit(benchmark::kMillisecond);

// The whole click: import, coordinates from a user file, and all four files.
void CreateInputOf30000Observations(benchmark::State& state) {
    const TestSite site;
    PutLines("C:\\WINDOWS\\dv_datatype.ini", {"[Data Types]", "Epochs=TPS"});
    PutLines("C:\\WINDOWS\\dv_input.ini",
             {"[Tracker]", "Number=1", "Name1=Laser", "Location1=TPS", "HAngle1=0.0005", "ZAngle1=0.0005",
              "SDist1=0.0005", "[TPS]", "3dResFile=TOTALRES TOTAL.RES"});
    PutFile(Survey + "TOTAL.RES", ResultLines(30000, 10000));
    std::string points;
    for (int i = 0; i < 10000; ++i)
        points += "P" + std::to_string(i) + " " + std::to_string(1000 + i * 0.731) + " " +
                  std::to_string(2000 - i * 0.377) + " " + std::to_string(300 + i * 0.0031) + "\r\n";
    PutFile("D:\\POINTS.TXT", points);
    MakeFolders(Job);
    Global().Path_type = 1;
    InputServices services;
    services.PickFolder = [](const std::string&, const std::string&) { return Job; };
    InputScreen screen;
    {
        ScriptedDesktop desktop;
        OpenInputScreen(screen, {}, services);
    }
    AddTreeFolder(screen.trvInput, "Laser", Survey);
    screen.lstUserDBFiles = {{"D:\\POINTS.TXT", true}};
    screen.lstCoordDirectorys[0].Selected = true;
    int number = 0;
    for (auto _ : state) {
        ScriptedDesktop desktop;
        desktop.ExpectText("Enter VARN input file name", "NET" + std::to_string(++number));
        desktop.ExpectMessage("Input File Creation", "Input file completed");
        CreateInputFile(screen, services);
    }
}
BENCHMARK(CreateInputOf30000Observations)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace Dorvane
