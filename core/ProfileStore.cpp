// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileStore.h"

#include <limits>
#include <vector>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/FolderLock.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

constexpr int LongestValue = 127;

std::string_view TrimGaps(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsSection(std::string_view line, std::string_view section) {
    const std::string_view text = TrimGaps(line);
    return text.size() >= 2 && text.front() == '[' && text.back() == ']' &&
           EqualIgnoringCase(TrimGaps(text.substr(1, text.size() - 2)), TrimGaps(section));
}

bool IsAnySection(std::string_view line) {
    const std::string_view text = TrimGaps(line);
    return !text.empty() && text.front() == '[';
}

// A line `key=value` of this key; `value` takes the text behind the equals sign.
bool IsKey(std::string_view line, std::string_view key, std::string& value) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos ||
        !EqualIgnoringCase(TrimGaps(line.substr(0, equals)), TrimGaps(key)))
        return false;
    value = TrimGaps(line.substr(equals + 1));
    return true;
}

std::string WithoutQuotes(const std::string& value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::vector<std::string> LinesOf(const std::string& path) {
    std::vector<std::string> lines;
    if (!Drives::IsFile(path))
        return lines;
    LineReader reader(path);
    while (!reader.AtEnd())
        lines.emplace_back(reader.ReadLine());
    return lines;
}

void SetKey(std::vector<std::string>& lines, std::string_view section, std::string_view key,
            std::string_view value) {
    const std::string setting = std::string(key) + "=" + std::string(value);
    std::size_t place = 0;
    while (place < lines.size() && !IsSection(lines[place], section))
        ++place;
    if (place == lines.size()) {
        lines.push_back("[" + std::string(section) + "]");
        lines.push_back(setting);
        return;
    }
    std::size_t behindLastText = ++place;
    for (; place < lines.size() && !IsAnySection(lines[place]); ++place) {
        std::string former;
        if (IsKey(lines[place], key, former)) {
            lines[place] = setting;
            return;
        }
        if (!TrimGaps(lines[place]).empty())
            behindLastText = place + 1;
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(behindLastText), setting);
}

std::optional<std::string> FindValue(const std::string& path, std::string_view section,
                                     std::string_view key) {
    if (!Drives::IsFile(path))
        return std::nullopt;
    LineReader reader(path);
    bool inside = false;
    std::string value;
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        if (IsAnySection(line)) {
            if (inside)
                return std::nullopt;
            inside = IsSection(line, section);
        } else if (inside && IsKey(line, key, value)) {
            return WithoutQuotes(value);
        }
    }
    return std::nullopt;
}

// Where the drive cannot tell whether there is such a folder this raises: a profile is read and written
// nowhere else for that.
std::string ProfileFolder() {
    const std::string folder = "C:\\WINDOWS\\";
    try {
        return Drives::IsThere(folder) ? folder : "";
    } catch (const RunTimeError& error) {
        if (error.Number != DeviceUnavailable)
            throw;
        return "";
    }
}

std::optional<std::string> FindText(std::string_view file, std::string_view section, std::string_view key) {
    const std::optional<std::string> value = FindValue(ProfileFolder() + std::string(file), section, key);
    return value ? std::optional(StripAtNul(Left(*value, LongestValue))) : std::nullopt;
}

}  // namespace

std::string IniReadString(std::string_view file, std::string_view section, std::string_view key) {
    return IniFindString(file, section, key).value_or("");
}

std::optional<std::string> IniFindString(std::string_view file, std::string_view section,
                                         std::string_view key) {
    try {
        return FindText(file, section, key);
    } catch (const RunTimeError&) {
        return std::nullopt;  // the profile layer reports nothing: what cannot be read is absent
    }
}

std::string IniReadStringOrRaise(std::string_view file, std::string_view section, std::string_view key) {
    return FindText(file, section, key).value_or("");
}

double IniReadNumber(std::string_view file, std::string_view section, std::string_view key) {
    const std::string value = IniReadString(file, section, key);
    try {
        return LeadingNumber(value);
    } catch (const RunTimeError&) {
        const double largest = std::numeric_limits<double>::max();
        return Left(Trim(value), 1) == "-" ? -largest : largest;
    }
}

void IniWriteString(std::string_view file, std::string_view section, std::string_view key,
                    std::string_view value) {
    IniWriteSettings(file, {{std::string(section), std::string(key), std::string(value)}});
}

void IniWriteSettings(std::string_view file, const std::vector<IniSetting>& settings) {
    try {
        const std::string folder = ProfileFolder();
        const FolderLock lock(folder);
        const std::string path = folder + std::string(file);
        std::vector<std::string> lines = LinesOf(path);
        const std::vector<std::string> former = lines;
        for (const IniSetting& setting : settings)
            SetKey(lines, setting.Section, setting.Key, setting.Value);
        if (lines == former)
            return;  // a list of settings saved whole costs a write only for what changed
        LineWriter writer(path);
        for (const std::string& line : lines)
            writer.Line(line);
        writer.Close();
    } catch (const RunTimeError&) {
        // The profile layer reports nothing; the former file stands.
    }
}

}  // namespace Dorvane
