// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/ColumnLine.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "datatree/basTree.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

namespace {

constexpr int Systems = 2;
constexpr int Locations = 16;
constexpr int Types = 16;
constexpr int Epochs = 16;
constexpr int FoldersPerSystem = 4000;

std::string Code(const std::string& word, int number) {
    return word + std::to_string(number);
}

std::string Entries(const std::string& word, int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += ColumnLine().At(1, Code(word, i)).At(10, "The " + Code(word, i)).Text() + "\r\n";
    return lines;
}

// Two systems of 4000 registered folders with one folder below each, on the disk and in the registries.
class LargeSite {
  public:
    LargeSite() {
        Site.LayOut();
        std::string choices;
        for (int i = 1; i <= Systems; ++i) {
            choices += ColumnLine().At(1, Code("SYS", i)).At(10, "1").Text() + "\r\n";
            MakeSystem(Code("SYS", i));
        }
        Testing::PutFile(Global().Init_path + "CHOICES.SYS", choices);
    }

  private:
    static void MakeSystem(const std::string& system) {
        const std::string files = Global().Init_path + system;
        Testing::PutFile(files + ".STR", system + "\r\n\r\n" + Entries("LOC", Locations) + "\r\n" +
                                             Entries("TYPE", Types) + "\r\n" + Entries("SRV", Epochs));
        std::string registry;
        std::string history = "TITLE\r\n\r\nSubdirectory\r\n----\r\n";
        for (int i = 0; i < FoldersPerSystem; ++i) {
            const std::string location = Code("LOC", i / (Types * Epochs) + 1);
            const std::string type = Code("TYPE", i / Epochs % Types + 1);
            const std::string epoch = Code("SRV", i % Epochs + 1);
            registry +=
                ColumnLine().At(2, "*").At(10, system).At(20, location).At(30, type).At(40, epoch).Text() +
                "\r\n";
            std::string folder = system;
            folder.append("/").append(location).append("/").append(type).append("/").append(epoch);
            std::filesystem::create_directories(Drives::HostPath(Global().Data_drive) + folder + "/RAW");
            if (i < 100)
                history += system + "\\" + location + "\\" + type + "\\" + epoch +
                           "\r\n    Created     11-20-26      First survey\r\n";
        }
        Testing::PutFile(files + ".PTH", registry);
        Testing::PutFile(files + ".HIS", history);
    }

    Testing::TestSite Site;
};

void ReadTheTreeOf8000Folders(benchmark::State& state) {
    const LargeSite site;
    List1<PathRecord> records;
    Sorter sorter;
    for (auto _ : state)
        if (GetExistingTree(records, sorter) != 2 * Systems * FoldersPerSystem)
            state.SkipWithError("the tree is not whole");
}
BENCHMARK(ReadTheTreeOf8000Folders)->Unit(benchmark::kMillisecond);

void BuildTheNodesOf8000Folders(benchmark::State& state) {
    const LargeSite site;
    List1<PathRecord> records;
    Sorter sorter;
    GetExistingTree(records, sorter);
    for (auto _ : state) {
        TreeModel tree;
        TarvexTreeSetup(records, records.Count(), tree);
        if (tree.Nodes().size() <= 2 * Systems * FoldersPerSystem)
            state.SkipWithError("the tree is not whole");
    }
}
BENCHMARK(BuildTheNodesOf8000Folders)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace Dorvane
