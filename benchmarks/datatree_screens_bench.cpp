// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QScrollBar>
#include <string>

#include "benchmarks/Toolkit.h"
#include "core/Globals.h"
#include "datatree/DirectoryTree.h"
#include "datatree/frmTree.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

namespace {

constexpr int Systems = 2;
constexpr int Locations = 16;
constexpr int Types = 16;
constexpr int Epochs = 16;
constexpr int FoldersPerSystem = 4000;
constexpr int Files = 200;

// The records of 8000 registered folders with one folder below each, and 200 files in the last of them.
class LargeTree {
  public:
    LargeTree() {
        Site.LayOut();
        Testing::UseShippedPictures();
        for (int system = 1; system <= Systems; ++system)
            for (int i = 0; i < FoldersPerSystem; ++i)
                AddFolder("SYS" + std::to_string(system), i);
        for (int i = 0; i < Files; ++i)
            Testing::PutFile(LastFolder() + "FILE" + std::to_string(i) + ".LVL", "");
    }

    static std::string LastFolder() {
        const PathRecord& last = Global().PathRecords[Global().PathRecords.Count()];
        return Global().Data_drive + last.Root + "\\" + last.Location + "\\" + last.Type + "\\" + last.Epoch +
               "\\" + last.Survey + "\\";
    }

  private:
    static void AddFolder(const std::string& system, int i) {
        PathRecord record;
        record.Root = record.RootDesc = system;
        record.Location = record.LocationDesc = "LOC" + std::to_string(i / (Types * Epochs) % Locations + 1);
        record.Type = record.TypeDesc = "TYPE" + std::to_string(i / Epochs % Types + 1);
        record.Epoch = record.EpochDesc = "SRV" + std::to_string(i % Epochs + 1);
        Global().PathRecords.Add(record);
        record.Survey = "RAW";
        Global().PathRecords.Add(record);
    }

    Toolkit Widgets;
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desk;
};

void OpenTheTreeScreenOn8000Folders(benchmark::State& state) {
    const LargeTree tree;
    Testing::RecordingNavigator navigator;
    for (auto _ : state) {
        frmTree screen(navigator, {});
        screen.SetTempDirectory(LargeTree::LastFolder());
        screen.show();
        QApplication::processEvents();
        if (Testing::Items(screen, "lsvFiles").size() != Files)
            state.SkipWithError("the tree is not at its last folder");
    }
}
BENCHMARK(OpenTheTreeScreenOn8000Folders)->Unit(benchmark::kMillisecond);

// One frame: all nodes are open, the tree is scrolled by a page and drawn.
void ScrollTheTreeScreenOn8000Folders(benchmark::State& state) {
    const LargeTree tree;
    Testing::RecordingNavigator navigator;
    frmTree screen(navigator, {});
    screen.show();
    auto& folders = Testing::Control<DirectoryTree>(screen, "trvDirectory");
    folders.expandAll();
    QApplication::processEvents();
    QScrollBar& bar = *folders.verticalScrollBar();
    for (auto _ : state) {
        bar.setValue(bar.value() == bar.maximum() ? 0 : bar.value() + bar.pageStep());
        benchmark::DoNotOptimize(folders.viewport()->grab());
    }
}
BENCHMARK(ScrollTheTreeScreenOn8000Folders)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace Dorvane
