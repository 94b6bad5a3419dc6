// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

class QListWidget;

namespace Dorvane {

/// Makes a label in the place of a list's names, called "lblEmpty" and the list's name, for the word that
/// says why there are none.
void AddEmptyNote(QListWidget& list);

/// Shows that word, which is also read out with the list; an empty one takes the label away.
void ShowEmptyNote(QListWidget& list, const std::string& why);

}  // namespace Dorvane
