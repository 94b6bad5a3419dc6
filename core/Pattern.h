// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace Dorvane {

/// A digit pattern such as "##0.00000": "0" is a digit that always shows, "#" one that shows where the number
/// has it, and the point is the decimal point. A number has as many digits before the point as it needs. It
/// is rounded half away from zero on its shortest decimal form, so 0.000005 gives 0.00001 and 2.675 with two
/// decimals 2.68; a value that rounds to zero never shows a minus sign.
class Pattern {
  public:
    explicit Pattern(std::string_view pattern);

    /// The digits of a number; error 6 when it is not finite.
    std::string operator()(double value) const;

    /// The digits right-justified in `width`; a longer result is kept whole.
    std::string operator()(double value, int width) const;

  private:
    int MinimumWhole = 0;     // digits that always stand before the point
    int MinimumFraction = 0;  // digits that always stand behind it
    int MaximumFraction = 0;  // digits that may stand behind it
    bool HasPoint = false;
};

}  // namespace Dorvane
