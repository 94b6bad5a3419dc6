// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/targets/Target.h"

#include <cstdio>
#include <cstdlib>

namespace Dorvane::Fuzz {

namespace {

void Show(const char* title, std::string_view text) {
    std::fprintf(stderr, "---- %s\n%.*s\n", title, static_cast<int>(text.size()), text.data());
}

}  // namespace

void Hold(bool holds, const char* promise, const char* file, int line) {
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, promise);
    std::abort();
}

void HoldSame(std::string_view expected, std::string_view found, const char* promise, const char* file,
              int line) {
    if (expected == found)
        return;
    Show("expected", expected);
    Show("found", found);
    Hold(false, promise, file, line);
}

}  // namespace Dorvane::Fuzz
