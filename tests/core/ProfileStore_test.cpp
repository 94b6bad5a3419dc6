// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileStore.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/Drives.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class ProfileStore : public testing::Test {
  protected:
    TestSite Site;
    static constexpr const char* Path = "C:\\WINDOWS\\dv_test.ini";
};

TEST_F(ProfileStore, FindsAKeyInItsSectionIgnoringCase) {
    PutFile(Path, "[One]\r\nKey=first\r\n[Tarvex Info]\r\nData_drive=D:\\TARVEX\\\r\n");
    EXPECT_EQ(IniReadString("dv_test.ini", "tarvex INFO", "DATA_DRIVE"), "D:\\TARVEX\\");
    EXPECT_EQ(IniReadString("DV_Test.INI", "one", "kEY"), "first");
    EXPECT_EQ(IniReadString("dv_test.ini", "One", "Data_drive"), "");
}

TEST_F(ProfileStore, TakesTheFirstMatch) {
    PutFile(Path, "[A]\r\nK=1\r\nK=2\r\n[B]\r\n[A]\r\nL=3\r\n");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "1");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "L"), "");
}

TEST_F(ProfileStore, GivesTheEmptyTextForWhatIsAbsent) {
    EXPECT_EQ(IniReadString("none.ini", "A", "K"), "");
    PutFile(Path, "K=no section\r\n[A]\r\nempty=\r\n; K=comment\r\n");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "empty"), "");
}

TEST_F(ProfileStore, TellsAnAbsentKeyFromOneWithAnEmptyText) {
    EXPECT_EQ(IniFindString("none.ini", "A", "K"), std::nullopt);
    PutFile(Path, "[A]\r\nempty=\r\nK=1\r\n[B]\r\nL=2\r\n");
    EXPECT_EQ(IniFindString("dv_test.ini", "A", "empty"), "");
    EXPECT_EQ(IniFindString("dv_test.ini", "A", "K"), "1");
    EXPECT_EQ(IniFindString("dv_test.ini", "A", "L"), std::nullopt);
    EXPECT_EQ(IniFindString("dv_test.ini", "B", "M"), std::nullopt);
}

TEST_F(ProfileStore, CutsAValueAt127Characters) {
    PutFile(Path, "[User Database]\r\nNames1=" + std::string(126, 'P') + " 1\r\n");
    const std::string value = IniReadString("dv_test.ini", "User Database", "Names1");
    EXPECT_EQ(value, std::string(126, 'P') + " ");
}

TEST_F(ProfileStore, CutsAValueAtTheFirstNul) {
    PutFile(Path, std::string("[A]\r\nK=ab\0cd\r\n", 14));
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "ab");
}

TEST_F(ProfileStore, TakesAwayBlanksAndOnePairOfQuotes) {
    PutFile(Path, "[A]\n  K  =   some value  \nQ=\" kept \"\nE=a=b\n");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "some value");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "Q"), " kept ");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "E"), "a=b");
}

TEST_F(ProfileStore, ReplacesAKeyAndLeavesAllOtherLines) {
    PutFile(Path, "; head\r\n[A]\r\nK=1\r\nL=2\r\n\r\n[B]\r\nK=3\r\n");
    IniWriteString("dv_test.ini", "a", "k", "new");
    EXPECT_EQ(FileContent(Path), "; head\r\n[A]\r\nk=new\r\nL=2\r\n\r\n[B]\r\nK=3\r\n");
}

TEST_F(ProfileStore, AddsAKeyAtTheEndOfItsSection) {
    PutFile(Path, "[A]\r\nK=1\r\n\r\n[B]\r\nK=3\r\n");
    IniWriteString("dv_test.ini", "A", "L", "2");
    EXPECT_EQ(FileContent(Path), "[A]\r\nK=1\r\nL=2\r\n\r\n[B]\r\nK=3\r\n");
}

TEST_F(ProfileStore, AddsASectionAndAFile) {
    IniWriteString("dv_new.ini", "A", "K", "1");
    IniWriteString("dv_new.ini", "B", "K", "2");
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_new.ini"), "[A]\r\nK=1\r\n[B]\r\nK=2\r\n");
}

TEST_F(ProfileStore, ReadsTheLeadingNumberAndRaisesNothing) {
    PutFile(Path, "[A]\r\na=2.5 and more\r\nb=none\r\nc=1E999\r\nd= -1E999\r\n");
    const auto number = [](const char* key) { return IniReadNumber("dv_test.ini", "A", key); };
    EXPECT_EQ(number("a"), 2.5);
    EXPECT_EQ(number("b"), 0);
    EXPECT_EQ(number("absent"), 0);
    EXPECT_EQ(number("c"), std::numeric_limits<double>::max());
    EXPECT_EQ(number("d"), -std::numeric_limits<double>::max());
}

TEST_F(ProfileStore, AddsAKeyInPlaceOfAnEndOfFileMark) {
    for (const char* former : {"[A]\r\nx=1\r\n\x1A", "[A]\r\nx=1\x1A"}) {
        PutFile(Path, former);
        EXPECT_EQ(IniReadString("dv_test.ini", "A", "x"), "1");
        IniWriteString("dv_test.ini", "A", "y", "2");
        EXPECT_EQ(FileContent(Path), "[A]\r\nx=1\r\ny=2\r\n");
    }
}

TEST_F(ProfileStore, ReadsABlankAsEmpty) {
    IniWriteString("dv_test.ini", "User Database", "Names2", " ");
    EXPECT_EQ(IniReadString("dv_test.ini", "User Database", "Names2"), "");
}

TEST_F(ProfileStore, RaisesNothingOnADamagedOrUnreadableProfile) {
    PutFile(Path, std::string("\0\xFF[[[\r\n=\r\n[A\r\n]", 15) + std::string(1000000, 'x'));
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "");
    Drives::CreateFolder("C:\\WINDOWS\\dv_dir.ini");
    EXPECT_EQ(IniReadString("dv_dir.ini", "A", "K"), "");
    IniWriteString("dv_dir.ini", "A", "K", "1");
}

TEST_F(ProfileStore, SetsSeveralKeysOneAfterAnother) {
    PutFile(Path, "[A]\r\nK=1\r\n[B]\r\nL=2\r\n");
    IniWriteSettings("dv_test.ini", {{"B", "L", "3"}, {"A", "M", "4"}, {"C", "N", "5"}, {"A", "M", "6"}});
    EXPECT_EQ(FileContent(Path), "[A]\r\nK=1\r\nM=6\r\n[B]\r\nL=3\r\n[C]\r\nN=5\r\n");
    IniWriteSettings("dv_test.ini", {});
    EXPECT_EQ(FileContent(Path), "[A]\r\nK=1\r\nM=6\r\n[B]\r\nL=3\r\n[C]\r\nN=5\r\n");
}

TEST_F(ProfileStore, DoesNotWriteAValueThatStandsAlready) {
    PutFile(Path, "[A]\r\nK=1\r\nBlank= \r\n");
    SetTimeStamp(Path, {2001, 2, 3, 4, 5, 6});
    IniWriteString("dv_test.ini", "A", "K", "1");
    IniWriteString("dv_test.ini", "A", "Blank", " ");
    Drives::Entry entry;
    ASSERT_TRUE(Drives::Find(Path, entry));
    EXPECT_EQ(entry.Modified, (DateTime{2001, 2, 3, 4, 5, 6}));
    IniWriteString("dv_test.ini", "A", "K", "2");
    ASSERT_TRUE(Drives::Find(Path, entry));
    EXPECT_NE(entry.Modified, (DateTime{2001, 2, 3, 4, 5, 6}));
}

TEST_F(ProfileStore, KeepsTheFormerProfileWhenItCannotBeWritten) {
    PutFile(Path, "[A]\r\nK=1\r\n");
    AsNobody([] {
        IniWriteString("dv_test.ini", "A", "K", "2");
        EXPECT_EQ(IniReadString("dv_test.ini", "A", "K"), "1");
    });
}

TEST_F(ProfileStore, KeepsAQuoteThatIsNoneOfAPair) {
    PutFile(Path, "[A]\nBegin=\"half\nEnd=half\"\nTwo=\"half'\nOne=\"\n");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "Begin"), "\"half");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "End"), "half\"");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "Two"), "\"half'");
    EXPECT_EQ(IniReadString("dv_test.ini", "A", "One"), "\"");
}

}  // namespace Dorvane
