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
    if (VdlStatus s = firstError({checkPtrs({pVec, pDst}), checkMatrix(m, height, width)}))
        return s;
    for (int i = 0; i < height; ++i) {
        const T* row = m.row(i);
        double acc = 0;
        for (int k = 0; k < width; ++k)
            acc += static_cast<double>(row[k]) * static_cast<double>(pVec[k]);
        pDst[i] = scaled<D>(acc, scaleFactor);
    }
    return vdlStsNoErr;
}

// pDst[k] = sum over i of v[i] M[i][k]: the rows weighted by v, summed.
template <class T, class D, class Rows>
VdlStatus vecMatMul(const T* pVec, const Rows& m, int height, D* pDst, int width, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pVec, pDst}), checkMatrix(m, height, width)}))
        return s;
    WorkDoubles acc(width);
    if (!acc.ok())
        return vdlStsNoMemErr;
    sums<T>().wsum(m.ref(), pVec, height, width, acc.data());
    for (int k = 0; k < width; ++k)
        pDst[k] = scaled<D>(acc[k], scaleFactor);
    return vdlStsNoErr;
}

// dst[i][j] += val * sum over n of (x_ni - mean_i)(x_nj - mean_j).
template <class T, class Rows, class DstRows>
VdlStatus accCovariance(const Rows& src, int height, const Vdl64f* pMean, const DstRows& dst,
                        int width, Vdl64f val)
{
    if (VdlStatus s = firstError({checkPtrs({pMean}), checkMatrix(src, height, width),
                                  checkMatrix(dst, width, width)}))
        return s;
    WorkDoubles d(width);
    if (!d.ok())
        return vdlStsNoMemErr;
    for (int n = 0; n < height; ++n) {
        const T* x = src.row(n);
        for (int k = 0; k < width; ++k)
            d[k] = static_cast<double>(x[k]) - pMean[k];
        for (int i = 0; i < width; ++i) {
            Vdl64f* out = dst.row(i);
            const double di = val * d[i];
            for (int j = 0; j < width; ++j)
                out[j] += di * d[j];
        }
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
