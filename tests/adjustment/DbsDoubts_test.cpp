// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "adjustment/DbsFile.h"
#include "input/CoordinateFiles.h"
#include "tests/adjustment/ExportTest.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::OnePointNamed;

const char* const Unreadable = "the line cannot be read back, and so the whole file";

class DbsDoubts_ : public Testing::ExportTest {
  protected:
    static std::vector<std::string> Of(const AdjustedPoint& point) {
        AdjustmentResults results;
        results.Points.Add(point);
        return DbsDoubts(results, "NORTH", "LEVEL");
    }
};

TEST_F(DbsDoubts_, AreNoneWhereAllCanBeStored) {
    AdjustedPoint point{"EIGHTCHR", 99999.99999, -9999.99999, 0};
    point.ErrorAngle = 400;
    point.ErrorMajor = point.ErrorMinor = point.SZ = 9.99999;
    EXPECT_THAT(Of(point), IsEmpty());
    EXPECT_THAT(DbsDoubts(AdjustmentResults(), "NINECHARS", "TENLETTERS"), IsEmpty());
}

TEST_F(DbsDoubts_, NameEachNameThatIsTooLong) {
    AdjustmentResults results = OnePointNamed("NINECHARS");
    results.Points.Add({"TENLETTERS", 1, 2, 3});
    results.Points.Add({"GOOD", 1, 2, 3});
    results.Stations.Add({"ELEVENCHARS", 1, 2, 3});
    const std::string tooLong = ": the name has more than 8 characters";
    EXPECT_THAT(DbsDoubts(results, "NORTH", "LEVEL"),
                ElementsAre("ELEVENCHARS" + tooLong + "; " + Unreadable, "NINECHARS" + tooLong,
                            "TENLETTERS" + tooLong + "; " + Unreadable));
}

TEST_F(DbsDoubts_, NameEachNumberThatIsTooWide) {
    AdjustedPoint point{"P", 100000, -10000, 99999.999996};
    point.ErrorMajor = 9.999996;
    point.ErrorMinor = 11;
    point.SZ = 12.5;
    EXPECT_THAT(Of(point),
                ElementsAre("P: X 100000.00000 is wider than 11 characters; Y -10000.00000 is wider "
                            "than 11 characters; Z 100000.00000 is wider than 11 characters; half "
                            "axis 10.00000 is wider than 7 characters; half axis 11.00000 is wider "
                            "than 7 characters; SZ 12.50000 is wider than 7 characters; " +
                            std::string(Unreadable)));
}

TEST_F(DbsDoubts_, TellNamesThatBecameEqual) {
    AdjustmentResults results = OnePointNamed("P1");
    results.Points.Add({"P2", 1, 2, 3});
    results.Stations.Add({"P1", 4, 5, 6});
    const std::string twice = "P1: the name stands 2 times, and one of them would be kept";
    EXPECT_THAT(DbsDoubts(results, "NORTH", "LEVEL"), ElementsAre(twice, twice));
}

TEST_F(DbsDoubts_, TellANameWithAControlCharacter) {
    EXPECT_THAT(Of({"P\x01", 1, 2, 3}), ElementsAre("P\x01: the name holds a control character"));
}

TEST_F(DbsDoubts_, TellAFirstLineThatCannotBeReadBack) {
    const AdjustmentResults results = OnePointNamed("P");
    const auto of = [&](const std::string& project, const std::string& task) {
        const std::vector<std::string> doubts = DbsDoubts(results, project, task);
        return doubts.empty() ? "" : doubts.front();
    };
    const std::string why = "the first line cannot be read back, and so the whole file";
    EXPECT_EQ(of("", ""), "folders \"\" and \"\": " + why);
    EXPECT_EQ(of("DAM", ""), "folders \"DAM\" and \"\": " + why);
    EXPECT_EQ(of("THE DAM", "T"), "folders \"THE DAM\" and \"T\": " + why);
    EXPECT_EQ(of("NORTH BANK", "T"),
              "folders \"NORTH BANK\" and \"T\": the first line is read back as other names");
    EXPECT_EQ(of("P", "T 1"), "folders \"P\" and \"T 1\": " + why);
    EXPECT_EQ(of("TENLETTERS", "T"), "folders \"TENLETTERS\" and \"T\": " + why);
    EXPECT_EQ(of("ELEVENCHARS", "T"), "folders \"ELEVENCHARS\" and \"T\": more than 10 characters; " + why);
    EXPECT_EQ(of("P", "ELEVENCHARS"), "folders \"P\" and \"ELEVENCHARS\": more than 10 characters");
}

// The reader takes a file that nothing of this kind is doubted of, and no other.
TEST_F(DbsDoubts_, SayWhichFilesTheReaderTakes) {
    for (const char* name : {"P", "EIGHTCHR", "NINECHARS", "TENLETTERS", "ELEVENCHARS"})
        for (const double value : {1.0, 9999.0, 99999.9, 100000.0, 1234567.0, 1e9})
            for (const char* project : {"P", "NINECHARS", "TENLETTERS", "TWO WORDS", ""}) {
                AdjustmentResults results = OnePointNamed(name);
                AdjustedPoint& point = results.Points[1];
                point.X = point.Y = value;
                point.ErrorMajor = point.ErrorMinor = value / 10000;
                ASSERT_TRUE(WriteDbsFile("D:\\ADJ\\", "NET.DBS", results, project, "T"));
                bool readable = true;
                for (const std::string& doubt : DbsDoubts(results, project, "T"))
                    readable = readable && doubt.find("cannot be read back") == std::string::npos;
                if (!readable)
                    Desktop.ExpectMessageTitled(
                        DbsHeader("01-01-00", project, "T").find(" " + std::string(project) + " ") ==
                                    std::string::npos ||
                                std::string(project) == "" || std::string(project) == "TWO WORDS"
                            ? "Header Error"
                            : "Problem Reading File");
                List1<Dbs3DPoint> points;
                std::string header[3];
                const int count =
                    ReadDbs3DFile(points, "D:\\ADJ\\", "NET.DBS", header[0], header[1], header[2]);
                EXPECT_EQ(count, readable ? 1 : 0) << name << ' ' << value << ' ' << project;
            }
}

TEST_F(DbsDoubts_, AFileBrokenByALongNameIsToldByItsReaderAndNothingIsTaken) {
    for (const char* name : {"TENLETTERS", "ELEVENCHARS"}) {
        AdjustmentResults results = OnePointNamed("BEFORE");
        results.Points.Add({name, 1, 2, 3});
        results.Points.Add({"BEHIND", 1, 2, 3});
        ASSERT_TRUE(WriteDbsFile("D:\\ADJ\\", "NET.DBS", results, "NORTH", "LEVEL"));
        Desktop.ExpectMessage("Problem Reading File", "Problem reading from NET.DBS!");
        List1<Dbs3DPoint> points;
        std::string header[3];
        EXPECT_EQ(ReadDbs3DFile(points, "D:\\ADJ\\", "NET.DBS", header[0], header[1], header[2]), 0) << name;
    }
}

}  // namespace
}  // namespace Dorvane
