// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Blas.h"

#include <cblas.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <vector>

extern "C" {
void dpotrf_(const char* uplo, const int* n, double* a, const int* lda, int* info);
void dtrtri_(const char* uplo, const char* diag, const int* n, double* a, const int* lda, int* info);
void dlauum_(const char* uplo, const int* n, double* a, const int* lda, int* info);

// Of a BLAS that is built for many processors; another one has none of these.
#if defined(__ELF__) && defined(__x86_64__)
[[gnu::weak]] char* openblas_get_corename();
[[gnu::weak]] void openblas_set_num_threads(int threads);
[[gnu::weak]] int openblas_get_parallel();
[[gnu::weak]] void gotoblas_dynamic_quit();
[[gnu::weak]] void gotoblas_dynamic_init();
[[gnu::weak]] void* blas_memory_alloc(int position);
[[gnu::weak]] void blas_memory_free(void* buffer);
#endif
}

namespace Krenn {
namespace {

#if defined(__ELF__) && defined(__x86_64__)

// Unknown processors fall back to the oldest kernels, a tenth as fast. The library reads which kernels to
// take from the environment, once, when it is loaded; so it is made to look again.
void ChooseKernels() {
    if (openblas_get_corename == nullptr || gotoblas_dynamic_quit == nullptr ||
        gotoblas_dynamic_init == nullptr || std::strcmp(openblas_get_corename(), "Prescott") != 0 ||
        std::getenv("OPENBLAS_CORETYPE") != nullptr)
        return;
    const char* core = nullptr;
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"))
        core = "SkylakeX";
    else if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        core = "Haswell";
    if (core == nullptr)
        return;
    setenv("OPENBLAS_CORETYPE", core, 1);
    gotoblas_dynamic_quit();
    gotoblas_dynamic_init();
    unsetenv("OPENBLAS_CORETYPE");
}

void UseOneThread() {
    if (openblas_set_num_threads != nullptr)
        openblas_set_num_threads(1);
}

bool IsForOneCaller() {
    return openblas_get_parallel != nullptr && openblas_get_parallel() == 0;
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

#else

void ChooseKernels() {}
void UseOneThread() {}
bool IsForOneCaller() {
    return false;
}
int CallersWithBuffers(int wanted) {
    return wanted;
}

#endif

CBLAS_TRANSPOSE Turned(bool transpose) {
    return transpose ? CblasTrans : CblasNoTrans;
}

}  // namespace

void PrepareBlas() {
    static std::once_flag once;
    std::call_once(once, [] {
        UseOneThread();
        ChooseKernels();
    });
}

int MostBlasCallers(int wanted) {
    return CallersWithBuffers(IsForOneCaller() ? 1 : wanted);
}

void Multiply(bool transposeA, bool transposeB, int m, int n, int k, double alpha, const double* a, int lda,
              const double* b, int ldb, double beta, double* c, int ldc) {
    cblas_dgemm(CblasColMajor, Turned(transposeA), Turned(transposeB), m, n, k, alpha, a, lda, b, ldb, beta,
                c, ldc);
}

void SubtractSquare(int n, int k, const double* a, int lda, double beta, double* c, int ldc) {
    cblas_dsyrk(CblasColMajor, CblasLower, CblasNoTrans, n, k, -1, a, lda, beta, c, ldc);
}

void NegativeSymmetricTimes(int m, int n, const double* a, int lda, const double* b, int ldb, double* c,
                            int ldc) {
    cblas_dsymm(CblasColMajor, CblasLeft, CblasLower, m, n, -1, a, lda, b, ldb, 0, c, ldc);
}

int CholeskyInPlace(int n, double* a, int lda) {
    int info = 0;
    dpotrf_("L", &n, a, &lda, &info);
    return info;
}

void DivideByTransposed(int m, int n, const double* l, int ldl, double* b, int ldb) {
    cblas_dtrsm(CblasColMajor, CblasRight, CblasLower, CblasTrans, CblasNonUnit, m, n, 1, l, ldl, b, ldb);
}

void TimesLower(int m, int n, const double* l, int ldl, double* b, int ldb) {
    cblas_dtrmm(CblasColMajor, CblasRight, CblasLower, CblasNoTrans, CblasNonUnit, m, n, 1, l, ldl, b, ldb);
}

void SolveLower(bool transpose, int n, int columns, const double* l, int ldl, double* b, int ldb) {
    cblas_dtrsm(CblasColMajor, CblasLeft, CblasLower, Turned(transpose), CblasNonUnit, n, columns, 1, l, ldl,
                b, ldb);
}

void InvertLower(int n, double* l, int ldl) {
    int info = 0;
    dtrtri_("L", "N", &n, l, &ldl, &info);
}

void SquareOfLower(int n, double* l, int ldl) {
    int info = 0;
    dlauum_("L", &n, l, &ldl, &info);
}

}  // namespace Krenn
