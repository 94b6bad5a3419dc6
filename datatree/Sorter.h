// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

namespace Dorvane {

/// A list of texts that keeps its items in ascending order, ignoring case. Items that are equal so stand in
/// the order of their adding. Positions count from 1.
class Sorter {
  public:
    void Clear();

    /// Error 6 for more than 32767 items.
    void Add(std::string text);

    std::int16_t Count() const { return Items.Count(); }

    /// The item at a position; error 9 when there is none. Sorts what was added since the last call.
    const std::string& Item(int position);

  private:
    struct Entry {
        std::string Key;  // the text in upper case
        std::string Text;
    };
    List1<Entry> Items;
    bool Sorted = true;
};

}  // namespace Dorvane
