// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "tests/faults/Trial.h"

// Whatever call to the host fails, and wherever a program is killed: a step is done or not begun, what was
// told agrees with the files, and its repeat ends in the files of an undisturbed run.
namespace Dorvane::Testing {
namespace {

std::string AllTogether(const std::string&) {
    return "";
}

std::string EachByItself(const std::string& path) {
    return path;
}

// The source of an upload is renamed behind it, and the profiles remember where an input was put.
std::string ByDrive(const std::string& path) {
    return path.substr(0, path.find('/'));
}

std::string DatabaseAndBias(const std::string& path) {
    return path.substr(path.rfind('/') + 1) == "BIAS.STR" ? "bias" : "database";
}

std::string BackupAndDatabase(const std::string& path) {
    return path.find("Backup ") == std::string::npos ? "database" : "backup";
}

bool All(const std::string&) {
    return true;
}

bool OnTheDataDrive(const std::string& path) {
    return path.starts_with("data/");
}

// Where one of their lines fails the others come all the same, and the repeat adds it behind them.
bool AllButRegistries(const std::string& path) {
    return !path.ends_with(".PTH") && !path.ends_with(".HIS");
}

// The program is not run with parameters that are not whole.
bool BeginningOf(const std::string& content, const std::string& after) {
    return after.starts_with(content);
}

// The package's listing before the banner, or that of a run that failed.
bool OwnListing(const std::string& content, const std::string& after) {
    return after.ends_with(content) || content.starts_with(" RUN FAILED");
}

const StepPromise Promises[] = {
    {"survey", EachByItself, AllButRegistries, All},
    {"location", DatabaseAndBias, All, All},
    {"profile", AllTogether, All, All, nullptr, false},
    {"upload", ByDrive, All, OnTheDataDrive, nullptr, true, false},
    {"upload more", ByDrive, All, OnTheDataDrive, nullptr, true, false},
    {"append", AllTogether, All, All, nullptr, true, false},
    {"parameters", AllTogether, All, All, BeginningOf},
    {"input", ByDrive, All, OnTheDataDrive},
    {"xyz", AllTogether, All, All},
    {"inu", AllTogether, All, All},
    {"dbs", AllTogether, All, All},
    {"adjust", AllTogether, All, All, OwnListing, true, true, 3},
    {"update", AllTogether, All, All, nullptr, true, false},
    {"update click", BackupAndDatabase, All, All},
    {"backup", AllTogether, All, All},
    {"restore", AllTogether, All, All, nullptr, true, false},
};

struct KindOfFault {
    const char* Kind;
    int Error;
};

const KindOfFault Kinds[] = {{"write", ENOSPC}, {"sync", EIO},  {"rename", EIO},   {"open", EIO},
                             {"open", EMFILE},  {"close", EIO}, {"mkdir", ENOSPC}, {"unlink", EIO},
                             {"read", EIO},     {"pread", EIO}, {"look", EIO},     {"list", EIO},
                             {"lock", ENOLCK},  {"cut", EIO},   {"stamp", EPERM}};

class EachStep : public testing::TestWithParam<StepPromise> {
  protected:
    void Try(const Fault& fault) {
        for (const std::string& blame : Step.Run(fault))
            ADD_FAILURE() << blame;
        Met += Step.WasMet() ? 1 : 0;
    }

    void TryCalls(const std::string& kind, int error, const std::string& how = "once",
                  bool triesAgain = false) {
        const auto found = Step.Calls().find(kind);
        ASSERT_NE(found, Step.Calls().end()) << kind;
        for (const long call : ChosenCalls(found->second, GetParam().MostCalls))
            Try({kind, call, error, how, triesAgain});
    }

    Trials Step{GetParam()};
    int Met = 0;
};

TEST_P(EachStep, IsDoneOrNotBegunWhateverCallFails) {
    for (const KindOfFault& each : Kinds)
        TryCalls(each.Kind, each.Error);
    EXPECT_GT(Met, 0);
}

TEST_P(EachStep, IsDoneOrNotBegunWhenTheOperatorTriesAgain) {
    for (const char* kind : {"write", "sync", "rename", "open", "read"})
        TryCalls(kind, ENOSPC, "once", true);
    EXPECT_GT(Met, 0);
}

TEST_P(EachStep, IsDoneOrNotBegunWhereTheDiskStaysFull) {
    TryCalls("write", ENOSPC, "stays");
    TryCalls("write", ENOSPC, "short");
    EXPECT_GT(Met, 0);
}

TEST_P(EachStep, IsCompletedByItsRepeatWhereverItWasKilled) {
    const long changes = Step.Calls().at("change");
    for (long call = 1; call <= changes; ++call)
        Try({"change", call, 0, "kill"});
    EXPECT_EQ(Met, changes);
}

// A sanitizer has a memory of its own, which never runs out here.
#ifndef __SANITIZE_ADDRESS__
TEST_P(EachStep, GoesOnWhereMemoryRunsOutAndTellsIt) {
    TryCalls("memory", ENOMEM);
    EXPECT_GT(Met, 0);
}
#endif

std::string NameOf(const testing::TestParamInfo<StepPromise>& step) {
    std::string name = step.param.Name;
    std::erase(name, ' ');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, EachStep, testing::ValuesIn(Promises), NameOf);

}  // namespace
}  // namespace Dorvane::Testing
