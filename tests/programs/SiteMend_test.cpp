// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteMend.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "database/CoordinateRetriever.h"
#include "tests/programs/CheckedSite.h"

// What can be mended is mended, after a copy, and only what was mended is told.
namespace Dorvane::Testing {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

struct MendedSite : CheckedSite {
    MendedSite() { Desktop.Clock = {2026, 11, 22, 9, 5, 7}; }

    /// Mends all that is found.
    static MendReport MendAll() { return MendSite(Findings()); }

    void Store(const char* name, double x) {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(Database, 3, name, "112026", x, 2, 3, 0, 0, 0, 0, 0, 0);
        retriever.Commit();
    }
};

}  // namespace

TEST_F(MendedSite, TakesOutLinesThatSayNothing) {
    const std::vector<std::string> lines = FileLines(Init + "DAM.PTH");
    PutLines(Init + "DAM.PTH", {lines[0], "", lines[1], lines[0]});
    const std::string damaged = FileContent(Init + "DAM.PTH");
    const MendReport mended = MendAll();
    EXPECT_EQ(FileLines(Init + "DAM.PTH"), lines);
    EXPECT_THAT(mended.Done, SizeIs(2));
    EXPECT_THAT(mended.Failed, IsEmpty());
    EXPECT_EQ(mended.Copies, "C:\\TARVEX\\WORK\\SITECHK\\20261122_090507\\");
    EXPECT_EQ(FileContent(mended.Copies + "D\\TARVEX\\INIT\\DAM.PTH"), damaged);
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(MendedSite, MakesFoldersIndexesAndEntries) {
    std::filesystem::remove_all(Drives::HostPath("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\"));
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\ANGLE\\SRV02\\");
    PutFile(Epoch + "LOST.LEV", "not listed");
    SetTimeStamp(Epoch + "LOST.LEV", {2026, 3, 4, 5, 6, 7});
    std::filesystem::remove(Drives::HostPath(Init + "DAM.HIS"));
    EXPECT_THAT(MendAll().Failed, IsEmpty());
    EXPECT_EQ(FileLines(Epoch + "SRV01.IDX").back(), "LOST     LEV       LOST                3/4/2026");
    // The folders that came with it want their index now.
    EXPECT_THAT(Found(), ElementsAre("D:\\TARVEX\\DAM\\NORTH\\ANGLE\\SRV02\\: has no index of its books",
                                     "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV02\\: has no index of its books"));
    EXPECT_THAT(MendAll().Failed, IsEmpty());
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_TRUE(Drives::IsThere("D:\\TARVEX\\DAM\\NORTH\\ANGLE\\SRV02\\SRV02.IDX"));
}

TEST_F(MendedSite, CompletesADatabase) {
    std::filesystem::remove(Drives::HostPath(Database + "IDEALS.DAT"));
    std::filesystem::remove(Drives::HostPath(Init + "BIAS.STR"));
    const MendReport mended = MendAll();
    EXPECT_THAT(mended.Done, SizeIs(2));
    EXPECT_THAT(Found(), IsEmpty());
    std::filesystem::remove_all(Drives::HostPath(Database));
    EXPECT_THAT(MendAll().Failed, IsEmpty());
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(MendedSite, RebuildsADatabaseFromItsOwnRecords) {
    Store("P1", 1);
    Store("P2", 2);
    Store("P1", 3);
    const std::string data = FileContent(Database + "3DIM.DAT");
    const std::string index = FileContent(Database + "3DIM.IDX");
    const std::string list = FileContent(Database + "3DIM.LST");
    std::string swapped = index;
    swapped.replace(swapped.find("P1"), 2, "P9");
    for (const std::string& damaged : {swapped, std::string(), index.substr(0, index.size() - 5)}) {
        PutFile(Database + "3DIM.IDX", damaged);
        EXPECT_THAT(Found(), SizeIs(1));
        EXPECT_THAT(MendAll().Failed, IsEmpty());
        EXPECT_EQ(FileContent(Database + "3DIM.DAT"), data);
        EXPECT_EQ(FileContent(Database + "3DIM.IDX"), index);
        EXPECT_EQ(FileContent(Database + "3DIM.LST"), list);
    }
    PutFile(Database + "3DIM.LST", "P2\r\n");
    EXPECT_THAT(MendAll().Failed, IsEmpty());
    EXPECT_EQ(FileContent(Database + "3DIM.LST"), "P2\r\nP1\r\n");
}

TEST_F(MendedSite, LeavesOutOfADatabaseWhatIsNoRecord) {
    Store("P1", 1);
    Store("P2", 2);
    std::string data = FileContent(Database + "3DIM.DAT");
    const std::string whole = data;
    const std::size_t second = data.find("P2");
    data.insert(second, "P7      torn by another program\r\n");
    PutFile(Database + "3DIM.DAT", data);
    const MendReport mended = MendAll();
    EXPECT_THAT(mended.Failed, IsEmpty());
    EXPECT_EQ(FileContent(Database + "3DIM.DAT"), whole);
    EXPECT_EQ(FileContent(mended.Copies + "D\\TARVEX\\COORD\\NORTH\\3DIM.DAT"), data);
    EXPECT_THAT(Found(), IsEmpty());
    PutFile(Database + "NORTH.REF", "wrong\r\n11-20-26 DAM        NORTH     \r\nshort\r\n");
    EXPECT_THAT(MendAll().Failed, IsEmpty());
    EXPECT_EQ(FileContent(Database + "NORTH.REF"),
              " 32      2" + std::string(20, ' ') + "0\r\n11-20-26 DAM        NORTH     \r\n");
}

TEST_F(MendedSite, FinishesAChangeThatWasBrokenOff) {
    PutFile(Init + "DAM.STR.dv~", FileContent(Init + "DAM.STR"));
    WriteChangeNote(Init, {"maier on ws3, process 12",
                           {{Init + "DAM.STR.dv~", Init + "DAM.STR", SumOf(FileContent(Init + "DAM.STR"))}}});
    EXPECT_THAT(Found(), ElementsAre(Init + ": holds a change that was broken off"));
    Desktop.ExpectMessageTitled("Unfinished Change");
    EXPECT_THAT(MendAll().Done, SizeIs(1));
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(MendedSite, MendsNothingWhereNoCopyCanBeMade) {
    const std::string lines = FileContent(Init + "DAM.PTH") + "\r\n";
    PutFile(Init + "DAM.PTH", lines);
    Global().Work_path.clear();
    EXPECT_THROW(MendAll(), RunTimeError);
    EXPECT_EQ(FileContent(Init + "DAM.PTH"), lines);
}

TEST_F(MendedSite, TellsWhatCouldNotBeMended) {
    PutFile(Init + "DAM.PTH", FileContent(Init + "DAM.PTH") + "\r\n");
    std::filesystem::permissions(Drives::HostPath("C:\\TARVEX\\WORK\\"), std::filesystem::perms::all);
    AsNobody([&] {
        const MendReport mended = MendAll();
        EXPECT_THAT(mended.Done, IsEmpty());
        ASSERT_THAT(mended.Failed, SizeIs(1));
        EXPECT_EQ(mended.Failed[0].rfind(Init + "DAM.PTH, line 3: is blank: ", 0), 0U) << mended.Failed[0];
    });
}

}  // namespace Dorvane::Testing
