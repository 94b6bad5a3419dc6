// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

// A claim on a folder that the programs of all computers see which have the drive. It is a lock of the host
// on a file in that folder, which ends with the process that holds it, however it ends.
namespace Dorvane::Host {

/// Who this process is to the people at other workstations: "maier on ws3, process 4711".
std::string ProcessName();

enum class LockState {
    Held,         // by us
    Busy,         // another process holds it
    Unsupported,  // this drive knows no locks, or nobody may make files here
};

struct LockTry {
    LockState State = LockState::Unsupported;
    std::intptr_t Handle = -1;
    /// Busy: who holds it, empty when that cannot be read. Held: who held it last and died with it.
    std::string Holder;
};

/// Tries once. The file is made where it is not there; it is never followed through a link. Raises what the
/// disk raises, but not that it may not be written.
LockTry TryLock(const std::string& path, const std::string& holder);

/// Lets it go, and takes the file away.
void Unlock(std::intptr_t handle, const std::string& path);

}  // namespace Dorvane::Host
