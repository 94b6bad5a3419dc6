// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ChangeNote.h"

#include <fmt/format.h>

#include <cstdint>

#include "core/Drives.h"
#include "core/LineReader.h"
#include "core/LineWriter.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr std::string_view Title = "DORVANE CHANGE 1";
constexpr std::string_view End = "END";
constexpr char Gap = '\t';

// Paths in the folder of the note begin with its own backslash, all others with their drive.
std::string Noted(const std::string& path, const std::string& folder) {
    return EqualIgnoringCase(Left(path, static_cast<int>(folder.size())), folder)
               ? path.substr(folder.size() - 1)
               : path;
}

std::string Meant(const std::string& noted, const std::string& folder) {
    return !noted.empty() && noted.front() == '\\' ? folder + noted.substr(1) : noted;
}

std::vector<std::string> FieldsOf(std::string_view line) {
    std::vector<std::string> fields(1);
    for (const char c : line)
        if (c == Gap)
            fields.emplace_back();
        else
            fields.back() += c;
    return fields;
}

void TakeLine(ChangeNote& note, const std::vector<std::string>& fields, const std::string& folder) {
    const std::string& kind = fields.front();
    if (kind == "BY" && fields.size() == 2)
        note.Who = fields[1];
    else if (kind == "FILE" && fields.size() == 4)
        note.Files.push_back({Meant(fields[1], folder), Meant(fields[2], folder), fields[3]});
}

}  // namespace

std::string ChangeNotePath(const std::string& folder) {
    return folder + ChangeNoteName;
}

std::string SumOf(std::string_view content) {
    // FNV-1a of 64 bits: it tells a cut file from a whole one.
    std::uint64_t sum = 14695981039346656037u;
    for (const char c : content)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211u;
    return fmt::format("{}:{:016x}", content.size(), sum);
}

void WriteChangeNote(const std::string& folder, const ChangeNote& note) {
    LineWriter file(ChangeNotePath(folder));
    file.Line(Title);
    file.Line(fmt::format("BY{}{}", Gap, note.Who));
    for (const StagedContent& each : note.Files)
        file.Line(fmt::format("FILE{0}{1}{0}{2}{0}{3}", Gap, Noted(each.Staged, folder),
                              Noted(each.Path, folder), each.Sum));
    file.Line(End);
    file.Close();
}

ChangeNote ReadChangeNote(const std::string& folder) {
    LineReader file(ChangeNotePath(folder));
    if (file.AtEnd() || file.ReadLine() != Title)
        return {};
    ChangeNote note;
    while (!file.AtEnd()) {
        const std::string line(file.ReadLine());
        if (line == End)
            return note;
        TakeLine(note, FieldsOf(line), folder);
    }
    return {};
}

}  // namespace Dorvane
