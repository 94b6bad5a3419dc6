// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>

namespace Krenn {

// The number of threads behind Parameters::threads: itself, or one a core for 0.
int ThreadsFor(int wanted);

// Runs work(0) to work(count - 1), on up to `threads` threads that have ended when it returns. Which thread
// takes which number is left to chance; so no result may depend on it, and each number works on data of its
// own. Of the exceptions thrown the one of the lowest number comes out.
void ParallelFor(int threads, std::size_t count, const std::function<void(std::size_t)>& work);

// The same with work(begin, end) for ranges that together make up 0 to size - 1 and depend on the size alone.
void ParallelRanges(int threads, std::size_t size, const std::function<void(std::size_t, std::size_t)>& work);

}  // namespace Krenn
