/* Alignment and signal functions of the Vdl Primitives: time warping, resampling, correlation, noise reduction. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_ALIGN_H
#define VDLSR_ALIGN_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Alignment and signal functions ----
 *
 * Every function checks its arguments before it writes anything, and for a
 * bad one returns at once: vdlStsNullPtrErr for a null pointer (a null row
 * of a _D2L table too), vdlStsSizeErr for a length, width or height below 1,
 * vdlStsStepErr for a step below the width, vdlStsBadArgErr for a value
 * outside its domain (named at each function), vdlStsContextMatchErr for a
 * state of another kind. Integer results follow the one rule of the
 * library: the value times 2^-scaleFactor, rounded to nearest with halves
 * away from zero, saturated to the result type.
 */

/* -- Dynamic time warping --
 *
 * The distance of two sequences of feature vectors (frames of `width`
 * elements): the least sum of local distances d(i, j) = sum over k of
 * (a_ik - b_jk)^2 along a path from (0, 0) to (height1-1, height2-1) whose
 * steps advance i, j or both by one. `delta` bounds the warp: a path may
 * advance one sequence at most `delta` times in a row while the other stands
 * still; 0 puts no bound. Sequences whose lengths differ too much for the
 * bound have no path. `beam` prunes: after each frame of the first sequence,
 * cells whose cost exceeds the best cost of that frame by more than `beam`
 * (in units of the result, so times 2^scaleFactor for the integer forms)
 * leave the search; cells that no kept cell reaches are not computed, which
 * is where a narrow beam saves time. A beam never lowers the distance
 * below the exact one. Without a path the result is +infinity (float) or the
 * greatest value (integer). delta below 0, beam below 0 or not a number:
 * vdlStsBadArgErr.
 * _32f sums in float, in eight partial sums per frame pair (relative error
 * of d up to (width + 1) * 6e-8); _8u32s sums exactly in double; L2Low sums
 * in float, faster, with a relative error of the distance up to
 * (height1 + height2 + width) * 6e-8.
 */

/* Distance; row tables; float. */
VdlStatus vdlsDTW_L2_32f_D2L(const Vdl32f* const* pSrc1, int height1, const Vdl32f* const* pSrc2,
                             int height2, int width, Vdl32f* pDist, int delta, Vdl32f beam);
/* Distance; rows `step` elements apart in both buffers; float. */
VdlStatus vdlsDTW_L2_32f_D2(const Vdl32f* pSrc1, int height1, const Vdl32f* pSrc2, int height2,
                            int width, int step, Vdl32f* pDist, int delta, Vdl32f beam);
/* Distance; step rows; 8-bit data, exact, scaled to 32 bits. */
VdlStatus vdlsDTW_L2_8u32s_D2Sfs(const Vdl8u* pSrc1, int height1, const Vdl8u* pSrc2, int height2,
                                 int width, int step, Vdl32s* pDist, int delta, Vdl32s beam,
                                 int scaleFactor);
/* Distance; row tables; 8-bit data, exact, scaled to 32 bits. */
VdlStatus vdlsDTW_L2_8u32s_D2LSfs(const Vdl8u* const* pSrc1, int height1,
                                  const Vdl8u* const* pSrc2, int height2, int width, Vdl32s* pDist,
                                  int delta, Vdl32s beam, int scaleFactor);
/* Distance; step rows; 16-bit data summed in float, scaled to 32 bits. */
VdlStatus vdlsDTW_L2Low_16s32s_D2Sfs(const Vdl16s* pSrc1, int height1, const Vdl16s* pSrc2,
                                     int height2, int width, int step, Vdl32s* pDist, int delta,
                                     Vdl32s beam, int scaleFactor);
/* Distance; row tables; 16-bit data summed in float, scaled to 32 bits. */
VdlStatus vdlsDTW_L2Low_16s32s_D2LSfs(const Vdl16s* const* pSrc1, int height1,
                                      const Vdl16s* const* pSrc2, int height2, int width,
                                      Vdl32s* pDist, int delta, Vdl32s beam, int scaleFactor);

/* -- Polyphase resampling --
 *
 * pSrc[n] is the input sample at time n. A call makes the outputs at the
 * times t = *pTime, *pTime + 1/factor, ... below *pTime + len, writes them to
 * pDst, their count to *pOutLen, and sets *pTime to the time of the next
 * output, so that the next call (with the same buffer moved on, or a later
 * part of it) goes on without a seam. Output t is
 * norm * sum over n of pSrc[n] * h(t - n), h a lowpass windowed sinc (Kaiser
 * window of parameter alpha) of cutoff rollf times the Nyquist frequency of
 * the lower of the two rates, reaching R input samples to either side; the
 * caller keeps R samples in front of *pTime and R + 1 behind *pTime + len,
 * and a *pTime below R is refused (vdlStsBadArgErr). pDst needs room for
 * len * factor + 2 outputs. 16-bit outputs are rounded and saturated.
 *
 * Any ratio (InitAlloc): `window` is the length of the prototype filter and
 * nStep its phases per unit; for factor >= 1 the unit is one input sample,
 * for factor < 1 one output sample, so R = window / 2 / min(1, factor). The
 * hint chooses between phases: fast takes the nearest, accurate (and none)
 * interpolates linearly between the two neighbours. Fixed (FixedInitAlloc):
 * the rates inRate and outRate, the filter `len` input samples long
 * (R = len / 2) with one exact tap set per phase; the hint chooses the sum:
 * fast in float, accurate (and none) in double. A time between phases is
 * taken to the nearest phase.
 * Arguments: window, len, nStep of 1 or more, and a prototype table
 * (window / 2 * nStep entries) of at most 2^20 entries (vdlStsSizeErr); rollf in
 * (0, 1], alpha of 0 or more, factor above 0, rates of 1 or more
 * (vdlStsBadArgErr); a hint outside the three (vdlStsBadArgErr).
 */

typedef struct VdlsResamplingPolyphase_32f VdlsResamplingPolyphase_32f;
typedef struct VdlsResamplingPolyphase_16s VdlsResamplingPolyphase_16s;
typedef struct VdlsResamplingPolyphaseFixed_32f VdlsResamplingPolyphaseFixed_32f;
typedef struct VdlsResamplingPolyphaseFixed_16s VdlsResamplingPolyphaseFixed_16s;

/* Any-ratio state for float signals; release with vdlsResamplePolyphaseFree_32f. */
VdlStatus vdlsResamplePolyphaseInitAlloc_32f(VdlsResamplingPolyphase_32f** ppState, Vdl32f window,
                                             int nStep, Vdl32f rollf, Vdl32f alpha,
                                             VdlHintAlgorithm hint);
/* Any-ratio state for 16-bit signals; release with vdlsResamplePolyphaseFree_16s. */
VdlStatus vdlsResamplePolyphaseInitAlloc_16s(VdlsResamplingPolyphase_16s** ppState, Vdl32f window,
                                             int nStep, Vdl32f rollf, Vdl32f alpha,
                                             VdlHintAlgorithm hint);
/* Fixed-ratio state for float signals; release with vdlsResamplePolyphaseFixedFree_32f. */
VdlStatus vdlsResamplePolyphaseFixedInitAlloc_32f(VdlsResamplingPolyphaseFixed_32f** ppState,
                                                  int inRate, int outRate, int len, Vdl32f rollf,
                                                  Vdl32f alpha, VdlHintAlgorithm hint);
/* Fixed-ratio state for 16-bit signals; release with vdlsResamplePolyphaseFixedFree_16s. */
VdlStatus vdlsResamplePolyphaseFixedInitAlloc_16s(VdlsResamplingPolyphaseFixed_16s** ppState,
                                                  int inRate, int outRate, int len, Vdl32f rollf,
                                                  Vdl32f alpha, VdlHintAlgorithm hint);
/* Resamples len inputs by `factor` (out rate / in rate) from *pTime on. */
VdlStatus vdlsResamplePolyphase_32f(const VdlsResamplingPolyphase_32f* pState, const Vdl32f* pSrc,
                                    int len, Vdl32f* pDst, Vdl64f factor, Vdl32f norm,
                                    Vdl64f* pTime, int* pOutLen);
/* Resamples len 16-bit inputs by `factor` from *pTime on. */
VdlStatus vdlsResamplePolyphase_16s(const VdlsResamplingPolyphase_16s* pState, const Vdl16s* pSrc,
                                    int len, Vdl16s* pDst, Vdl64f factor, Vdl32f norm,
                                    Vdl64f* pTime, int* pOutLen);
/* Resamples len inputs at the state's rates from *pTime on. */
VdlStatus vdlsResamplePolyphaseFixed_32f(const VdlsResamplingPolyphaseFixed_32f* pState,
                                         const Vdl32f* pSrc, int len, Vdl32f* pDst, Vdl32f norm,
                                         Vdl64f* pTime, int* pOutLen);
/* Resamples len 16-bit inputs at the state's rates from *pTime on. */
VdlStatus vdlsResamplePolyphaseFixed_16s(const VdlsResamplingPolyphaseFixed_16s* pState,
                                         const Vdl16s* pSrc, int len, Vdl16s* pDst, Vdl32f norm,
                                         Vdl64f* pTime, int* pOutLen);
/* Releases a state; null: vdlStsNullPtrErr, another kind: vdlStsContextMatchErr. */
VdlStatus vdlsResamplePolyphaseFree_32f(VdlsResamplingPolyphase_32f* pState);
/* Releases a state of vdlsResamplePolyphaseInitAlloc_16s. */
VdlStatus vdlsResamplePolyphaseFree_16s(VdlsResamplingPolyphase_16s* pState);
/* Releases a state of vdlsResamplePolyphaseFixedInitAlloc_32f. */
VdlStatus vdlsResamplePolyphaseFixedFree_32f(VdlsResamplingPolyphaseFixed_32f* pState);
/* Releases a state of vdlsResamplePolyphaseFixedInitAlloc_16s. */
VdlStatus vdlsResamplePolyphaseFixedFree_16s(VdlsResamplingPolyphaseFixed_16s* pState);

/* -- Normalised cross-correlation of 16-bit signals --
 *
 * The coefficient of x and y over n samples is
 * sum x*y / sqrt(sum x^2 * sum y^2), summed exactly in double; 0 when an
 * energy is 0.
 */

/* *pResult = the coefficient of pSrc1[0..len) and pSrc2[0..len). */
VdlStatus vdlsCrossCorrCoeff_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                    Vdl32f* pResult);
/* As the whole coefficient, with the energy of pSrc1 given as energy1 (the
 * caller computes it once for many calls): sum x*y / sqrt(energy1 * sum y^2).
 * energy1 below 0: vdlStsBadArgErr. */
VdlStatus vdlsCrossCorrCoeffPartial_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                           Vdl32f energy1, Vdl32f* pResult);
/* The coefficients c(l) at the lags l = -1, 0, 1 (pSrc1[n] with pSrc2[n + l]
 * over the samples both hold, len of 2 or more), a parabola through them:
 * *pBeta = the lag of its peak, clamped to [-1, 1], and *pResult its value
 * there; for a parabola without a maximum, lag 0 and c(0). len below 2:
 * vdlStsSizeErr. */
VdlStatus vdlsCrossCorrCoeffInterpolation_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                                 Vdl32f* pBeta, Vdl32f* pResult);
/* Search of the lags L = minLen, minLen + dec, ... up to maxLen: the window
 * pSrc1[0..minLen) against pSrc2[L - minLen .. L). pDst[k] is the coefficient
 * of the k-th lag, and behind the last one (at (maxLen - minLen) / dec + 1)
 * the lag of the largest, the first on ties. Reads maxLen samples of pSrc2.
 * minLen or dec below 1, maxLen below minLen: vdlStsSizeErr. */
VdlStatus vdlsCrossCorrCoeffDecim_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int maxLen,
                                         int minLen, Vdl32f* pDst, int dec);

/* -- Noise reduction of the advanced front end (Aurora) --
 *
 * Power spectra of `len` bins. The Wiener filter of a bin, by the
 * decision-directed estimate of its a priori signal-to-noise ratio:
 * eta = max(0.98 * den / noise + 0.02 * max(src / noise - 1, 0), 0.079432823)
 * (the floor is -22 dB), gain eta / (1 + eta); a bin whose noise is not above
 * 0 gets the gain 1. src is the spectrum of the frame, den the denoised
 * spectrum of the frame before. The 16-bit form gives the gain in Q15,
 * rounded and saturated. The noise update smooths the noise estimate toward
 * the frame: max(0.99 * noise + 0.01 * src, 0), then scaled (integer forms).
 */

/* pDst[k] = Wiener gain of bin k; float. */
VdlStatus vdlsWienerFilterDesign_Aurora_32f(const Vdl32f* pSrc, const Vdl32f* pNoise,
                                            const Vdl32f* pDen, Vdl32f* pDst, int len);
/* pDst[k] = Wiener gain of bin k in Q15; 16-bit spectra. */
VdlStatus vdlsWienerFilterDesign_Aurora_16s(const Vdl16s* pSrc, const Vdl16s* pNoise,
                                            const Vdl16s* pDen, Vdl16s* pDst, int len);
/* pDst[k] = updated noise of bin k; float. */
VdlStatus vdlsNoiseSpectrumUpdate_Aurora_32f(const Vdl32f* pSrc, const Vdl32f* pNoise,
                                             Vdl32f* pDst, int len);
/* pDst[k] = updated noise of bin k, scaled; 16-bit. */
VdlStatus vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs(const Vdl16s* pSrc, const Vdl16s* pNoise,
                                                 Vdl16s* pDst, int len, int scaleFactor);
/* pDst[k] = updated noise of bin k, scaled; 32-bit. */
VdlStatus vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs(const Vdl32s* pSrc, const Vdl32s* pNoise,
                                                 Vdl32s* pDst, int len, int scaleFactor);

/* -- Fixed-point filter-gain updates --
 *
 * Signal-to-noise ratios come in Q22 (4194304 is 1.0; values below 0 count
 * as 0), gains go out in Q30 (1073741824 is 1.0), rounded and saturated.
 */

/* Wiener gain from the a priori ratio xi = pSrc[k]: xi / (1 + xi). */
VdlStatus vdlsFilterUpdateWiener_32s(const Vdl32s* pSrc, Vdl32s* pDst, int len);
/* Ephraim-Malah amplitude gain from the a priori ratio xi = pSrcPrio[k] and
 * the a posteriori ratio g = pSrcPost[k]: with v = xi / (1 + xi) * g,
 * sqrt(pi v) / (2 g) * exp(-v/2) * ((1 + v) I0(v/2) + v I1(v/2)), the
 * Bessel functions by polynomial forms of relative error below 2e-7; g of 0
 * gives the Wiener gain. */
VdlStatus vdlsFilterUpdateEMNS_32s(const Vdl32s* pSrcPrio, const Vdl32s* pSrcPost, Vdl32s* pDst,
                                   int len);

#ifdef __cplusplus
}
#endif

#endif
