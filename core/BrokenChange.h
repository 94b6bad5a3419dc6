// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// Finishes what a program that died, or a computer that was switched off, left half done in a folder, and
/// tells of it in one sentence. To be called by who holds the folder. Raises what the disk raises; the note
/// stays then, and the next one tries again.
void FinishBrokenChange(const std::string& folder);

}  // namespace Dorvane
