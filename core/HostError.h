// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/RunTimeError.h"

namespace Dorvane {

/// What was being done when the host refused: the classic number depends on it.
enum class HostAction { Read, Write, Folder };

/// The run-time error for a host's error code (errno), the one table of the system. `path` goes into the
/// description.
RunTimeError HostError(int code, HostAction action, const std::string& path);

}  // namespace Dorvane
