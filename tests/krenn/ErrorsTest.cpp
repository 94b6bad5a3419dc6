// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cmath>
#include <random>
#include <set>

#include "krenn/HostFile.h"
#include "krenn/Run.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/ListingReader.h"
#include "tests/krenn/RandomNetwork.h"
#include "tests/krenn/RunText.h"
#include "tests/krenn/TempFolder.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::HasSubstr;
using testing::Not;

ErrorNumber RunText(const std::string& text, int type = 1, std::string* listing = nullptr) {
    const TextRun run = KrennTest::RunText(text, type);
    if (listing != nullptr)
        *listing = run.listing;
    return run.number;
}

const std::string kHead = "NORL\r\n\r\n";

TEST(ErrorTable, HoldsEveryNumberOnceInRisingOrder) {
    int last = 0;
    for (const ErrorMeaning& meaning : ErrorTable()) {
        EXPECT_GT(static_cast<int>(meaning.number), last);
        last = static_cast<int>(meaning.number);
        EXPECT_GT(std::string(meaning.title).size(), 10u);
        EXPECT_GT(std::string(meaning.advice).size(), 10u);
        EXPECT_EQ(&MeaningOf(meaning.number), &meaning);
    }
    EXPECT_EQ(MeaningOf(static_cast<ErrorNumber>(999)).number, ErrorNumber::Internal);
}

TEST(ErrorTable, StandsInTheManual) {
    std::ifstream file(KRENN_MANUAL);
    std::ostringstream manual;
    manual << file.rdbuf();
    for (const ErrorMeaning& meaning : ErrorTable()) {
        EXPECT_THAT(manual.str(), HasSubstr("\n| " + std::to_string(static_cast<int>(meaning.number)) +
                                            " | " + meaning.title + " | " + meaning.advice + " |\n"));
    }
}

TEST(RunAdjustment, NoInputPath) {
    EXPECT_EQ(RunAdjustment("", 1), ErrorNumber::NoInputPath);
}

TEST(RunAdjustment, InputNotReadable) {
    const TempFolder folder;
    EXPECT_EQ(RunAdjustment((folder.path / "B.INP").string(), 1), ErrorNumber::InputNotReadable);
    EXPECT_THAT(folder.Read("B.OUT"), HasSubstr("RUN FAILED"));
    std::filesystem::create_directory(folder.path / "C.INP");
    EXPECT_EQ(RunAdjustment((folder.path / "C.INP").string(), 1), ErrorNumber::InputNotReadable);
}

TEST(RunAdjustment, NotAnInputFile) {
    EXPECT_EQ(RunText(""), ErrorNumber::NotAnInputFile);
    EXPECT_EQ(RunText("hello\r\n"), ErrorNumber::NotAnInputFile);
    const TempFolder folder;
    const std::string path = folder.Write("A.OUT", "precious");
    EXPECT_EQ(RunAdjustment(path, 1), ErrorNumber::NotAnInputFile);
    EXPECT_EQ(folder.Read("A.OUT"), "precious");
}

TEST(RunAdjustment, UnknownType) {
    for (const int type : {2, 3, -2, 1 << 30})
        EXPECT_EQ(RunText(kHead + "Distances \r\nA B 1 0.001\r\nEND\r\n", type), ErrorNumber::UnknownType);
}

TEST(RunAdjustment, FaultsOfRows) {
    EXPECT_EQ(RunText(kHead + "Distances \r\nA B\r\nEND\r\n"), ErrorNumber::BadRow);
    EXPECT_EQ(RunText(kHead + "Distances \r\nA B x 0.001\r\nEND\r\n"), ErrorNumber::BadNumber);
    EXPECT_EQ(RunText(kHead + "Distances \r\nA B 1 0\r\nEND\r\n"), ErrorNumber::BadStandardError);
    EXPECT_EQ(RunText(kHead + "Distances \r\nA B -1 1\r\nEND\r\n"), ErrorNumber::ValueOutOfRange);
    EXPECT_EQ(RunText(kHead + "Distances \r\nA A 1 1\r\nEND\r\n"), ErrorNumber::ZeroLengthSight);
    EXPECT_EQ(RunText(kHead + "Object Points\r\nA 1 2 3\r\nA 1 2 5\r\nEND\r\n"),
              ErrorNumber::ContradictingCoordinates);
    const std::string good =
        kHead + "Object Points\r\nA 1 2 3\r\nEND\r\nDistances \r\nA B 1 0.001\r\nEND\r\n";
    EXPECT_EQ(RunText(good + "Fixed Coordinates\r\nB\r\nEND\r\n"), ErrorNumber::FixedWithoutCoordinates);
    EXPECT_EQ(RunText(good + "Fixed Coordinates\r\nC\r\nEND\r\n"), ErrorNumber::UnknownName);
    EXPECT_EQ(RunText(good + "Fixed Coordinates\r\nA\r\nA\r\nEND\r\n"), ErrorNumber::DuplicateFixed);
}

TEST(RunAdjustment, ZeroLengthSightOfPointsAtOnePlace) {
    std::string listing;
    EXPECT_EQ(
        RunText(kHead + "Object Points\r\nA 1 2 3\r\nB 1 2 3\r\nEND\r\nDistances \r\nA B 1 0.001\r\nEND\r\n",
                1, &listing),
        ErrorNumber::ZeroLengthSight);
    EXPECT_THAT(listing, HasSubstr("line 8: A B"));
}

TEST(RunAdjustment, NoObservations) {
    EXPECT_EQ(RunText(InputText().Text()), ErrorNumber::NoObservations);
    EXPECT_EQ(RunText(kHead + "Distances \r\nA B 0 0\r\nEND\r\n"), ErrorNumber::NoObservations);
}

TEST(RunAdjustment, UndeterminedPointsWithoutCoordinates) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.Angles("S1", "LOST", 10, 99, 0.001);
    std::string listing;
    for (const int type : {0, 1, 7, -1})
        EXPECT_EQ(RunText(random.text.Text(), type, &listing), ErrorNumber::UndeterminedPoints);
    EXPECT_THAT(listing, HasSubstr("    LOST: one direction, from S1; one zenith angle, with S1\r\n"));
}

TEST(RunAdjustment, UndeterminedPointsWithCoordinates) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.points.push_back(InputText::Given("WEAK", 500, 500, 10));
    random.text.points.push_back(InputText::Given("LOOSE", 100, 900, 10));
    random.text.Distance("S1", "WEAK", SlopeLength(random.truth["S1"], {500, 500, 10}), 0.001);
    random.text.Angles("S2", "LOOSE", 10, ZenithGons(random.truth["S2"], {100, 900, 10}), 0.001);
    random.text.Height("S1", "WEAK", 10 - random.truth["S1"][2], 0.001);
    std::string listing;
    for (const int type : {0, 1, 7, -1}) {
        EXPECT_EQ(RunText(random.text.Text(), type, &listing), ErrorNumber::UndeterminedPoints) << type;
        EXPECT_THAT(listing, HasSubstr("    WEAK, LOOSE\r\n"));
        EXPECT_THAT(listing,
                    HasSubstr("WEAK: slope distance from S1 (line 78), height difference from S1 (line 81)"));
        EXPECT_THAT(listing,
                    HasSubstr("LOOSE: direction from S2 (line 116), zenith angle from S2 (line 116)"));
    }
}

TEST(RunAdjustment, UndeterminedHeights) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    const std::array<double, 3> flat{100, 900, 10};
    for (const char* station : {"S1", "S2", "S3"})
        random.text.Distance(station, "FLAT", SlopeLength(random.truth[station], flat), 0.001);
    std::string listing;
    EXPECT_EQ(RunText(random.text.Text(), 1, &listing), ErrorNumber::UndeterminedHeights);
    EXPECT_THAT(listing, HasSubstr("FLAT"));
    random.text.points.push_back(InputText::Given("FLAT", 100, 900, 10));
    EXPECT_EQ(RunText(random.text.Text(), 1, &listing), ErrorNumber::Good);
    EXPECT_THAT(listing, HasSubstr("their given heights are held:"));
    EXPECT_THAT(listing, HasSubstr("rotation about Z, shift in Z"));
}

TEST(RunAdjustment, UnconnectedParts) {
    InputText text;
    text.Height("A", "B", 1, 0.001);
    text.Height("C", "D", 2, 0.001);
    const TextRun run = KrennTest::RunText(text.Text(), 1, "PARTS = REFUSE\r\n");
    EXPECT_EQ(run.number, ErrorNumber::UnconnectedParts);
    EXPECT_THAT(run.listing, HasSubstr("part 1 of 2 points: A, B\r\n"));
    EXPECT_THAT(run.listing, HasSubstr("part 2 of 2 points: C, D\r\n"));
}

TEST(RunAdjustment, NothingToAdjust) {
    EXPECT_EQ(
        RunText(kHead + "Object Points\r\nA 1 2 3\r\nB 2 2 3\r\nEND\r\nDistances \r\nA B 1 0.001\r\nEND\r\n"
                        "Fixed Coordinates\r\nA\r\nB\r\nEND\r\n"),
        ErrorNumber::NothingToAdjust);
}

// Three distances that no triangle has: the sum of squares has its least value where the points are in line,
// and the network is singular there.
TEST(RunAdjustment, NoConvergenceNamesTheWorstResiduals) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 100, 0, 0),
                   InputText::Given("C", 50, 1, 0)};
    text.fixed = {"A", "B"};
    text.Distance("A", "C", 20, 0.001);
    text.Distance("B", "C", 20, 0.001);
    std::string listing;
    EXPECT_EQ(RunText(text.Text(), 1, &listing), ErrorNumber::NoConvergence);
    EXPECT_THAT(listing, HasSubstr("worst residuals"));
    EXPECT_THAT(listing, HasSubstr("line 20: A C"));
}

TEST(RunAdjustment, NetworkTooLargeForTheDenseType) {
    std::string text = kHead + "Height differences\r\n";
    for (int i = 0; i < 12001; ++i)
        text += "P" + std::to_string(i) + " P" + std::to_string(i + 1) + " 1.0 0.001\r\n";
    EXPECT_EQ(RunText(text + "END\r\n", 7), ErrorNumber::NetworkTooLarge);
    EXPECT_EQ(RunText(text + "END\r\n", 1), ErrorNumber::Good);
}

TEST(Adjust, NotFinite) {
    Network network = ReadInput(kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    network.observations[0].value = std::nan("");
    try {
        Adjust(network, Type::Sparse);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::NotFinite);
    }
}

// The sanitizers keep memory of their own and know no such limit.
#if !defined(__SANITIZE_ADDRESS__)
[[noreturn]] void RunWithLittleMemory() {
    std::string text = kHead + "Height differences\r\n";
    for (int i = 0; i < 8000; ++i)
        text += "P" + std::to_string(i) + " P" + std::to_string(i + 1) + " 1.0 0.001\r\n";
    ErrorNumber number = ErrorNumber::Good;
    bool isTold = false;
    {
        const TempFolder folder;
        const std::string input = folder.Write("A.INP", text + "END\r\n");
        const rlimit limit{400U << 20, 400U << 20};
        setrlimit(RLIMIT_AS, &limit);
        number = RunAdjustment(input, 7);
        isTold = folder.Read("A.OUT").find("Error 41:") != std::string::npos;
    }
    _exit(isTold ? static_cast<int>(number) : 100);
}

TEST(RunAdjustment, OutOfMemory) {
    // The limit holds for a process of its own, started afresh.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(RunWithLittleMemory(), testing::ExitedWithCode(static_cast<int>(ErrorNumber::OutOfMemory)),
                "");
}
#endif

TEST(RunAdjustment, ListingNotWritten) {
    const TempFolder folder;
    const std::string input = folder.Write("A.INP", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    std::filesystem::create_directories(folder.path / "A.OUT" / "inside");
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::ListingNotWritten);
    EXPECT_FALSE(folder.Has("A.OUT.new"));
}

// Runs in a process that is nobody, since a superuser writes everywhere; ends it with the number.
[[noreturn]] void RunAsNobody(const std::string& path) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
        _exit(100);
    _exit(static_cast<int>(RunAdjustment(path, 1)));
}

TEST(RunAdjustment, FolderWithoutPermission) {
    GTEST_FLAG_SET(death_test_style, "fast");
    const TempFolder folder;
    const std::string input = folder.Write("A.INP", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    namespace fs = std::filesystem;
    constexpr auto kRead = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    constexpr auto kEnter = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    fs::permissions(folder.path, kRead | kEnter);
    EXPECT_EXIT(RunAsNobody(input), testing::ExitedWithCode(static_cast<int>(ErrorNumber::ListingNotWritten)),
                "");
    EXPECT_FALSE(folder.Has("A.OUT"));
    fs::permissions(folder.path, fs::perms::all);
    fs::permissions(input, fs::perms::none);
    EXPECT_EXIT(RunAsNobody(input), testing::ExitedWithCode(static_cast<int>(ErrorNumber::InputNotReadable)),
                "");
    EXPECT_THAT(folder.Read("A.OUT"), HasSubstr("RUN FAILED"));
}

TEST(RunAdjustment, ReplacesAnOldGoodListingByThatOfTheFailure) {
    const TempFolder folder;
    const std::string input = folder.Write("A.INP", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::Good);
    folder.Write("A.INP", kHead + "Height differences\r\nA B 1 0\r\nEND\r\n");
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::BadStandardError);
    EXPECT_TRUE(folder.Read("A.OUT").starts_with(" RUN FAILED"));
}

TEST(ListingPath, CutsAtTheLastPointOfTheFileName) {
    EXPECT_EQ(ListingPath("/nowhere/a.b/NET.ONE.INP"), "/nowhere/a.b/NET.ONE.OUT");
    EXPECT_EQ(ListingPath("/nowhere/a.b/NET"), "/nowhere/a.b/NET.OUT");
    EXPECT_EQ(ListingPath("/nowhere/NET_v01.INP"), "/nowhere/NET_v01.OUT");
}

TEST(ListingPath, KeepsTheCaseOfAnExistingListing) {
    const TempFolder folder;
    folder.Write("net.out", "old");
    const std::string input = folder.Write("NET.INP", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::Good);
    EXPECT_FALSE(folder.Has("NET.OUT"));
    EXPECT_THAT(folder.Read("net.out"), HasSubstr("Final results"));
}

TEST(ListingPath, IsNotTheInputThatHasItsNameInOtherLetters) {
    const TempFolder folder;
    const std::string input = folder.Write("NET.out", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    EXPECT_EQ(ListingPath(input), (folder.path / "NET.OUT").string());
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::Good);
    EXPECT_THAT(folder.Read("NET.out"), HasSubstr("Height differences\r\nA B"));
}

TEST(RunAdjustment, TellsWhatItDidWithTheTimeOfEachPart) {
    const TempFolder folder;
    const std::string input =
        folder.Write("NET.INP", kHead + "Height differences\r\nA B 1 0.001\r\nB C 1 0.001\r\nEND\r\n");
    RunReport report;
    EXPECT_EQ(RunAdjustment(input, 1, &report), ErrorNumber::Good);
    EXPECT_EQ(report.points, 3);
    EXPECT_EQ(report.observations, 2);
    EXPECT_GT(report.iterations, 0);
    for (const double phase :
         {report.phases.parse, report.phases.approximate, report.phases.linearise, report.phases.list})
        EXPECT_GT(phase, 0);
}

TEST(RunAdjustment, WorksInAFolderWithPointsInItsName) {
    const TempFolder folder;
    const std::string input =
        folder.Write("SRV.12/NET.INP", kHead + "Height differences\r\nA B 1 0.001\r\nEND\r\n");
    EXPECT_EQ(RunAdjustment(input, 1), ErrorNumber::Good);
    EXPECT_TRUE(folder.Has("SRV.12/NET.OUT"));
}

TEST(RunAdjustment, SurvivesRandomDamageOfAGoodFile) {
    NetworkSpec spec;
    const std::string whole = MakeNetwork(spec).text.Text();
    std::mt19937 random(99);
    const TempFolder folder;
    for (int i = 0; i < 300; ++i) {
        std::string text = whole;
        for (int hit = 0; hit < 1 + i % 5; ++hit)
            text[random() % text.size()] = static_cast<char>(i % 3 ? random() % 256 : '0' + random() % 10);
        if (i % 7 == 0)
            text.resize(random() % text.size());
        const int type = std::array{0, 1, 7, -1}[static_cast<std::size_t>(i) % 4];
        const ErrorNumber number = RunAdjustment(folder.Write("A.INP", text), type);
        EXPECT_NE(number, ErrorNumber::Internal) << i;
        const std::string listing = folder.Read("A.OUT");
        EXPECT_EQ(ReadListingText(listing).result, number == ErrorNumber::Good ? 1 : 0) << i;
    }
}

}  // namespace
