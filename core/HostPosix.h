// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <string>
#include <string_view>

#include "core/HostError.h"

// What the sources of this host share.
namespace Dorvane::Host {

// A file descriptor that closes itself.
class Descriptor {
  public:
    explicit Descriptor(int descriptor) : Number(descriptor) {}
    ~Descriptor() {
        if (Number >= 0)
            close(Number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number;
};

std::string ParentOf(const std::string& path);

/// Raises what a call told. A missing file in a missing folder is a path that was not found.
[[noreturn]] void Raise(int code, HostAction action, const std::string& path);

void WriteAll(int descriptor, std::string_view content, const std::string& path);
void Flush(int descriptor, const std::string& path);

/// A rename is only on disk when the folder that holds the name is.
void FlushFolder(const std::string& folder);

enum class Locking { Done, Busy, Unknown };

/// Locks a whole file against all other openings of it, in this process too. Unknown where the drive knows no
/// locks.
Locking LockWhole(int descriptor);

/// The name that stands there is that of the open file: nobody has taken it away meanwhile.
bool IsStill(const std::string& path, int descriptor);

}  // namespace Dorvane::Host
