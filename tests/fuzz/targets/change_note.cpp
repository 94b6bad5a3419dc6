// SPDX-License-Identifier: GPL-3.0-or-later
// The note of a change that was broken off: whatever it holds, nothing outside of its folder moves.
#include <filesystem>

#include "core/BrokenChange.h"
#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "tests/fuzz/targets/FuzzSite.h"
#include "tests/support/TestSite.h"

using namespace Dorvane;
using Fuzz::Content;
using Fuzz::Hold;
using Fuzz::HoldSame;
using Fuzz::Put;
using Fuzz::Quietly;
using Fuzz::TextOf;

namespace {

const std::string Folder = "D:\\CHANGED\\";
const std::string Elsewhere = "D:\\ELSE\\";

void ReadAndWrite() {
    const ChangeNote note = ReadChangeNote(Folder);
    WriteChangeNote(Folder, note);
    const ChangeNote again = ReadChangeNote(Folder);
    HoldSame(note.Who, again.Who, "a note that was written names the same station");
    Hold(note.Files.size() == again.Files.size(), "a note that was written holds as much");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::LayOutOnce();
    std::filesystem::remove_all(Drives::HostPath("D:\\CHANGED"));
    Testing::MakeFolders(Folder);
    Testing::MakeFolders(Elsewhere);
    const std::string content = TextOf(data, size);
    Put(Elsewhere + "A.DAT", "untouched");
    Put(Elsewhere + "A.DAT.dv~", "not to be taken");
    Put(Folder + "B.DAT", "old");
    Put(Folder + "B.NEW", "new");
    Put(ChangeNotePath(Folder), content);
    if (Quietly([] { ReadChangeNote(Folder); })) {
        Quietly([] { ReadAndWrite(); });
        Put(ChangeNotePath(Folder), content);
    }
    Quietly([] { FinishBrokenChange(Folder); });
    HoldSame("untouched", Content(Elsewhere + "A.DAT"), "a file elsewhere stays");
    HoldSame("not to be taken", Content(Elsewhere + "A.DAT.dv~"), "a file elsewhere stays");
    return 0;
}
