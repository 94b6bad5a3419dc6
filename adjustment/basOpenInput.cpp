// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/basOpenInput.h"

#include <array>
#include <optional>
#include <string_view>

#include "adjustment/Versions.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Pattern.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// The marker that ends each section; none ends the last.
struct NoteSection {
    List1<std::string> VersionNotes::*Entries;
    std::string_view NextMarker;
};
constexpr std::array<NoteSection, 8> NoteSections = {{
    {&VersionNotes::Stations, "[Points]"},
    {&VersionNotes::Points, "[Tracker]"},
    {&VersionNotes::Tracker, "[Total]"},
    {&VersionNotes::Total, "[Angle]"},
    {&VersionNotes::Angle, "[Distance]"},
    {&VersionNotes::Distance, "[Height]"},
    {&VersionNotes::Height, "[Gyro]"},
    {&VersionNotes::Gyro, ""},
}};

void ReadSection(LineReader& reader, const NoteSection& section, List1<std::string>& entries) {
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        if (!section.NextMarker.empty() && line == section.NextMarker)
            return;
        entries.Add(std::string(line));
    }
}

}  // namespace

void ReadVersionFile(const std::string& folder, const std::string& fileName, VersionNotes& notes) {
    notes = VersionNotes();
    Guarded("basOpenInput-ReadVersionFile", [&](Guard& guard) {
        std::optional<LineReader> reader;
        if (!guard.Run([&] { reader.emplace(folder + fileName); }) || reader->AtEnd())
            return;
        reader->ReadLine();
        for (const NoteSection& section : NoteSections)
            ReadSection(*reader, section, notes.*section.Entries);
    });
}

void OpenVersions(OpenInputState& state, const std::string& inputPath, const std::string& version) {
    state = OpenInputState();
    Guarded("frmOpenInput-lblDirectory", [&](Guard&) {
        SplitFolderFile(inputPath, state.lblPath, state.lblMaster);
        GetVersions(inputPath, state.cmbVersion.Entries);
        int selected = 0;
        for (int i = 1; i <= state.cmbVersion.Entries.Count(); ++i)
            if (state.cmbVersion.Entries[i] == version)
                selected = i;
        if (selected > 0)
            ClickBrowsedVersion(state, selected);
    });
}

std::string NoteName(const std::string& master, const std::string& versionText) {
    if (versionText == MasterVersion)
        return WithExtension(master, "VER");
    List1<std::string> words;
    if (ParseFields(words, versionText) != 2)
        return "";
    return BeforeFirstPoint(master) + "_v" + Pattern("00")(LeadingNumber(words[2]), 2) + ".VER";
}

void ClickBrowsedVersion(OpenInputState& state, int selected) {
    state.cmbVersion.Selected = selected;
    state.Lists = VersionNotes();
    const std::string name = NoteName(state.lblMaster, state.cmbVersion.Text());
    if (FileExists(state.lblPath + name)) {
        ReadVersionFile(state.lblPath, name, state.Lists);
        return;
    }
    TheDesktop().ShowMessage({"Version file does not exists.  Can not display version differences.",
                              "Version File Not Found", Icon::Information});
}

}  // namespace Dorvane
