// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/Sorter.h"

#include <algorithm>

#include "core/Text.h"

namespace Dorvane {

void Sorter::Clear() {
    Items.Clear();
    Sorted = true;
}

void Sorter::Add(std::string text) {
    std::string key = UpperCase(text);
    Items.Add({std::move(key), std::move(text)});
    Sorted = false;
}

const std::string& Sorter::Item(int position) {
    if (position < 1)
        throw RunTimeError(SubscriptOutOfRange);
    if (!Sorted) {
        std::stable_sort(Items.begin(), Items.end(),
                         [](const Entry& a, const Entry& b) { return a.Key < b.Key; });
        Sorted = true;
    }
    return Items[position].Text;
}

}  // namespace Dorvane
