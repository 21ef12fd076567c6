/* Model-training functions of the Vdl Primitives: statistics, updates, products. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_TRAIN_H
#define VDLSR_TRAIN_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Conventions of the family ----
 *
 * A matrix has `height` rows of `width` elements. _D2 rows lie in one buffer
 * `step` elements apart (step >= width); _D2L rows are given by a table of
 * `height` row pointers. Column statistics run over the rows of each column,
 * row statistics over the columns of each row.
 *
 * Sums of float data run in double, whatever the result type, so every
 * statistic is the double value rounded once to the result; the order of the
 * additions may depend on the code path in force (vdlGetCodePath), within a
 * relative error of height * 1.2e-16. Sums of integer data are exact.
 *
 * A variance is the mean of the squared deviations (divided by height, not
 * height - 1). Where a function computes the mean itself, the deviations are
 * taken from the exact mean, not from the rounded one it writes.
 *
 * Integer results: the exact value times 2^-scaleFactor, rounded to nearest
 * with halves away from zero, saturated to the result type. In the statistics
 * the scale factor applies to variances and sums; a mean is the rounded mean
 * of the data. Forms without Sfs round with scale factor 0.
 *
 * Precisions: as in the Gaussian family a "variance" row of a plain form
 * holds precisions (1 / variance); a DirectVar form takes variances.
 *
 * Every function checks its arguments before it writes anything or does any
 * floating-point operation, and returns at once: vdlStsNullPtrErr for a null
 * pointer (a null row of a _D2L table too), vdlStsSizeErr for a width,
 * height or length below 1, vdlStsStepErr for a step below the width,
 * vdlStsOutOfRangeErr for a row, column or index outside the matrix,
 * vdlStsBadArgErr for a value outside its domain (named at the function).
 */

/* ---- Sums of selected rows ---- */

/* For each i below count, adds to pDst, over width elements, row offset + pInd[i]
 * of pSrc plus weight times row offset + pAddInd[i]: pSrc has `height` rows
 * `step` elements apart. All indexed rows are checked first; one outside
 * 0 .. height - 1 gives vdlStsOutOfRangeErr and nothing is written. */
VdlStatus vdlsAddNRows_32f_D2(const Vdl32f* pSrc, int height, int offset, int step,
                              const Vdl32s* pInd, const Vdl16u* pAddInd, int count, Vdl32f* pDst,
                              int width, Vdl32f weight);

/* ---- Column means and variances ---- */

/* pDstMean[k] = mean over the rows of column k. */
VdlStatus vdlsMeanColumn_32f_D2(const Vdl32f* pSrc, int height, int step, Vdl32f* pDstMean, int width);
VdlStatus vdlsMeanColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDstMean, int width);
/* The same, the mean rounded to 16 bits. */
VdlStatus vdlsMeanColumn_16s_D2(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean, int width);
VdlStatus vdlsMeanColumn_16s_D2L(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean, int width);

/* pDstVar[k] = mean over the rows of (x - pSrcMean[k])^2, pSrcMean given. */
VdlStatus vdlsVarColumn_32f_D2(const Vdl32f* pSrc, int height, int step, const Vdl32f* pSrcMean,
                               Vdl32f* pDstVar, int width);
VdlStatus vdlsVarColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, const Vdl32f* pSrcMean,
                                Vdl32f* pDstVar, int width);
/* The same for 16-bit data; the variance scaled and rounded to 16 bits. */
VdlStatus vdlsVarColumn_16s_D2Sfs(const Vdl16s* pSrc, int height, int step, const Vdl16s* pSrcMean,
                                  Vdl16s* pDstVar, int width, int scaleFactor);
VdlStatus vdlsVarColumn_16s_D2LSfs(const Vdl16s* const* ppSrc, int height, const Vdl16s* pSrcMean,
                                   Vdl16s* pDstVar, int width, int scaleFactor);

/* Mean and variance of each column in one pass over the data. */
VdlStatus vdlsMeanVarColumn_32f_D2(const Vdl32f* pSrc, int height, int step, Vdl32f* pDstMean,
                                   Vdl32f* pDstVar, int width);
VdlStatus vdlsMeanVarColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDstMean,
                                    Vdl32f* pDstVar, int width);
/* 16-bit mean, 16-bit variance scaled by 2^-scaleFactor. */
VdlStatus vdlsMeanVarColumn_16s_D2Sfs(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean,
                                      Vdl16s* pDstVar, int width, int scaleFactor);
VdlStatus vdlsMeanVarColumn_16s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean,
                                       Vdl16s* pDstVar, int width, int scaleFactor);
/* 32-bit mean, 32-bit variance scaled by 2^-scaleFactor. */
VdlStatus vdlsMeanVarColumn_16s32s_D2Sfs(const Vdl16s* pSrc, int height, int step, Vdl32s* pDstMean,
                                         Vdl32s* pDstVar, int width, int scaleFactor);
VdlStatus vdlsMeanVarColumn_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl32s* pDstMean,
                                          Vdl32s* pDstVar, int width, int scaleFactor);
/* 16-bit mean beside a 32-bit variance, both unscaled. */
VdlStatus vdlsMeanVarColumn_16s16s32s_D2(const Vdl16s* pSrc, int height, int step, Vdl16s* pDstMean,
                                         Vdl32s* pDstVar, int width);
VdlStatus vdlsMeanVarColumn_16s16s32s_D2L(const Vdl16s* const* ppSrc, int height, Vdl16s* pDstMean,
                                          Vdl32s* pDstVar, int width);

/* ---- Weighted column statistics ----
 * Weight pWgt[i] belongs to row i; the weighted mean is sum w x / sum w, the
 * weighted variance sum w (x - mean)^2 / sum w. A weight sum of zero gives
 * vdlStsDivByZeroErr and nothing is written. */

VdlStatus vdlsWeightedMeanColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt, int height,
                                        Vdl32f* pDstMean, int width);
VdlStatus vdlsWeightedMeanColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt, int height,
                                         Vdl32f* pDstMean, int width);
VdlStatus vdlsWeightedMeanColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt, int height,
                                        Vdl64f* pDstMean, int width);
VdlStatus vdlsWeightedMeanColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt, int height,
                                         Vdl64f* pDstMean, int width);
/* Weighted variance about a given mean pSrcMean. */
VdlStatus vdlsWeightedVarColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt, int height,
                                       const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width);
VdlStatus vdlsWeightedVarColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt, int height,
                                        const Vdl32f* pSrcMean, Vdl32f* pDstVar, int width);
VdlStatus vdlsWeightedVarColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt, int height,
                                       const Vdl64f* pSrcMean, Vdl64f* pDstVar, int width);
VdlStatus vdlsWeightedVarColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt, int height,
                                        const Vdl64f* pSrcMean, Vdl64f* pDstVar, int width);
/* Weighted mean and variance about it. */
VdlStatus vdlsWeightedMeanVarColumn_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pWgt,
                                           int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width);
VdlStatus vdlsWeightedMeanVarColumn_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pWgt,
                                            int height, Vdl32f* pDstMean, Vdl32f* pDstVar, int width);
VdlStatus vdlsWeightedMeanVarColumn_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pWgt,
                                           int height, Vdl64f* pDstMean, Vdl64f* pDstVar, int width);
VdlStatus vdlsWeightedMeanVarColumn_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pWgt,
                                            int height, Vdl64f* pDstMean, Vdl64f* pDstVar, int width);

/* ---- Column and row sums ---- */

/* pDst[k] = sum over the rows of column k, for k below width. */
VdlStatus vdlsSumColumn_32f_D2(const Vdl32f* pSrc, int step, int height, Vdl32f* pDst, int width);
VdlStatus vdlsSumColumn_64f_D2(const Vdl64f* pSrc, int step, int height, Vdl64f* pDst, int width);
VdlStatus vdlsSumColumn_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pDst, int width);
VdlStatus vdlsSumColumn_64f_D2L(const Vdl64f* const* ppSrc, int height, Vdl64f* pDst, int width);
VdlStatus vdlsSumColumn_16s32f_D2(const Vdl16s* pSrc, int step, int height, Vdl32f* pDst, int width);
VdlStatus vdlsSumColumn_16s32f_D2L(const Vdl16s* const* ppSrc, int height, Vdl32f* pDst, int width);
VdlStatus vdlsSumColumn_16s32s_D2Sfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pDst,
                                     int width, int scaleFactor);
VdlStatus vdlsSumColumn_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int height, Vdl32s* pDst,
                                      int width, int scaleFactor);
/* pDst[i] = sum over the width elements of row i, for i below height. */
VdlStatus vdlsSumRow_32f_D2(const Vdl32f* pSrc, int width, int step, Vdl32f* pDst, int height);
VdlStatus vdlsSumRow_64f_D2(const Vdl64f* pSrc, int width, int step, Vdl64f* pDst, int height);
VdlStatus vdlsSumRow_32f_D2L(const Vdl32f* const* ppSrc, int width, Vdl32f* pDst, int height);
VdlStatus vdlsSumRow_64f_D2L(const Vdl64f* const* ppSrc, int width, Vdl64f* pDst, int height);
VdlStatus vdlsSumRow_16s32f_D2(const Vdl16s* pSrc, int width, int step, Vdl32f* pDst, int height);
VdlStatus vdlsSumRow_16s32f_D2L(const Vdl16s* const* ppSrc, int width, Vdl32f* pDst, int height);
VdlStatus vdlsSumRow_16s32s_D2Sfs(const Vdl16s* pSrc, int width, int step, Vdl32s* pDst, int height,
                                  int scaleFactor);
VdlStatus vdlsSumRow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, int width, Vdl32s* pDst, int height,
                                   int scaleFactor);

/* Column sums and sums of squares of `height` rows: the plain forms write
 * them to pDstMean and pDstVar, the _I forms add them to what these hold
 * (accumulators carried over calls). The integer forms scale both sums. */
VdlStatus vdlsSumMeanVar_32f(const Vdl32f* pSrc, int step, int height, Vdl32f* pDstMean,
                             Vdl32f* pDstVar, int width);
VdlStatus vdlsSumMeanVar_32f_I(const Vdl32f* pSrc, int step, int height, Vdl32f* pSrcDstMean,
                               Vdl32f* pSrcDstVar, int width);
VdlStatus vdlsSumMeanVar_16s32f(const Vdl16s* pSrc, int step, int height, Vdl32f* pDstMean,
                                Vdl32f* pDstVar, int width);
VdlStatus vdlsSumMeanVar_16s32f_I(const Vdl16s* pSrc, int step, int height, Vdl32f* pSrcDstMean,
                                  Vdl32f* pSrcDstVar, int width);
VdlStatus vdlsSumMeanVar_16s32s_Sfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pDstMean,
                                    Vdl32s* pDstVar, int width, int scaleFactor);
VdlStatus vdlsSumMeanVar_16s32s_ISfs(const Vdl16s* pSrc, int step, int height, Vdl32s* pSrcDstMean,
                                     Vdl32s* pSrcDstVar, int width, int scaleFactor);

/* ---- Covariance ----
 * pDst[i][j] += val * sum over the rows n of (x_ni - pMean[i]) (x_nj - pMean[j]),
 * the full symmetric width x width matrix; srcStep and dstStep in elements. */
VdlStatus vdlsAccCovarianceMatrix_16s64f_D2(const Vdl16s* pSrc, int srcStep, int height,
                                            const Vdl64f* pMean, Vdl64f* pDst, int width,
                                            int dstStep, Vdl64f val);
VdlStatus vdlsAccCovarianceMatrix_32f64f_D2(const Vdl32f* pSrc, int srcStep, int height,
                                            const Vdl64f* pMean, Vdl64f* pDst, int width,
                                            int dstStep, Vdl64f val);
VdlStatus vdlsAccCovarianceMatrix_16s64f_D2L(const Vdl16s* const* ppSrc, int height,
                                             const Vdl64f* pMean, Vdl64f* const* ppDst, int width,
                                             Vdl64f val);
VdlStatus vdlsAccCovarianceMatrix_32f64f_D2L(const Vdl32f* const* ppSrc, int height,
                                             const Vdl64f* pMean, Vdl64f* const* ppDst, int width,
                                             Vdl64f val);

/* ---- Decision-tree clustering ----
 * Accumulate adds a Gaussian of occupancy `occ` to the sums of a cluster:
 * pDstSum += occ * mean, pDstSqr += occ * (variance + mean^2); the plain
 * forms take precisions (which must be positive, else vdlStsBadArgErr),
 * DirectVar forms variances. Compute gives the log-likelihood of the
 * cluster's data under one Gaussian from these sums and the total occupancy
 * occ > 0: -occ/2 * (len (1 + log 2 pi) + sum log var_k) with
 * var_k = pSqr[k]/occ - (pSum[k]/occ)^2; a variance below 1e-300 is taken
 * as 1e-300. */
VdlStatus vdlsDcsClustLAccumulate_32f(const Vdl32f* pMean, const Vdl32f* pVar, Vdl32f* pDstSum,
                                      Vdl32f* pDstSqr, int len, Vdl32f occ);
VdlStatus vdlsDcsClustLAccumulate_64f(const Vdl64f* pMean, const Vdl64f* pVar, Vdl64f* pDstSum,
                                      Vdl64f* pDstSqr, int len, Vdl64f occ);
VdlStatus vdlsDcsClustLAccumulate_DirectVar_32f(const Vdl32f* pMean, const Vdl32f* pVar,
                                                Vdl32f* pDstSum, Vdl32f* pDstSqr, int len,
                                                Vdl32f occ);
VdlStatus vdlsDcsClustLAccumulate_DirectVar_64f(const Vdl64f* pMean, const Vdl64f* pVar,
                                                Vdl64f* pDstSum, Vdl64f* pDstSqr, int len,
                                                Vdl64f occ);
VdlStatus vdlsDcsClustLCompute_32f64f(const Vdl32f* pSum, const Vdl32f* pSqr, int len, Vdl64f* pDst,
                                      Vdl32f occ);
VdlStatus vdlsDcsClustLCompute_64f(const Vdl64f* pSum, const Vdl64f* pSqr, int len, Vdl64f* pDst,
                                   Vdl64f occ);

/* ---- Variance from sums, and model updates ---- */

/* pDstVar[k] = max(pSrcVar[k] * invOcc - (pSrcMean[k] * invOcc)^2, varFloor):
 * the floored variance from the sums of values (pSrcMean) and of squares
 * (pSrcVar) with 1/occupancy invOcc. _I: the sums of squares in pSrcDstVar
 * are replaced by the variance. 32s: floor before scaling. */
VdlStatus vdlsNewVar_32f(const Vdl32f* pSrcMean, const Vdl32f* pSrcVar, Vdl32f* pDstVar, int len,
                         Vdl32f invOcc, Vdl32f varFloor);
VdlStatus vdlsNewVar_32f_I(const Vdl32f* pSrcMean, Vdl32f* pSrcDstVar, int len, Vdl32f invOcc,
                           Vdl32f varFloor);
VdlStatus vdlsNewVar_32s_Sfs(const Vdl32s* pSrcMean, const Vdl32s* pSrcVar, Vdl32s* pDstVar, int len,
                             Vdl32f invOcc, Vdl32f varFloor, int scaleFactor);
VdlStatus vdlsNewVar_32s_ISfs(const Vdl32s* pSrcMean, Vdl32s* pSrcDstVar, int len, Vdl32f invOcc,
                              Vdl32f varFloor, int scaleFactor);

/* pMean[k] = pMeanAcc[k] / occ; occ must be positive (vdlStsBadArgErr). */
VdlStatus vdlsUpdateMean_32f(const Vdl32f* pMeanAcc, Vdl32f* pMean, int len, Vdl32f occ);
VdlStatus vdlsUpdateMean_64f(const Vdl64f* pMeanAcc, Vdl64f* pMean, int len, Vdl64f occ);
/* pVar[k] = max(pVarAcc[k]/occ - (pMeanAcc[k]/occ)^2, floorScale * pVarFloor[k]);
 * occ must be positive. */
VdlStatus vdlsUpdateVar_32f(const Vdl32f* pMeanAcc, const Vdl32f* pVarAcc, const Vdl32f* pVarFloor,
                            Vdl32f* pVar, int len, Vdl32f occ, Vdl32f floorScale);
VdlStatus vdlsUpdateVar_64f(const Vdl64f* pMeanAcc, const Vdl64f* pVarAcc, const Vdl64f* pVarFloor,
                            Vdl64f* pVar, int len, Vdl64f occ, Vdl64f floorScale);
/* Mixture weights from component occupancies: pWgt[k] = max(pOcc[k] / totalOcc,
 * wgtFloor), *pSumWgt = their sum (not renormalised); totalOcc must be positive. */
VdlStatus vdlsUpdateWeight_32f(const Vdl32f* pOcc, Vdl32f* pWgt, int len, Vdl32f* pSumWgt,
                               Vdl32f wgtFloor, Vdl32f totalOcc);
VdlStatus vdlsUpdateWeight_64f(const Vdl64f* pOcc, Vdl64f* pWgt, int len, Vdl64f* pSumWgt,
                               Vdl64f wgtFloor, Vdl64f totalOcc);
/* The constant of a diagonal Gaussian's log-likelihood, the val of the
 * scoring functions without the weight: *pDst = -(len log 2 pi + sum log var_k)/2.
 * Plain forms take precisions, DirectVar forms variances; all must be
 * positive (vdlStsBadArgErr). */
VdlStatus vdlsUpdateGConst_32f(const Vdl32f* pVar, int len, Vdl32f* pDst);
VdlStatus vdlsUpdateGConst_64f(const Vdl64f* pVar, int len, Vdl64f* pDst);
VdlStatus vdlsUpdateGConst_DirectVar_32f(const Vdl32f* pVar, int len, Vdl32f* pDst);
VdlStatus vdlsUpdateGConst_DirectVar_64f(const Vdl64f* pVar, int len, Vdl64f* pDst);
/* The val of each component for the scoring functions: its log weight plus
 * its Gaussian constant, pVal[k] = pLogWgt[k] + pGConst[k]. _I: pVal holds
 * the constants on entry. 32s: the sum saturated to 32 bits. */
VdlStatus vdlsOutProbPreCalc_32f(const Vdl32f* pLogWgt, const Vdl32f* pGConst, Vdl32f* pVal, int len);
VdlStatus vdlsOutProbPreCalc_64f(const Vdl64f* pLogWgt, const Vdl64f* pGConst, Vdl64f* pVal, int len);
VdlStatus vdlsOutProbPreCalc_32s(const Vdl32s* pLogWgt, const Vdl32s* pGConst, Vdl32s* pVal, int len);
VdlStatus vdlsOutProbPreCalc_32f_I(const Vdl32f* pLogWgt, Vdl32f* pSrcDstVal, int len);
VdlStatus vdlsOutProbPreCalc_64f_I(const Vdl64f* pLogWgt, Vdl64f* pSrcDstVal, int len);
VdlStatus vdlsOutProbPreCalc_32s_I(const Vdl32s* pLogWgt, Vdl32s* pSrcDstVal, int len);

/* ---- Weighted sums of vectors ----
 * pDst[k] = w1 * pSrc1[k] + w2 * pSrc2[k]; Half forms half of that. The 16s
 * forms compute in double and round to 16 bits. */
VdlStatus vdlsWeightedSum_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len,
                              Vdl32f w1, Vdl32f w2);
VdlStatus vdlsWeightedSum_64f(const Vdl64f* pSrc1, const Vdl64f* pSrc2, Vdl64f* pDst, int len,
                              Vdl64f w1, Vdl64f w2);
VdlStatus vdlsWeightedSum_16s(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst, int len,
                              Vdl32f w1, Vdl32f w2);
VdlStatus vdlsWeightedSumHalf_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len,
                                  Vdl32f w1, Vdl32f w2);
VdlStatus vdlsWeightedSumHalf_64f(const Vdl64f* pSrc1, const Vdl64f* pSrc2, Vdl64f* pDst, int len,
                                  Vdl64f w1, Vdl64f w2);
VdlStatus vdlsWeightedSumHalf_16s(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst, int len,
                                  Vdl32f w1, Vdl32f w2);

/* ---- Indirect column copy ----
 * For each of `height` rows: pDst[k] = pSrc[pIndx[k]] for k below dstLen;
 * every index must lie in 0 .. srcLen - 1 (vdlStsOutOfRangeErr, checked
 * first). Steps: srcStep >= srcLen, dstStep >= dstLen. */
VdlStatus vdlsCopyColumn_Indirect_64f_D2(const Vdl64f* pSrc, int srcLen, int srcStep, Vdl64f* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height);
VdlStatus vdlsCopyColumn_Indirect_32f_D2(const Vdl32f* pSrc, int srcLen, int srcStep, Vdl32f* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height);
VdlStatus vdlsCopyColumn_Indirect_16s_D2(const Vdl16s* pSrc, int srcLen, int srcStep, Vdl16s* pDst,
                                         const Vdl32s* pIndx, int dstLen, int dstStep, int height);
VdlStatus vdlsCopyColumn_Indirect_64f_D2L(const Vdl64f* const* ppSrc, int srcLen, Vdl64f* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height);
VdlStatus vdlsCopyColumn_Indirect_32f_D2L(const Vdl32f* const* ppSrc, int srcLen, Vdl32f* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height);
VdlStatus vdlsCopyColumn_Indirect_16s_D2L(const Vdl16s* const* ppSrc, int srcLen, Vdl16s* const* ppDst,
                                          const Vdl32s* pIndx, int dstLen, int height);

/* ---- Matrix-vector products ----
 * MatVecMul: pDst[i] = sum over k below width of M[i][k] * pSrcVec[k], for
 * the height rows of M. VecMatMul: pDst[k] = sum over i below height of
 * pSrcVec[i] * M[i][k]. Float forms sum in double; integer forms are exact
 * until the one scaling and rounding. */
VdlStatus vdlsMatVecMul_32f_D2(const Vdl32f* pSrcMatr, int step, const Vdl32f* pSrcVec, int width,
                               Vdl32f* pDst, int height);
VdlStatus vdlsMatVecMul_32f_D2L(const Vdl32f* const* ppSrcMatr, const Vdl32f* pSrcVec, int width,
                                Vdl32f* pDst, int height);
VdlStatus vdlsMatVecMul_16s_D2Sfs(const Vdl16s* pSrcMatr, int step, const Vdl16s* pSrcVec, int width,
                                  Vdl16s* pDst, int height, int scaleFactor);
VdlStatus vdlsMatVecMul_16s_D2LSfs(const Vdl16s* const* ppSrcMatr, const Vdl16s* pSrcVec, int width,
                                   Vdl16s* pDst, int height, int scaleFactor);
VdlStatus vdlsMatVecMul_16s32s_D2Sfs(const Vdl16s* pSrcMatr, int step, const Vdl16s* pSrcVec,
                                     int width, Vdl32s* pDst, int height, int scaleFactor);
VdlStatus vdlsMatVecMul_16s32s_D2LSfs(const Vdl16s* const* ppSrcMatr, const Vdl16s* pSrcVec,
                                      int width, Vdl32s* pDst, int height, int scaleFactor);
VdlStatus vdlsMatVecMul_32s_D2Sfs(const Vdl32s* pSrcMatr, int step, const Vdl32s* pSrcVec, int width,
                                  Vdl32s* pDst, int height, int scaleFactor);
VdlStatus vdlsMatVecMul_32s_D2LSfs(const Vdl32s* const* ppSrcMatr, const Vdl32s* pSrcVec, int width,
                                   Vdl32s* pDst, int height, int scaleFactor);
VdlStatus vdlsVecMatMul_32f_D2(const Vdl32f* pSrcVec, const Vdl32f* pSrcMatr, int step, int height,
                               Vdl32f* pDst, int width);
VdlStatus vdlsVecMatMul_32f_D2L(const Vdl32f* pSrcVec, const Vdl32f* const* ppSrcMatr, int height,
                                Vdl32f* pDst, int width);
VdlStatus vdlsVecMatMul_16s_D2Sfs(const Vdl16s* pSrcVec, const Vdl16s* pSrcMatr, int step, int height,
                                  Vdl16s* pDst, int width, int scaleFactor);
VdlStatus vdlsVecMatMul_16s_D2LSfs(const Vdl16s* pSrcVec, const Vdl16s* const* ppSrcMatr, int height,
                                   Vdl16s* pDst, int width, int scaleFactor);
VdlStatus vdlsVecMatMul_16s32s_D2Sfs(const Vdl16s* pSrcVec, const Vdl16s* pSrcMatr, int step,
                                     int height, Vdl32s* pDst, int width, int scaleFactor);
VdlStatus vdlsVecMatMul_16s32s_D2LSfs(const Vdl16s* pSrcVec, const Vdl16s* const* ppSrcMatr,
                                      int height, Vdl32s* pDst, int width, int scaleFactor);
VdlStatus vdlsVecMatMul_32s_D2Sfs(const Vdl32s* pSrcVec, const Vdl32s* pSrcMatr, int step, int height,
                                  Vdl32s* pDst, int width, int scaleFactor);
VdlStatus vdlsVecMatMul_32s_D2LSfs(const Vdl32s* pSrcVec, const Vdl32s* const* ppSrcMatr, int height,
                                   Vdl32s* pDst, int width, int scaleFactor);

/* ---- Row and column primitives ---- */

/* x = 1 / sqrt(max(x, val)) in place; val > 0 keeps a zero from dividing
 * (val <= 0 gives vdlStsBadArgErr). Integer forms: times 2^-scaleFactor. */
VdlStatus vdlsRecSqrt_32f(Vdl32f* pSrcDst, int len, Vdl32f val);
VdlStatus vdlsRecSqrt_32s_Sfs(Vdl32s* pSrcDst, int len, Vdl32s val, int scaleFactor);
/* pDst[k] = 2^-scaleFactor / sqrt(max(pSrc[k], val)), to 16 bits. */
VdlStatus vdlsRecSqrt_32s16s_Sfs(const Vdl32s* pSrc, Vdl16s* pDst, int len, Vdl32s val, int scaleFactor);

/* Each row x of the matrix becomes (x[k] - pMean[k]) * pScale[k] in place. */
VdlStatus vdlsNormalizeColumn_32f_D2(Vdl32f* pSrcDst, int step, int height, const Vdl32f* pMean,
                                     const Vdl32f* pScale, int width);
VdlStatus vdlsNormalizeColumn_32f_D2L(Vdl32f* const* ppSrcDst, int height, const Vdl32f* pMean,
                                      const Vdl32f* pScale, int width);
VdlStatus vdlsNormalizeColumn_16s_D2Sfs(Vdl16s* pSrcDst, int step, int height, const Vdl16s* pMean,
                                        const Vdl16s* pScale, int width, int scaleFactor);
VdlStatus vdlsNormalizeColumn_16s_D2LSfs(Vdl16s* const* ppSrcDst, int height, const Vdl16s* pMean,
                                         const Vdl16s* pScale, int width, int scaleFactor);

/* pSrc is subtracted from each row of the matrix in place; 16s saturates. */
VdlStatus vdlsSubRow_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int step, int height);
VdlStatus vdlsSubRow_32f_D2L(const Vdl32f* pSrc, Vdl32f* const* ppSrcDst, int width, int height);
VdlStatus vdlsSubRow_16s_D2(const Vdl16s* pSrc, int width, Vdl16s* pSrcDst, int step, int height);
VdlStatus vdlsSubRow_16s_D2L(const Vdl16s* pSrc, Vdl16s* const* ppSrcDst, int width, int height);

/* pSrcDst[k] += sum over the rows of column k of the matrix. */
VdlStatus vdlsAddAllRowSum_32f_D2(const Vdl32f* pSrc, int step, int height, Vdl32f* pSrcDst, int width);
VdlStatus vdlsAddAllRowSum_32f_D2L(const Vdl32f* const* ppSrc, int height, Vdl32f* pSrcDst, int width);

/* ---- Steps of orthogonal decompositions ----
 * Row forms act on a vector of len elements. Column forms act on a matrix
 * of `height` rows and `width` columns given by its row table, on the rows
 * firstRow .. height - 1 of the columns named (0 .. width - 1). */

/* *pDst = sum |x|. */
VdlStatus vdlsSumRowAbs_64f(const Vdl64f* pSrc, int len, Vdl64f* pDst);
/* *pDst = val * sum x^2. */
VdlStatus vdlsSumRowSqr_64f(const Vdl64f* pSrc, int len, Vdl64f* pDst, Vdl64f val);
/* pSrcDst += val * pSrc. */
VdlStatus vdlsAddMulRow_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len, Vdl64f val);
/* *pDst = sum |a[i][col]|. */
VdlStatus vdlsSumColumnAbs_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                   int firstRow, int col);
/* *pDst = val * sum a[i][col]^2. */
VdlStatus vdlsSumColumnSqr_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                   int firstRow, int col, Vdl64f val);
/* *pDst = sum a[i][col1] * a[i][col2]. */
VdlStatus vdlsDotProdColumn_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                    int firstRow, int col1, int col2);
/* a[i][col] *= val. */
VdlStatus vdlsMulColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int firstRow, int col,
                                Vdl64f val);
/* a[i][col2] += val * a[i][col1]. */
VdlStatus vdlsAddMulColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int col1, int col2,
                                   int firstRow, Vdl64f val);
/* Plane rotation of two columns over all rows: (a, b) = (c a + s b, c b - s a)
 * with a = a[i][col1], b = a[i][col2]. */
VdlStatus vdlsQRTransColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int col1, int col2,
                                    Vdl64f c, Vdl64f s);

/* ---- Singular-value decomposition ----
 * A (height x width, height >= width, else vdlStsSizeErr) = U diag(W) V^T
 * with U height x width and V width x width orthonormal, W >= 0; one-sided
 * Jacobi rotations until every pair of columns is orthogonal to 1e-15 of
 * their norms. U, V and A of a _D2 call share `step` (>= width); U may be
 * A's buffer (_I). A column of U for a zero singular value is completed to
 * an orthonormal set. SVD leaves W in the order the rotations give it,
 * SVDSort in descending order with the columns of U and V following.
 * nIter (>= 1, else vdlStsBadArgErr) limits the sweeps over all column
 * pairs; when it is reached before convergence the outputs hold the last
 * sweep and the status is vdlStsErr. Work memory is taken per call
 * (vdlStsNoMemErr when it cannot be had). */
VdlStatus vdlsSVD_64f_D2(const Vdl64f* pSrc, Vdl64f* pDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV,
                         int width, int step, int nIter);
VdlStatus vdlsSVDSort_64f_D2(const Vdl64f* pSrc, Vdl64f* pDstU, int height, Vdl64f* pDstW,
                             Vdl64f* pDstV, int width, int step, int nIter);
VdlStatus vdlsSVD_64f_D2_I(Vdl64f* pSrcDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV, int width,
                           int step, int nIter);
VdlStatus vdlsSVDSort_64f_D2_I(Vdl64f* pSrcDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV, int width,
                               int step, int nIter);
VdlStatus vdlsSVD_64f_D2L(const Vdl64f* const* ppSrc, Vdl64f* const* ppDstU, int height, Vdl64f* pDstW,
                          Vdl64f* const* ppDstV, int width, int nIter);
VdlStatus vdlsSVDSort_64f_D2L(const Vdl64f* const* ppSrc, Vdl64f* const* ppDstU, int height,
                              Vdl64f* pDstW, Vdl64f* const* ppDstV, int width, int nIter);
VdlStatus vdlsSVD_64f_D2L_I(Vdl64f* const* ppSrcDstU, int height, Vdl64f* pDstW,
                            Vdl64f* const* ppDstV, int width, int nIter);
VdlStatus vdlsSVDSort_64f_D2L_I(Vdl64f* const* ppSrcDstU, int height, Vdl64f* pDstW,
                                Vdl64f* const* ppDstV, int width, int nIter);

/* ---- Noise estimate by minimum-controlled recursive averaging ----
 * The state follows the noise power of the nFFT / 2 + 1 bins of a power
 * spectrum frame by frame: the power is smoothed over time and frequency,
 * its minimum tracked over windows of about 0.5 s (by sampFreq and the
 * frame hop nFFT / 2), and the noise estimate averaged recursively with a
 * weight that grows with the probability of speech (smoothed power more
 * than 5 times its minimum). The first frame after Init takes the frame as
 * the estimate. nFFT from 2 to 2^24 and sampFreq >= 1, else vdlStsBadArgErr;
 * a negative power in the frame gives vdlStsBadArgErr before any update. */
typedef struct VdlMCRAState_32s VdlMCRAState_32s;
/* *pSize = bytes of a state for nFFT (to be allocated by vdlsMalloc_8u). */
VdlStatus vdlsGetSizeMCRA_32s(int nFFT, int* pSize);
/* Initialises a state in memory of that size. */
VdlStatus vdlsInitMCRA_32s(int sampFreq, int nFFT, VdlMCRAState_32s* pState);
/* One frame: pSrcNoisySpeech the power of the frame's bins, pSrcDstNoisePSD
 * the noise power, updated in place (rounded, saturated to 32 bits). A state
 * not made by vdlsInitMCRA_32s gives vdlStsContextMatchErr. */
VdlStatus vdlsUpdateNoisePSDMCRA_32s_I(const Vdl32s* pSrcNoisySpeech, VdlMCRAState_32s* pState,
                                       Vdl32s* pSrcDstNoisePSD);

#ifdef __cplusplus
}
#endif

#endif
