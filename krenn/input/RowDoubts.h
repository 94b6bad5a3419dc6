// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "krenn/input/RowFields.h"

namespace Krenn {

// What makes a row doubtful whose words fit as they stand. Each answer is a whole sentence for the surveyor,
// empty without a doubt.

// Commas that separate no fields, or that may be decimal commas.
std::string CommaDoubt(std::string_view line);

// A first name that begins where numbers stand, a number that seems to have lost its decimal point, a row
// that lies in the columns of another section's rows. `words` are as FitRow left them.
std::string RowDoubt(const std::vector<Word>& words, const RowLayout& layout);

// True if the word is a full number with a decimal point.
bool IsDecimal(std::string_view word);

}  // namespace Krenn
