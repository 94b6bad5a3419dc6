// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Programs that work for this process and answer it over a channel of their own, beside their standard input
// and output. Written once per host (Host_companion_posix.cpp, Host_companion_windows.cpp). Paths are host
// paths in the host's encoding.
namespace Dorvane::Host {

/// What came over a channel: text, nothing within the time, or its end because nobody holds the other side.
enum class Arrival { Text, Nothing, End };

/// One side of a channel that goes both ways.
using Channel = std::intptr_t;

/// Sends all of a text. False when nobody is left to read it, and never a signal.
bool Send(Channel channel, std::string_view text);

/// Waits for text and appends what came. With `milliseconds` below 0 it waits without end.
Arrival Receive(Channel channel, int milliseconds, std::string& text);

/// A program started by this process. It ends when this process, or the thread that started it, ends in
/// whatever way.
class Companion {
  public:
    /// Starts the program in the process's own folder. Its only argument tells it its side of the channel.
    /// Raises 53 when it cannot be started.
    explicit Companion(const std::string& program);

    /// Ends the program if it still runs.
    ~Companion();
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    Channel Line() const { return Own; }

    /// True when the program has ended.
    bool HasEnded();

    /// Ends the program if it still runs, and tells how it ended: "exit code 3", "signal 11".
    std::string End();

  private:
    Channel Own = 0;
    std::intptr_t Process = 0;  // 0 once the program has ended
    std::string How;
};

/// In a companion, as its first step: its side of the channel by the argument it was started with, -1 when
/// that names none. What it starts in turn does not get it. From then on it ends with the one that started
/// it.
Channel ChannelOfArgument(const std::string& argument);

}  // namespace Dorvane::Host
