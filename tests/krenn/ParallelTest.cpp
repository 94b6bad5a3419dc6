// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Parallel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Krenn;

TEST(ParallelFor, DoesEachNumberOnce) {
    for (const int threads : {0, 1, 3}) {
        std::vector<std::atomic<int>> done(1000);
        ParallelFor(threads, done.size(), [&](std::size_t i) { ++done[i]; });
        for (const std::atomic<int>& times : done)
            EXPECT_EQ(times, 1);
    }
}

TEST(ParallelFor, ThrowsTheFailureOfTheLowestNumberWhenAllAreDone) {
    for (const int threads : {1, 2, 4}) {
        std::atomic<int> done{0};
        try {
            ParallelFor(threads, 100, [&](std::size_t i) {
                ++done;
                if (i % 10 == 7)
                    throw std::runtime_error(std::to_string(i));
            });
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::runtime_error& failure) {
            EXPECT_STREQ(failure.what(), "7");
        }
        EXPECT_EQ(done, 100);
    }
}

}  // namespace
