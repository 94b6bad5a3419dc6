// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "adjustment/VarnState.h"

// What the events of the adjustment screen decide.
namespace Dorvane {

/// The adjustment types in the order of their list. The number in the text is what the package receives.
struct AdjustmentType {
    const char* Text;
    std::int32_t Value;
};
inline constexpr std::array<AdjustmentType, 4> AdjustmentTypes = {{
    {"(0) - Compact w/ No inversion", 0},
    {"(1) - Compact w/ Inversion", 1},
    {"(-1) - L1 Norm/Simplex", -1},
    {"(7) - Jordan w/ Inversion", 7},
}};

/// The screen as it comes up: nothing chosen, the second adjustment type, the editor of the profile.
void LoadVarn(VarnState& state);

/// A change of txtInput to `text`: file names, versions, and what can be exported. Error 5 for an existing
/// file given without its folder.
void ChangeInput(VarnState& state, const std::string& text);

/// Fills cmbVersion with the versions of txtInput and chooses the first; leaves it when there are none.
void ListVersions(VarnState& state);

/// A choice in cmbVersion (1 upward): the colours of the two files of that version, and what can be exported.
/// A text that is no version changes nothing.
void ClickVersion(VarnState& state, int selected);

/// What is there of the chosen version: the colours of its files, what can be exported, and what the listing
/// says.
void ShowFilesPresent(VarnState& state);

/// What the status bar says: Notice, else what there is.
std::string StatusOf(const VarnState& state);

/// A tick of one of the three file boxes takes the ticks of the other two.
enum class FileBox { Input, Par, Output };
void TickFile(VarnState& state, FileBox box, bool ticked);

/// The editor menu. The choice is kept in the profile.
void ChooseTextEditor(VarnState& state);
void ChooseTarvexEditor(VarnState& state);

/// Leaving the screen keeps txtInput as the last path when it names an existing folder.
void LeaveVarn(const VarnState& state);

}  // namespace Dorvane
