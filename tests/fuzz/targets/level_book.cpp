// SPDX-License-Identifier: GPL-3.0-or-later
// Levelling books, plain and GSI; the first byte tells what corrects the readings.
#include "core/LineReader.h"
#include "input/ResultFiles.h"
#include "programs/level/LevelProtocol.h"
#include "tests/fuzz/targets/FuzzSite.h"

using namespace Dorvane;
using namespace Dorvane::Fuzz;

namespace {

void CheckBook(const LevelBook& book) {
    for (const LevelLine& line : book.Lines)
        for (std::size_t i = 0; i < line.SetUps.size(); ++i) {
            const LevelSetUp& setUp = line.SetUps[i];
            Hold(setUp.HasBack && setUp.HasFore, "a set-up in a line has both sights");
            Hold(!setUp.Back.Readings.empty() && !setUp.Fore.Readings.empty(), "a sight has readings");
            if (i > 0)
                HoldSame(line.SetUps[i - 1].Fore.Point, setUp.Back.Point,
                         "set-ups of a line follow each other");
        }
}

void Reduce(const LevelBook& book, const StaffCorrection& correction) {
    CheckBook(book);
    const LevelResult result = ReduceLevelBook(book);
    const std::vector<std::string> lines = LevelResLines(result);
    LevelProtocol({{}, Work, "SRV1.IDX", "LEVEL.RES", static_cast<long>(lines.size())}, correction, book,
                  result, {});
    std::string file;
    for (const std::string& line : lines)
        file += line + "\r\n";
    Put(Work + "LEVEL.RES", file);
    List1<ResRecord> records;
    Hold(ReadGenericRes(records, Work, "LEVEL.RES") == static_cast<std::int16_t>(lines.size()),
         "each line of a result is read back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LayOutOnce();
    Choices choices(data, size);
    StaffCorrection correction;
    const unsigned kind = choices.Byte();
    if ((kind & 1) != 0)
        correction.Scale = 1.0001;
    if ((kind & 2) != 0)
        correction.Collimation = 0.00002;
    if ((kind & 4) != 0)
        correction.Inverted = {"A", "P1"};
    const std::string content = choices.Tail();
    LevelBook plain;
    LineReader lines = LineReader::OfText(content);
    ReadPlainLevelBook(plain, "BOOK.LEV", lines, correction);
    Reduce(plain, correction);
    LevelBook digital;
    LineReader words = LineReader::OfText(content);
    ReadGsiLevelBook(digital, "BOOK.GSI", words, correction);
    Reduce(digital, correction);
    return 0;
}
