/* Linear-prediction functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_LP_H
#define VDLSR_LP_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Linear prediction ----
 *
 * Predictor coefficients a[1..p] (stored a[0..p-1]) predict a sample from
 * the p before it, x^[n] = sum over k of a[k] x[n-k]; the inverse filter is
 * A(z) = 1 - sum over k of a[k] z^-k. Reflection coefficients k[1..p] are
 * those of the same filter built order by order (Levinson recursion):
 *     a(m)[m] = k[m],  a(m)[j] = a(m-1)[j] - k[m] a(m-1)[m-j],
 * so that k[1] = r[1] / r[0] for an autocorrelation r. A filter is stable
 * when every |k| < 1. An autocorrelation r[0..p] has p + 1 lags.
 *
 * Line spectral pairs are the zeros of P(z) = A(z) + z^-(p+1) A(1/z) and
 * Q(z) = A(z) - z^-(p+1) A(1/z) on the unit circle, given as x = cos(w),
 * in descending order (ascending frequency w); the first, third ... belong
 * to P, the others to Q.
 *
 * Float forms compute in double and round each result once. 16-bit forms
 * take their coefficients in fixed point: a source shift s says that an
 * integer v stands for v * 2^-s (Q s), and every integer result is the
 * exact value times 2^-scaleFactor, rounded to nearest with halves away
 * from zero and saturated to the result type: a scaleFactor of -12 gives
 * Q12 results. Where no source shift is an argument the source is read as
 * its own integer values, unless the line says otherwise.
 *
 * Arguments are checked before anything is written: vdlStsNullPtrErr for a
 * null pointer, vdlStsSizeErr for a length below 1 (or, for the filters, a
 * length the line rules out), vdlStsOutOfRangeErr for an order or count
 * outside its range. An unstable input gives vdlStsBadArgErr and writes
 * nothing: an autocorrelation whose r[0] is not positive or that makes the
 * prediction error reach zero or below (some |k| >= 1), a predictor whose
 * step-down meets |k| >= 1, a reflection coefficient of magnitude 1 or more
 * where a ratio of (1 + k) and (1 - k) is taken.
 */

/* Levinson-Durbin: r[0..len] to a[1..len] in pDst[0..len-1] and the
 * prediction error r[0] * prod (1 - k^2) in *pErr. */
VdlStatus vdlsDurbin_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pErr);
/* As above on integer lags (their scale does not matter); a and the error
 * times 2^-scaleFactor. */
VdlStatus vdlsDurbin_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32s* pErr,
                             int scaleFactor);
/* Schur: r[0..len] to k[1..len] in pDst[0..len-1] without forming a; the
 * prediction error in *pErr. */
VdlStatus vdlsSchur_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pErr);
/* As above on integer lags; k and the error times 2^-scaleFactor. */
VdlStatus vdlsSchur_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32s* pErr,
                            int scaleFactor);

/* Step-down: a[1..len] to k[1..len]; vdlStsBadArgErr for an unstable filter. */
VdlStatus vdlsLPToReflection_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* As above, a read in Q(-scaleFactor) and k written in the same format. */
VdlStatus vdlsLPToReflection_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor);
/* Step-up: k[1..len] to a[1..len]. */
VdlStatus vdlsReflectionToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* As above, k read in Q(-scaleFactor) and a written in the same format. */
VdlStatus vdlsReflectionToLP_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor);

/* Power spectrum of the all-pole model: for N = 2^(order+1) and m < N,
 * pDst[m] = val / |A(exp(j 2 pi m / N))|^2, by one N-point FFT (lags above
 * N - 1 fold onto the grid). order 1..16. A zero of A on the grid gives the
 * largest float and vdlStsDivByZeroWrn. */
VdlStatus vdlsLPToSpectrum_32f(const Vdl32f* pSrc, int len, Vdl32f* pDst, int order, Vdl32f val);
/* As above with a in Q12 and the integer gain val; the spectrum times
 * 2^-scaleFactor, saturated to 16 bits. */
VdlStatus vdlsLPToSpectrum_16s_Sfs(const Vdl16s* pSrc, int len, Vdl16s* pDst, int order, int val,
                                   int scaleFactor);

/* a[1..len] to len line spectral pairs (cosines, descending). The zeros are
 * searched on nInt equal intervals of x from 1 to -1 (a sign change of the
 * Chebyshev form of P or Q brackets one), each bracket narrowed by nDiv
 * bisections and closed by a linear interpolation. *pRoots counts the zeros
 * found; when it is below len (an unstable filter, or nInt too small to
 * part close zeros) the rest of pDst is 0. nInt 2..65536, nDiv 0..52. */
VdlStatus vdlsLPToLSP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, int* pRoots, int nInt,
                          int nDiv);
/* As above with a in Q srcShift; the cosines times 2^-scaleFactor. */
VdlStatus vdlsLPToLSP_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len, int* pRoots,
                              int nInt, int nDiv, int scaleFactor);
/* len line spectral pairs (cosines, descending) to a[1..len]: the products
 * of (1 - 2 x z^-1 + z^-2) over the pairs of P and of Q, with the fixed
 * zeros at z = 1 and z = -1, and A = (P + Q) / 2. */
VdlStatus vdlsLSPToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* As above with the cosines in Q srcShift; a times 2^-scaleFactor. */
VdlStatus vdlsLSPToLP_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                              int scaleFactor);

/* Area ratios of the lossless tube: pDst[i] = (1 + k[i]) / (1 - k[i]). */
VdlStatus vdlsReflectionToAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* As above with k in Q srcShift; ratios times 2^-scaleFactor. */
VdlStatus vdlsReflectionToAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                     int scaleFactor);
/* Log-area ratios log((1 + k) / (1 - k)), natural log, with k first clipped
 * to [-val, val]; val in (0, 1) (vdlStsBadArgErr otherwise). */
VdlStatus vdlsReflectionToLAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f val);
/* As above with k in Q srcShift; ratios times 2^-scaleFactor. */
VdlStatus vdlsReflectionToLAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                      Vdl32f val, int scaleFactor);
/* The areas themselves rather than their ratios: the tube's sections from
 * the closed end of area 1, pDst[i] = prod over m <= i of (1 + k[m]) / (1 - k[m]). */
VdlStatus vdlsReflectionToTrueAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
/* As above with k in Q srcShift; areas times 2^-scaleFactor. */
VdlStatus vdlsReflectionToTrueAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                         int scaleFactor);

/* Spectral tilt of len frames from the first reflection coefficient k of
 * each (pSrc1) weighted by the frame's energy e (pSrc2): pDst[i] = k e. */
VdlStatus vdlsReflectionToTilt_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len);
/* As above on integers: k e times 2^-scaleFactor. */
VdlStatus vdlsReflectionToTilt_16s_Sfs(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst,
                                       int len, int scaleFactor);
/* The tilt's size, |k| e, for frames whose sign is not wanted. */
VdlStatus vdlsReflectionToAbsTilt_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst,
                                      int len);
/* As above on integers: |k| e times 2^-scaleFactor. */
VdlStatus vdlsReflectionToAbsTilt_16s_Sfs(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst,
                                          int len, int scaleFactor);

/* Linear prediction of order lenDst from lenSrc samples, autocorrelation
 * method: r[k] = sum over n of x[n] x[n+k] (the signal taken as 0 outside),
 * then Levinson-Durbin; a[1..lenDst] in pDst. lenSrc > lenDst. The sums of
 * both methods run in double in four partial sums, exact for 16-bit
 * samples; float samples may differ between code paths in the last bits. */
VdlStatus vdlsLinearPrediction_Auto_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst);
/* As above on 16-bit samples (lags exact); a times 2^-scaleFactor. */
VdlStatus vdlsLinearPrediction_Auto_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                            int lenDst, int scaleFactor);
/* Covariance method: the a that minimise the error over n = lenDst ..
 * lenSrc-1 only, from the normal equations phi a = psi with
 * phi[i][j] = sum over n of x[n-i] x[n-j], by Cholesky. A pivot not above
 * 1e-12 times the largest diagonal ends the solve at the order before it,
 * the higher coefficients 0: a signal that a lower order already predicts
 * gets that order's predictor. */
VdlStatus vdlsLinearPrediction_Cov_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst);
/* As above on 16-bit samples; a times 2^-scaleFactor. */
VdlStatus vdlsLinearPrediction_Cov_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                           int lenDst, int scaleFactor);
/* The autocorrelation method giving the coefficients of A(z) = 1 + sum c[k] z^-k,
 * that is c = -a. */
VdlStatus vdlsLinearPredictionNeg_Auto_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst,
                                           int lenDst);
/* As above on 16-bit samples; c times 2^-scaleFactor. */
VdlStatus vdlsLinearPredictionNeg_Auto_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                               int lenDst, int scaleFactor);

/* ---- Front-end filters ("Aurora" forms) ----
 *
 * The taps of a 17-tap linear-phase filter from gains on 10 frequencies
 * w[k] = pi k / 9 (k = 0..9): h[n] = hann(n) * (g[0] + 2 sum over k = 1..8
 * of g[k] cos(w[k] n) + g[9] cos(pi n)) / 18 for n = -8..8, hann(n) =
 * (1 + cos(pi n / 9)) / 2, pDst[n + 8] = h[n]. The filter of gains all 1
 * is a unit impulse. The 16-bit form reads and writes Q15.
 * The residual filter runs those 17 taps over an 80-sample frame:
 * pDst[n] = sum over k of pTabs[k] pSrc[n + k], n = 0..79, so pSrc holds
 * the 16 samples before the frame and the frame, 96 values.
 * The low/high split runs a tabsLen-tap filter h and its mirror
 * (-1)^k h[k] over len input samples and keeps every second output:
 * pDstL[n] = sum over k of h[k] pSrc[2n + k], pDstH[n] = sum over k of
 * (-1)^k h[k] pSrc[2n + k], n < len / 2; len even, pSrc holds
 * len + tabsLen - 2 samples (the split sums the even and the odd taps
 * apart, then adds and subtracts them). Float sums run in float; the wider
 * code paths fuse multiplies with adds, so results of two paths may differ
 * within (taps + 1) * 6e-8 of the sum of |products|. 16-bit sums are exact,
 * then times 2^-scaleFactor.
 */

/* The 17 taps of the gains in pSrc[0..9]. */
VdlStatus vdlsTabsCalculation_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst);
/* As above with gains and taps in Q15. */
VdlStatus vdlsTabsCalculation_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst);
/* 80 outputs of the 17-tap filter pTabs. */
VdlStatus vdlsResidualFilter_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, const Vdl32f* pTabs);
/* As above on integers, the sums times 2^-scaleFactor. */
VdlStatus vdlsResidualFilter_Aurora_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, const Vdl16s* pTabs,
                                            int scaleFactor);
/* len / 2 outputs in each band. */
VdlStatus vdlsLowHighFilter_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDstL, Vdl32f* pDstH, int len,
                                       const Vdl32f* pTabs, int tabsLen);
/* As above on integers, the sums times 2^-scaleFactor. */
VdlStatus vdlsLowHighFilter_Aurora_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDstL, Vdl16s* pDstH,
                                           int len, const Vdl16s* pTabs, int tabsLen,
                                           int scaleFactor);

#ifdef __cplusplus
}
#endif

#endif
