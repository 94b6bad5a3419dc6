// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "input/ObservationModel.h"

namespace Dorvane {

/// What an input holds, in words for the operator: its four files and their folder, the observations by kind,
/// the points with coordinates by their source and those without. Three lines, separated by CR LF.
std::string DescribeInput(const ObservationModel& model, const std::string& folder,
                          const std::string& inputName);

}  // namespace Dorvane
