// Model updates from accumulated sums: variances with a floor, means,
// mixture weights, Gaussian constants and the per-component values of the
// scoring functions; the accumulation and likelihood of decision-tree
// clusters; weighted sums of two vectors.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

constexpr double log2Pi = 1.8378770664093454836;

// max(sqr * invOcc - (sum * invOcc)^2, floor) * 2^-scaleFactor as D.
template <class T, class D>
VdlStatus newVar(const T* pSum, const T* pSqr, D* pDst, int len, float invOcc, float varFloor,
                 int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSum, pSqr, pDst}), checkLen(len)}))
        return s;
    const double f = scaleOf(scaleFactor);
    for (int k = 0; k < len; ++k) {
        const double mean = static_cast<double>(pSum[k]) * invOcc;
        const double var = static_cast<double>(pSqr[k]) * invOcc - mean * mean;
        pDst[k] = toResult<D>((var > varFloor ? var : static_cast<double>(varFloor)) * f);
    }
    return vdlStsNoErr;
}

template <class T>
VdlStatus updateMean(const T* pMeanAcc, T* pMean, int len, T occ)
{
    if (VdlStatus s = firstError({checkPtrs({pMeanAcc, pMean}), checkLen(len), checkPositive(occ)}))
        return s;
    for (int k = 0; k < len; ++k)
        pMean[k] = pMeanAcc[k] / occ;
    return vdlStsNoErr;
}

template <class T>
VdlStatus updateVar(const T* pMeanAcc, const T* pVarAcc, const T* pVarFloor, T* pVar, int len, T occ,
                    T floorScale)
{
    if (VdlStatus s = firstError({checkPtrs({pMeanAcc, pVarAcc, pVarFloor, pVar}), checkLen(len),
                                  checkPositive(occ)}))
        return s;
    for (int k = 0; k < len; ++k) {
        const T mean = pMeanAcc[k] / occ;
        const T var = pVarAcc[k] / occ - mean * mean;
        const T floor = floorScale * pVarFloor[k];
        pVar[k] = var > floor ? var : floor;
    }
    return vdlStsNoErr;
}

template <class T>
VdlStatus updateWeight(const T* pOcc, T* pWgt, int len, T* pSumWgt, T wgtFloor, T totalOcc)
{
    if (VdlStatus s = firstError({checkPtrs({pOcc, pWgt, pSumWgt}), checkLen(len),
                                  checkPositive(totalOcc)}))
        return s;
    double sum = 0;
    for (int k = 0; k < len; ++k) {
        const T w = pOcc[k] / totalOcc;
        pWgt[k] = w > wgtFloor ? w : wgtFloor;
        sum += pWgt[k];
    }
    *pSumWgt = static_cast<T>(sum);
    return vdlStsNoErr;
}

// precisions: the row holds 1 / variance.
template <class T>
VdlStatus updateGConst(const T* pVar, int len, T* pDst, bool precisions)
{
    if (VdlStatus s = firstError({checkPtrs({pVar, pDst}), checkLen(len)}))
        return s;
    if (VdlStatus s = checkPositive(pVar, len))
        return s;
    double logDet = 0;
    for (int k = 0; k < len; ++k)
        logDet += std::log(static_cast<double>(pVar[k]));
    if (precisions)
        logDet = -logDet;
    *pDst = static_cast<T>(-0.5 * (len * log2Pi + logDet));
    return vdlStsNoErr;
}

template <class T>
VdlStatus outProbPreCalc(const T* pLogWgt, const T* pGConst, T* pVal, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pLogWgt, pGConst, pVal}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k)
        pVal[k] = toResult<T>(static_cast<double>(pLogWgt[k]) + static_cast<double>(pGConst[k]));
    return vdlStsNoErr;
}

// The sums of a cluster; `precisions` as in updateGConst.
template <class T>
VdlStatus dcsAccumulate(const T* pMean, const T* pVar, T* pSum, T* pSqr, int len, T occ,
                        bool precisions)
{
    if (VdlStatus s = firstError({checkPtrs({pMean, pVar, pSum, pSqr}), checkLen(len)}))
        return s;
    if (precisions)
        if (VdlStatus s = checkPositive(pVar, len))
            return s;
    for (int k = 0; k < len; ++k) {
        const T var = precisions ? T(1) / pVar[k] : pVar[k];
        pSum[k] += occ * pMean[k];
        pSqr[k] += occ * (var + pMean[k] * pMean[k]);
    }
    return vdlStsNoErr;
}

template <class T>
VdlStatus dcsCompute(const T* pSum, const T* pSqr, int len, Vdl64f* pDst, T occ)
{
    if (VdlStatus s = firstError({checkPtrs({pSum, pSqr, pDst}), checkLen(len), checkPositive(occ)}))
        return s;
    const double n = occ;
    double logDet = 0;
    for (int k = 0; k < len; ++k) {
        const double mean = pSum[k] / n;
        const double var = pSqr[k] / n - mean * mean;
        logDet += std::log(var > 1e-300 ? var : 1e-300);
    }
    *pDst = -0.5 * n * (len * (1 + log2Pi) + logDet);
    return vdlStsNoErr;
}

template <class T, class W>
VdlStatus weightedSum(const T* pSrc1, const T* pSrc2, T* pDst, int len, W w1, W w2, double factor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc1, pSrc2, pDst}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k) {
        const double v = factor * (static_cast<double>(w1) * pSrc1[k] + static_cast<double>(w2) * pSrc2[k]);
        pDst[k] = toResult<T>(v);
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsNewVar_32f(const Vdl32f* pSrcMean, const Vdl32f* pSrcVar, Vdl32f* pDstVar, int len,
                         Vdl32f invOcc, Vdl32f varFloor)
{
    return newVar(pSrcMean, pSrcVar, pDstVar, len, invOcc, varFloor, 0);
}

VdlStatus vdlsNewVar_32f_I(const Vdl32f* pSrcMean, Vdl32f* pSrcDstVar, int len, Vdl32f invOcc,
                           Vdl32f varFloor)
{
    return newVar(pSrcMean, pSrcDstVar, pSrcDstVar, len, invOcc, varFloor, 0);
}

VdlStatus vdlsNewVar_32s_Sfs(const Vdl32s* pSrcMean, const Vdl32s* pSrcVar, Vdl32s* pDstVar, int len,
                             Vdl32f invOcc, Vdl32f varFloor, int scaleFactor)
{
    return newVar(pSrcMean, pSrcVar, pDstVar, len, invOcc, varFloor, scaleFactor);
}

VdlStatus vdlsNewVar_32s_ISfs(const Vdl32s* pSrcMean, Vdl32s* pSrcDstVar, int len, Vdl32f invOcc,
                              Vdl32f varFloor, int scaleFactor)
{
    return newVar(pSrcMean, pSrcDstVar, pSrcDstVar, len, invOcc, varFloor, scaleFactor);
}

VdlStatus vdlsUpdateMean_32f(const Vdl32f* pMeanAcc, Vdl32f* pMean, int len, Vdl32f occ)
{
    return updateMean(pMeanAcc, pMean, len, occ);
}

VdlStatus vdlsUpdateMean_64f(const Vdl64f* pMeanAcc, Vdl64f* pMean, int len, Vdl64f occ)
{
    return updateMean(pMeanAcc, pMean, len, occ);
}

VdlStatus vdlsUpdateVar_32f(const Vdl32f* pMeanAcc, const Vdl32f* pVarAcc, const Vdl32f* pVarFloor,
                            Vdl32f* pVar, int len, Vdl32f occ, Vdl32f floorScale)
{
    return updateVar(pMeanAcc, pVarAcc, pVarFloor, pVar, len, occ, floorScale);
}

VdlStatus vdlsUpdateVar_64f(const Vdl64f* pMeanAcc, const Vdl64f* pVarAcc, const Vdl64f* pVarFloor,
                            Vdl64f* pVar, int len, Vdl64f occ, Vdl64f floorScale)
{
    return updateVar(pMeanAcc, pVarAcc, pVarFloor, pVar, len, occ, floorScale);
}

VdlStatus vdlsUpdateWeight_32f(const Vdl32f* pOcc, Vdl32f* pWgt, int len, Vdl32f* pSumWgt,
                               Vdl32f wgtFloor, Vdl32f totalOcc)
{
    return updateWeight(pOcc, pWgt, len, pSumWgt, wgtFloor, totalOcc);
}

VdlStatus vdlsUpdateWeight_64f(const Vdl64f* pOcc, Vdl64f* pWgt, int len, Vdl64f* pSumWgt,
                               Vdl64f wgtFloor, Vdl64f totalOcc)
{
    return updateWeight(pOcc, pWgt, len, pSumWgt, wgtFloor, totalOcc);
}

VdlStatus vdlsUpdateGConst_32f(const Vdl32f* pVar, int len, Vdl32f* pDst)
{
    return updateGConst(pVar, len, pDst, true);
}

VdlStatus vdlsUpdateGConst_64f(const Vdl64f* pVar, int len, Vdl64f* pDst)
{
    return updateGConst(pVar, len, pDst, true);
}

VdlStatus vdlsUpdateGConst_DirectVar_32f(const Vdl32f* pVar, int len, Vdl32f* pDst)
{
    return updateGConst(pVar, len, pDst, false);
}

VdlStatus vdlsUpdateGConst_DirectVar_64f(const Vdl64f* pVar, int len, Vdl64f* pDst)
{
    return updateGConst(pVar, len, pDst, false);
}

VdlStatus vdlsOutProbPreCalc_32f(const Vdl32f* pLogWgt, const Vdl32f* pGConst, Vdl32f* pVal, int len)
{
    return outProbPreCalc(pLogWgt, pGConst, pVal, len);
}

VdlStatus vdlsOutProbPreCalc_64f(const Vdl64f* pLogWgt, const Vdl64f* pGConst, Vdl64f* pVal, int len)
{
    return outProbPreCalc(pLogWgt, pGConst, pVal, len);
}

VdlStatus vdlsOutProbPreCalc_32s(const Vdl32s* pLogWgt, const Vdl32s* pGConst, Vdl32s* pVal, int len)
{
    return outProbPreCalc(pLogWgt, pGConst, pVal, len);
}

VdlStatus vdlsOutProbPreCalc_32f_I(const Vdl32f* pLogWgt, Vdl32f* pSrcDstVal, int len)
{
    return outProbPreCalc(pLogWgt, pSrcDstVal, pSrcDstVal, len);
}

VdlStatus vdlsOutProbPreCalc_64f_I(const Vdl64f* pLogWgt, Vdl64f* pSrcDstVal, int len)
{
    return outProbPreCalc(pLogWgt, pSrcDstVal, pSrcDstVal, len);
}

VdlStatus vdlsOutProbPreCalc_32s_I(const Vdl32s* pLogWgt, Vdl32s* pSrcDstVal, int len)
{
    return outProbPreCalc(pLogWgt, pSrcDstVal, pSrcDstVal, len);
}

VdlStatus vdlsDcsClustLAccumulate_32f(const Vdl32f* pMean, const Vdl32f* pVar, Vdl32f* pDstSum,
                                      Vdl32f* pDstSqr, int len, Vdl32f occ)
{
    return dcsAccumulate(pMean, pVar, pDstSum, pDstSqr, len, occ, true);
}

VdlStatus vdlsDcsClustLAccumulate_64f(const Vdl64f* pMean, const Vdl64f* pVar, Vdl64f* pDstSum,
                                      Vdl64f* pDstSqr, int len, Vdl64f occ)
{
    return dcsAccumulate(pMean, pVar, pDstSum, pDstSqr, len, occ, true);
}

VdlStatus vdlsDcsClustLAccumulate_DirectVar_32f(const Vdl32f* pMean, const Vdl32f* pVar,
                                                Vdl32f* pDstSum, Vdl32f* pDstSqr, int len,
                                                Vdl32f occ)
{
    return dcsAccumulate(pMean, pVar, pDstSum, pDstSqr, len, occ, false);
}

VdlStatus vdlsDcsClustLAccumulate_DirectVar_64f(const Vdl64f* pMean, const Vdl64f* pVar,
                                                Vdl64f* pDstSum, Vdl64f* pDstSqr, int len,
                                                Vdl64f occ)
{
    return dcsAccumulate(pMean, pVar, pDstSum, pDstSqr, len, occ, false);
}

VdlStatus vdlsDcsClustLCompute_32f64f(const Vdl32f* pSum, const Vdl32f* pSqr, int len, Vdl64f* pDst,
                                      Vdl32f occ)
{
    return dcsCompute(pSum, pSqr, len, pDst, occ);
}

VdlStatus vdlsDcsClustLCompute_64f(const Vdl64f* pSum, const Vdl64f* pSqr, int len, Vdl64f* pDst,
                                   Vdl64f occ)
{
    return dcsCompute(pSum, pSqr, len, pDst, occ);
}

VdlStatus vdlsWeightedSum_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len,
                              Vdl32f w1, Vdl32f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 1.0);
}

VdlStatus vdlsWeightedSum_64f(const Vdl64f* pSrc1, const Vdl64f* pSrc2, Vdl64f* pDst, int len,
                              Vdl64f w1, Vdl64f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 1.0);
}

VdlStatus vdlsWeightedSum_16s(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst, int len,
                              Vdl32f w1, Vdl32f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 1.0);
}

VdlStatus vdlsWeightedSumHalf_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len,
                                  Vdl32f w1, Vdl32f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 0.5);
}

VdlStatus vdlsWeightedSumHalf_64f(const Vdl64f* pSrc1, const Vdl64f* pSrc2, Vdl64f* pDst, int len,
                                  Vdl64f w1, Vdl64f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 0.5);
}

VdlStatus vdlsWeightedSumHalf_16s(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst, int len,
                                  Vdl32f w1, Vdl32f w2)
{
    return weightedSum(pSrc1, pSrc2, pDst, len, w1, w2, 0.5);
}

} // extern "C"
