// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

#include "krenn/solve/Blas.h"

// What the BLAS has that is built for many processors; another one has none of these.
extern "C" {
[[gnu::weak]] char* openblas_get_corename();
[[gnu::weak]] void openblas_set_num_threads(int threads);
[[gnu::weak]] int openblas_get_parallel();
[[gnu::weak]] void gotoblas_dynamic_quit();
[[gnu::weak]] void gotoblas_dynamic_init();
[[gnu::weak]] void* blas_memory_alloc(int position);
[[gnu::weak]] void blas_memory_free(void* buffer);
}

namespace Krenn {
namespace {

// The newest kernels that this processor can run; null if the BLAS should choose.
const char* NewestKernels() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"))
        return "SkylakeX";
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return "Haswell";
#endif
    return nullptr;
}

// Unknown processors fall back to the oldest kernels, a tenth as fast. The library reads which kernels to
// take from the environment, once, when it is loaded; so it is made to look again.
void ChooseKernels() {
    if (openblas_get_corename == nullptr || gotoblas_dynamic_quit == nullptr ||
        gotoblas_dynamic_init == nullptr || std::strcmp(openblas_get_corename(), "Prescott") != 0 ||
        std::getenv("OPENBLAS_CORETYPE") != nullptr)
        return;
    const char* core = NewestKernels();
    if (core == nullptr)
        return;
    setenv("OPENBLAS_CORETYPE", core, 1);
    gotoblas_dynamic_quit();
    gotoblas_dynamic_init();
    unsetenv("OPENBLAS_CORETYPE");
}

// The library needs a large buffer for each caller, keeps it once it has it, and asks for ever where there is
// no memory for it. So it is given its buffers where there is.
int CallersWithBuffers(int wanted) {
    if (blas_memory_alloc == nullptr || blas_memory_free == nullptr)
        return wanted;
    constexpr std::size_t kBufferBytes = std::size_t{136} << 20;
    constexpr int kMostBuffers = 64;
    static std::mutex guard;
    static int reserved = 0;
    const std::lock_guard lock(guard);
    const int callers = std::min(wanted, kMostBuffers);
    struct Free {
        void operator()(void* block) const { std::free(block); }
    };
    std::vector<std::unique_ptr<void, Free>> probes;
    while (reserved + static_cast<int>(probes.size()) < callers) {
        std::unique_ptr<void, Free> probe(std::malloc(kBufferBytes));
        if (probe == nullptr)
            break;
        probes.push_back(std::move(probe));
    }
    const int possible = std::min(callers, reserved + static_cast<int>(probes.size()));
    if (possible < 1)
        throw std::bad_alloc();
    probes.clear();
    std::vector<void*> buffers(static_cast<std::size_t>(possible));
    for (void*& buffer : buffers)
        buffer = blas_memory_alloc(1);
    for (void* buffer : buffers)
        blas_memory_free(buffer);
    reserved = std::max(reserved, possible);
    return possible;
}

}  // namespace

void PrepareBlas() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (openblas_set_num_threads != nullptr)
            openblas_set_num_threads(1);
        ChooseKernels();
    });
}

int MostBlasCallers(int wanted) {
    const bool isForOne = openblas_get_parallel != nullptr && openblas_get_parallel() == 0;
    return CallersWithBuffers(isForOne ? 1 : wanted);
}

}  // namespace Krenn
