// SPDX-License-Identifier: GPL-3.0-or-later
// CHOICES.SYS and the structure files, by the tree's readers and by the editors.
#include "datatree/basRead.h"
#include "programs/editors/ChoiceEdit.h"
#include "programs/editors/StructureText.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void EditStructure(const std::string& content, std::size_t groups) {
    StructureText read;
    if (!ParseStructure(content, groups, read).empty())
        return;
    StructureText again;
    const std::string written = FormatStructure(read);
    HoldSame("", ParseStructure(written, groups, again), "what the editor writes it understands");
    Hold(read == again, "a structure that was written reads the same");
}

void EditChoices(const std::string& content) {
    std::vector<SystemEdit> read;
    if (!ParseChoices(content, read).empty())
        return;
    std::vector<SystemEdit> again;
    const std::string written = FormatChoices(read);
    HoldSame("", ParseChoices(written, again), "what the editor writes it understands");
    Hold(read.size() == again.size(), "as many systems as were written");
    HoldSame(written, FormatChoices(again), "systems that were written read the same");
}

// What the editor understands as a whole the tree reads alike.
void Compare(const std::string& content) {
    StructureText edited;
    if (!ParseStructure(content, 3, edited).empty())
        return;
    List1<StructureRecord> records;
    records.Resize(1);
    ReadStrFile(records, 1, Init, "DAM.STR");
    const StructureRecord& record = records[1];
    HoldSame(edited.Name, record.Name, "tree and editor read one system");
    const auto same = [](const std::vector<CodeEntry>& entries, const List1<std::string>& codes, int count) {
        Hold(static_cast<int>(entries.size()) == count, "tree and editor count alike");
        for (int i = 1; i <= count; ++i)
            HoldSame(entries[static_cast<std::size_t>(i) - 1].Code, codes[i],
                     "tree and editor read one name");
    };
    same(edited.Groups[0], record.Location, record.LocationCount);
    same(edited.Groups[1], record.Type, record.TypeCount);
    same(edited.Groups[2], record.Epoch, record.EpochCount);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    const std::string content = TextOf(data, size);
    Reading(Init + "DAM.STR", content, [&] {
        List1<StructureRecord> records;
        records.Resize(1);
        ReadStrFile(records, 1, Init, "DAM.STR");
        ReadCalibStrFile(records, 1, Init, "DAM.STR");
        List1<ChoiceRecord> choices;
        Hold(ReadChoiceFile(choices, Init, "DAM.STR") == choices.Count(), "the number of systems is told");
        Compare(content);
    });
    EditStructure(content, 2);
    EditStructure(content, 3);
    EditChoices(content);
    return 0;
}
