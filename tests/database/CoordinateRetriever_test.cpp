// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateRetriever.h"

#include <gtest/gtest.h>

#include <cmath>

#include "database/CoordinateSet.h"
#include "database/DatabaseError.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

using UpdatingPoints = DatabaseSite;

TEST_F(UpdatingPoints, WriteDataIndexAndListByteForByte) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P2", "112026", 1.5, 2.5, 3.5, 45.6, 0.00012, 0.00011, 0.0002, 0, 0);
    retriever.UpdatePoint(North, 3, "P1", "112026", -1, -2, -3, 0, 0, 0, 0, 0, 0);
    retriever.UpdatePoint(North, 3, "P2", "112126", 1.6, 2.6, 3.6, 45.7, 0.00013, 0.0001, 0.0003, 0, 0);
    retriever.Commit();
    EXPECT_EQ(
        FileContent(North + "3DIM.DAT"),
        " 93      4                                                                                0\r\n"
        "P2       112026     1.50000     2.50000    3.50000  45.6 .00012 .00011 .00020 .00000 .00000\r\n"
        "P1       112026    -1.00000    -2.00000   -3.00000   0.0 .00000 .00000 .00000 .00000 .00000\r\n"
        "P2       112126     1.60000     2.60000    3.60000  45.7 .00013 .00010 .00030 .00000 .00000\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.IDX"),
              " 16      2   0\r\n"
              "P1           3\r\n"
              "P2           4\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P2\r\nP1\r\n");
}

TEST_F(UpdatingPoints, WriteEachTypeIntoItsOwnFiles) {
    CoordinateRetriever retriever;
    for (std::int32_t code = 1; code <= 4; ++code)
        retriever.UpdatePoint(North, code, "T" + std::to_string(code), "112026", 1, 2, 3, 4, 0.5, 0.25, 0.125,
                              0, 0);
    retriever.Commit();
    EXPECT_EQ(FileContent(North + "BNCHMARK.DAT"),
              " 45      2                                0\r\n"
              "T1       112026    3.00000 .12500 .000 .000\r\n");
    EXPECT_EQ(FileContent(North + "MONUMENT.DAT"),
              " 73      2                                                            0\r\n"
              "T2       112026     1.00000     2.00000   4.0 .50000 .25000 .0000 .0000\r\n");
    EXPECT_EQ(FileContent(North + "IDEALS.DAT"),
              " 63      2                                                  0\r\n"
              "T4       112026     1.00000     2.00000     3.00000 .000 .000\r\n");
    for (const char* word : {"BNCHMARK", "MONUMENT", "3DIM", "IDEALS"})
        EXPECT_EQ(FileContent(North + word + ".IDX").substr(0, 16), " 16      1   0\r\n") << word;
    EXPECT_EQ(FileContent(North + "IDEALS.LST"), "T4\r\n");
    EXPECT_EQ(Named({"T1"}, 1).front().Z, 3);
    EXPECT_EQ(Named({"T1"}, 1).front().X, 0);
    EXPECT_EQ(Named({"T2"}, 2).front().Y, 2);
}

TEST_F(UpdatingPoints, WriteNothingBeforeTheCommit) {
    const auto before = Picture(North);
    {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    }
    EXPECT_EQ(Picture(North), before);
}

TEST_F(UpdatingPoints, CommitOnlyOnce) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    retriever.Commit();
    const auto before = Picture(North);
    retriever.Commit();
    EXPECT_EQ(Picture(North), before);
}

TEST_F(UpdatingPoints, KeepThePointsOfTwoLocationsApart) {
    const std::string south = "D:\\TARVEX\\COORD\\SOUTH\\";
    MakeFolders(south);
    WriteCoordNew(south, "SOUTH");
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    retriever.UpdatePoint(south, 3, "P2", "112026", 4, 5, 6, 0, 0, 0, 0, 0, 0);
    retriever.Commit();
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\n");
    EXPECT_EQ(FileContent(south + "3DIM.LST"), "P2\r\n");
}

TEST_F(UpdatingPoints, PutTheNameInUpperCase) {
    Enter(" p1 ", 5);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\n");
    EXPECT_EQ(XOf("P1"), 5);
}

TEST_F(UpdatingPoints, ListANameOnceInTheOrderOfFirstEntry) {
    for (const char* name : {"Z", "A", "Z", "M", "A"})
        Enter(name, 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "Z\r\nA\r\nM\r\n");
}

TEST_F(UpdatingPoints, KeepWhatSomebodyWroteIntoTheList) {
    PutFile(North + "3DIM.LST", "\r\np1      by the gate\r\nZ9");
    Enter("P1", 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "\r\np1      by the gate\r\nZ9");
    Enter("P2", 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "\r\np1      by the gate\r\nZ9\r\nP2\r\n");
}

TEST_F(UpdatingPoints, MakeAMissingListAnew) {
    Enter("P1", 1);
    Drives::DeleteFile(North + "3DIM.LST");
    Enter("P2", 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\n");
}

TEST_F(UpdatingPoints, LeaveAListWithoutAnEndOfFileMark) {
    PutFile(North + "3DIM.LST", "P1\r\n\x1A");
    Enter("P2", 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\n");
    PutFile(North + "3DIM.LST", "P1\r\nP2\x1A");
    Enter("P3", 1);
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "P1\r\nP2\r\nP3\r\n");
}

TEST_F(UpdatingPoints, OfAnotherComponentInBetweenIsNotLost) {
    CoordinateRetriever slow;
    slow.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    Enter("P2", 2);
    slow.Commit();
    EXPECT_EQ(XOf("P1"), 1);
    EXPECT_EQ(XOf("P2"), 2);
}

TEST_F(UpdatingPoints, RaiseWithTheComponentsNameAsSource) {
    CoordinateRetriever retriever;
    const RunTimeError refused =
        ErrorOf([&] { retriever.UpdatePoint(North, 3, "LONGNAME9", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0); });
    EXPECT_EQ(refused.Number, RecordRefused);
    EXPECT_EQ(refused.Source, "CoordinateRetriever");
    EXPECT_EQ(refused.Description,
              North + "3DIM.DAT does not take point LONGNAME9: the name has more than 8 characters");
    const RunTimeError missing = ErrorOf(
        [&] { retriever.UpdatePoint("D:\\NOWHERE\\", 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0); });
    EXPECT_EQ(missing.Number, PathNotFound);
    EXPECT_EQ(missing.Source, "CoordinateRetriever");
    EXPECT_EQ(
        ErrorOf([&] { retriever.UpdatePoint(North, 5, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0); }).Number,
        InvalidProcedureCall);
}

TEST_F(UpdatingPoints, KeepThePointsBeforeARefusedOne) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    ErrorOf([&] { retriever.UpdatePoint(North, 3, "P2", "112026", std::nan(""), 2, 3, 0, 0, 0, 0, 0, 0); });
    retriever.Commit();
    EXPECT_EQ(XOf("P1"), 1);
    EXPECT_TRUE(Named({"P2"}).empty());
}

// A database whose last record has the highest number of all, its records all of one benchmark.
void FillNumbers(const std::string& folder, long records) {
    std::string data = RecordHeader(DatabaseTypeOf(1).DataShape(), records);
    data.reserve(45 * static_cast<std::size_t>(records + 1));
    for (long i = 0; i < records; ++i)
        data += "B1       112026    1.00000 .00000 .000 .000\r\n";
    PutFile(folder + "BNCHMARK.DAT", data);
    PutFile(folder + "BNCHMARK.IDX", " 16      1   0\r\nB1      " + std::to_string(records + 1) + "\r\n");
    PutFile(folder + "BNCHMARK.LST", "B1\r\n");
}

TEST_F(UpdatingPoints, EndWithAClearErrorAtTheHighestRecordNumber) {
    FillNumbers(North, 999997);
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 1, "B2", "112026", 0, 0, 2, 0, 0, 0, 0, 0, 0);
    const RunTimeError full =
        ErrorOf([&] { retriever.UpdatePoint(North, 1, "B3", "112026", 0, 0, 3, 0, 0, 0, 0, 0, 0); });
    EXPECT_EQ(full.Number, DatabaseFull);
    EXPECT_EQ(full.Description, North + "BNCHMARK.DAT is full: its lines are numbered up to 999999");
    retriever.Commit();
    EXPECT_EQ(FileContent(North + "BNCHMARK.IDX"), " 16      2   0\r\nB1      999998\r\nB2      999999\r\n");
    EXPECT_EQ(Named({"B2"}, 1).front().Z, 2);

    const std::string before = FileContent(North + "BNCHMARK.DAT");
    CoordinateRetriever next;
    EXPECT_EQ(ErrorOf([&] { next.UpdatePoint(North, 1, "B3", "112026", 0, 0, 3, 0, 0, 0, 0, 0, 0); }).Number,
              DatabaseFull);
    next.Commit();
    EXPECT_EQ(FileContent(North + "BNCHMARK.DAT"), before);
}

TEST_F(UpdatingPoints, RaiseMoreLinesThanThereAreNumbers) {
    FillNumbers(North, 999999);
    const RunTimeError error = ErrorOf([&] { CoordinateSet(North, 1); });
    EXPECT_EQ(error.Number, DatabaseDamaged);
    EXPECT_EQ(error.Description, North + "BNCHMARK.DAT is damaged: it counts more than 999999 lines");
}

TEST_F(UpdatingPoints, WriteNothingWhenAnotherUpdateTookTheLastRoom) {
    FillNumbers(North, 999997);
    CoordinateRetriever slow;
    slow.UpdatePoint(North, 1, "B2", "112026", 0, 0, 2, 0, 0, 0, 0, 0, 0);
    CoordinateRetriever quick;
    quick.UpdatePoint(North, 1, "B3", "112026", 0, 0, 3, 0, 0, 0, 0, 0, 0);
    quick.Commit();
    EXPECT_EQ(ErrorOf([&] { slow.Commit(); }).Number, DatabaseFull);
    EXPECT_TRUE(Named({"B2"}, 1).empty());
    EXPECT_EQ(Named({"B3"}, 1).front().Z, 3);
}

TEST_F(UpdatingPoints, ChangeNothingOnAFullDiskAndCanBeTriedAgain) {
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        Enter("P1", 1);
        FillDisk(North);
        const auto before = Picture(North);
        CoordinateRetriever retriever;
        retriever.UpdatePoint(North, 3, "P1", "112126", 2, 2, 3, 0, 0, 0, 0, 0, 0);
        retriever.UpdatePoint(North, 3, "P2", "112126", 3, 2, 3, 0, 0, 0, 0, 0, 0);
        EXPECT_EQ(ErrorOf([&] { retriever.Commit(); }).Number, DiskFull);
        EXPECT_EQ(Picture(North), before);
        for (const Drives::Entry& entry : Drives::List(North, "FILLER*"))
            Drives::DeleteFile(North + entry.Name);
        retriever.Commit();
        EXPECT_EQ(XOf("P1"), 2);
        EXPECT_EQ(XOf("P2"), 3);
        EXPECT_EQ(RetrievedLines({"P1", "P2"}, true).size(), 3u);
    });
}

TEST_F(UpdatingPoints, ChangeNothingWhereverTheDiskFillsUp) {
    OnSmallDisk(North, 256, [&] {
        WriteCoordNew(North, "NORTH");
        Enter("P1", 1);
        FillDisk(North);
        int failures = 0;
        for (int room = 1; room < 32; ++room) {
            const auto before = Picture(North);
            CoordinateRetriever retriever;
            // Three pages of data, one of the index, one of the list.
            for (int i = 0; i < 100; ++i)
                retriever.UpdatePoint(North, 3, "R" + std::to_string(i), "112126", room, 2, 3, 0, 0, 0, 0, 0,
                                      0);
            try {
                retriever.Commit();
                break;
            } catch (const RunTimeError& error) {
                ++failures;
                ASSERT_EQ(error.Number, DiskFull);
                ASSERT_EQ(Picture(North), before);
            }
            Drives::DeleteFile(North + "FILLER" + std::to_string(room));
        }
        EXPECT_GE(failures, 4);
        EXPECT_EQ(XOf("P1"), 1);
        EXPECT_GT(XOf("R99"), 3);
    });
}

TEST_F(UpdatingPoints, ChangeNothingInAFolderWithoutPermission) {
    Enter("P1", 1);
    const auto before = Picture(North);
    AsNobody([&] {
        CoordinateRetriever retriever;
        retriever.UpdatePoint(North, 3, "P1", "112126", 2, 2, 3, 0, 0, 0, 0, 0, 0);
        const RunTimeError error = ErrorOf([&] { retriever.Commit(); });
        EXPECT_TRUE(error.Number == PathFileAccess || error.Number == PermissionDenied) << error.Number;
        EXPECT_EQ(error.Source, "CoordinateRetriever");
        EXPECT_EQ(XOf("P1"), 1);
    });
    EXPECT_EQ(Picture(North), before);
}

using RetrievingNames = DatabaseSite;

TEST_F(RetrievingNames, GivesTheCurrentValuesInTheOrderOfTheList) {
    Enter("P1", 1);
    Enter("P2", 2);
    Enter("P1", 11, "112126");
    const std::vector<RetrievedPoint> items = Named({"P2", "NOT", "", "P1"});
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].Name, "P2");
    EXPECT_EQ(items[0].X, 2);
    EXPECT_EQ(items[1].Name, "P1");
    EXPECT_EQ(items[1].X, 11);
    EXPECT_EQ(items[1].Y, 2);
    EXPECT_EQ(items[1].Z, 3);
}

TEST_F(RetrievingNames, GivesTheTwoFurtherValues) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0.5, 0.25);
    retriever.Commit();
    EXPECT_EQ(Named({"P1"}).front().Extra1, 0.5);
    EXPECT_EQ(Named({"P1"}).front().Extra2, 0.25);
}

TEST_F(RetrievingNames, DoesNotFindALongNameByItsFirstEightCharacters) {
    Enter("LONGNAME", 1);
    EXPECT_TRUE(Named({"LONGNAME9"}).empty());
    EXPECT_EQ(Named({"longname "}).size(), 1u);
}

TEST_F(RetrievingNames, ReadsOnlyAsManyNamesAsTheirCountTells) {
    Enter("P1", 1);
    Enter("P2", 2);
    List1<std::string> names{"P1", "P2"};
    names[0] = "1";
    std::int32_t count = 0;
    std::vector<RetrievedPoint> items;
    CoordinateRetriever().RetrieveNamed(North, 3, names, 0, count, items);
    EXPECT_EQ(count, 1);
    names[0] = "3";
    EXPECT_EQ(ErrorOf([&] { CoordinateRetriever().RetrieveNamed(North, 3, names, 0, count, items); }).Number,
              SubscriptOutOfRange);
    EXPECT_EQ(count, 1);
}

TEST_F(RetrievingNames, RaisesAMissingDatabase) {
    List1<std::string> names{"P1"};
    names[0] = "1";
    std::int32_t count = 0;
    std::vector<RetrievedPoint> items;
    Drives::DeleteFile(North + "3DIM.IDX");
    const RunTimeError error =
        ErrorOf([&] { CoordinateRetriever().RetrieveNamed(North, 3, names, 0, count, items); });
    EXPECT_EQ(error.Number, FileNotFound);
    EXPECT_NE(error.Description.find("3DIM.IDX"), std::string::npos) << error.Description;
}

TEST_F(RetrievingNames, FindsEveryOneOfThousandsOfPoints) {
    CoordinateRetriever retriever;
    std::vector<std::string> names;
    for (int i = 1; i <= 5000; ++i) {
        names.push_back("Q" + std::to_string(i));
        retriever.UpdatePoint(North, 3, names.back(), "112026", i, 2, 3, 0, 0, 0, 0, 0, 0);
    }
    retriever.Commit();
    const std::vector<RetrievedPoint> items = Named(names);
    ASSERT_EQ(items.size(), names.size());
    for (std::size_t i = 0; i < items.size(); ++i)
        ASSERT_EQ(items[i].X, static_cast<double>(i + 1));
}

using UpdatingTheReference = DatabaseSite;

TEST_F(UpdatingTheReference, AddsARecordOf32) {
    std::int32_t records = 0;
    CoordinateRetriever().UpdateReference(North, "NORTH", "11-20-26", "SRV12", "TASK1", records);
    EXPECT_EQ(records, 1);
    CoordinateRetriever().UpdateReference(North, "NORTH", "11-21-26", "PROJECT910", "ABCDEFGHIJ", records);
    EXPECT_EQ(records, 2);
    EXPECT_EQ(FileContent(North + "NORTH.REF"),
              " 32      3                    0\r\n"
              "11-20-26 SRV12      TASK1     \r\n"
              "11-21-26 PROJECT910 ABCDEFGHIJ\r\n");
}

TEST_F(UpdatingTheReference, PutsItsRecordInPlaceOfAnEndOfFileMark) {
    std::int32_t records = 0;
    CoordinateRetriever().UpdateReference(North, "NORTH", "11-20-26", "SRV12", "TASK1", records);
    PutFile(North + "NORTH.REF", FileContent(North + "NORTH.REF") + "\x1A");
    CoordinateRetriever().UpdateReference(North, "NORTH", "11-21-26", "SRV13", "TASK2", records);
    EXPECT_EQ(FileContent(North + "NORTH.REF"),
              " 32      3                    0\r\n"
              "11-20-26 SRV12      TASK1     \r\n"
              "11-21-26 SRV13      TASK2     \r\n");
}

TEST_F(UpdatingTheReference, CommitsThePointsFirst) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    std::int32_t records = 0;
    retriever.UpdateReference(North, "NORTH", "11-20-26", "SRV12", "TASK1", records);
    EXPECT_EQ(XOf("P1"), 1);
}

TEST_F(UpdatingTheReference, CommitsThePointsOnlyOnce) {
    CoordinateRetriever retriever;
    retriever.UpdatePoint(North, 3, "P1", "112026", 1, 2, 3, 0, 0, 0, 0, 0, 0);
    std::int32_t records = 0;
    retriever.UpdateReference(North, "NORTH", "11-20-26", "SRV12", "TASK1", records);
    retriever.UpdateReference(North, "NORTH", "11-21-26", "SRV12", "TASK1", records);
    retriever.Commit();
    EXPECT_EQ(RetrievedLines({"P1"}, true).size(), 1u);
}

TEST_F(UpdatingTheReference, RefusesATextThatDoesNotFitAndChangesNothing) {
    const auto before = Picture(North);
    std::int32_t records = 7;
    const RunTimeError error = ErrorOf([&] {
        CoordinateRetriever().UpdateReference(North, "NORTH", "11-20-26", "SRV12", "ABCDEFGHIJK", records);
    });
    EXPECT_EQ(error.Number, RecordRefused);
    EXPECT_EQ(
        error.Description,
        North + "NORTH.REF does not take the update: the task \"ABCDEFGHIJK\" has more than 10 characters");
    EXPECT_EQ(error.Source, "CoordinateRetriever");
    for (const auto& [date, project] :
         {std::pair<const char*, const char*>{"11-20-2026", "P"}, {"1", "A\nB"}})
        EXPECT_EQ(ErrorOf([&, d = date, p = project] {
                      CoordinateRetriever().UpdateReference(North, "NORTH", d, p, "T", records);
                  }).Number,
                  RecordRefused);
    EXPECT_EQ(Picture(North), before);
    EXPECT_EQ(records, 7);
}

TEST_F(UpdatingTheReference, RaisesDamageAndChangesNothing) {
    PutFile(North + "NORTH.REF", " 32      2                    0\r\n11-20-26 SRV12");
    const auto before = Picture(North);
    std::int32_t records = 0;
    const RunTimeError error = ErrorOf(
        [&] { CoordinateRetriever().UpdateReference(North, "NORTH", "11-20-26", "P", "T", records); });
    EXPECT_EQ(error.Number, DatabaseDamaged);
    EXPECT_EQ(error.Description,
              North + "NORTH.REF is damaged: its header line counts 1 records, which it does not hold");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(UpdatingTheReference, RaisesAMissingFile) {
    Drives::DeleteFile(North + "NORTH.REF");
    std::int32_t records = 0;
    EXPECT_EQ(ErrorOf([&] {
                  CoordinateRetriever().UpdateReference(North, "NORTH", "1", "P", "T", records);
              }).Number,
              FileNotFound);
}

}  // namespace
}  // namespace Dorvane::Testing
