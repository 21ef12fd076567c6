/* Log-domain arithmetic and Gaussian selection functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_LOGSEL_H
#define VDLSR_LOGSEL_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Log-domain arithmetic ----
 *
 * logadd(a, b) = log(exp(a) + exp(b)), logsub(a, b) = log(exp(a) - exp(b)),
 * natural logarithms throughout, computed as max + log1p(exp(-|a - b|)) so
 * that no exponential overflows.
 *
 * The hint of LogAdd and LogSum: vdlAlgHintFast takes log1p(exp(-d)) from a
 * table of 1024 points over d in [0, 16) with linear interpolation, and 0
 * beyond; its absolute error is below 1e-5 per log-add (plus the rounding of
 * the result type). vdlAlgHintNone and vdlAlgHintAccurate compute the exact
 * form, within 4 units in the last place of max(|result|, 1). LogSum with
 * the fast hint folds its vector by table log-adds, so its error is below
 * (len - 1) * 1e-5; its exact form sums exp(x - max) in double.
 *
 * Integer (Sfs) forms hold log values in fixed point: an element v stands for
 * v * 2^-scaleFactor, and the result is given in the same units: the exact
 * value times 2^scaleFactor, rounded to nearest with halves away from zero
 * and saturated to the element type. The fast hint adds its 1e-5 before the
 * rounding.
 *
 * Every function checks its arguments before it reads or writes data and
 * then returns at once: vdlStsNullPtrErr for a null pointer, vdlStsSizeErr
 * for a length below 1, vdlStsBadArgErr for a hint other than the three,
 * vdlStsOutOfRangeErr for an index or rank outside its range.
 */

/* pSrcDst[i] = logadd(pSrc[i], pSrcDst[i]); double. */
VdlStatus vdlsLogAdd_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len, VdlHintAlgorithm hint);
/* pSrcDst[i] = logadd(pSrc[i], pSrcDst[i]); float. The hot form. */
VdlStatus vdlsLogAdd_32f(const Vdl32f* pSrc, Vdl32f* pSrcDst, int len, VdlHintAlgorithm hint);
/* pSrcDst[i] = logadd(pSrc[i], pSrcDst[i]); 16-bit fixed point of scaleFactor. */
VdlStatus vdlsLogAdd_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pSrcDst, int len, int scaleFactor,
                             VdlHintAlgorithm hint);
/* pSrcDst[i] = logadd(pSrc[i], pSrcDst[i]); 32-bit fixed point of scaleFactor. */
VdlStatus vdlsLogAdd_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pSrcDst, int len, int scaleFactor,
                             VdlHintAlgorithm hint);

/* pSrcDst[i] = logsub(pSrc[i], pSrcDst[i]), exact. Where pSrc[i] equals
 * pSrcDst[i] the result is log 0, -infinity (in integer forms the type's
 * minimum, as the saturation gives it); where it is smaller the difference
 * has no log: the same floor, and the call answers vdlStsLogNegArgWrn.
 * Double. */
VdlStatus vdlsLogSub_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len);
/* As vdlsLogSub_64f; float. */
VdlStatus vdlsLogSub_32f(const Vdl32f* pSrc, Vdl32f* pSrcDst, int len);
/* As vdlsLogSub_64f; 32-bit fixed point of scaleFactor. */
VdlStatus vdlsLogSub_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pSrcDst, int len, int scaleFactor);
/* As vdlsLogSub_64f; 16-bit fixed point of scaleFactor. */
VdlStatus vdlsLogSub_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pSrcDst, int len, int scaleFactor);

/* *pResult = log(sum over i of exp(pSrc[i])), the log-add of the whole
 * vector; double. */
VdlStatus vdlsLogSum_64f(const Vdl64f* pSrc, Vdl64f* pResult, int len, VdlHintAlgorithm hint);
/* As vdlsLogSum_64f; float. */
VdlStatus vdlsLogSum_32f(const Vdl32f* pSrc, Vdl32f* pResult, int len, VdlHintAlgorithm hint);
/* As vdlsLogSum_64f; 16-bit fixed point of scaleFactor. */
VdlStatus vdlsLogSum_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pResult, int len, int scaleFactor,
                             VdlHintAlgorithm hint);
/* As vdlsLogSum_64f; 32-bit fixed point of scaleFactor. */
VdlStatus vdlsLogSum_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pResult, int len, int scaleFactor,
                             VdlHintAlgorithm hint);

/* Language-model scores: pDst[i] = max(pSrc[i], lmFloor) * lmScale + lmBase;
 * float. */
VdlStatus vdlsScaleLM_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f lmFloor,
                          Vdl32f lmScale, Vdl32f lmBase);
/* As vdlsScaleLM_32f, exact in 64 bits, saturated to 32 bits. */
VdlStatus vdlsScaleLM_16s32s(const Vdl16s* pSrc, Vdl32s* pDst, int len, Vdl16s lmFloor,
                             Vdl16s lmScale, Vdl32s lmBase);

/* pDst[i] = exp(-pSrc[i]^2); float, computed in double and rounded once. */
VdlStatus vdlsExpNegSqr_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* pDst[i] = exp(-pSrc[i]^2), computed and stored in double. */
VdlStatus vdlsExpNegSqr_32f64f(const Vdl32f* pSrc, Vdl64f* pDst, int len);
/* pDst[i] = exp(-pSrc[i]^2); double, within 4 ulps (the rounding error of
 * the square is carried). */
VdlStatus vdlsExpNegSqr_64f(const Vdl64f* pSrc, Vdl64f* pDst, int len);
/* pSrcDst[i] = exp(-pSrcDst[i]^2); float. */
VdlStatus vdlsExpNegSqr_32f_I(Vdl32f* pSrcDst, int len);
/* pSrcDst[i] = exp(-pSrcDst[i]^2); double. */
VdlStatus vdlsExpNegSqr_64f_I(Vdl64f* pSrcDst, int len);

/* *pResult = -sum over i of p_i * log(p_i), a term of p_i = 0 counting 0;
 * summed in double. A negative p_i is refused with vdlStsBadArgErr. Float. */
VdlStatus vdlsEntropy_32f(const Vdl32f* pSrc, int len, Vdl32f* pResult);
/* As vdlsEntropy_32f with p_i = pSrc[i] * 2^-srcScaleFactor; the result is
 * the entropy times 2^-scaleFactor, rounded and saturated to 32 bits. */
VdlStatus vdlsEntropy_16s32s_Sfs(const Vdl16s* pSrc, int srcScaleFactor, int len,
                                 Vdl32s* pResult, int scaleFactor);

/* *pResult = the N-th largest element of pSrc, N from 1 (the maximum) to len
 * (vdlStsOutOfRangeErr outside), equal elements counted each. Found by
 * selection (average time linear in len) in a copy of the vector, so the
 * source is not changed; vdlStsNoMemErr when no copy can be had. 32-bit. */
VdlStatus vdlsNthMaxElement_32s(const Vdl32s* pSrc, int len, int N, Vdl32s* pResult);
/* As vdlsNthMaxElement_32s; float. NaN elements are refused with
 * vdlStsBadArgErr, since they have no rank. */
VdlStatus vdlsNthMaxElement_32f(const Vdl32f* pSrc, int len, int N, Vdl32f* pResult);
/* As vdlsNthMaxElement_32f; double. */
VdlStatus vdlsNthMaxElement_64f(const Vdl64f* pSrc, int len, int N, Vdl64f* pResult);

/* The unit curve u(x): 0 for x <= 0, 3x^2 - 2x^3 for 0 < x < 1, 1 for
 * x >= 1, a smooth step from 0 to 1. pDst[i] = u(pSrc[i]); float. */
VdlStatus vdlsUnitCurve_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* pSrcDst[i] = u(pSrcDst[i]); float. */
VdlStatus vdlsUnitCurve_32f_I(Vdl32f* pSrcDst, int len);
/* Q15 data: x = pSrc[i] * 2^srcShiftVal / 32768, and
 * pDst[i] = u(x) * 32768 * 2^-scaleFactor, rounded and saturated to 16 bits.
 * srcShiftVal lies in [-15, 15], else vdlStsOutOfRangeErr. */
VdlStatus vdlsUnitCurve_16s_Sfs(const Vdl16s* pSrc, int srcShiftVal, Vdl16s* pDst, int len,
                                int scaleFactor);
/* As vdlsUnitCurve_16s_Sfs, in place. */
VdlStatus vdlsUnitCurve_16s_ISfs(Vdl16s* pSrcDst, int srcShiftVal, int len, int scaleFactor);

/* ---- Gaussian selection ----
 *
 * A shortlist table has `clust` rows of `width` bytes, one row per cluster
 * of the feature space, pointed to by the row table ppShortlist. A row is a
 * bit string (bit k in byte k / 8 under the mask 0x80 >> k % 8, the first
 * bit the most significant); the mixture at hand owns bits shift to
 * shift + height - 1 of every row, bit shift + j standing for its component
 * j. A set bit puts the component on the cluster's shortlist. shift must be
 * at least 0 and shift + height at most 8 * width (vdlStsOutOfRangeErr).
 *
 * A sign table gives for each of `frames` frames one bit per component,
 * (height + 7) / 8 whole bytes a frame, in the same bit order, the bits
 * behind the last component 0. Frame f belongs to the clusters that pIndx
 * lists for it: `num` indices a frame, or pNum[f] in the Var_ forms, the
 * lists of all frames one after the other. Its sign bits are the OR of the
 * shortlists of its clusters.
 *
 * Fill forms write the mixture's bits of the shortlist table and leave every
 * other bit of it. Row forms list components by cluster: for cluster c its
 * `num` (or pNum[c]) component indices; Column forms list clusters by
 * component: for component j its `num` (or pNum[j]) cluster indices. The
 * mixture's bits of every row are cleared first, then the listed ones set.
 *
 * Indices outside [0, clust - 1] (clusters) or [0, height - 1] (components)
 * and a negative count are refused with vdlStsOutOfRangeErr before anything
 * is written.
 */

/* Sign table of `frames` frames, `num` clusters each. */
VdlStatus vdlsBuildSignTable_8u1u(const Vdl32s* pIndx, int num, const Vdl8u* const* ppShortlist,
                                  int clust, int width, int shift, Vdl8u* pSign, int frames,
                                  int height);
/* Sign table of `frames` frames, pNum[f] clusters for frame f. */
VdlStatus vdlsBuildSignTable_Var_8u1u(const Vdl32s* pIndx, const Vdl32s* pNum,
                                      const Vdl8u* const* ppShortlist, int clust, int width,
                                      int shift, Vdl8u* pSign, int frames, int height);
/* Shortlists by cluster, `num` components each. */
VdlStatus vdlsFillShortlist_Row_1u(const Vdl32s* pIndx, int height, int num,
                                   Vdl8u* const* ppShortlist, int clust, int width, int shift);
/* Shortlists by cluster, pNum[c] components for cluster c. */
VdlStatus vdlsFillShortlist_RowVar_1u(const Vdl32s* pIndx, const Vdl32s* pNum, int height,
                                      Vdl8u* const* ppShortlist, int clust, int width, int shift);
/* Shortlists by component, `num` clusters each. */
VdlStatus vdlsFillShortlist_Column_1u(const Vdl32s* pIndx, int num, Vdl8u* const* ppShortlist,
                                      int clust, int width, int shift, int height);
/* Shortlists by component, pNum[j] clusters for component j. */
VdlStatus vdlsFillShortlist_ColumnVar_1u(const Vdl32s* pIndx, const Vdl32s* pNum,
                                         Vdl8u* const* ppShortlist, int clust, int width,
                                         int shift, int height);

/* ---- Selected mixture scores ----
 *
 * The log-likelihood of each of `frames` frames against a mixture of
 * `height` diagonal Gaussians, scored only where the frame's sign marks the
 * component: pResult[f] = logadd over marked j of (pVal[j] - q_fj / 2), with
 * q_fj = sum over k of (x_fk - mean_jk)^2 * w_jk as in the Gaussian scoring
 * functions (w the precisions, 1 in IdVar forms), exact log-adds. A frame
 * with no marked component gets `val`, the floor of a score.
 *
 * pSign holds one byte per component of a frame, `frames` rows of `height`
 * bytes; a non-zero byte marks the component. _D2 frames and Gaussians are
 * rows of one buffer `step` elements apart (step >= width); _D2L rows are
 * given by tables of `frames` and of `height` row pointers.
 *
 * Float forms sum q in float (in partial sums whose order, and so whose
 * last bits, depend on the code path: a relative error of q up to
 * (width + 1) * 6e-8); Scaled forms take 16-bit data, summed exactly, and
 * scale -q/2 by 2^-scaleFactor before pVal[j] is added.
 */

VdlStatus vdlsLogGaussMixture_Select_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean,
                                            const Vdl32f* pVar, int step, int width,
                                            const Vdl32f* pVal, const Vdl8u* pSign, int height,
                                            Vdl32f* pResult, int frames, Vdl32f val);
VdlStatus vdlsLogGaussMixture_SelectIdVar_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, int step,
                                                 int width, const Vdl32f* pVal, const Vdl8u* pSign,
                                                 int height, Vdl32f* pResult, int frames,
                                                 Vdl32f val);
VdlStatus vdlsLogGaussMixture_SelectScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                     const Vdl16s* pVar, int step, int width,
                                                     const Vdl32f* pVal, const Vdl8u* pSign,
                                                     int height, Vdl32f* pResult, int frames,
                                                     Vdl32f val, int scaleFactor);
VdlStatus vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                          int step, int width, const Vdl32f* pVal,
                                                          const Vdl8u* pSign, int height,
                                                          Vdl32f* pResult, int frames, Vdl32f val,
                                                          int scaleFactor);
VdlStatus vdlsLogGaussMixture_Select_32f_D2L(const Vdl32f* const* ppSrc,
                                             const Vdl32f* const* ppMean,
                                             const Vdl32f* const* ppVar, int width,
                                             const Vdl32f* pVal, const Vdl8u* pSign, int height,
                                             Vdl32f* pResult, int frames, Vdl32f val);
VdlStatus vdlsLogGaussMixture_SelectIdVar_32f_D2L(const Vdl32f* const* ppSrc,
                                                  const Vdl32f* const* ppMean, int width,
                                                  const Vdl32f* pVal, const Vdl8u* pSign,
                                                  int height, Vdl32f* pResult, int frames,
                                                  Vdl32f val);
VdlStatus vdlsLogGaussMixture_SelectScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                      const Vdl16s* const* ppMean,
                                                      const Vdl16s* const* ppVar, int width,
                                                      const Vdl32f* pVal, const Vdl8u* pSign,
                                                      int height, Vdl32f* pResult, int frames,
                                                      Vdl32f val, int scaleFactor);
VdlStatus vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                           const Vdl16s* const* ppMean, int width,
                                                           const Vdl32f* pVal, const Vdl8u* pSign,
                                                           int height, Vdl32f* pResult, int frames,
                                                           Vdl32f val, int scaleFactor);

#ifdef __cplusplus
}
#endif

#endif
