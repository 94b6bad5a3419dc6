// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/Trial.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace Dorvane::Testing {

namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool IsOnItsWay(const std::string& path) {
    return path.ends_with(".dv~") || path.ends_with(".new");
}

// What differs from run to run: processes, and the moment and the time of an adjustment.
std::string WithoutMoments(const std::string& path, std::string text) {
    if (IsOnItsWay(path))
        return std::regex_replace(text, std::regex("process [0-9]+"), "process");
    if (path.ends_with(".OUT"))
        return std::regex_replace(text, std::regex("  Run         [-0-9]+ [:0-9]+"), "  Run");
    return text;
}

Picture PictureOf(const std::string& site) {
    Picture picture;
    for (const auto& entry : fs::recursive_directory_iterator(site)) {
        const std::string path = fs::relative(entry.path(), site).string();
        if (entry.is_symlink() || entry.path().filename() == "ERROR.LOG")
            continue;
        if (entry.is_directory())
            picture[path + "/"] = "";
        else
            picture[path] = WithoutMoments(path, ContentOf(entry.path()));
    }
    return picture;
}

std::vector<std::string> EnvironmentOf(const Fault& fault) {
    return {"DORVANE_FAULT_KIND=" + fault.Kind, "DORVANE_FAULT_CALL=" + std::to_string(fault.Call),
            "DORVANE_FAULT_ERROR=" + std::to_string(fault.Error), "DORVANE_FAULT_HOW=" + fault.How,
            "PATH=/usr/bin:/bin"};
}

std::vector<char*> Pointers(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::string ReadAll(int file) {
    std::string text;
    std::array<char, 4096> piece{};
    for (ssize_t count = 0; (count = read(file, piece.data(), piece.size())) > 0;)
        text.append(piece.data(), static_cast<std::size_t>(count));
    return text;
}

// What a run of the driver prints, and how it ended.
std::string Drive(std::vector<std::string> words, const Fault& fault, int& status) {
    words.insert(words.begin(), FAULTS_DRIVER);
    std::vector<std::string> environment = EnvironmentOf(fault);
    std::array<int, 2> channel{};
    if (pipe(channel.data()) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, channel[1], 1);
    posix_spawn_file_actions_addclose(&actions, channel[0]);
    posix_spawn_file_actions_addclose(&actions, channel[1]);
    pid_t child = 0;
    const int failed = posix_spawn(&child, FAULTS_DRIVER, &actions, nullptr, Pointers(words).data(),
                                   Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    close(channel[1]);
    const std::string told = failed == 0 ? ReadAll(channel[0]) : "";
    close(channel[0]);
    if (failed != 0 || waitpid(child, &status, 0) != child)
        throw std::runtime_error("the driver cannot be run");
    return told;
}

void TakeLine(Outcome& outcome, const std::string& line) {
    std::istringstream words(line);
    std::string first;
    words >> first;
    if (first == "calls") {
        std::string kind;
        words >> kind >> outcome.Calls[kind];
    } else if (first == "escaped" || first == "message") {
        const std::string rest = line.substr(first.size() + 1);
        first == "escaped" ? outcome.Escaped = rest : outcome.Messages.emplace_back(rest);
    }
    outcome.Met = outcome.Met || line == "met";
    outcome.Done = outcome.Done || line == "done";
}

std::string NewFolder() {
    std::string name = fs::temp_directory_path().string() + "/dorvane-faults-XXXXXX";
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    return name;
}

std::string StatusText(int status) {
    if (WIFSIGNALED(status))
        return "signal " + std::to_string(WTERMSIG(status));
    return "exit " + std::to_string(WEXITSTATUS(status));
}

const std::string* Find(const Picture& picture, const std::string& path) {
    const auto found = picture.find(path);
    return found == picture.end() ? nullptr : &found->second;
}

bool AreSame(const std::string* one, const std::string* other) {
    return one == nullptr || other == nullptr ? one == other : *one == *other;
}

std::set<std::string> PathsOf(std::initializer_list<const Picture*> pictures) {
    std::set<std::string> paths;
    for (const Picture* picture : pictures)
        for (const auto& [path, content] : *picture)
            paths.insert(path);
    return paths;
}

Picture WithoutFilesOnTheirWay(Picture picture) {
    std::erase_if(picture, [](const auto& file) { return IsOnItsWay(file.first); });
    return picture;
}

std::string Difference(const Picture& wanted, const Picture& now) {
    std::string text;
    for (const std::string& path : PathsOf({&wanted, &now}))
        if (!AreSame(Find(wanted, path), Find(now, path)))
            text += " " + path;
    return text;
}

}  // namespace

Trials::Trials(const StepPromise& promise) : Promise(promise), Site(NewFolder()) {
    int status = 0;
    Drive({"prepare", promise.Name, Site}, {}, status);
    EXPECT_EQ(StatusText(status), "exit 0") << promise.Name << " cannot be prepared";
    Before = PictureOf(Site);
    Undisturbed = Do({});
    After = PictureOf(Site);
    EXPECT_TRUE(Undisturbed.Done) << promise.Name << " is not done";
    EXPECT_EQ(Difference(WithoutFilesOnTheirWay(After), After), "") << "files are left behind";
    EXPECT_NE(Difference(Before, After), "") << promise.Name << " does nothing";
}

Trials::~Trials() {
    std::error_code ignored;
    fs::remove_all(Site, ignored);
}

Outcome Trials::Begin(const Fault& fault) {
    Blames.clear();
    Restore();
    Outcome outcome = Do(fault);
    Met = outcome.Met || fault.How == "kill";
    JudgeEnd(fault, outcome);
    return outcome;
}

std::vector<std::string> Trials::Run(const Fault& fault) {
    const Outcome outcome = Begin(fault);
    const Picture now = PictureOf(Site);
    JudgeFiles(now, outcome);
    // The same files are repeated alike.
    if (Repeated.insert(now).second)
        JudgeRepeat();
    return BlamesOf(fault, outcome);
}

std::vector<std::string> Trials::BlamesOf(const Fault& fault, const Outcome& outcome) {
    std::vector<std::string> blames = std::move(Blames);
    for (std::string& blame : blames) {
        blame = std::string(Promise.Name) + ", " + fault.Kind + " " + std::to_string(fault.Call) + " " +
                fault.How + (fault.TriesAgain ? " tried again: " : ": ") + blame;
        for (const std::string& message : outcome.Messages)
            blame += "\n        told: " + message;
    }
    return blames;
}

Outcome Trials::Do(const Fault& fault) const {
    Outcome outcome;
    std::vector<std::string> words = {"do", Promise.Name, Site};
    if (fault.TriesAgain)
        words.emplace_back("again");
    std::istringstream told(Drive(std::move(words), fault, outcome.Status));
    for (std::string line; std::getline(told, line);)
        TakeLine(outcome, line);
    return outcome;
}

// Only what differs is put back: most trials change little.
void Trials::Restore() {
    const Picture now = PictureOf(Site);
    for (auto file = now.rbegin(); file != now.rend(); ++file)
        if (Before.find(file->first) == Before.end())
            fs::remove(Site + "/" + file->first);
    for (const auto& [path, content] : Before) {
        if (AreSame(Find(now, path), &content))
            continue;
        if (path.back() == '/')
            fs::create_directory(Site + "/" + path);
        else
            std::ofstream(Site + "/" + path, std::ios::binary | std::ios::trunc) << content;
    }
}

void Trials::Blame(const std::string& what) {
    Blames.push_back(what);
}

std::string Trials::Lacks(const Picture& now) const {
    std::string lacking;
    for (const std::string& path : PathsOf({&After, &now}))
        if (Promise.Counts(path) && Promise.Compares(path) && !IsOnItsWay(path) &&
            !AreSame(Find(After, path), Find(now, path)))
            lacking += " " + path;
    return lacking;
}

void Trials::JudgeEnd(const Fault& fault, const Outcome& outcome) {
    if (fault.How == "kill") {
        if (!WIFSIGNALED(outcome.Status) || WTERMSIG(outcome.Status) != SIGKILL)
            Blame("was not killed");
        return;
    }
    if (StatusText(outcome.Status) != "exit 0")
        Blame("the program ended by " + StatusText(outcome.Status));
    else if (!outcome.Escaped.empty())
        Blame("nobody told of " + outcome.Escaped);
    else if (!outcome.Done && outcome.Messages.empty() && Promise.TellsFailures)
        Blame("was not done, and nobody was told");
}

bool Trials::MayStand(const std::string& path, const std::string* content) const {
    const std::string* const after = Find(After, path);
    return content != nullptr && after != nullptr && Promise.MayLeave != nullptr &&
           Promise.MayLeave(*content, *after);
}

// Each group of files is as before or as it is to become, and nothing else has changed.
void Trials::JudgeFiles(const Picture& now, const Outcome& outcome) {
    std::map<std::string, std::set<bool>> groups;
    for (const std::string& path : PathsOf({&Before, &After, &now})) {
        if (IsOnItsWay(path) || !Promise.Compares(path))
            continue;
        const std::string* const is = Find(now, path);
        const bool isAsBefore = AreSame(is, Find(Before, path));
        const bool isAsAfter = AreSame(is, Find(After, path));
        if (!isAsBefore && !isAsAfter && MayStand(path, is))
            continue;
        if (!isAsBefore && !isAsAfter)
            Blame(path + " is neither as before nor as it is to be");
        else if (!isAsBefore || !isAsAfter)
            groups[Promise.Group(path)].insert(isAsAfter);
    }
    // What a killed program had begun may be finished by the next one.
    const bool isNoted = now.end() != std::find_if(now.begin(), now.end(), [](const auto& file) {
                             return file.first.ends_with(".change.dv~");
                         });
    for (const auto& [group, states] : groups)
        if (states.size() > 1 && !isNoted)
            Blame("is half done" + Difference(After, WithoutFilesOnTheirWay(now)));
    if (outcome.Done && !IsDone(now))
        Blame("was told as done, and lacks" + Lacks(now));
}

// The site when the next change has come to each of its folders.
Picture Trials::Settled() {
    int status = 0;
    Drive({"settle", Promise.Name, Site}, {}, status);
    if (StatusText(status) != "exit 0")
        Blame("the next change of a folder ended by " + StatusText(status));
    Picture now = PictureOf(Site);
    const std::string left = Difference(WithoutFilesOnTheirWay(now), now);
    if (!left.empty())
        Blame("the next change of each folder leaves" + left);
    return now;
}

// Who cannot repeat a step that is done looks first.
void Trials::JudgeRepeat() {
    if (!Promise.MayBeRepeated && IsDone(Settled()))
        return;
    const Outcome outcome = Do({});
    if (StatusText(outcome.Status) != "exit 0" || !outcome.Escaped.empty())
        Blame("the repeat ended by " + StatusText(outcome.Status) + " " + outcome.Escaped);
    const Picture repeated = Settled();
    std::string difference;
    for (const std::string& path : PathsOf({&After, &repeated}))
        if (Promise.Compares(path) && !IsOnItsWay(path) && !AreSame(Find(After, path), Find(repeated, path)))
            difference += " " + path;
    if (difference.empty())
        return;
    std::string text = "the repeat gives other files:" + difference;
    for (const std::string& message : outcome.Messages)
        text += "\n        the repeat told: " + message;
    Blame(text);
}

std::vector<long> ChosenCalls(long count, long most) {
    const bool all = std::getenv("DORVANE_FAULTS_ALL") != nullptr;
    const long steps = all ? count : std::min(count, most);
    std::vector<long> calls;
    for (long i = 0; i < steps; ++i)
        calls.push_back(steps == 1 ? 1 : 1 + i * (count - 1) / (steps - 1));
    return calls;
}

}  // namespace Dorvane::Testing
