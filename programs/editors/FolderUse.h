// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

// Whether a name of the structures is in use: registered in the PTH file of its system, or the name of a
// folder on the disk. All procedures raise what reading raises.
namespace Dorvane {

/// The place of a name in the path of a folder.
enum class NameLevel { System, Location, Type, Epoch };

/// What uses a name of a data system, as a sentence's end ("D:\TARVEX\DAM\ exists"); empty when nothing does.
std::string UseOfName(const std::string& system, NameLevel level, const std::string& code);

/// The same for a calibration type or epoch below Calib_path, and for the calibration system as a whole.
std::string UseOfCalibName(const std::string& system, NameLevel level, const std::string& code);

}  // namespace Dorvane
