// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace Krenn {

int ThreadsFor(int wanted) {
    return wanted > 0 ? wanted : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void ParallelFor(int threads, std::size_t count, const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next{0};
    std::mutex guard;
    std::exception_ptr thrown;
    std::size_t thrownBy = count;
    const auto run = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            try {
                work(i);
            } catch (...) {
                const std::lock_guard lock(guard);
                if (i < thrownBy) {
                    thrownBy = i;
                    thrown = std::current_exception();
                }
            }
        }
    };
    std::vector<std::thread> helpers;
    const std::size_t wanted = std::min(count, static_cast<std::size_t>(std::max(threads, 1)));
    try {
        for (std::size_t i = 1; i < wanted; ++i)
            helpers.emplace_back(run);
    } catch (const std::exception&) {
        // A system that gives no more threads gets the work done by those there are.
    }
    run();
    for (std::thread& helper : helpers)
        helper.join();
    if (thrown)
        std::rethrow_exception(thrown);
}

void ParallelRanges(int threads, std::size_t size,
                    const std::function<void(std::size_t, std::size_t)>& work) {
    constexpr std::size_t kShare = 16384;  // worth a thread
    ParallelFor(threads, (size + kShare - 1) / kShare,
                [&](std::size_t i) { work(i * kShare, std::min((i + 1) * kShare, size)); });
}

}  // namespace Krenn
