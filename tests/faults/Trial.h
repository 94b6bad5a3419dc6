// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

// Steps under faults: each trial runs a step on a fresh site with one call failing, judges what is there and
// what was told, and repeats the step without the fault.
namespace Dorvane::Testing {

/// What is to fail; see FaultLibrary.h.
struct Fault {
    std::string Kind = {};
    long Call = 0;
    int Error = 0;
    std::string How = "once";
    bool TriesAgain = false;  // the operator answers a failure so
};

/// What a run of the driver told.
struct Outcome {
    int Status = 0;  // as waitpid has it
    bool Met = false;
    bool Done = false;
    std::string Escaped = {};
    std::vector<std::string> Messages = {};
    std::map<std::string, long> Calls = {};
};

/// Contents by host paths below a site; a folder ends in a slash and has none. Left out is the log of errors.
using Picture = std::map<std::string, std::string>;

/// What is promised of a step, beside what is promised of all.
struct StepPromise {
    const char* Name;
    /// Files that come together or not at all have the same text here.
    std::string (*Group)(const std::string& path);
    /// Files that are the same behind each repeat.
    bool (*Compares)(const std::string& path);
    /// Files that the step is about; the others may lack when it is told as done.
    bool (*Counts)(const std::string& path);
    /// What a failure may leave beside; null for nothing.
    bool (*MayLeave)(const std::string& content, const std::string& after) = nullptr;
    bool TellsFailures = true;
    bool MayBeRepeated = true;  // when it is done already
    long MostCalls = 8;         // of a kind that are tried by default
};

/// By which the test runner names it.
inline void PrintTo(const StepPromise& promise, std::ostream* out) {
    *out << promise.Name;
}

/// The site of a step, which is brought back to its first state before each trial.
class Trials {
  public:
    explicit Trials(const StepPromise& promise);
    ~Trials();
    Trials(const Trials&) = delete;
    Trials& operator=(const Trials&) = delete;

    /// What was not as it should be; empty when all was.
    std::vector<std::string> Run(const Fault& fault);

    /// Calls of an undisturbed run.
    const std::map<std::string, long>& Calls() const { return Undisturbed.Calls; }

    /// Whether the last trial came to its fault.
    bool WasMet() const { return Met; }

  private:
    Outcome Begin(const Fault& fault);
    std::vector<std::string> BlamesOf(const Fault& fault, const Outcome& outcome);
    Outcome Do(const Fault& fault) const;
    void Restore();
    void JudgeEnd(const Fault& fault, const Outcome& outcome);
    void JudgeFiles(const Picture& now, const Outcome& outcome);
    void JudgeRepeat();
    Picture Settled();
    void Blame(const std::string& what);
    bool MayStand(const std::string& path, const std::string* content) const;
    std::string Lacks(const Picture& now) const;
    bool IsDone(const Picture& now) const { return Lacks(now).empty(); }

    const StepPromise& Promise;
    std::string Site;
    Picture Before;
    Picture After;
    Outcome Undisturbed;
    std::set<Picture> Repeated;  // states whose repeat has been judged
    std::vector<std::string> Blames;
    bool Met = false;
};

/// Calls to be tried of so many: all, or by default some from the first to the last.
std::vector<long> ChosenCalls(long count, long most);

}  // namespace Dorvane::Testing
