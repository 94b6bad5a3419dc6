// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/PointNames.h"

#include <algorithm>

#include "krenn/Scan.h"

namespace Krenn {
namespace {

constexpr std::size_t kFirstSlots = 64;

// FNV-1a over the upper-case characters, with its upper bits folded into the lower ones that choose a slot.
std::uint32_t HashOf(std::string_view name) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(UpperCharacter(c))) * 1099511628211U;
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

bool IsNamed(const Point& point, std::string_view name) {
    return std::equal(name.begin(), name.end(), point.name.begin(), point.name.end(),
                      [](char c, char upper) { return UpperCharacter(c) == upper; });
}

void Put(std::vector<PointNames::Slot>& slots, const PointNames::Slot& slot) {
    const std::size_t mask = slots.size() - 1;
    std::size_t at = slot.hash & mask;
    while (slots[at].point >= 0)
        at = (at + 1) & mask;
    slots[at] = slot;
}

}  // namespace

int PointNames::Find(std::string_view name, const std::vector<Point>& points) const {
    if (slots.empty())
        return -1;
    const std::uint32_t hash = HashOf(name);
    const std::size_t mask = slots.size() - 1;
    for (std::size_t at = hash & mask; slots[at].point >= 0; at = (at + 1) & mask) {
        if (slots[at].hash == hash && IsNamed(points[static_cast<std::size_t>(slots[at].point)], name))
            return slots[at].point;
    }
    return -1;
}

void PointNames::AddLast(const std::vector<Point>& points) {
    if (2 * (count + 1) > slots.size()) {
        std::vector<Slot> larger(std::max(kFirstSlots, 2 * slots.size()), Slot{0, -1});
        for (const Slot& slot : slots) {
            if (slot.point >= 0)
                Put(larger, slot);
        }
        slots = std::move(larger);
    }
    Put(slots, {HashOf(points.back().name), static_cast<int>(points.size()) - 1});
    ++count;
}

}  // namespace Krenn
