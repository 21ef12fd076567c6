// Statistics over the rows and columns of a matrix in either layout: the
// sums come from the path's kernels in double, and each result is rounded
// once to its type by the one integer rule.
#ifndef VDL_TRAIN_COLUMN_STATS_H
#define VDL_TRAIN_COLUMN_STATS_H

#include <initializer_list>

#include "column_kernels.h"
#include "vdlargcheck.h"
#include "vdlflags.h"
#include "vdlround.h"
#include "vdlrows.h"
#include "vdlscratch.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class Rows>
VdlStatus checkMatrix(const Rows& rows, int height, int width)
{
    return firstError({checkSize(width, height), rows.nullCheck(height), rows.stepCheck(width)});
}

template <class T>
const ColumnKernels<T>& sums()
{
    return trainKernels().columns<T>();
}

// Column sums of the data, or sums of squares about `center` (null: zero).
template <class T, class Rows>
void columnSums(const Rows& rows, int height, int width, double* acc)
{
    sums<T>().sum(rows.ref(), height, width, acc);
}

template <class T, class Rows>
void columnSquares(const Rows& rows, int height, int width, const double* center, double* acc)
{
    sums<T>().sumSq(rows.ref(), height, width, center, acc);
}

// `count` results of a call over a matrix that also takes the pointers
// `ptrs`: fill(acc) computes them in double, and each is scaled into pDst.
template <class D, class Rows, class Fill>
VdlStatus scaledResults(std::initializer_list<const void*> ptrs, const Rows& rows, int height,
                        int width, D* pDst, int count, int scaleFactor, const Fill& fill)
{
    if (VdlStatus s = firstError({checkPtrs(ptrs), checkMatrix(rows, height, width)}))
        return s;
    Scratch acc(count);
    if (!acc.ok())
        return vdlStsNoMemErr;
    fill(acc.data());
    for (int k = 0; k < count; ++k)
        pDst[k] = scaled<D>(acc[k], scaleFactor);
    return vdlStsNoErr;
}

// Column means, and the variance about them or about a given mean.
template <class T, class M, class Rows>
VdlStatus meanColumn(const Rows& rows, int height, M* pMean, int width)
{
    return scaledResults({pMean}, rows, height, width, pMean, width, 0, [&](double* acc) {
        columnSums<T>(rows, height, width, acc);
        for (int k = 0; k < width; ++k)
            acc[k] /= height;
    });
}

template <class T, class V, class Rows>
VdlStatus varColumn(const Rows& rows, int height, const T* pMean, V* pVar, int width,
                    int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pMean, pVar}), checkMatrix(rows, height, width)}))
        return s;
    Scratch center(width), acc(width);
    if (!center.ok() || !acc.ok())
        return vdlStsNoMemErr;
    for (int k = 0; k < width; ++k)
        center[k] = pMean[k];
    columnSquares<T>(rows, height, width, center.data(), acc.data());
    for (int k = 0; k < width; ++k)
        pVar[k] = scaled<V>(acc[k] / height, scaleFactor);
    return vdlStsNoErr;
}

template <class T, class M, class V, class Rows>
VdlStatus meanVarColumn(const Rows& rows, int height, M* pMean, V* pVar, int width,
                        int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pMean, pVar}), checkMatrix(rows, height, width)}))
        return s;
    Scratch mean(width), acc(width);
    if (!mean.ok() || !acc.ok())
        return vdlStsNoMemErr;
    columnSums<T>(rows, height, width, mean.data());
    for (int k = 0; k < width; ++k)
        mean[k] /= height;
    columnSquares<T>(rows, height, width, mean.data(), acc.data());
    for (int k = 0; k < width; ++k) {
        pMean[k] = toResult<M>(mean[k]);
        pVar[k] = scaled<V>(acc[k] / height, scaleFactor);
    }
    return vdlStsNoErr;
}

// Weighted forms: the weight sum must not be zero. A refusal puts back the
// floating-point flags that the sum may have raised.
template <class T>
VdlStatus weightSum(const T* pWgt, int height, double& total)
{
    const FlagKeeper flags;
    total = 0;
    for (int i = 0; i < height; ++i)
        total += pWgt[i];
    return total != 0 ? vdlStsNoErr : flags.restore(vdlStsDivByZeroErr);
}

// Weighted mean into pMean (if not null), weighted variance into pVar (if
// not null) about pSrcMean or, without it, about the weighted mean.
// `required` are the pointers the form must have.
template <class T, class Rows>
VdlStatus weightedColumn(const Rows& rows, const T* pWgt, int height, T* pMean, const T* pSrcMean,
                         T* pVar, int width, std::initializer_list<const void*> required)
{
    if (VdlStatus s = firstError({checkPtrs(required), checkPtrs({pWgt}),
                                  checkMatrix(rows, height, width)}))
        return s;
    Scratch mean(width), acc(width);
    if (!mean.ok() || !acc.ok())
        return vdlStsNoMemErr;
    double total = 0;
    if (VdlStatus s = weightSum(pWgt, height, total))
        return s;
    if (pSrcMean) {
        for (int k = 0; k < width; ++k)
            mean[k] = pSrcMean[k];
    } else {
        sums<T>().wsum(rows.ref(), pWgt, height, width, mean.data());
        for (int k = 0; k < width; ++k)
            mean[k] /= total;
    }
    if (pVar)
        sums<T>().wsumSq(rows.ref(), pWgt, height, width, mean.data(), acc.data());
    for (int k = 0; k < width; ++k) {
        if (pMean)
            pMean[k] = static_cast<T>(mean[k]);
        if (pVar)
            pVar[k] = static_cast<T>(acc[k] / total);
    }
    return vdlStsNoErr;
}

// Sums of the matrix, one per column (byColumn) or one per row, scaled
// into D.
template <class T, class D, class Rows>
VdlStatus sumLines(const Rows& rows, int height, int width, D* pDst, int scaleFactor,
                   bool byColumn)
{
    const int count = byColumn ? width : height;
    return scaledResults({pDst}, rows, height, width, pDst, count, scaleFactor, [&](double* acc) {
        if (byColumn)
            columnSums<T>(rows, height, width, acc);
        else
            sums<T>().rowSums(rows.ref(), height, width, acc);
    });
}

// Sums and sums of squares per column, written (accumulate false) or added
// to what the destinations hold.
template <class T, class D, class Rows>
VdlStatus sumMeanVar(const Rows& rows, int height, D* pSum, D* pSqr, int width, int scaleFactor,
                     bool accumulate)
{
    if (VdlStatus s = firstError({checkPtrs({pSum, pSqr}), checkMatrix(rows, height, width)}))
        return s;
    Scratch sum(width), sqr(width), zero(width);
    if (!sum.ok() || !sqr.ok() || !zero.ok())
        return vdlStsNoMemErr;
    columnSums<T>(rows, height, width, sum.data());
    columnSquares<T>(rows, height, width, zero.data(), sqr.data());
    const double f = scaleOf(scaleFactor);
    for (int k = 0; k < width; ++k) {
        const double s0 = accumulate ? static_cast<double>(pSum[k]) : 0.0;
        const double q0 = accumulate ? static_cast<double>(pSqr[k]) : 0.0;
        pSum[k] = toResult<D>(s0 + sum[k] * f);
        pSqr[k] = toResult<D>(q0 + sqr[k] * f);
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
