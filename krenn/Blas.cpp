// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Blas.h"

#include <cblas.h>

#include <cstdlib>
#include <cstring>
#include <mutex>

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

#else

void ChooseKernels() {}
void UseOneThread() {}
bool IsForOneCaller() {
    return false;
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
    return IsForOneCaller() ? 1 : wanted;
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
