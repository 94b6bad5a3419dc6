// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

#include "core/RunTimeError.h"

namespace Dorvane {

/// A list numbered from 1 with a 16-bit count. Index 0 exists and is unused; a subscript out of range raises
/// error 9, and a count past 32767 error 6.
template <class T>
class List1 {
  public:
    List1() : Items(1) {}
    List1(std::initializer_list<T> items) : Items(1) {
        for (const T& item : items)
            Add(item);
    }

    std::int16_t Count() const { return static_cast<std::int16_t>(Items.size() - 1); }
    bool Empty() const { return Items.size() == 1; }

    T& operator[](int index) {
        CheckIndex(index);
        return Items[static_cast<std::size_t>(index)];
    }
    const T& operator[](int index) const {
        CheckIndex(index);
        return Items[static_cast<std::size_t>(index)];
    }

    T& Add(T item) {
        CheckCount(Items.size());
        Items.push_back(std::move(item));
        return Items.back();
    }

    /// Makes the list exactly `count` long, with empty items where it grows.
    void Resize(int count) {
        if (count < 0)
            throw RunTimeError(SubscriptOutOfRange);
        CheckCount(static_cast<std::size_t>(count));
        Items.resize(static_cast<std::size_t>(count) + 1);
    }
    void Clear() {
        Items.resize(1);
        Items[0] = T();
    }

    auto begin() { return Items.begin() + 1; }
    auto end() { return Items.end(); }
    auto begin() const { return Items.begin() + 1; }
    auto end() const { return Items.end(); }

    bool operator==(const List1&) const = default;

  private:
    void CheckIndex(int index) const {
        if (index < 0 || static_cast<std::size_t>(index) >= Items.size())
            throw RunTimeError(SubscriptOutOfRange);
    }
    static void CheckCount(std::size_t count) {
        if (count > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
            throw RunTimeError(Overflow);
    }

    std::vector<T> Items;
};

}  // namespace Dorvane
