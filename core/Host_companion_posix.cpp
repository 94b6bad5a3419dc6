// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>

#include "core/Companion.h"
#include "core/HostError.h"
#include "core/RunTimeError.h"

namespace Dorvane::Host {

namespace {

constexpr int FirstBesideStandard = 3;

void Close(int& descriptor) {
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

// The two sides of a channel. The other one never has the number of a standard output, also where this
// process was started without one.
struct ChannelPair {
    ChannelPair() {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
            throw HostError(errno, HostAction::Read, "");
        Ours = ends[0];
        Theirs = fcntl(ends[1], F_DUPFD_CLOEXEC, FirstBesideStandard);
        const int failure = errno;
        Close(ends[1]);
        if (Theirs < 0) {
            Close(Ours);
            throw HostError(failure, HostAction::Read, "");
        }
    }
    ~ChannelPair() {
        Close(Ours);
        Close(Theirs);
    }
    ChannelPair(const ChannelPair&) = delete;
    ChannelPair& operator=(const ChannelPair&) = delete;

    int Ours = -1;
    int Theirs = -1;
};

std::string EndOf(int status) {
    return WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                               : "exit code " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

bool Send(Channel channel, std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = send(static_cast<int>(channel), text.data(), text.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

Arrival Receive(Channel channel, int milliseconds, std::string& text) {
    pollfd watched{static_cast<int>(channel), POLLIN, 0};
    int ready = 0;
    do
        ready = poll(&watched, 1, milliseconds);
    while (ready < 0 && errno == EINTR && milliseconds < 0);
    if (ready <= 0)
        return Arrival::Nothing;
    char block[4096];
    const ssize_t count = recv(static_cast<int>(channel), block, sizeof block, MSG_DONTWAIT);
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return Arrival::Nothing;
    if (count <= 0)
        return Arrival::End;
    text.append(block, static_cast<std::size_t>(count));
    return Arrival::Text;
}

Companion::Companion(const std::string& program) {
    ChannelPair pair;
    std::string argument = std::to_string(pair.Theirs);
    char* const words[] = {const_cast<char*>(program.c_str()), argument.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // Onto its own number: that opens the channel's other side to the program.
    posix_spawn_file_actions_adddup2(&actions, pair.Theirs, pair.Theirs);
    pid_t child = 0;
    const int failure = posix_spawn(&child, program.c_str(), &actions, nullptr, words, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        throw RunTimeError(FileNotFound, program);
    Process = child;
    Own = pair.Ours;
    pair.Ours = -1;
}

Companion::~Companion() {
    End();
    close(static_cast<int>(Own));
}

bool Companion::HasEnded() {
    int status = 0;
    if (Process == 0)
        return true;
    const pid_t ended = waitpid(static_cast<pid_t>(Process), &status, WNOHANG);
    if (ended == 0 || (ended < 0 && errno == EINTR))
        return false;
    How = ended < 0 ? "it is gone" : EndOf(status);
    Process = 0;
    return true;
}

std::string Companion::End() {
    if (Process != 0) {
        // One that is about to end by itself keeps its own reason.
        const pid_t child = static_cast<pid_t>(Process);
        kill(child, SIGKILL);
        int status = 0;
        pid_t ended = 0;
        do
            ended = waitpid(child, &status, 0);
        while (ended < 0 && errno == EINTR);
        How = ended < 0 ? "it is gone" : EndOf(status);
        Process = 0;
    }
    return How;
}

Channel ChannelOfArgument(const std::string& argument) {
    // A parent that ended before this has closed its side, which the first Receive tells.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    int number = -1;
    const char* const end = argument.data() + argument.size();
    const auto [behind, failure] = std::from_chars(argument.data(), end, number);
    if (failure != std::errc() || behind != end || fcntl(number, F_SETFD, FD_CLOEXEC) != 0)
        return -1;
    return number;
}

}  // namespace Dorvane::Host
