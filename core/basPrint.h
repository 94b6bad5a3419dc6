// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

/// Prints a text file in Courier 12 behind a heading "File Name : ", the shown folder and the file. Each line
/// is set in by five blanks. 1 when printed, 0 after a failure, which is reported as "basPrint-PrintGenFile".
int PrintGenFile(const std::string& folder, const std::string& file, const std::string& shownFolder);

}  // namespace Dorvane
