// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

namespace Krenn {

// Numbers that look mixed and are the same in every run (linear congruence with Knuth's multiplier).
struct Mixer {
    std::uint64_t state = 12345;

    std::size_t Below(std::size_t bound) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::size_t>((state >> 33) % bound);
    }
};

}  // namespace Krenn
