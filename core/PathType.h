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

/// Asks for a folder by hand, beginning at the last one, and stores one that exists as the last. False, with
/// `folder` as it was, when there is none.
bool AskManualFolder(std::string& folder, const std::string& proposedName, const std::string& title);

}  // namespace Dorvane
