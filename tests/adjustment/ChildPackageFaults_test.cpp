// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/ioctl.h>
#include <sys/prctl.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "adjustment/ChildPackage.h"
#include "adjustment/VarnRun.h"
#include "adjustment/basVarn.h"
#include "tests/adjustment/ChildSite.h"

// What a package that crashes, hangs or goes wrong otherwise does to the program, in real processes.
namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::ErrorOf;
using testing::HasSubstr;
using Testing::PutFile;
using Testing::PutLines;

constexpr const char* Unexpected = "The adjustment package ended unexpectedly";

class PackageFault : public Testing::ChildSite {
  protected:
    // Ends the process of a package that hangs from outside, as the operator would.
    void KillTheHangingProcess() {
        const pid_t process = HangingProcess();
        if (process == 0)
            return;
        std::string name;
        std::getline(std::ifstream("/proc/" + std::to_string(process) + "/comm"), name);
        EXPECT_EQ(name, "KRENNRUN.EXE");
        kill(process, SIGKILL);
    }

    // True when something stands in one of this process's channels that was not read yet.
    static bool AnAnswerWaits() {
        for (int file = 3; file < 256; ++file) {
            struct stat info {};
            int bytes = 0;
            if (fstat(file, &info) == 0 && S_ISSOCK(info.st_mode) && ioctl(file, FIONREAD, &bytes) == 0 &&
                bytes > 0)
                return true;
        }
        return false;
    }

    static void ExpectAWholeRun(ChildPackage& package) {
        for (const char* call : {"PACKAGE_START_DOES", "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"})
            unsetenv(call);
        Testing::PackageSite::Set("PACKAGE_GO", "6");
        std::string path;
        EXPECT_EQ(package.Start(path), 0);
        EXPECT_EQ(package.Go(1), 6);
        package.Stop();
    }
};

struct Fault {
    const char* Deed;
    const char* How;
};

class PackageEnd : public PackageFault, public testing::WithParamInterface<Fault> {
  protected:
    void ExpectTheEnd(const RunTimeError& error) {
        EXPECT_EQ(error.Number, 51);
        EXPECT_EQ(error.Description, std::string(Unexpected) + " (" + GetParam().How + ")");
        EXPECT_EQ(error.Source, "Dorvane");
    }
};

TEST_P(PackageEnd, InStartIsRaisedAndTheNextRunIsFresh) {
    Site.Set("PACKAGE_START_DOES", GetParam().Deed);
    ChildPackage package;
    std::string path = "D:\\X.INP";
    ExpectTheEnd(ErrorOf([&] { package.Start(path); }));
    EXPECT_EQ(path, "D:\\X.INP");
    ExpectAWholeRun(package);
}

TEST_P(PackageEnd, InGoIsRaisedAndTheNextRunIsFresh) {
    Site.Set("PACKAGE_GO_DOES", GetParam().Deed);
    ChildPackage package;
    std::string path;
    package.Start(path);
    ExpectTheEnd(ErrorOf([&] { package.Go(1); }));
    ExpectAWholeRun(package);
}

TEST_P(PackageEnd, InStopIsRaisedAndTheNextRunIsFresh) {
    Site.Set("PACKAGE_STOP_DOES", GetParam().Deed);
    ChildPackage package;
    std::string path;
    package.Start(path);
    package.Go(1);
    ExpectTheEnd(ErrorOf([&] { package.Stop(); }));
    ExpectAWholeRun(package);
}

INSTANTIATE_TEST_SUITE_P(Each, PackageEnd,
                         testing::Values(Fault{"write nowhere", "signal 11"}, Fault{"abort", "signal 6"},
                                         Fault{"exit 0", "exit code 0"}, Fault{"exit 3", "exit code 3"},
                                         Fault{"throw", "100% of the matrix\nis gone"},
                                         Fault{"throw no memory", "std::bad_alloc"},
                                         Fault{"throw a number", "unknown exception"},
                                         Fault{"close everything", "signal 9"},
                                         Fault{"write everywhere", "its answer was none"}),
                         [](const testing::TestParamInfo<Fault>& fault) {
                             std::string name = fault.param.Deed;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST_F(PackageFault, IsRaisedAgainByTheCallsBehindIt) {
    Site.Set("PACKAGE_START_DOES", "exit 3");
    ChildPackage package;
    std::string path;
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(ErrorOf([&] { package.Go(1); }).Description, error.Description);
    EXPECT_EQ(ErrorOf([&] { package.Stop(); }).Description, error.Description);
    EXPECT_THAT(Site.Calls(), ElementsAre("plain start "));
}

TEST_F(PackageFault, OfAHangingPackageIsRaisedWhenItsProcessIsEnded) {
    Site.Set("PACKAGE_GO_DOES", "hang");
    ChildPackage package([this] { KillTheHangingProcess(); });
    std::string path;
    package.Start(path);
    const RunTimeError error = ErrorOf([&] { package.Go(1); });
    EXPECT_EQ(error.Number, 51);
    EXPECT_EQ(error.Description, std::string(Unexpected) + " (signal 9)");
    ExpectAWholeRun(package);
}

TEST_F(PackageFault, BetweenTwoCallsIsRaisedWithoutASignal) {
    struct sigaction former {};
    const struct sigaction deadly {};
    ASSERT_EQ(sigaction(SIGPIPE, &deadly, &former), 0);
    ChildPackage package;
    std::string path;
    package.Start(path);
    // The only child of this process. It stays to be waited for by the package.
    siginfo_t ended{};
    std::string children;
    std::getline(std::ifstream("/proc/self/task/" + std::to_string(getpid()) + "/children"), children);
    const pid_t child = std::stoi(children);
    ASSERT_EQ(kill(child, SIGKILL), 0);
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
    const RunTimeError error = ErrorOf([&] { package.Go(1); });
    EXPECT_EQ(error.Number, 51);
    EXPECT_EQ(error.Description, std::string(Unexpected) + " (signal 9)");
    sigaction(SIGPIPE, &former, nullptr);
}

TEST_F(PackageFault, IsNotedThoughAnotherProcessHoldsTheChannel) {
    Site.Set("PACKAGE_GO_DOES", "leave a process");
    ChildPackage package;
    std::string path;
    package.Start(path);
    const RunTimeError error = ErrorOf([&] { package.Go(1); });
    EXPECT_EQ(error.Description, std::string(Unexpected) + " (exit code 4)");
    const int gate = open(Gate().c_str(), O_WRONLY | O_CLOEXEC);  // that process may go now
    ASSERT_GE(gate, 0);
    close(gate);
}

TEST_F(PackageFault, BehindTheAnswerOfStopIsOfNoMatter) {
    Site.Set("PACKAGE_GO_DOES", "abort at the end");
    ChildPackage package;
    std::string path;
    package.Start(path);
    package.Go(1);
    package.Stop();
    ExpectAWholeRun(package);
}

TEST_F(PackageFault, OfWhatIsCalledMeanwhileEndsTheProcess) {
    Site.Set("PACKAGE_GO_DOES", "hang");
    ChildPackage package([this] {
        if (HangingProcess() != 0)
            throw std::runtime_error("the screen is gone");
    });
    std::string path;
    package.Start(path);
    EXPECT_THROW(package.Go(1), std::runtime_error);
    EXPECT_EQ(ErrorOf([&] { package.Stop(); }).Description, std::string(Unexpected) + " (signal 9)");
}

TEST_F(PackageFault, OfAProgramThatIsNoneIsThatItIsNotFound) {
    std::filesystem::remove(Programs());
    PutFile("P:\\DORVANE\\Programs\\KRENNRUN.EXE", "no program\r\n");
    ChildPackage package;
    std::string path;
    EXPECT_EQ(ErrorOf([&] { package.Start(path); }).Number, 53);
    std::filesystem::permissions(Programs() + "/KRENNRUN.EXE", std::filesystem::perms(0755));
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(error.Number, 53);
    EXPECT_THAT(error.Description, HasSubstr("KRENNRUN.EXE"));
}

TEST_F(PackageFault, OfAnotherProgramInItsPlaceIsRaised) {
    std::filesystem::remove(Programs());
    Testing::MakeFolders("P:\\DORVANE\\Programs\\");
    std::filesystem::create_symlink("/bin/false", Programs() + "/KRENNRUN.EXE");
    ChildPackage package;
    std::string path;
    const RunTimeError error = ErrorOf([&] { package.Start(path); });
    EXPECT_EQ(error.Number, 51);
    EXPECT_EQ(error.Description, std::string(Unexpected) + " (exit code 1)");
}

// A process that runs a package as the operator's program would, until the package hangs or `body` ends it.
template <class Body>
pid_t OperatorsProgram(const Body& body) {
    std::fflush(nullptr);
    const pid_t program = fork();
    if (program == 0) {
        body();
        _exit(0);
    }
    return program;
}

class OperatorsEnd : public PackageFault {
  protected:
    OperatorsEnd() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    ~OperatorsEnd() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    // Waits for a process whose parent has gone before it.
    static void ExpectItEnds(pid_t process) {
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        EXPECT_TRUE(WIFSIGNALED(status) || WIFEXITED(status));
    }
};

TEST_F(OperatorsEnd, TakesTheHangingPackageWithIt) {
    Site.Set("PACKAGE_GO_DOES", "hang");
    const pid_t program = OperatorsProgram([] {
        ChildPackage package;
        std::string path;
        package.Start(path);
        package.Go(1);
    });
    const pid_t package = AwaitHangingProcess();
    ASSERT_EQ(kill(program, SIGKILL), 0);
    ExpectItEnds(program);
    ExpectItEnds(package);
}

TEST_F(OperatorsEnd, InTheMiddleOfARunTakesTheHangingPackageWithIt) {
    Site.Set("PACKAGE_GO_DOES", "hang");
    const pid_t program = OperatorsProgram([this] {
        ChildPackage package([this] {
            if (HangingProcess() != 0)
                std::_Exit(0);
        });
        std::string path;
        package.Start(path);
        package.Go(1);
    });
    ExpectItEnds(program);
    int status = 0;
    EXPECT_GT(waitpid(-1, &status, 0), 0);
    EXPECT_TRUE(WIFSIGNALED(status));
}

TEST_F(OperatorsEnd, BetweenTwoCallsTakesThePackageWithIt) {
    const pid_t program = OperatorsProgram([] {
        ChildPackage package;
        std::string path;
        package.Start(path);
        std::_Exit(0);
    });
    ExpectItEnds(program);
    int status = 0;
    EXPECT_GT(waitpid(-1, &status, 0), 0);
}

TEST_F(OperatorsEnd, IsNotNeededForItsStandardOutput) {
    Site.Set("PACKAGE_GO_DOES", "make noise");
    Site.Set("PACKAGE_GO", "12");
    const pid_t program = OperatorsProgram([] {
        for (int standard = 0; standard < 3; ++standard)
            close(standard);
        ChildPackage package;
        std::string path;
        package.Start(path);
        const int result = package.Go(1);
        package.Stop();
        _exit(result);
    });
    int status = 0;
    EXPECT_EQ(waitpid(program, &status, 0), program);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 12);
}

// The run of the adjustment screen on a package that goes wrong.
class RunOfAFault : public PackageFault {
  protected:
    RunOfAFault() {
        LoadVarn(State);
        PutLines(Net, {"NORL", "", "  PROJECT = P", "     TASK = T"});
        ChangeInput(State, Net);
        View.BeginWait = [this] { Steps.push_back("begin wait"); };
        View.ShowNumbers = [this] {
            Steps.push_back("show " + State.lblStartReturn + "/" + State.lblGoReturn);
        };
        View.StopAnimation = [this] { Steps.push_back("stop animation"); };
        View.EndWait = [this] { Steps.push_back("end wait"); };
    }

    const std::string Net = "D:\\ADJ\\NET.INP";
    VarnState State;
    VarnRunView View;
    std::vector<std::string> Steps;
};

TEST_F(RunOfAFault, EndsTheWaitWhenTheProcessIsKilledInTheMiddle) {
    PutFile("D:\\ADJ\\NET.OUT", "an older listing\r\n");
    ChangeInput(State, Net);
    Site.Set("PACKAGE_START", "3");
    Site.Set("PACKAGE_GO_DOES", "hang");
    ChildPackage package([this] { KillTheHangingProcess(); });
    EXPECT_EQ(ErrorOf([&] { RunVarn(State, package, View); }).Number, 51);
    EXPECT_THAT(Steps, ElementsAre("begin wait", "show 3/", "end wait"));
    EXPECT_TRUE(State.mnuXyz.Enabled);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
    EXPECT_EQ(Testing::FileContent("D:\\ADJ\\NET.OUT"), "an older listing\r\n");
}

TEST_F(RunOfAFault, CancelledEndsTheProcessAndLeavesTheListing) {
    PutFile("D:\\ADJ\\NET.OUT", "an older listing\r\n");
    ChangeInput(State, Net);
    for (const char* call : {"PACKAGE_START_DOES", "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"}) {
        Site.Set(call, "hang");
        pid_t hanging = 0;
        ChildPackage package([&] {
            hanging = HangingProcess();
            if (hanging != 0)
                throw RunCancelled();
        });
        RunVarn(State, package, View);
        EXPECT_EQ(StatusOf(State), "Varn was cancelled; the output file is as it was") << call;
        EXPECT_NE(kill(hanging, 0), 0) << call;
        EXPECT_EQ(Testing::FileContent("D:\\ADJ\\NET.OUT"), "an older listing\r\n");
        unsetenv(call);
    }
}

TEST_F(RunOfAFault, CancelledWhenThePackageHasAnsweredStands) {
    Site.Set("PACKAGE_GO", "6");
    Site.Set("PACKAGE_GO_DOES", "wait");
    bool gone = false;
    ChildPackage package([&] {
        if (gone || State.lblStartReturn.empty() || !OpenTheGate())
            return;
        gone = true;
        // The operator ponders the question while the package comes to its end.
        while (!AnAnswerWaits())
            usleep(1000);
        throw RunCancelled();
    });
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 6 returned.");
    RunVarn(State, package, View);
    EXPECT_TRUE(gone);
    EXPECT_EQ(State.lblGoReturn, "6");
}

TEST_F(RunOfAFault, CanBeRepeatedAtOnce) {
    Site.Set("PACKAGE_GO_DOES", "write nowhere");
    ChildPackage package;
    EXPECT_EQ(ErrorOf([&] { RunVarn(State, package, View); }).Number, 51);
    unsetenv("PACKAGE_GO_DOES");
    Site.Set("PACKAGE_GO", "6");
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 6 returned.");
    Steps.clear();
    RunVarn(State, package, View);
    EXPECT_THAT(Steps, ElementsAre("begin wait", "show 0/", "show 0/6", "stop animation", "end wait"));
}

}  // namespace
}  // namespace Dorvane
