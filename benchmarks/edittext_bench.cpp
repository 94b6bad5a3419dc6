// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <fstream>
#include <optional>
#include <string>

#include "benchmarks/Toolkit.h"
#include "core/Drives.h"
#include "programs/edittext/TextSearch.h"
#include "programs/edittext/TextView.h"
#include "programs/edittext/frmEditText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

namespace {

constexpr std::int64_t ListingSize = 500'000'000;

// A site and a listing of 500 MB in the temporary folder, which goes with it.
struct LongListing {
    LongListing() {
        const std::string host = Folder.path().toStdString() + "/LONG.OUT";
        std::string block;
        while (block.size() < 1'000'000) {
            block += " Residuals\r\n ---------\r\n";
            for (int row = 0; row < 2000; ++row)
                block +=
                    " P" + std::to_string(row) +
                    "        D5            93.16241       0.00060      -0.21      0.42     0.871    1.02\r\n";
        }
        std::ofstream file(host, std::ios::binary);
        for (std::int64_t size = 0; size < ListingSize; size += static_cast<std::int64_t>(block.size()))
            file << block;
        file.close();
        Path = Drives::DrivePath(host);
    }

    Toolkit Widgets;
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desk;
    QTemporaryDir Folder;
    std::string Path;
};

// Until its first lines are seen.
void OpenALongListing(benchmark::State& state) {
    const LongListing listing;
    for (auto _ : state) {
        frmEditText editor(OpenTextFile(listing.Path, false));
        editor.show();
        editor.grab();
    }
}
BENCHMARK(OpenALongListing)->Unit(benchmark::kMillisecond)->Iterations(5);

// Opened, and at once scrolled to its end.
void OpenALongListingAndSeeItsEnd(benchmark::State& state) {
    const LongListing listing;
    for (auto _ : state) {
        frmEditText editor(OpenTextFile(listing.Path, false));
        editor.show();
        auto& view = Testing::Control<TextView>(editor, "txtText");
        view.Caret().Move(CaretStep::TextEnd, false);
        view.Select(view.Caret().Selected());
        editor.grab();
    }
}
BENCHMARK(OpenALongListingAndSeeItsEnd)->Unit(benchmark::kMillisecond)->Iterations(5);

// Until every line has its number.
void CountTheLinesOfALongListing(benchmark::State& state) {
    const LongListing listing;
    for (auto _ : state) {
        TextFile file = OpenTextFile(listing.Path, false);
        while (!file.Document->CountSome(64)) {
        }
    }
    state.SetBytesProcessed(state.iterations() * ListingSize);
}
BENCHMARK(CountTheLinesOfALongListing)->Unit(benchmark::kMillisecond)->Iterations(2);

// Words that it does not hold, capitals or not.
void SearchALongListing(benchmark::State& state) {
    const LongListing listing;
    const TextFile file = OpenTextFile(listing.Path, false);
    for (auto _ : state) {
        TextSearch search(file.Document->Text(), {"not in it"}, 0, TextSearch::Direction::Forward, true);
        while (!search.Step()) {
        }
        benchmark::DoNotOptimize(search.Found());
    }
    state.SetBytesProcessed(state.iterations() * ListingSize);
}
BENCHMARK(SearchALongListing)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace

}  // namespace Dorvane
