// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Krenn {

// The dense building blocks of the solvers, on the system's BLAS and LAPACK. Matrices are stored by columns
// with the distance `ld` between columns; "lower" leaves what stands above the diagonal untouched. All calls
// run on the calling thread alone and may be made from several threads at once.

// To be called once a run, before the others: one thread a call, and a processor that is newer than the BLAS
// is taken for the latest one the BLAS knows, not for the oldest.
void PrepareBlas();

// How many threads may call at once: `wanted`, or fewer where memory is short, or 1 with a BLAS that was
// built for programs of a single thread. Throws std::bad_alloc when there is not enough for one. To be called
// before the others as well.
int MostBlasCallers(int wanted);

// c (m x n) := beta c + alpha op(a) op(b), with k the inner size; op transposes where asked.
void Multiply(bool transposeA, bool transposeB, int m, int n, int k, double alpha, const double* a, int lda,
              const double* b, int ldb, double beta, double* c, int ldc);

// lower c (n x n) := beta c - a a', a being n x k.
void SubtractSquare(int n, int k, const double* a, int lda, double beta, double* c, int ldc);

// c (m x n) := - a b with the symmetric a (m x m), of which the lower triangle is given.
void NegativeSymmetricTimes(int m, int n, const double* a, int lda, const double* b, int ldb, double* c,
                            int ldc);

// Lower Cholesky factor in place. Returns 0, or the 1-based column whose pivot is not positive.
int CholeskyInPlace(int n, double* a, int lda);

// b (m x n) := b / l', with the lower triangular l (n x n).
void DivideByTransposed(int m, int n, const double* l, int ldl, double* b, int ldb);

// b (m x n) := b l, with the lower triangular l (n x n).
void TimesLower(int m, int n, const double* l, int ldl, double* b, int ldb);

// b (n x columns) := l \ b or l' \ b, with the lower triangular l (n x n).
void SolveLower(bool transpose, int n, int columns, const double* l, int ldl, double* b, int ldb);

// l := 1 / l, lower triangular, and lower l := l' l.
void InvertLower(int n, double* l, int ldl);
void SquareOfLower(int n, double* l, int ldl);

}  // namespace Krenn
