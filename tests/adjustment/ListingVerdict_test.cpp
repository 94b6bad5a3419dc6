// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ListingVerdict.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "adjustment/Banner.h"
#include "core/Globals.h"
#include "tests/adjustment/ChildSite.h"
#include "tests/adjustment/Listing.h"

namespace Dorvane {
namespace {

using Mark = ListingVerdict::Mark;
using Testing::PutFile;
using Testing::PutLines;

using Lines = std::vector<std::string>;

std::string Box(const std::string& label, const std::string& sentence) {
    std::string line = " | " + label;
    line.resize(17, ' ');
    line += sentence;
    line.resize(103, ' ');
    return line + " |";
}

// The head of a listing as the package lays it out.
Lines Head(const Lines& box) {
    Lines lines = {" KRENN 1.0, least-squares adjustment of terrestrial networks",
                   "",
                   "  Input       /data/NET.INP",
                   "  Type        1, sparse factorisation with inversion",
                   "  Run         2026-11-20 09:05:07",
                   "  Options     all at their defaults",
                   "",
                   " Summary",
                   " -------",
                   " +----------+"};
    lines.insert(lines.end(), box.begin(), box.end());
    for (const char* line : {" +----------+", "", " Input", " -----", "  Network   three dimensions",
                             "  Stations        3", "  Points          9", "  Given           4"})
        lines.emplace_back(line);
    return lines;
}

const Lines GoodBox = {Box("RESULT", "GOOD"), Box("", ""),
                       Box("m0", "0.9876; the test passes: allowed 0.6927 to 1.3080 (risk 5 %, two-tailed)"),
                       Box("redundancy", "22 = 40 observations - 21 unknowns + defect 3"),
                       Box("iterations", "4, the last correction is at most 1.2e-10 m")};

class Verdict : public testing::Test {
  protected:
    ListingVerdict Of(const Lines& lines) {
        PutLines(Listing, lines);
        return ReadListingVerdict(Listing);
    }

    const std::string Listing = "D:\\ADJ\\NET.OUT";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
};

TEST_F(Verdict, HoldsWhatTheHeadOfTheListingSays) {
    const ListingVerdict verdict = Of(Head(GoodBox));
    EXPECT_EQ(verdict.Sign, Mark::Good);
    EXPECT_EQ(verdict.Result, "GOOD");
    EXPECT_EQ(verdict.M0, "0.9876");
    EXPECT_EQ(verdict.Test, "the test passes: allowed 0.6927 to 1.3080 (risk 5 %, two-tailed)");
    EXPECT_EQ(verdict.Observations, "40");
    EXPECT_EQ(verdict.Iterations, "4");
    EXPECT_EQ(verdict.Points, 12);
    EXPECT_EQ(verdict.When, "2026-11-20 09:05:07");
    EXPECT_EQ(verdict.Doubt, "");
    EXPECT_EQ(verdict.Doubts, 0);
}

TEST_F(Verdict, IsTheSameBehindABanner) {
    const ListingVerdict bare = Of(Head(GoodBox));
    PutLines("D:\\ADJ\\NET.INP", {"NORL", "PROJECT = GOOD", "TASK = T"});
    AddVarnBanner("D:\\ADJ\\NET.INP", Listing);
    EXPECT_EQ(ReadListingVerdict(Listing), bare);
}

TEST_F(Verdict, TellsTheFirstDoubtWholeAndCountsThem) {
    Lines box = GoodBox;
    box[0] = Box("RESULT", "DOUBTFUL");
    for (const char* line :
         {"m0 is too large; the standard errors", "are too small,", "or there is a gross error."})
        box.push_back(Box(line == std::string("m0 is too large; the standard errors") ? "DOUBT" : "", line));
    box.push_back(Box("", ""));
    box.push_back(Box("DOUBT", "Another one."));
    box.push_back(Box("remark", "Something to know."));
    const ListingVerdict verdict = Of(Head(box));
    EXPECT_EQ(verdict.Sign, Mark::Doubt);
    EXPECT_EQ(verdict.Doubt,
              "m0 is too large; the standard errors are too small, or there is a gross error.");
    EXPECT_EQ(verdict.Doubts, 2);
}

TEST_F(Verdict, HasAMarkForEachResult) {
    const std::pair<const char*, Mark> marks[] = {
        {"GOOD", Mark::Good},          {"GOOD, WITH REMARKS", Mark::Remark},
        {"DOUBTFUL", Mark::Doubt},     {"GROSS ERRORS SUSPECTED", Mark::Doubt},
        {"NOT CHECKED", Mark::Remark}, {"NO GROSS ERROR STANDS OUT", Mark::Remark}};
    for (const auto& [result, mark] : marks) {
        Lines box = GoodBox;
        box[0] = Box("RESULT", result);
        EXPECT_EQ(Of(Head(box)).Sign, mark) << result;
    }
}

TEST_F(Verdict, OfAnM0ThatIsNotDeterminedHasNoTest) {
    Lines box = GoodBox;
    box[2] = Box("m0", "not determined");
    const ListingVerdict verdict = Of(Head(box));
    EXPECT_EQ(verdict.M0, "not determined");
    EXPECT_EQ(verdict.Test, "");
}

TEST_F(Verdict, OfAFailedRunTellsItsError) {
    const ListingVerdict verdict =
        Of({" RUN FAILED", "", "  Error 21: Points are not determined by the observations.", "",
            "  What to do: look", "", "  There are no results of this run.", "", " KRENN 1.0", "",
            "  Input       /data/NET.INP", "  Run         2026-11-20 09:05:07"});
    EXPECT_EQ(verdict.Sign, Mark::Failed);
    EXPECT_EQ(verdict.Result, "RUN FAILED");
    EXPECT_EQ(verdict.Doubt, "Error 21: Points are not determined by the observations.");
    EXPECT_EQ(verdict.M0, "");
    EXPECT_EQ(verdict.When, "2026-11-20 09:05:07");
}

TEST_F(Verdict, IsNoneWhereThereIsNoHeadOfThePackage) {
    EXPECT_EQ(ReadListingVerdict(Listing), ListingVerdict());
    EXPECT_EQ(ReadListingVerdict(""), ListingVerdict());
    EXPECT_EQ(Of(Testing::GoodListingLines()), ListingVerdict());
    EXPECT_EQ(Of({}), ListingVerdict());
    PutFile(Listing, std::string("\xFF\x00\x1A | | |\r |RESULT", 17) + std::string(500000, '|'));
    EXPECT_EQ(ReadListingVerdict(Listing), ListingVerdict());
}

TEST_F(Verdict, OfAHeadThatIsCutIsWhatIsThere) {
    Lines lines = Head(GoodBox);
    lines.resize(13);
    const ListingVerdict verdict = Of(lines);
    EXPECT_EQ(verdict.Result, "GOOD");
    EXPECT_EQ(verdict.M0, "0.9876");
    EXPECT_EQ(verdict.Observations, "");
    EXPECT_EQ(verdict.Points, 0);
}

TEST_F(Verdict, EndsWithTheHead) {
    Lines lines = Head(GoodBox);
    for (const std::string& line : {std::string("  Points          7"), Box("RESULT", "DOUBTFUL")})
        lines.push_back(line);
    EXPECT_EQ(Of(lines).Points, 12);
    EXPECT_EQ(Of(lines).Result, "GOOD");
}

TEST_F(Verdict, TakesOddNumbersAndEndlessSentences) {
    Lines box = GoodBox;
    box[3] = Box("redundancy", "");
    box[4] = " | iterations   " + std::string(100000, 'x') + " " + std::string(200, ',') + " |";
    for (int i = 0; i < 100; ++i)
        box.push_back(Box("", "word word word word word word"));
    Lines lines = Head(box);
    lines[lines.size() - 2] = "  Points    99999999999999999999999999";
    const ListingVerdict verdict = Of(lines);
    EXPECT_EQ(verdict.Result, "GOOD");
    EXPECT_EQ(verdict.Observations, "");
    EXPECT_EQ(verdict.Points, 3);
}

TEST_F(Verdict, OfAListingThatCannotBeReadSaysSo) {
    PutLines(Listing, Head(GoodBox));
    std::filesystem::permissions(Drives::HostPath(Listing), std::filesystem::perms::none);
    Testing::AsNobody([&] {
        const ListingVerdict verdict = ReadListingVerdict(Listing);
        EXPECT_EQ(verdict.Sign, Mark::Failed);
        EXPECT_EQ(verdict.Result, "LISTING CANNOT BE READ");
        EXPECT_NE(verdict.Doubt, "");
    });
}

// The head as the real package writes it.
class RealVerdict : public Testing::ChildSite {
  protected:
    RealVerdict() { Global().ProgramFolder = Drives::DrivePath(DORVANE_FOLDER "/"); }

    ListingVerdict Of(std::int32_t type, const std::string& wrong) {
        PutLines("D:\\ADJ\\NET.INP", {"NORL", "", "PROJECT = P", "TASK = T", "Height differences",
                                      "A B 1.0010 0.001", "B C 1.0002 0.001", "C A -2.0004 0.002",
                                      "A D 0.5 0.001", "D B " + wrong + " 0.001", "END"});
        ChildPackage package;
        std::string path = "D:\\ADJ\\NET.INP";
        package.Start(path);
        package.Go(type);
        package.Stop();
        return ReadListingVerdict("D:\\ADJ\\NET.OUT");
    }
};

TEST_F(RealVerdict, IsReadOfEveryType) {
    for (const std::int32_t type : {0, 1, -1, 7}) {
        const ListingVerdict verdict = Of(type, "0.5003");
        EXPECT_NE(verdict.Sign, Mark::None) << type;
        EXPECT_NE(verdict.Sign, Mark::Failed) << type;
        EXPECT_EQ(verdict.M0.size(), 6U) << verdict.M0;
        EXPECT_EQ(verdict.Test.find(type == -1 ? "not tested" : "the test passes: allowed "), 0U)
            << verdict.Test;
        EXPECT_EQ(verdict.Observations, "5");
        EXPECT_EQ(verdict.Points, 4);
        EXPECT_GT(std::stoi(verdict.Iterations), 0);
        EXPECT_EQ(verdict.When.size(), 19U);
    }
}

TEST_F(RealVerdict, OfAGrossErrorIsDoubtful) {
    const ListingVerdict verdict = Of(1, "0.6");
    EXPECT_EQ(verdict.Sign, Mark::Doubt);
    EXPECT_EQ(verdict.Result, "DOUBTFUL");
    EXPECT_EQ(verdict.Test.find("the test FAILS: allowed "), 0U) << verdict.Test;
    EXPECT_GT(verdict.Doubts, 0);
    EXPECT_NE(verdict.Doubt, "");
}

TEST_F(RealVerdict, OfAFailedRunTellsItsError) {
    const ListingVerdict verdict = Of(1, "word");
    EXPECT_EQ(verdict.Sign, Mark::Failed);
    EXPECT_EQ(verdict.Doubt, "Error 11: A word stands where a number belongs.");
}

}  // namespace
}  // namespace Dorvane
