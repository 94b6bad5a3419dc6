// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/ObservationKinds.h"

#include <initializer_list>
#include <unordered_map>

#include "core/LineReader.h"
#include "core/Text.h"
#include "krenn/Scan.h"

namespace Dorvane {

namespace {

using Kinds = std::unordered_map<std::string, NoteKind>;

std::string KeyOf(std::initializer_list<std::string_view> words) {
    std::string key;
    for (const std::string_view word : words)
        key.append(word).push_back(' ');
    return key;
}

std::string KeyOf(const InputRow& row) {
    std::string key = KeyOf({row.Name, row.Target});
    for (const std::string& value : row.Values)
        key += value + " ";
    return key;
}

struct TaggedRows {
    Kinds OfDistances;
    Kinds OfAngles;
};

void TakePolar(const std::vector<std::string>& words, NoteKind kind, TaggedRows& rows) {
    if (words.size() != 9)
        return;
    rows.OfDistances.emplace(KeyOf({words[1], words[2], words[7], words[8]}), kind);
    rows.OfAngles.emplace(KeyOf({words[1], words[2], words[3], words[5], words[4], words[6]}), kind);
}

TaggedRows ReadTaggedRows(const std::string& content) {
    TaggedRows rows;
    LineReader reader = LineReader::OfText(content);
    std::vector<Krenn::Word> cut;
    while (!reader.AtEnd()) {
        cut.clear();
        Krenn::AppendWords(reader.ReadLine(), cut);
        std::vector<std::string> words;
        for (const Krenn::Word& word : cut)
            words.push_back(UpperCase(word.text));
        if (words.empty())
            continue;
        if (words[0] == "TOT")
            TakePolar(words, NoteKind::Total, rows);
        else if (words[0] == "TRK")
            TakePolar(words, NoteKind::Tracker, rows);
        else if (words[0] == "DST" && words.size() == 5)
            rows.OfDistances.emplace(KeyOf({words[1], words[2], words[3], words[4]}), NoteKind::Distance);
        else if (words[0] == "ANG" && words.size() == 7)
            rows.OfAngles.emplace(KeyOf({words[1], words[2], words[3], words[4], words[5], words[6]}),
                                  NoteKind::Angle);
    }
    return rows;
}

void TakeKnown(const InputText& text, const TaggedRows& tagged, std::vector<NoteKind>& kinds) {
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        if (row.Tracker) {
            kinds[i] = NoteKind::Tracker;
            continue;
        }
        const Kinds& known = row.Kind == RowKind::Distance ? tagged.OfDistances : tagged.OfAngles;
        const auto found = known.find(KeyOf(row));
        if ((row.Kind == RowKind::Distance || row.Kind == RowKind::Angle) && found != known.end())
            kinds[i] = found->second;
    }
}

// Distances and angles between the same names, in their order, make up polar observations.
void PairTheOthers(const InputText& text, std::vector<NoteKind>& kinds) {
    std::unordered_map<std::string, std::vector<std::size_t>> angles;
    for (std::size_t i = text.Rows.size(); i-- > 0;)
        if (text.Rows[i].Kind == RowKind::Angle && kinds[i] == NoteKind::None)
            angles[KeyOf({text.Rows[i].Name, text.Rows[i].Target})].push_back(i);
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        const InputRow& row = text.Rows[i];
        if (row.Kind != RowKind::Distance || (kinds[i] != NoteKind::None && !row.Tracker))
            continue;
        std::vector<std::size_t>& partners = angles[KeyOf({row.Name, row.Target})];
        if (!row.Tracker)
            kinds[i] = partners.empty() ? NoteKind::Distance : NoteKind::Total;
        if (partners.empty())
            continue;
        kinds[partners.back()] = kinds[i];
        partners.pop_back();
    }
    for (const auto& [names, left] : angles)
        for (const std::size_t i : left)
            kinds[i] = NoteKind::Angle;
}

}  // namespace

std::vector<NoteKind> KindsOf(const InputText& text, const std::string& taggedRows) {
    std::vector<NoteKind> kinds(text.Rows.size(), NoteKind::None);
    TakeKnown(text, ReadTaggedRows(taggedRows), kinds);
    PairTheOthers(text, kinds);
    for (std::size_t i = 0; i < text.Rows.size(); ++i) {
        if (text.Rows[i].Kind == RowKind::Station)
            kinds[i] = NoteKind::Station;
        else if (text.Rows[i].Kind == RowKind::Point)
            kinds[i] = NoteKind::Point;
        else if (text.Rows[i].Kind == RowKind::Height)
            kinds[i] = NoteKind::Height;
    }
    return kinds;
}

}  // namespace Dorvane
