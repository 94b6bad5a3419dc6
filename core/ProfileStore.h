// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Dorvane {

/// The value of a key in a section of a profile file, a bare name in the Windows folder. Section and key
/// ignore case, and the first match counts. Blanks around a value and one pair of quotes around it are no
/// part of it. At most 127 characters arrive, cut at the first NUL; what is absent reads as empty. Raises
/// nothing.
std::string IniReadString(std::string_view file, std::string_view section, std::string_view key);

/// The same value, and nothing when the key is absent: what tells an absent key from one with an empty text.
std::optional<std::string> IniFindString(std::string_view file, std::string_view section,
                                         std::string_view key);

/// The same value as IniReadString gives, but a profile that cannot be read is raised: for keys that decide
/// what becomes of files.
std::string IniReadStringOrRaise(std::string_view file, std::string_view section, std::string_view key);

/// The leading number of such a value, 0 when it has none. Raises nothing: a number beyond the range of a
/// double is the largest of its sign.
double IniReadNumber(std::string_view file, std::string_view section, std::string_view key);

/// Sets a key, adding it, its section or the file when absent; all other lines stay as they are. Raises
/// nothing: a profile that cannot be written keeps what it held.
void IniWriteString(std::string_view file, std::string_view section, std::string_view key,
                    std::string_view value);

/// One key of a profile file and the value that it is to have.
struct IniSetting {
    std::string Section;
    std::string Key;
    std::string Value;
};

/// Sets several keys one after another, as IniWriteString does, and writes the file once.
void IniWriteSettings(std::string_view file, const std::vector<IniSetting>& settings);

}  // namespace Dorvane
