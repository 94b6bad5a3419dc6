// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ChildPackage.h"

#include <cstdio>
#include <cstdlib>
#include <regex>

#include "core/Globals.h"
#include "core/basGeneral.h"
#include "tests/adjustment/ChildSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::ErrorOf;
using Testing::FileContent;
using testing::IsEmpty;
using Testing::PutFile;
using Testing::PutLines;

using ChildPackage_ = Testing::ChildSite;

TEST_F(ChildPackage_, MakesTheThreeCallsInOrderOnceEach) {
    Site.Install(DECORATED_PACKAGE);
    PutFile("D:\\ADJ\\NET.INP", "");
    ChildPackage package;
    std::string path = "D:\\ADJ\\NET.INP";
    package.Start(path);
    package.Go(-1);
    package.Stop();
    EXPECT_THAT(Site.Calls(), ElementsAre("decorated start " + Site.HostFolder() + "d:/ADJ/NET.INP",
                                          "decorated go -1", "decorated stop"));
    EXPECT_EQ(path, "D:\\ADJ\\NET.INP");
}

TEST_F(ChildPackage_, GivesSixteenBitNumbersBack) {
    Site.Set("PACKAGE_START", "32767");
    Site.Set("PACKAGE_GO", "-32768");
    ChildPackage package;
    std::string path = "D:\\X.INP";
    EXPECT_EQ(package.Start(path), 32767);
    EXPECT_EQ(package.Go(0), -32768);
}

TEST_F(ChildPackage_, HandsOverEveryTypeAsItStands) {
    ChildPackage package;
    for (const std::int32_t type : {0, 1, -1, 7, 2147483647, -2147483647 - 1})
        package.Go(type);
    EXPECT_THAT(Site.Calls(), ElementsAre("plain go 0", "plain go 1", "plain go -1", "plain go 7",
                                          "plain go 2147483647", "plain go -2147483648"));
}

TEST_F(ChildPackage_, GetsTheFilesNameAsTheHostSpellsIt) {
    PutFile("D:\\Adj\\Net.inp", "");
    ChildPackage package;
    std::string path = "D:\\ADJ\\NET.INP";
    package.Start(path);
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start " + Site.HostFolder() + "d:/Adj/Net.inp"));
}

TEST_F(ChildPackage_, FindsAFileOnTheCurrentDrive) {
    PutFile("D:\\NET.INP", "");
    Drives::ChangeDrive('D');
    ChildPackage package;
    std::string path = "NET.INP";
    package.Start(path);
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start " + Site.HostFolder() + "d:/NET.INP"));
}

TEST_F(ChildPackage_, TakesAnyPath) {
    const std::string part(2000, 'N');
    const std::string odd = "50%20 \tof\n\xC4\x01%";
    for (std::string path : {std::string(), "X:\\" + part + "\\" + part + ".INP", odd}) {
        ChildPackage package;
        const std::string given = path;
        package.Start(path);
        EXPECT_EQ(path, given);
    }
    const std::string log = Site.Log();
    EXPECT_EQ(log.find("plain start \nplain start X:"), 0U);
    EXPECT_NE(log.find("plain start 50%20 \tof\n"), std::string::npos);  // no path, and so no host path
}

TEST_F(ChildPackage_, CopiesBackWhatThePackageLeavesInThePath) {
    Site.Set("PACKAGE_LEAVES", "A % LONGER PATH THAN WHAT\nWAS HANDED OVER \xDC");
    ChildPackage package;
    std::string path = "D:\\X.INP";
    package.Start(path);
    EXPECT_EQ(path, "A % LONGER PATH THAN WHAT\nWAS HANDED OVER \xDC");
}

TEST_F(ChildPackage_, IsTakenFromTheSystemsSearchPathWhereTheProgramHasNone) {
    Drives::DeleteFile("P:\\DORVANE\\libkrenn.so");
    Site.Set("LD_LIBRARY_PATH", SYSTEM_FOLDER);
    ChildPackage package;
    package.Go(7);
    unsetenv("LD_LIBRARY_PATH");
    EXPECT_THAT(Site.Calls(), ElementsAre("plain go 7"));
}

TEST_F(ChildPackage_, RunsEachStartInAFreshProcess) {
    ChildPackage package;
    std::string path;
    package.Start(path);
    package.Go(1);
    package.Stop();
    Site.Install(DECORATED_PACKAGE);
    package.Start(path);
    Site.Install(PLAIN_PACKAGE);
    package.Start(path);
    package.Go(0);
    package.Stop();
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start ", "plain go 1", "plain stop", "decorated start ",
                                          "plain start ", "plain go 0", "plain stop"));
}

TEST_F(ChildPackage_, EndsTheProcessOfARunThatIsNotFinished) {
    const auto hasChild = [] {
        siginfo_t info{};
        return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
    };
    {
        ChildPackage package;
        std::string path;
        package.Start(path);
        EXPECT_TRUE(hasChild());
    }
    EXPECT_FALSE(hasChild());
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start "));
}

TEST_F(ChildPackage_, IsNotDisturbedByWhatThePackagePrints) {
    for (const char* call : {"PACKAGE_START_DOES", "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"})
        Site.Set(call, "make noise");
    Site.Set("PACKAGE_GO", "12");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    ChildPackage package;
    std::string path = "D:\\X.INP";
    EXPECT_EQ(package.Start(path), 0);
    EXPECT_EQ(package.Go(1), 12);
    package.Stop();
    const std::string noise = testing::internal::GetCapturedStdout();
    EXPECT_EQ(noise.find("done 99\n"), 0U);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "error 98 nonsense\nerror 98 nonsense\nerror 98 nonsense\n");
    EXPECT_EQ(noise.size(), 3 * (20000 * 8 + 18));
}

TEST_F(ChildPackage_, CallsWhatIsHandedInUntilThePackageIsDone) {
    for (const char* call : {"PACKAGE_START_DOES", "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"})
        Site.Set(call, "wait");
    int count = 0;
    bool open = false;
    ChildPackage package([&] {
        if (++count % 3 == 0 && !open)
            open = OpenTheGate();
    });
    std::string path;
    const auto call = [&](const auto& body) {
        count = 0;
        open = false;
        body();
        EXPECT_TRUE(open);
        EXPECT_GE(count, 3);
    };
    call([&] { package.Start(path); });
    call([&] { package.Go(1); });
    call([&] { package.Stop(); });
    const int after = count;
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start ", "plain go 1", "plain stop"));
    EXPECT_EQ(count, after);
}

TEST_F(ChildPackage_, WithoutLibraryRaisesThatItIsNotFound) {
    Drives::DeleteFile("P:\\DORVANE\\libkrenn.so");
    ChildPackage package;
    std::string path = "D:\\X.INP";
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(error.Number, 53);
    EXPECT_EQ(error.Description, "File not found: libkrenn.so");
    EXPECT_EQ(path, "D:\\X.INP");
}

TEST_F(ChildPackage_, OfABrokenLibraryRaisesWhatTheLibraryItselfWould) {
    PutFile("P:\\DORVANE\\libkrenn.so", "not a library\r\n");
    ChildPackage package;
    KrennPackage inProcess;
    std::string path = "D:\\X.INP";
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(error.Number, 48);
    EXPECT_EQ(error.Description, ErrorOf([&] { inProcess.Start(path); }).Description);
    EXPECT_EQ(error.Source, "Dorvane");
}

TEST_F(ChildPackage_, WithoutAnExportRaisesThatThereIsNoSuchEntry) {
    Site.Install(INCOMPLETE_PACKAGE);
    ChildPackage package;
    std::string path;
    package.Start(path);
    const RunTimeError error = ErrorOf([&] { package.Go(1); });
    EXPECT_EQ(error.Number, 453);
    EXPECT_EQ(error.Description, "Can't find DLL entry point _go@4 in libkrenn.so");
    package.Stop();
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start ", "plain stop"));
}

TEST_F(ChildPackage_, WithoutItsProgramRaisesThatItIsNotFound) {
    std::filesystem::remove(Programs());
    ChildPackage package;
    std::string path;
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(error.Number, 53);
    EXPECT_EQ(error.Description, "File not found: P:\\DORVANE\\Programs\\KRENNRUN.EXE");
}

// The real package on a small network, called in both ways.
class RealPackage : public Testing::ChildSite {
  protected:
    RealPackage() {
        Global().ProgramFolder = Drives::DrivePath(DORVANE_FOLDER "/");
        PutLines(Net, {"NORL", "", "PROJECT = P", "TASK = T", "Height differences", "A B 1.0010 0.001",
                       "B C 1.0002 0.001", "C A -2.0004 0.002", "A D 0.5 0.001", "D B 0.5003 0.001", "END"});
    }

    struct Outcome {
        std::int16_t Started;
        std::int16_t Gone;
        std::string Path;
        std::string Listing;
        std::string Parameters;
        bool operator==(const Outcome&) const = default;
    };

    Outcome OutcomeOf(AdjustmentPackage& package, const std::string& input, std::int32_t type) const {
        Outcome outcome{0, 0, input, "", ""};
        outcome.Started = package.Start(outcome.Path);
        outcome.Gone = package.Go(type);
        package.Stop();
        const std::string listing = input.substr(0, input.size() - 3) + "OUT";
        const std::string parameters = input.substr(0, input.size() - 3) + "PAR";
        // The moment of the run is all that may differ.
        const std::regex moment(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)");
        const std::string text = FileContent(listing);
        EXPECT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), moment), {}), 1);
        outcome.Listing = std::regex_replace(text, moment, "moment");
        Drives::DeleteFile(listing);
        // The run that writes the parameter file says so.
        if (FileExists(parameters)) {
            outcome.Parameters = FileContent(parameters);
            Drives::DeleteFile(parameters);
        }
        return outcome;
    }

    // A library that was loaded once stays, and would be in the way of other tests.
    template <class Body>
    static void InAProcessOfItsOwn(const Body& body) {
        EXPECT_EXIT(
            {
                body();
                std::fflush(nullptr);
                std::_Exit(HasFailure() ? 1 : 0);
            },
            testing::ExitedWithCode(0), "");
    }

    const std::string Net = "D:\\ADJ\\NET.INP";
};

TEST_F(RealPackage, GivesTheSameByteForByte) {
    InAProcessOfItsOwn([this] {
        for (const std::int32_t type : {0, 1, -1, 7, 5}) {
            KrennPackage inProcess;
            ChildPackage package;
            const Outcome expected = OutcomeOf(inProcess, Net, type);
            const Outcome outcome = OutcomeOf(package, Net, type);
            EXPECT_EQ(outcome, expected) << type;
            EXPECT_EQ(outcome.Gone, type == 5 ? 4 : 0);
            EXPECT_EQ(outcome.Listing.find("Final results") != std::string::npos, type != 5);
            EXPECT_EQ(outcome.Parameters.empty(), type == 5);
        }
    });
}

TEST_F(RealPackage, GivesTheSameErrors) {
    InAProcessOfItsOwn([this] {
        KrennPackage inProcess;
        ChildPackage package;
        PutLines("D:\\ADJ\\BAD.INP", {"NORL", "", "Height differences", "A B one 0.001", "END"});
        for (const char* input : {"D:\\ADJ\\NONE.INP", "D:\\ADJ\\BAD.INP"}) {
            const Outcome expected = OutcomeOf(inProcess, input, 1);
            EXPECT_EQ(OutcomeOf(package, input, 1), expected);
            EXPECT_GT(expected.Gone, 0);
        }
        std::string path;
        EXPECT_EQ(package.Start(path), 1);
        EXPECT_EQ(package.Go(1), 1);
        EXPECT_EQ(path, "");
        package.Stop();
    });
}

}  // namespace
}  // namespace Dorvane
