// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/solve/Blas.h"

#include <cblas.h>

extern "C" {
void dpotrf_(const char* uplo, const int* n, double* a, const int* lda, int* info);
void dtrtri_(const char* uplo, const char* diag, const int* n, double* a, const int* lda, int* info);
void dlauum_(const char* uplo, const int* n, double* a, const int* lda, int* info);
}

namespace Krenn {
namespace {

CBLAS_TRANSPOSE Turned(bool transpose) {
    return transpose ? CblasTrans : CblasNoTrans;
}

}  // namespace

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
