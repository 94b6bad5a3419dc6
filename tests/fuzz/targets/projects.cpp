// SPDX-License-Identifier: GPL-3.0-or-later
// Project files of the input screen (*.gpf).
#include "input/ProjectFile.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

const std::string Saved = Work + "B.GPF";

InputScreen NewScreen() {
    InputScreen screen;
    List1<PathRecord> records;
    for (const char* location : {"NORTH", "SOUTH"}) {
        PathRecord record;
        record.Root = "DAM";
        record.Location = location;
        records.Add(record);
    }
    OpenInputScreen(screen, records, {});
    return screen;
}

InputScreen Opened(const std::string& path) {
    InputScreen screen = NewScreen();
    LayOutOnce().FileToOpen = path;
    OpenProject(screen, {});
    return screen;
}

// False when the operator had to be asked, who says no.
bool Save(InputScreen& screen) {
    Remove(Saved);
    LayOutOnce().FileToOpen = Saved;
    return SaveProject(screen, {});
}

void PutProfiles() {
    Put("C:\\WINDOWS\\dv_datatype.ini", "[Data Types]\r\nEpochs=TPS LEVEL\r\n");
    Put("C:\\WINDOWS\\dv_input.ini",
        "[Tracker]\r\nNumber=1\r\nName1=Laser\r\nLocation1=TPS\r\n[Total]\r\nNumber=1\r\nName1="
        "Totalstation\r\n"
        "Location1=TPS\r\n[Level]\r\nNumber=1\r\nName1=Levelling\r\nLocation1=LEVEL\r\n");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    PutProfiles();
    const std::string content = TextOf(data, size);
    Reading(Work + "A.GPF", content, [&] {
        InputScreen first = Opened(Work + "A.GPF");
        if (!Save(first))
            return;
        const std::string written = Content(Saved);
        InputScreen second = Opened(Saved);
        HoldSame(first.SavedProject, second.SavedProject, "a project that was saved opens the same");
        Hold(Save(second), "a project that was saved can be saved again");
        HoldSame(written, Content(Saved), "a project that was opened is saved the same");
    });
    return 0;
}
