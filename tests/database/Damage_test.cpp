// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/basGeneral.h"
#include "database/CoordinateRetriever.h"
#include "database/DatabaseError.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

// A database of two points, three values and a sound index, of which each test spoils one thing.
class DamagedDatabase : public DatabaseSite {
  protected:
    DamagedDatabase() {
        Enter("P1", 1);
        Enter("P2", 2);
        Enter("P1", 11, "112126");
    }

    void Spoil(const std::string& file, std::size_t at, const std::string& text) const {
        std::string content = FileContent(North + file);
        content.replace(at, text.size(), text);
        PutFile(North + file, content);
    }

    // Every operation says the same and changes nothing.
    void ExpectDamage(const std::string& file, const std::string& reason) const {
        const auto before = Picture(North);
        const std::string expected = North + file + " is damaged: " + reason;
        const RunTimeError updating = ErrorOf([&] { Enter("P3", 3); });
        EXPECT_EQ(updating.Number, DatabaseDamaged);
        EXPECT_EQ(updating.Description, expected);
        EXPECT_EQ(updating.Source, "CoordinateRetriever");
        EXPECT_EQ(ErrorOf([&] { Named({"P1"}); }).Description, expected);
        EXPECT_EQ(ErrorOf([&] { RetrievedLines({"P1"}, true); }).Description, expected);
        EXPECT_EQ(Picture(North), before);
        EXPECT_FALSE(FileExists("C:\\TARVEX\\TEMP\\3DIM.OUT"));
    }
};

const char* const DataHeader = "its header line is not that of records of 93";

TEST_F(DamagedDatabase, DataEmpty) {
    PutFile(North + "3DIM.DAT", "");
    ExpectDamage("3DIM.DAT", "its header line is not of 91 characters");
}

TEST_F(DamagedDatabase, DataHeaderOfAnotherLength) {
    Spoil("3DIM.DAT", 0, " 73");
    ExpectDamage("3DIM.DAT", DataHeader);
}

TEST_F(DamagedDatabase, DataHeaderCountIsNoNumber) {
    Spoil("3DIM.DAT", 3, "   four");
    ExpectDamage("3DIM.DAT", "the count in its header line is no whole number");
    Spoil("3DIM.DAT", 3, "       ");
    ExpectDamage("3DIM.DAT", "the count in its header line is no whole number");
    Spoil("3DIM.DAT", 3, "    3.5");
    ExpectDamage("3DIM.DAT", "the count in its header line is no whole number");
}

TEST_F(DamagedDatabase, DataHeaderCountIsNotRightJustifiedOrBelowOne) {
    Spoil("3DIM.DAT", 3, "4      ");
    ExpectDamage("3DIM.DAT", DataHeader);
    Spoil("3DIM.DAT", 3, "      0");
    ExpectDamage("3DIM.DAT", DataHeader);
    Spoil("3DIM.DAT", 3, "     -4");
    ExpectDamage("3DIM.DAT", DataHeader);
}

TEST_F(DamagedDatabase, DataHeaderWithoutItsLastZero) {
    Spoil("3DIM.DAT", 90, " ");
    ExpectDamage("3DIM.DAT", DataHeader);
}

TEST_F(DamagedDatabase, DataHeaderCountsMoreThanThereIs) {
    Spoil("3DIM.DAT", 3, "      5");
    ExpectDamage("3DIM.DAT", "its header line counts 4 records, which it does not hold");
}

TEST_F(DamagedDatabase, DataCutAnywhere) {
    const std::string whole = FileContent(North + "3DIM.DAT");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        PutFile(North + "3DIM.DAT", whole.substr(0, length));
        ASSERT_EQ(ErrorOf([&] { Named({"P1"}); }).Number, DatabaseDamaged) << length;
        ASSERT_EQ(ErrorOf([&] { Enter("P1", 5); }).Number, DatabaseDamaged) << length;
        ASSERT_EQ(FileContent(North + "3DIM.DAT"), whole.substr(0, length));
    }
}

TEST_F(DamagedDatabase, DataRecordWithoutItsLineEnd) {
    Spoil("3DIM.DAT", 93 * 2 - 1, "x");
    ExpectDamage("3DIM.DAT", "line 2 does not end in its place");
}

TEST_F(DamagedDatabase, DataRecordWithoutAName) {
    Spoil("3DIM.DAT", 93 * 2, "        ");
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           4\r\n");
    ExpectDamage("3DIM.DAT", "line 3 has no name");
}

TEST_F(DamagedDatabase, DataNumberThatIsNone) {
    Spoil("3DIM.DAT", 93 * 3 + 18, "1x.00000");
    const std::string expected = North + "3DIM.DAT is damaged: the X in line 4, point P1, is no number";
    EXPECT_EQ(ErrorOf([&] { Named({"P1"}); }).Description, expected);
    EXPECT_EQ(XOf("P2"), 2);
}

TEST_F(DamagedDatabase, IndexEmpty) {
    PutFile(North + "3DIM.IDX", "");
    ExpectDamage("3DIM.IDX", "its header line is not of 14 characters");
}

TEST_F(DamagedDatabase, IndexHeaderOfAnotherLength) {
    Spoil("3DIM.IDX", 0, " 17");
    ExpectDamage("3DIM.IDX", "its header line is not that of records of 16");
}

TEST_F(DamagedDatabase, IndexCutAnywhere) {
    const std::string whole = FileContent(North + "3DIM.IDX");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        PutFile(North + "3DIM.IDX", whole.substr(0, length));
        ASSERT_EQ(ErrorOf([&] { Named({"P1"}); }).Number, DatabaseDamaged) << length;
    }
}

TEST_F(DamagedDatabase, IndexLongerThanItsCount) {
    PutFile(North + "3DIM.IDX", FileContent(North + "3DIM.IDX") + "P3");
    ExpectDamage("3DIM.IDX", "it is longer than its header line counts");
}

TEST_F(DamagedDatabase, IndexPointsPastTheEnd) {
    Spoil("3DIM.IDX", 16, "P1           5");
    ExpectDamage("3DIM.IDX", "point P1 lies past the end of the data file");
}

TEST_F(DamagedDatabase, IndexPointsToTheHeaderOrNowhere) {
    for (const char* number : {"     1", "     0", "      ", "    -4", "4     ", "    4x"}) {
        Spoil("3DIM.IDX", 24, number);
        ExpectDamage("3DIM.IDX", "line 2 gives no line of the data file");
    }
}

TEST_F(DamagedDatabase, IndexPointsToTheRecordOfAnotherName) {
    Spoil("3DIM.IDX", 16, "P1           3");
    ExpectDamage("3DIM.IDX", "point P1 leads to the record of another name");
}

TEST_F(DamagedDatabase, IndexPointsToAFormerValue) {
    Enter("P2", 22);
    Spoil("3DIM.IDX", 16, "P1           2");
    ExpectDamage("3DIM.IDX", "point P1 does not lead to its latest value");
}

TEST_F(DamagedDatabase, IndexHoldsANameTwice) {
    Spoil("3DIM.IDX", 32, "P1           4");
    ExpectDamage("3DIM.IDX", "point P1 stands in it twice");
}

TEST_F(DamagedDatabase, IndexMissesAPoint) {
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           4\r\n");
    ExpectDamage("3DIM.IDX", "point P2 is missing");
}

TEST_F(DamagedDatabase, FilesOfBinaryContentOrAMillionCharacters) {
    for (const std::string& content :
         {std::string(1000000, '9'), std::string(1000, '\0'), std::string("\r\n\r\n\xFF")})
        for (const char* file : {"3DIM.DAT", "3DIM.IDX"}) {
            const std::string sound = FileContent(North + file);
            PutFile(North + file, content);
            EXPECT_EQ(ErrorOf([&] { Named({"P1"}); }).Number, DatabaseDamaged) << file;
            PutFile(North + file, sound);
        }
}

TEST_F(DamagedDatabase, AListOfAnyContentIsNoDamage) {
    PutFile(North + "3DIM.LST", std::string(1000000, 'X') + std::string("\0\r\xFF", 3));
    Enter("P3", 3);
    EXPECT_EQ(XOf("P3"), 3);
    const std::string list = FileContent(North + "3DIM.LST");
    EXPECT_EQ(list.substr(1000000), std::string("\0\r\xFF", 3) + "\r\nP1\r\nP2\r\nP3\r\n");
}

}  // namespace
}  // namespace Dorvane::Testing
