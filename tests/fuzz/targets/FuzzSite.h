// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "core/RunTimeError.h"
#include "tests/fuzz/Damage.h"
#include "tests/fuzz/targets/Target.h"

namespace Dorvane::Fuzz {

inline const std::string Init = "D:\\TARVEX\\INIT\\";
inline const std::string Work = "D:\\DATA\\";

/// The drives of a target, laid out at the first call, with a desktop that takes every message. They live as
/// long as the process.
Testing::PatientDesktop& LayOutOnce();

/// Writes and reads a file straight on the host, without the care that the system takes.
void Put(const std::string& path, std::string_view content);
std::string Content(const std::string& path);
void Remove(const std::string& path);

/// Runs a reader. What it raises has to be a run-time error with a number; true when it raised nothing.
template <class Read>
bool Quietly(const Read& read) {
    try {
        read();
        return true;
    } catch (const RunTimeError& error) {
        Hold(error.Number > 0, "an error has a number");
        return false;
    }
}

/// Runs readers of a file, which has to hold the same bytes afterwards.
template <class Read>
void Reading(const std::string& path, std::string_view content, const Read& read) {
    Put(path, content);
    Quietly(read);
    HoldSame(content, Content(path), "a reader leaves its file as it was");
}

}  // namespace Dorvane::Fuzz
