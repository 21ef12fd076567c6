/* Feature-extraction functions of the Vdl Primitives: the per-frame front end
 * of a recogniser. C linkage throughout; included by vdlsr.h.
 *
 * Conventions of the family:
 * - A feature matrix is `height` frames (rows) of coefficients. _D2 rows lie
 *   in one buffer a row step apart, in elements.
 * - Dynamic coefficients are regressions over a window of W frames:
 *   R(x)[t] = sum over d = 1..W of d * (x[t+d] - x[t-d]). The double delta
 *   is the regression of the regression, R(R(x)). Frames beyond an end of
 *   the sequence repeat the frame at that end, at each stage.
 * - A destination row of the Delta forms holds the static coefficients in
 *   columns [0, width), the deltas in [width, 2 width) and, for DeltaDelta,
 *   the double deltas in [2 width, 3 width).
 * - deltaMode: bit 1 (vdlsDeltaBegin) says the first row begins the
 *   utterance, bit 2 (vdlsDeltaEnd) that the last row ends it; 3 is a whole
 *   utterance. Where a bit is clear the rows at that end are context only:
 *   the first (or last) W rows (2 W for double deltas) get no dynamic
 *   coefficients and are left as they were; their statics are copied.
 * - Mul forms take pVal of 3 * width multipliers, one per column of a
 *   destination row (static, delta, double delta blocks).
 * - Integer forms compute exactly in double and write each computed value
 *   times 2^-scaleFactor, rounded to nearest (halves away from zero) and
 *   saturated to the result type; a plain copy of a static coefficient is
 *   not scaled. Q15 forms say so and take their values as integer / 32768.
 * - _32f forms compute in float unless the line says double.
 * - Bad arguments return a negative status before anything is written:
 *   vdlStsNullPtrErr, vdlStsSizeErr (a length, height or width below 1),
 *   vdlStsStepErr (a row step too small for what a row must hold),
 *   vdlStsBadArgErr (a value outside its domain), vdlStsOutOfRangeErr (a
 *   window, offset or period outside its range), vdlStsContextMatchErr (a
 *   state of the wrong kind).
 */
#ifndef VDLSR_FEATURE_H
#define VDLSR_FEATURE_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

enum { vdlsDeltaBegin = 1, vdlsDeltaEnd = 2 };

/* ---- Delta and double delta ---- */

/* Row t of pDst: x (copy), val * R(x), window 1 or 2; 2 width <= dstStep. */
VdlStatus vdlsDelta_Win1_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height, Vdl32f val, int deltaMode);
VdlStatus vdlsDelta_Win2_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height, Vdl32f val, int deltaMode);
/* As above in integers; the deltas are scaled. */
VdlStatus vdlsDelta_Win1_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                   int height, int val, int deltaMode, int scaleFactor);
VdlStatus vdlsDelta_Win2_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                   int height, int val, int deltaMode, int scaleFactor);
/* Row t: x, val1 * R(x), val2 * R(R(x)); 3 width <= dstStep. */
VdlStatus vdlsDeltaDelta_Win1_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                     int height, Vdl32f val1, Vdl32f val2, int deltaMode);
VdlStatus vdlsDeltaDelta_Win2_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                     int height, Vdl32f val1, Vdl32f val2, int deltaMode);
VdlStatus vdlsDeltaDelta_Win1_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                        int height, int val1, int val2, int deltaMode,
                                        int scaleFactor);
VdlStatus vdlsDeltaDelta_Win2_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                        int height, int val1, int val2, int deltaMode,
                                        int scaleFactor);
/* Row t: pVal[k] x, pVal[width + k] R(x); statics multiplied and scaled. */
VdlStatus vdlsDeltaMul_Win1_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width, Vdl32f* pDst,
                                   int dstStep, int height, int deltaMode);
VdlStatus vdlsDeltaMul_Win2_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width, Vdl32f* pDst,
                                   int dstStep, int height, int deltaMode);
VdlStatus vdlsDeltaMul_Win1_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                      Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                      int scaleFactor);
VdlStatus vdlsDeltaMul_Win2_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                      Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                      int scaleFactor);
/* Row t: pVal[k] x, pVal[width + k] R(x), pVal[2 width + k] R(R(x)). */
VdlStatus vdlsDeltaDeltaMul_Win1_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width,
                                        Vdl32f* pDst, int dstStep, int height, int deltaMode);
VdlStatus vdlsDeltaDeltaMul_Win2_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width,
                                        Vdl32f* pDst, int dstStep, int height, int deltaMode);
VdlStatus vdlsDeltaDeltaMul_Win1_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                           Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                           int scaleFactor);
VdlStatus vdlsDeltaDeltaMul_Win2_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                           Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                           int scaleFactor);
/* In place: rows of `step` hold the statics in [0, width); for rows
 * offset .. height-1 writes val R(x) into [width, 2 width) and val R(R(x))
 * into [2 width, 3 width), window winSize (1 or 2). Rows before `offset` are
 * history from an earlier call: the window reads them, nothing writes them.
 * 3 width <= step, 0 <= offset < height. */
VdlStatus vdlsEvalDelta_32f_D2(Vdl32f* pSrcDst, int height, int step, int width, int offset,
                               int winSize, Vdl32f val);
VdlStatus vdlsEvalDelta_16s_D2Sfs(Vdl16s* pSrcDst, int height, int step, int width, int offset,
                                  int winSize, int val, int scaleFactor);
/* As EvalDelta with multipliers: pVal[width + k] for the delta,
 * pVal[2 width + k] for the double delta; pVal[0 .. width) is not read
 * (the statics stay as they are). */
VdlStatus vdlsEvalDeltaMul_32f_D2(Vdl32f* pSrcDst, int height, int step, const Vdl32f* pVal,
                                  int width, int offset, int winSize);
VdlStatus vdlsEvalDeltaMul_16s_D2Sfs(Vdl16s* pSrcDst, int height, int step, const Vdl16s* pVal,
                                     int width, int offset, int winSize, int scaleFactor);
/* Copies `height` rows of `width` packed values into rows `dstStep` apart. */
VdlStatus vdlsCopyColumn_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height);
VdlStatus vdlsCopyColumn_16s_D2(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                int height);

/* ---- Aurora dynamic features ----
 * A source row holds 14 values: c1..c12, c0, log energy. A destination row
 * (dstStep >= 39) gets the 13 statics c1..c12, logE, then their deltas
 * R3(x) / 28 (window 3) and double deltas R2(R3(x) / 28) / 10 (window 2).
 * deltaMode as for DeltaDelta, with 3 and 5 context rows. Mul forms
 * multiply output column j by pVal[j] (39 values). */
VdlStatus vdlsDeltaDelta_Aurora_32f_D2(const Vdl32f* pSrc, Vdl32f* pDst, int dstStep, int height,
                                       int deltaMode);
VdlStatus vdlsDeltaDelta_Aurora_16s_D2Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int dstStep,
                                          int height, int deltaMode, int scaleFactor);
VdlStatus vdlsDeltaDeltaMul_Aurora_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, Vdl32f* pDst,
                                          int dstStep, int height, int deltaMode);
VdlStatus vdlsDeltaDeltaMul_Aurora_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal,
                                             Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                             int scaleFactor);

/* ---- Cepstral lifter ----
 * pDst[n] = val * L(n) * sqrt(2/N) * sum over j < N of pSrc[j] cos(pi n (j + 0.5) / N)
 * for n = 0 .. nMFCC-1, N = lenDCT filter-bank log energies, with the lifter
 * L(n) = 1 + (nLifter / 2) sin(pi n / nLifter) (L = 1 for nLifter 0).
 * The table is held in float (a relative error up to 6e-8 per entry);
 * sums run in double. 1 <= nMFCC <= lenDCT, nLifter >= 0. */
typedef struct VdlDCTLifterState_32f VdlDCTLifterState_32f;
typedef struct VdlDCTLifterState_16s VdlDCTLifterState_16s;
VdlStatus vdlsDCTLifterInitAlloc_32f(VdlDCTLifterState_32f** ppState, int lenDCT, int nMFCC,
                                     int nLifter, Vdl32f val);
VdlStatus vdlsDCTLifterInitAlloc_16s(VdlDCTLifterState_16s** ppState, int lenDCT, int nMFCC,
                                     int nLifter, Vdl32f val);
VdlStatus vdlsDCTLifterFree_32f(VdlDCTLifterState_32f* pState);
VdlStatus vdlsDCTLifterFree_16s(VdlDCTLifterState_16s* pState);
VdlStatus vdlsDCTLifter_32f(const Vdl32f* pSrc, Vdl32f* pDst, const VdlDCTLifterState_32f* pState);
VdlStatus vdlsDCTLifter_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst,
                                const VdlDCTLifterState_16s* pState, int scaleFactor);
VdlStatus vdlsDCTLifter_32s16s_Sfs(const Vdl32s* pSrc, Vdl16s* pDst,
                                   const VdlDCTLifterState_16s* pState, int scaleFactor);

/* ---- Mel scale and filter banks ---- */

/* pDst = melDiv * (exp(pSrc / melMul) - 1); melMul, melDiv > 0; double inside. */
VdlStatus vdlsMelToLinear_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f melMul,
                              Vdl32f melDiv);
/* pDst = melMul * ln(1 + pSrc / melDiv); a value at or below -melDiv gives
 * -inf or NaN as the logarithm does. */
VdlStatus vdlsLinearToMel_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f melMul,
                              Vdl32f melDiv);
/* Copies lenSrc values and fills pDst up to lenDst with zeros; lenDst >= lenSrc. */
VdlStatus vdlsCopyWithPadding_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst);
VdlStatus vdlsCopyWithPadding_16s(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst, int lenDst);

/* A mel filter bank: nFilter triangles over the bins 0 .. fftLen/2 - 1 of a
 * power spectrum (bin k at k * sampFreq / fftLen; the Nyquist bin is not
 * read), where fftLen is the smallest power of two >= frameLen and is
 * written to *pFFTLen. The triangles' corners lie evenly on the mel scale
 * from lowFreq to highFreq (0 <= lowFreq < highFreq <= sampFreq / 2): filter
 * i rises from corner i to corner i+1 and falls to corner i+2. The mel
 * scale is melMul * ln(1 + f / melDiv) for mode 1 and melMul * log10(1 +
 * f / melDiv) for mode 2. Weights are held in float. */
typedef struct VdlFBankState_32f VdlFBankState_32f;
typedef struct VdlFBankState_16s VdlFBankState_16s;
typedef struct VdlFBankState_32s VdlFBankState_32s;
/* Bytes that vdlsMelFBankInit_32s needs for a bank of these sizes. */
VdlStatus vdlsMelFBankGetSize_32s(int frameLen, int nFilter, int mode, int* pSize);
/* Builds a bank in caller memory of GetSize bytes; frequencies in Hz,
 * melMulQ15 and melDivQ15 in Q15 (2595 and 700 are 85032960 and 22937600). */
VdlStatus vdlsMelFBankInit_32s(VdlFBankState_32s* pFBank, int* pFFTLen, int frameLen,
                               int sampFreq, int lowFreq, int highFreq, int nFilter,
                               int melMulQ15, int melDivQ15, int mode);
VdlStatus vdlsMelFBankInitAlloc_16s(VdlFBankState_16s** ppFBank, int* pFFTLen, int frameLen,
                                    Vdl32f sampFreq, Vdl32f lowFreq, Vdl32f highFreq,
                                    int nFilter, Vdl32f melMul, Vdl32f melDiv, int mode);
VdlStatus vdlsMelFBankInitAlloc_32f(VdlFBankState_32f** ppFBank, int* pFFTLen, int frameLen,
                                    Vdl32f sampFreq, Vdl32f lowFreq, Vdl32f highFreq,
                                    int nFilter, Vdl32f melMul, Vdl32f melDiv, int mode);
VdlStatus vdlsFBankFree_16s(VdlFBankState_16s* pFBank);
VdlStatus vdlsFBankFree_32f(VdlFBankState_32f* pFBank);
/* pDst[i] = sum over bins of weight_i(k) pSrc[k], i < nFilter; sums in
 * double; pSrc holds fftLen/2 bins. */
VdlStatus vdlsEvalFBank_32f(const Vdl32f* pSrc, Vdl32f* pDst, const VdlFBankState_32f* pFBank);
VdlStatus vdlsEvalFBank_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, const VdlFBankState_16s* pFBank,
                                int scaleFactor);
VdlStatus vdlsEvalFBank_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pDst,
                                   const VdlFBankState_16s* pFBank, int scaleFactor);
VdlStatus vdlsEvalFBank_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pDst, const VdlFBankState_32s* pFBank,
                                int scaleFactor);

/* ---- Linear prediction and cepstrum ----
 * Predictor coefficients a1..ap of 1 / (1 - sum a_k z^-k) and cepstrum
 * c1..cp, p = len: c_n = a_n + sum over k < n of (k/n) c_k a_(n-k), and its
 * inverse a_n = c_n - sum over k < n of (k/n) c_k a_(n-k). Double inside.
 * 16s forms: both sides in Q15; the result in Q15 times 2^-scaleFactor. */
VdlStatus vdlsLPToCepstrum_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
VdlStatus vdlsLPToCepstrum_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor);
VdlStatus vdlsCepstrumToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
VdlStatus vdlsCepstrumToLP_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor);

/* ---- Normalisation ---- */

/* Log energies E_i = pSrcDst[i * step], i < height, in place: with M the
 * largest, E_i = unit - enScale * (M - max(E_i, M - silFloor)); unit is 1
 * in the float forms. The RT forms use a running maximum within the call,
 * M_i = max(E_i, M_(i-1) - decay), M_0 = E_0. silFloor, decay >= 0;
 * double inside, integers rounded. */
VdlStatus vdlsNormEnergy_32f(Vdl32f* pSrcDst, int step, int height, Vdl32f silFloor,
                             Vdl32f enScale);
VdlStatus vdlsNormEnergy_16s(Vdl16s* pSrcDst, int step, int height, int silFloor, int unit,
                             Vdl32f enScale);
VdlStatus vdlsNormEnergy_RT_32f(Vdl32f* pSrcDst, int step, int height, Vdl32f silFloor,
                                Vdl32f decay, Vdl32f enScale);
VdlStatus vdlsNormEnergy_RT_16s(Vdl16s* pSrcDst, int step, int height, int silFloor, int decay,
                                int unit, Vdl32f enScale);

/* With t = (x - min) / (max - min), where min and max are found in the data
 * (or given, MinMax forms, srcMin < srcMax), the result is
 * range * clamp((t - lowCut) / (highCut - lowCut), 0, 1), integers rounded;
 * 0 <= lowCut < highCut <= 1. Data of one value give 0. Double inside. */
VdlStatus vdlsNormalizeInRange_16s8u(const Vdl16s* pSrc, Vdl8u* pDst, int len, Vdl32f lowCut,
                                     Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRange_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32f lowCut,
                                   Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRange_16s_I(Vdl16s* pSrcDst, int len, Vdl32f lowCut, Vdl32f highCut,
                                     int range);
VdlStatus vdlsNormalizeInRange_32f8u(const Vdl32f* pSrc, Vdl8u* pDst, int len, Vdl32f lowCut,
                                     Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRange_32f16s(const Vdl32f* pSrc, Vdl16s* pDst, int len, Vdl32f lowCut,
                                      Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRange_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f lowCut,
                                   Vdl32f highCut, Vdl32f range);
VdlStatus vdlsNormalizeInRange_32f_I(Vdl32f* pSrcDst, int len, Vdl32f lowCut, Vdl32f highCut,
                                     Vdl32f range);
VdlStatus vdlsNormalizeInRangeMinMax_16s8u(const Vdl16s* pSrc, Vdl8u* pDst, int len,
                                           Vdl16s srcMin, Vdl16s srcMax, Vdl32f lowCut,
                                           Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRangeMinMax_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl16s srcMin,
                                         Vdl16s srcMax, Vdl32f lowCut, Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRangeMinMax_16s_I(Vdl16s* pSrcDst, int len, Vdl16s srcMin,
                                           Vdl16s srcMax, Vdl32f lowCut, Vdl32f highCut,
                                           int range);
VdlStatus vdlsNormalizeInRangeMinMax_32f8u(const Vdl32f* pSrc, Vdl8u* pDst, int len,
                                           Vdl32f srcMin, Vdl32f srcMax, Vdl32f lowCut,
                                           Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRangeMinMax_32f16s(const Vdl32f* pSrc, Vdl16s* pDst, int len,
                                            Vdl32f srcMin, Vdl32f srcMax, Vdl32f lowCut,
                                            Vdl32f highCut, int range);
VdlStatus vdlsNormalizeInRangeMinMax_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f srcMin,
                                         Vdl32f srcMax, Vdl32f lowCut, Vdl32f highCut,
                                         Vdl32f range);
VdlStatus vdlsNormalizeInRangeMinMax_32f_I(Vdl32f* pSrcDst, int len, Vdl32f srcMin,
                                           Vdl32f srcMax, Vdl32f lowCut, Vdl32f highCut,
                                           Vdl32f range);

/* Subtracts the mean (sum / len rounded to nearest) in place, saturated. */
VdlStatus vdlsZeroMean_16s(Vdl16s* pSrcDst, int len);

/* ---- Sign changes, peaks, periodicity ---- */

/* *pRes = number of i in 1..len-1 with pSrc[i-1] * pSrc[i] < 0 (zeros
 * change nothing). Count0 forms count a zero as a change (product <= 0);
 * the Xor form counts a change of the sign bit, so -0 and +0 differ. */
VdlStatus vdlsSignChangeRate_32f(const Vdl32f* pSrc, int len, Vdl32f* pRes);
VdlStatus vdlsSignChangeRate_16s(const Vdl16s* pSrc, int len, Vdl32s* pRes);
VdlStatus vdlsSignChangeRateXor_32f(const Vdl32f* pSrc, int len, Vdl32s* pRes);
VdlStatus vdlsSignChangeRate_Count0_32f(const Vdl32f* pSrc, int len, Vdl32f* pRes);
VdlStatus vdlsSignChangeRate_Count0_16s(const Vdl16s* pSrc, int len, Vdl32s* pRes);

/* pDstPeaks[i] = 1 where pSrc[i] is above every other value within
 * searchSize (>= 1) of it and, for movingAvgSize > 0, above the mean of the
 * values within movingAvgSize of it; else 0. */
VdlStatus vdlsFindPeaks_32s8u(const Vdl32s* pSrc, Vdl8u* pDstPeaks, int len, int searchSize,
                              int movingAvgSize);
/* Least-squares periodicity of period P (minPeriod <= P <= maxPeriod,
 * 2 maxPeriod <= len): R(P) = (I0 - I1) / (E - I1) with E the energy,
 * I0 = sum over residues n < P of (sum of x at n mod P)^2 / K_n and
 * I1 = sum over n of (sum of x^2 at n mod P) / K_n. The best period goes to
 * *pPeriod, its R in Q15 (saturated) to *pPeriodicityQ15; no energy gives 0
 * and minPeriod. */
VdlStatus vdlsPeriodicityLSPE_16s(const Vdl16s* pSrc, int len, Vdl16s* pPeriodicityQ15,
                                  int* pPeriod, int maxPeriod, int minPeriod);
/* As above with the normalised autocorrelation
 * r(P) = sum x[n] x[n+P] / sqrt(sum x[n]^2 sum x[n+P]^2), n < len - P;
 * maxPeriod < len. */
VdlStatus vdlsPeriodicity_32s16s(const Vdl32s* pSrc, int len, Vdl16s* pPeriodicityQ15,
                                 int* pPeriod, int maxPeriod, int minPeriod);

/* F0 candidates of pitch marks (positions in ascending order):
 * pDst[i] = 1 / (pSrc[i+1] - pSrc[i]), 0 for an interval <= 0; the last
 * repeats the one before it (0 for len 1). Double inside. */
VdlStatus vdlsPitchmarkToF0Cand_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
VdlStatus vdlsPitchmarkToF0Cand_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len,
                                        int scaleFactor);

/* ---- Aurora front-end stages ---- */

/* Codes three high-band log energies against the low band's noise
 * reduction: g = (sum of the 129 bins of pDSWP, a 256-point power spectrum
 * after noise reduction) / 2 / (sum of the 65 bins of pInSWP, the 128-point
 * spectrum before it), floored at 1e-5; pDstHFB[i] = pSrcHFB[i] + ln g
 * (g = 1 when the low band holds no energy). Double inside. */
VdlStatus vdlsHighBandCoding_Aurora_32f(const Vdl32f* pSrcHFB, const Vdl32f* pInSWP,
                                        const Vdl32f* pDSWP, Vdl32f* pDstHFB);
VdlStatus vdlsHighBandCoding_Aurora_32s_Sfs(const Vdl32s* pSrcHFB, const Vdl32s* pInSWP,
                                            const Vdl32s* pDSWP, Vdl32s* pDstHFB,
                                            int scaleFactor);
/* Blind equalisation of cepstra: pDst = pSrc - pBias, then each bias moves
 * towards its coefficient, pBias += weight * 9/1024 * (pSrc - pBias).
 * Double inside; the 16s form rounds the bias. */
VdlStatus vdlsBlindEqualization_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, Vdl32f* pBias,
                                           int len, Vdl32f weight);
VdlStatus vdlsBlindEqualization_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst, Vdl16s* pBias,
                                           int len, int weight);
/* SNR-dependent waveform processing of one frame of 200 samples: Teager
 * energy |x[n]^2 - x[n-1] x[n+1]| smoothed over 9 samples, peaks where it is
 * positive and the largest within 12 samples (the first of equal ones);
 * from each peak the first 80%
 * of the interval to the next one (the last interval repeats the one before,
 * or runs to the frame's end) is weighted by 1.2, all else by 0.8; a frame
 * with no peak is copied. Double inside. */
VdlStatus vdlsWaveProcessing_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst);
VdlStatus vdlsWaveProcessing_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst);
/* pSrc holds len / 2 complex bins (re, im pairs); with P(k) = re^2 + im^2,
 * pDst[j] = (P(2j-1) + 2 P(2j) + P(2j+1)) / 4 for j = 0 .. len/4 (len/4 + 1
 * values), a bin beyond either end taking the nearest one. len a multiple
 * of 4. Double inside. The 16s form is Q15 (P shifted right by 15). */
VdlStatus vdlsSmoothedPowerSpectrumAurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
VdlStatus vdlsSmoothedPowerSpectrumAurora_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pDst, int len,
                                                  int scaleFactor);
VdlStatus vdlsSmoothedPowerSpectrumAurora_32s64s_Sfs(const Vdl32s* pSrc, Vdl64s* pDst, int len,
                                                     int scaleFactor);
VdlStatus vdlsSmoothedPowerSpectrumAurora_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len);

/* ---- DC offset compensation ----
 * y[n] = x[n] - x[n-1] + val * y[n-1], with x[-1] = *pSrcLast and
 * y[-1] = dstLast; on return *pSrcLast holds x[len-1] for the next frame.
 * Each y is rounded and saturated in the 16s forms before it feeds back.
 * Q15 forms take val in Q15. */
VdlStatus vdlsCompensateOffset_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pSrcLast,
                                   Vdl32f dstLast, Vdl32f val);
VdlStatus vdlsCompensateOffset_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl16s* pSrcLast,
                                   Vdl16s dstLast, Vdl32f val);
VdlStatus vdlsCompensateOffset_32f_I(Vdl32f* pSrcDst, int len, Vdl32f* pSrcLast, Vdl32f dstLast,
                                     Vdl32f val);
VdlStatus vdlsCompensateOffset_16s_I(Vdl16s* pSrcDst, int len, Vdl16s* pSrcLast, Vdl16s dstLast,
                                     Vdl32f val);
VdlStatus vdlsCompensateOffsetQ15_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len,
                                      Vdl16s* pSrcLast, Vdl16s dstLast, Vdl16s valQ15);
VdlStatus vdlsCompensateOffsetQ15_16s_I(Vdl16s* pSrcDst, int len, Vdl16s* pSrcLast,
                                        Vdl16s dstLast, Vdl16s valQ15);

#ifdef __cplusplus
}
#endif

#endif
