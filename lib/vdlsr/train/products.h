// Matrix-vector products and the covariance accumulation over rows in
// either layout. Products sum in double and are rounded once to D; integer
// sums are exact while they stay below 2^53 (always for 16-bit data).
#ifndef VDL_TRAIN_PRODUCTS_H
#define VDL_TRAIN_PRODUCTS_H

#include "column_stats.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// pDst[i] = sum over k of M[i][k] v[k].
template <class T, class D, class Rows>
VdlStatus matVecMul(const Rows& m, const T* pVec, int width, D* pDst, int height, int scaleFactor)
{
    return scaledResults({pVec, pDst}, m, height, width, pDst, height, scaleFactor,
                         [&](double* acc) { sums<T>().rowDots(m.ref(), pVec, height, width, acc); });
}

// pDst[k] = sum over i of v[i] M[i][k]: the rows weighted by v, summed.
template <class T, class D, class Rows>
VdlStatus vecMatMul(const T* pVec, const Rows& m, int height, D* pDst, int width, int scaleFactor)
{
    return scaledResults({pVec, pDst}, m, height, width, pDst, width, scaleFactor,
                         [&](double* acc) { sums<T>().wsum(m.ref(), pVec, height, width, acc); });
}

// dst[i][j] += val * sum over n of (x_ni - mean_i)(x_nj - mean_j).
template <class T, class Rows, class DstRows>
VdlStatus accCovariance(const Rows& src, int height, const Vdl64f* pMean, const DstRows& dst,
                        int width, Vdl64f val)
{
    if (VdlStatus s = firstError({checkPtrs({pMean}), checkMatrix(src, height, width),
                                  checkMatrix(dst, width, width)}))
        return s;
    // The work triangle is counted in int elements.
    if (width > 46340)
        return vdlStsSizeErr;
    Scratch d(width), acc(width * width);
    if (!d.ok() || !acc.ok())
        return vdlStsNoMemErr;
    // The sums are symmetric: the upper triangle is summed, both halves added.
    sums<T>().outerSums(src.ref(), height, pMean, val, width, acc.data(), d.data());
    for (int i = 0; i < width; ++i) {
        Vdl64f* out = dst.row(i);
        for (int j = 0; j < width; ++j)
            out[j] += i <= j ? acc[i * width + j] : acc[j * width + i];
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
