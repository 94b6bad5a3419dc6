// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Krenn {

inline constexpr const char* kVersion = "1.0";

}  // namespace Krenn
