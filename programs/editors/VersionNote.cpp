// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/VersionNote.h"

#include <array>
#include <utility>

#include "core/LineReader.h"

namespace Dorvane {

namespace {

using Entries = List1<std::string> VersionNotes::*;

// In the order of NoteKind, which is that of the file.
constexpr std::array<std::pair<const char*, Entries>, 8> Sections{{{"[Stations]", &VersionNotes::Stations},
                                                                   {"[Points]", &VersionNotes::Points},
                                                                   {"[Tracker]", &VersionNotes::Tracker},
                                                                   {"[Total]", &VersionNotes::Total},
                                                                   {"[Angle]", &VersionNotes::Angle},
                                                                   {"[Distance]", &VersionNotes::Distance},
                                                                   {"[Height]", &VersionNotes::Height},
                                                                   {"[Gyro]", &VersionNotes::Gyro}}};

constexpr char CommentMark = ';';

bool IsComment(const std::string& entry) {
    return !entry.empty() && entry.front() == CommentMark;
}

}  // namespace

std::string CommentOf(const VersionNotes& notes) {
    std::string comment;
    for (const std::string& entry : notes.Stations) {
        if (!IsComment(entry))
            break;
        const std::size_t start = entry.size() > 1 && entry[1] == ' ' ? 2 : 1;
        comment += (&entry == &notes.Stations[1] ? "" : "\n") + entry.substr(start);
    }
    return comment;
}

void SetComment(VersionNotes& notes, const std::string& comment) {
    List1<std::string> entries;
    LineReader reader = LineReader::OfText(comment);
    while (!reader.AtEnd())
        entries.Add(CommentMark + (" " + std::string(reader.ReadLine())));
    bool atComment = true;
    for (const std::string& entry : notes.Stations) {
        atComment = atComment && IsComment(entry);
        if (!atComment)
            entries.Add(entry);
    }
    notes.Stations = entries;
}

std::string NoteEntry(const InputRow& row) {
    std::string entry = row.Name;
    if (!row.Target.empty())
        entry += " " + row.Target;
    for (const std::string& value : row.Values)
        entry += " " + value;
    return row.Tracker ? entry + " T" : entry;
}

void AddRemoved(VersionNotes& notes, const InputText& text, const std::vector<NoteKind>& kinds,
                const std::vector<Fate>& fates) {
    for (std::size_t i = 0; i < text.Rows.size(); ++i)
        if (fates[i] != Fate::Stays && kinds[i] != NoteKind::None)
            (notes.*Sections[static_cast<std::size_t>(kinds[i])].second).Add(NoteEntry(text.Rows[i]));
}

std::string FormatNote(const VersionNotes& notes) {
    std::string text;
    for (const auto& [marker, entries] : Sections) {
        text.append(marker).append("\r\n");
        for (const std::string& entry : notes.*entries)
            text.append(entry).append("\r\n");
    }
    return text;
}

}  // namespace Dorvane
