// Element and row primitives of feature normalisation: reciprocal square
// roots, column normalisation, row subtraction, column sums added to a row,
// and the copy of columns picked by an index list.
#include <cmath>

#include "column_stats.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// pDst[k] = 2^-scaleFactor / sqrt(max(pSrc[k], val)).
template <class T, class D>
VdlStatus recSqrt(const T* pSrc, D* pDst, int len, T val, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    if (VdlStatus s = checkPositive(val))
        return s;
    const double f = scaleOf(scaleFactor);
    for (int k = 0; k < len; ++k) {
        const T x = pSrc[k] > val ? pSrc[k] : val;
        pDst[k] = toResult<D>(f / std::sqrt(static_cast<double>(x)));
    }
    return vdlStsNoErr;
}

template <>
VdlStatus recSqrt(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f val, int)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    if (VdlStatus s = checkPositive(val))
        return s;
    for (int k = 0; k < len; ++k)
        pDst[k] = 1.0f / std::sqrt(pSrc[k] > val ? pSrc[k] : val);
    return vdlStsNoErr;
}

template <class T, class Rows>
VdlStatus normalizeColumn(const Rows& rows, int height, const T* pMean, const T* pScale, int width,
                          int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pMean, pScale}), checkMatrix(rows, height, width)}))
        return s;
    const double f = scaleOf(scaleFactor);
    for (int i = 0; i < height; ++i) {
        T* x = rows.row(i);
        for (int k = 0; k < width; ++k)
            x[k] = toResult<T>((static_cast<double>(x[k]) - pMean[k]) * pScale[k] * f);
    }
    return vdlStsNoErr;
}

template <class T, class Rows>
VdlStatus subRow(const T* pSrc, const Rows& rows, int width, int height)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc}), checkMatrix(rows, height, width)}))
        return s;
    for (int i = 0; i < height; ++i) {
        T* x = rows.row(i);
        for (int k = 0; k < width; ++k)
            x[k] = toResult<T>(static_cast<double>(x[k]) - pSrc[k]);
    }
    return vdlStsNoErr;
}

template <class Rows>
VdlStatus addAllRowSum(const Rows& rows, int height, Vdl32f* pSrcDst, int width)
{
    if (VdlStatus s = firstError({checkPtrs({pSrcDst}), checkMatrix(rows, height, width)}))
        return s;
    Scratch acc(width);
    if (!acc.ok())
        return vdlStsNoMemErr;
    columnSums<Vdl32f>(rows, height, width, acc.data());
    for (int k = 0; k < width; ++k)
        pSrcDst[k] = static_cast<Vdl32f>(pSrcDst[k] + acc[k]);
    return vdlStsNoErr;
}

template <class T, class Src, class Dst>
VdlStatus copyColumnIndirect(const Src& src, int srcLen, const Dst& dst, const Vdl32s* pIndx,
                             int dstLen, int height)
{
    if (VdlStatus s = firstError({checkPtrs({pIndx}), checkMatrix(src, height, srcLen),
                                  checkMatrix(dst, height, dstLen)}))
        return s;
    for (int k = 0; k < dstLen; ++k)
        if (VdlStatus s = checkRange(pIndx[k], 0, srcLen - 1))
            return s;
    for (int i = 0; i < height; ++i) {
        const T* from = src.row(i);
        T* to = dst.row(i);
        for (int k = 0; k < dstLen; ++k)
            to[k] = from[pIndx[k]];
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsRecSqrt_32f(Vdl32f* pSrcDst, int len, Vdl32f val)
{
    return recSqrt(pSrcDst, pSrcDst, len, val, 0);
}

VdlStatus vdlsRecSqrt_32s_Sfs(Vdl32s* pSrcDst, int len, Vdl32s val, int scaleFactor)
{
    return recSqrt(pSrcDst, pSrcDst, len, val, scaleFactor);
}

VdlStatus vdlsRecSqrt_32s16s_Sfs(const Vdl32s* pSrc, Vdl16s* pDst, int len, Vdl32s val, int scaleFactor)
{
    return recSqrt(pSrc, pDst, len, val, scaleFactor);
}

VdlStatus vdlsNormalizeColumn_32f_D2(Vdl32f* pSrcDst, int step, int height, const Vdl32f* pMean,
                                     const Vdl32f* pScale, int width)
{
    return normalizeColumn(WritableStepRows<Vdl32f>(pSrcDst, step), height, pMean, pScale, width, 0);
}

VdlStatus vdlsNormalizeColumn_32f_D2L(Vdl32f* const* ppSrcDst, int height, const Vdl32f* pMean,
                                      const Vdl32f* pScale, int width)
{
    return normalizeColumn(WritableTableRows<Vdl32f>(ppSrcDst), height, pMean, pScale, width, 0);
}

VdlStatus vdlsNormalizeColumn_16s_D2Sfs(Vdl16s* pSrcDst, int step, int height, const Vdl16s* pMean,
                                        const Vdl16s* pScale, int width, int scaleFactor)
{
    return normalizeColumn(WritableStepRows<Vdl16s>(pSrcDst, step), height, pMean, pScale, width,
                           scaleFactor);
}

VdlStatus vdlsNormalizeColumn_16s_D2LSfs(Vdl16s* const* ppSrcDst, int height, const Vdl16s* pMean,
                                         const Vdl16s* pScale, int width, int scaleFactor)
{
    return normalizeColumn(WritableTableRows<Vdl16s>(ppSrcDst), height, pMean, pScale, width,
                           scaleFactor);
}

VdlStatus vdlsSubRow_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int step, int height)
{
    return subRow(pSrc, WritableStepRows<Vdl32f>(pSrcDst, step), width, height);
}

VdlStatus vdlsSubRow_32f_D2L(const Vdl32f* pSrc, Vdl32f* const* ppSrcDst, int width, int height)
{
    return subRow(pSrc, WritableTableRows<Vdl32f>(ppSrcDst), width, height);
}

VdlStatus vdlsSubRow_16s_D2(const Vdl16s* pSrc, int width, Vdl16s* pSrcDst, int step, int height)
{
    return subRow(pSrc, WritableStepRows<Vdl16s>(pSrcDst, step), width, height);
}

VdlStatus vdlsSubRow_16s_D2L(const Vdl16s* pSrc, Vdl16s* const* ppSrcDst, int width, int height)
{
    return subRow(pSrc, WritableTableRows<Vdl16s>(ppSrcDst), width, height);
}

VdlStatus vdlsAddAllRowSum_32f_D2(const Vdl32f* pSrc, int step, int height, Vdl32f* pSrcDst, int width)
{
    return addAllRowSum(StepRows<Vdl32f>(pSrc, step), height, pSrcDst, width);
}

VdlStatus vdlsAddAllRowSum_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pSrcDst, int width)
{
    return addAllRowSum(TableRows<Vdl32f>(ppSrc), height, pSrcDst, width);
}

VdlStatus vdlsCopyColumn_Indirect_64f_D2(const Vdl64f* pSrc, int srcLen, int srcStep, Vdl64f* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height)
{
    return copyColumnIndirect<Vdl64f>(StepRows<Vdl64f>(pSrc, srcStep), srcLen,
                                      WritableStepRows<Vdl64f>(pDst, dstStep), pIndx, dstLen, height);
}

VdlStatus vdlsCopyColumn_Indirect_32f_D2(const Vdl32f* pSrc, int srcLen, int srcStep, Vdl32f* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height)
{
    return copyColumnIndirect<Vdl32f>(StepRows<Vdl32f>(pSrc, srcStep), srcLen,
                                      WritableStepRows<Vdl32f>(pDst, dstStep), pIndx, dstLen, height);
}

VdlStatus vdlsCopyColumn_Indirect_16s_D2(const Vdl16s* pSrc, int srcLen, int srcStep, Vdl16s* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height)
{
    return copyColumnIndirect<Vdl16s>(StepRows<Vdl16s>(pSrc, srcStep), srcLen,
                                      WritableStepRows<Vdl16s>(pDst, dstStep), pIndx, dstLen, height);
}

VdlStatus vdlsCopyColumn_Indirect_64f_D2L(const Vdl64f* const* ppSrc, int srcLen, Vdl64f* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height)
{
    return copyColumnIndirect<Vdl64f>(TableRows<Vdl64f>(ppSrc), srcLen,
                                      WritableTableRows<Vdl64f>(ppDst), pIndx, dstLen, height);
}

VdlStatus vdlsCopyColumn_Indirect_32f_D2L(const Vdl32f* const* ppSrc, int srcLen, Vdl32f* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height)
{
    return copyColumnIndirect<Vdl32f>(TableRows<Vdl32f>(ppSrc), srcLen,
                                      WritableTableRows<Vdl32f>(ppDst), pIndx, dstLen, height);
}

VdlStatus vdlsCopyColumn_Indirect_16s_D2L(const Vdl16s* const* ppSrc, int srcLen, Vdl16s* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height)
{
    return copyColumnIndirect<Vdl16s>(TableRows<Vdl16s>(ppSrc), srcLen,
                                      WritableTableRows<Vdl16s>(ppDst), pIndx, dstLen, height);
}

} // extern "C"
