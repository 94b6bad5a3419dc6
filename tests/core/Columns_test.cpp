// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "core/ColumnLine.h"
#include "core/LineWriter.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

TEST(ColumnLine, PlacesFieldsAtColumnsCountedFromOne) {
    EXPECT_EQ(ColumnLine().At(1, "ST1").At(11, "P7").Text(), "ST1       P7");
    EXPECT_EQ(ColumnLine().At(3, "x").Text(), "  x");
}

TEST(ColumnLine, TakesAColumnThatTheLineHasJustReached) {
    EXPECT_EQ(ColumnLine().At(1, "1234567890").At(11, "P7").Text(), "1234567890P7");
}

TEST(ColumnLine, BreaksToTheSameColumnOfTheNextLineWhenItIsPassed) {
    EXPECT_EQ(ColumnLine().At(1, "12345678901").At(11, "P7").At(21, "1.0").Text(),
              "12345678901\r\n          P7        1.0");
}

TEST(ColumnLine, AddsATextDirectlyBehind) {
    EXPECT_EQ(ColumnLine().At(1, "A").At(5, "B").Then("   T").Text(), "A   B   T");
}

TEST(LineWriter, EndsLinesWithCarriageReturnAndLineFeed) {
    const TestSite site;
    LineWriter writer("D:\\A.TXT");
    writer.Line("one");
    writer.Line();
    writer.Line("three");
    writer.Close();
    EXPECT_EQ(FileContent("D:\\A.TXT"), "one\r\n\r\nthree\r\n");
}

TEST(LineWriter, LeavesTheFormerFileWithoutClose) {
    const TestSite site;
    PutFile("D:\\A.TXT", "former");
    {
        LineWriter writer("D:\\A.TXT");
        writer.Line("new");
    }
    EXPECT_EQ(FileContent("D:\\A.TXT"), "former");
    EXPECT_EQ(AllFiles("D:\\"), std::vector<std::string>{"A.TXT"});
}

TEST(LineWriter, RaisesPathNotFoundAtOnceForAMissingFolder) {
    const TestSite site;
    try {
        LineWriter writer("D:\\NONE\\A.TXT");
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, PathNotFound);
    }
}

TEST(LineWriter, KeepsTheFormerFileOnAFullDisk) {
    const TestSite site;
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [] {
        PutFile("D:\\SMALL\\A.TXT", "former");
        LineWriter writer("D:\\SMALL\\A.TXT");
        int number = 0;
        try {
            for (int i = 0; i < 10000; ++i)
                writer.Line("a line that takes its room on the disk");
            writer.Close();
        } catch (const RunTimeError& error) {
            number = error.Number;
        }
        EXPECT_EQ(number, DiskFull);
        EXPECT_EQ(FileContent("D:\\SMALL\\A.TXT"), "former");
    });
}

// What one line makes of a file of this content.
std::string Appended(const std::string& former, AppendTo begin = AppendTo::NewLine) {
    const TestSite site;
    PutFile("D:\\OLD.TXT", former);
    LineAppender appender("D:\\OLD.TXT", begin);
    appender.Line("second");
    appender.Close();
    return FileContent("D:\\OLD.TXT");
}

TEST(LineAppender, AppendsAllOfItsLinesOrNone) {
    const TestSite site;
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [] {
        PutFile("D:\\SMALL\\A.TXT", "former\r\n");
        LineAppender appender("D:\\SMALL\\A.TXT");
        for (int i = 0; i < 10000; ++i)
            appender.Line("a line that takes its room on the disk");
        int number = 0;
        try {
            appender.Close();
        } catch (const RunTimeError& error) {
            number = error.Number;
        }
        EXPECT_EQ(number, DiskFull);
        EXPECT_EQ(FileContent("D:\\SMALL\\A.TXT"), "former\r\n");
    });
}

TEST(LineAppender, LeavesNoNewFileOnAFullDisk) {
    const TestSite site;
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [] {
        LineAppender appender("D:\\SMALL\\A.TXT");
        appender.Line(std::string(200000, 'x'));
        EXPECT_THROW(appender.Close(), RunTimeError);
        EXPECT_TRUE(AllFiles("D:\\SMALL\\").empty());
    });
}

TEST(LineWriter, CanBeClosedAgainOnceThereIsRoom) {
    const TestSite site;
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [] {
        PutFile("D:\\SMALL\\BALLAST", std::string(40000, 'x'));
        LineWriter writer("D:\\SMALL\\A.TXT");
        writer.Line(std::string(40000, 'y'));
        EXPECT_THROW(writer.Close(), RunTimeError);
        Drives::DeleteFile("D:\\SMALL\\BALLAST");
        writer.Close();
        EXPECT_EQ(FileContent("D:\\SMALL\\A.TXT"), std::string(40000, 'y') + "\r\n");
    });
}

TEST(LineAppender, PutsItsLinesInThePlaceOfAnEndOfFileMark) {
    const TestSite site;
    PutFile("D:\\OLD.TXT", "first\r\n\x1A");
    LineAppender appender("D:\\OLD.TXT");
    appender.Line("second");
    appender.Close();
    EXPECT_EQ(FileContent("D:\\OLD.TXT"), "first\r\nsecond\r\n");
}

TEST(LineAppender, TakesAwayEveryMarkBehindTheText) {
    EXPECT_EQ(Appended("first\r\n\x1A\x1A\x1A"), "first\r\nsecond\r\n");
    EXPECT_EQ(Appended("\x1A"), "second\r\n");
}

TEST(LineAppender, BeginsBelowALastLineWithoutAnEnd) {
    EXPECT_EQ(Appended("first"), "first\r\nsecond\r\n");
    EXPECT_EQ(Appended("first\x1A"), "first\r\nsecond\r\n");
}

TEST(LineAppender, TakesEveryKindOfLineEndForOne) {
    EXPECT_EQ(Appended("first\n"), "first\nsecond\r\n");
    EXPECT_EQ(Appended("first\r"), "first\rsecond\r\n");
    EXPECT_EQ(Appended("first\r\x1A"), "first\rsecond\r\n");
}

TEST(LineAppender, ContinuesTheLastLineWhereItIsToldTo) {
    EXPECT_EQ(Appended("first", AppendTo::LastLine), "firstsecond\r\n");
    EXPECT_EQ(Appended("first\x1A", AppendTo::LastLine), "firstsecond\r\n");
    EXPECT_EQ(Appended("first\r\n\x1A", AppendTo::LastLine), "first\r\nsecond\r\n");
}

TEST(LineAppender, LeavesTheFileAsItIsWithoutAnyLine) {
    const TestSite site;
    PutFile("D:\\OLD.TXT", "first\x1A");
    LineAppender("D:\\OLD.TXT").Close();
    EXPECT_EQ(FileContent("D:\\OLD.TXT"), "first\x1A");
    LineAppender("D:\\NEW.TXT").Close();
    EXPECT_EQ(FileContent("D:\\NEW.TXT"), "");
}

TEST(LineAppender, AddsOnlyWhatIsNewWhenItIsClosedAgain) {
    const TestSite site;
    LineAppender appender("D:\\NEW.TXT");
    appender.Line("first");
    appender.Close();
    appender.Line("second");
    appender.Close();
    EXPECT_EQ(FileContent("D:\\NEW.TXT"), "first\r\nsecond\r\n");
}

TEST(LineAppender, MakesTheFileWhenItIsAbsent) {
    const TestSite site;
    LineAppender appender("D:\\NEW.TXT");
    appender.Line("first");
    appender.Close();
    EXPECT_EQ(FileContent("D:\\NEW.TXT"), "first\r\n");
}

}  // namespace Dorvane
