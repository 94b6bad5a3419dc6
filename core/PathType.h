// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace Dorvane {

/// What the status bars say of Path_type: "Tarvex" for 1, "Manual" for any other.
std::string PathTypeText();

/// Sets Path_type and writes it to section "Tarvex Info" of dv_tarvex.ini.
void StorePathType(std::int16_t pathType);

/// The last folder that was chosen: in the managed tree ("Tarvex") or by hand ("Manual").
std::string LastTreePath();
std::string LastManualPath();
void StoreLastTreePath(const std::string& folder);
void StoreLastManualPath(const std::string& folder);

}  // namespace Dorvane
