// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "adjustment/frmVarn.h"
#include "benchmarks/Toolkit.h"
#include "core/Globals.h"
#include "input/InputTree.h"
#include "input/frmInput.h"
#include "reduction/TabPages.h"
#include "reduction/frmReduce.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

namespace {

using Testing::PutFile;
using Testing::PutLines;

// A site with the program's pictures.
struct ScreenSite {
    ScreenSite() {
        Site.LayOut();
        Testing::UseShippedPictures();
    }

    Toolkit Widgets;
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desk;
    Testing::RecordingNavigator Navigator;
};

// One extension after another with a tab of its own, each with data and results.
void OpenTheReductionScreen(benchmark::State& state) {
    ScreenSite site;
    const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\";
    std::string extensions;
    std::vector<std::string> keys;
    const auto tabs = static_cast<int>(state.range(0));
    for (int i = 1; i <= tabs; ++i) {
        const std::string extension = "X0" + std::to_string(i);
        extensions += extension + " ";
        keys.push_back(extension + "_Name=Tab " + std::to_string(i));
        keys.push_back(extension + "_Reduce=RED.EXE " + extension + ".RES");
        PutFile(folder + "A." + extension, "data");
        PutFile(folder + extension + ".RES", "results");
    }
    keys.insert(keys.begin(), {"[Data Types]", "Epochs=TOTAL", "[TOTAL]", "Extension=" + extensions});
    PutLines("C:\\WINDOWS\\dv_datatype.ini", keys);
    for (auto _ : state) {
        frmReduce screen(site.Navigator);
        screen.SetSelectedDirectory(folder);
        screen.show();
        QApplication::processEvents();
        if (Testing::Items(screen, ("lstReductionResults" + std::to_string(tabs - 1)).c_str()).size() != 1)
            state.SkipWithError("the last tab does not show its result");
    }
}
BENCHMARK(OpenTheReductionScreen)->Arg(2)->Arg(9)->Unit(benchmark::kMillisecond);

void OpenAProjectOf40Folders(benchmark::State& state) {
    ScreenSite site;
    constexpr int Folders = 40;
    PutLines("C:\\WINDOWS\\dv_input.ini", {"[Height]", "Number=1", "Name1=Levelling", "Location1=LEVEL"});
    std::vector<std::string> project = {"Project", "Task", "3"};
    for (int i = 1; i <= Folders; ++i) {
        const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV" + std::to_string(i) + "\\";
        PutFile(folder + "HDIFF.RES", "");
        project.push_back("Levelling>" + folder);
    }
    project.insert(project.end(), 3, "End");
    PutLines("D:\\TARVEX\\FORTY.gpf", project);
    for (auto _ : state) {
        frmInput screen(site.Navigator, {});
        screen.show();
        site.Desk.ExpectFile("", "D:\\TARVEX\\FORTY.gpf");
        Testing::Choose(screen, "mnuOpenProject");
        const auto& tree = Testing::Control<InputTree>(screen, "trvInput");
        if (tree.topLevelItem(0)->child(0)->childCount() != Folders)
            state.SkipWithError("the project is not whole");
    }
}
BENCHMARK(OpenAProjectOf40Folders)->Unit(benchmark::kMillisecond);

void ChooseAnInputBesideAListingOf10000Points(benchmark::State& state) {
    ScreenSite site;
    const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";
    PutFile(folder + "BIG.INP", "PROJECT = P\r\nTASK = T\r\n");
    std::string listing = "Final results\r\n";
    for (int i = 1; i <= 10000; ++i)
        listing += "P" + std::to_string(i) + "   100.000000   200.000000   300.000000\r\n";
    PutFile(folder + "BIG.OUT", listing);
    for (auto _ : state) {
        frmVarn screen(site.Navigator);
        screen.SetInput(folder + "BIG.INP");
        screen.show();
        QApplication::processEvents();
        if (!Testing::IsEnabled(screen, "mnuXyz"))
            state.SkipWithError("the listing is not offered");
    }
}
BENCHMARK(ChooseAnInputBesideAListingOf10000Points)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace Dorvane
