// SPDX-License-Identifier: GPL-3.0-or-later
// Notes of versions of an input file (*.VER), as the browser reads them and the editor writes them.
#include "adjustment/basOpenInput.h"
#include "programs/editors/VersionNote.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    VersionNotes notes;
    Reading(Work + "A.VER", content, [&] { ReadVersionFile(Work, "A.VER", notes); });
    const std::string written = FormatNote(notes);
    VersionNotes again;
    Reading(Work + "A.VER", written, [&] { ReadVersionFile(Work, "A.VER", again); });
    Hold(notes == again, "a note that was written reads the same");
    HoldSame(CommentOf(notes), CommentOf(again), "and so does its comment");
    return 0;
}
