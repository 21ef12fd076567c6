/* Gaussian scoring functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_GAUSS_H
#define VDLSR_GAUSS_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Gaussian scoring ----
 *
 * A Gaussian is diagonal: a mean row and a variance row of `width` (or `len`)
 * elements. The variance row holds precisions w = 1 / variance, so that
 * scoring multiplies instead of dividing; a DirectVar form takes the
 * variances themselves, and an IdVar form takes no variance row and uses
 * w = 1. For a frame x, q = sum over k of (x[k] - mean[k])^2 * w[k].
 *
 * The log-likelihood is val - q/2. The value val holds all that does not
 * depend on the frame (log weight, -log det(2 pi var)/2), so no other
 * constant is added. Without MultiMix a call scores `height` frames against
 * one Gaussian, result i for frame i, all with the one val; with MultiMix it
 * scores one frame against `height` Gaussians, result j for Gaussian j, with
 * val per Gaussian: from pVal[j], or in vdlsLogGaussMultiMix from pSrcDst[j]
 * on input, which the score then replaces. LogGauss writes the score,
 * LogGaussAdd log-adds it into pSrcDst (logadd(a, b) = log(exp(a) + exp(b))),
 * LogGaussMax keeps the larger. MahDist gives the Mahalanobis distance sqrt(q).
 *
 * _D2 rows lie in one buffer `step` elements apart (step >= width); _D2L rows
 * are given by a table of `height` row pointers.
 *
 * _32f forms sum q in float, _64f and _32f64f in double. 16-bit data
 * (Scaled, LowScaled, Sfs) are summed exactly in double; the frame term (-q/2,
 * or the distance) is then multiplied by 2^-scaleFactor, and val, in units
 * of the result, is added after that, in double, before the conversion to
 * the result type: an integer result is rounded to nearest, halves away from
 * zero, and saturated to 32 bits. Low forms sum in float instead: faster,
 * with a relative error of q up to (width + 1) * 6e-8 (each term rounds
 * twice, each addition once), so large integer results may differ from the
 * exact form by more than one.
 *
 * Sums run in partial sums whose order depends on the code path in force
 * (vdlGetCodePath). Double sums of 16-bit data are exact in any order; float
 * sums (_32f, Low) of two paths may differ by a relative error of q up to
 * (width + 1) * 6e-8, double sums by (width + 1) * 1.2e-16.
 *
 * Every function checks its arguments before it writes anything, and for a
 * bad one returns at once: vdlStsNullPtrErr for a null pointer (a null row of
 * a _D2L table too), vdlStsSizeErr for a width, height or length below 1,
 * vdlStsStepErr for a step below the width, vdlStsBadArgErr for a variance
 * that must be positive (DirectVar and the operations on Gaussians) and is
 * not.
 */

/* -- Log-likelihood of frames against one Gaussian. -- */

/* pDst[i] = val - q_i/2; step rows; float. */
VdlStatus vdlsLogGauss_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                              const Vdl32f* pVar, int width, Vdl32f* pDst, int height, Vdl32f val);
/* pDst[i] = val - q_i/2; step rows; double. */
VdlStatus vdlsLogGauss_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                              const Vdl64f* pVar, int width, Vdl64f* pDst, int height, Vdl64f val);
/* pDst[i] = val - q_i/2; step rows; 16s->32f scaled. */
VdlStatus vdlsLogGauss_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                        Vdl32f val, int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; 16s->32s scaled. */
VdlStatus vdlsLogGauss_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                    const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                    Vdl32s val, int scaleFactor);
/* pDst[i] = val - q_i/2; row table; float. */
VdlStatus vdlsLogGauss_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                               int width, Vdl32f* pDst, int height, Vdl32f val);
/* pDst[i] = val - q_i/2; row table; double. */
VdlStatus vdlsLogGauss_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                               int width, Vdl64f* pDst, int height, Vdl64f val);
/* pDst[i] = val - q_i/2; row table; 16s->32f scaled. */
VdlStatus vdlsLogGauss_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                         const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                         Vdl32f val, int scaleFactor);
/* pDst[i] = val - q_i/2; row table; 16s->32s scaled. */
VdlStatus vdlsLogGauss_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                     const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                     Vdl32s val, int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; w = 1; float. */
VdlStatus vdlsLogGauss_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean, int width,
                                    Vdl32f* pDst, int height, Vdl32f val);
/* pDst[i] = val - q_i/2; step rows; w = 1; double. */
VdlStatus vdlsLogGauss_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean, int width,
                                    Vdl64f* pDst, int height, Vdl64f val);
/* pDst[i] = val - q_i/2; step rows; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGauss_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32f* pDst, int height, Vdl32f val,
                                             int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; w = 1; 16s->32s scaled. */
VdlStatus vdlsLogGauss_IdVar_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                          int width, Vdl32s* pDst, int height, Vdl32s val,
                                          int scaleFactor);
/* pDst[i] = val - q_i/2; row table; w = 1; float. */
VdlStatus vdlsLogGauss_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                     Vdl32f* pDst, int height, Vdl32f val);
/* pDst[i] = val - q_i/2; row table; w = 1; double. */
VdlStatus vdlsLogGauss_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                     Vdl64f* pDst, int height, Vdl64f val);
/* pDst[i] = val - q_i/2; row table; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGauss_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32f* pDst, int height, Vdl32f val,
                                              int scaleFactor);
/* pDst[i] = val - q_i/2; row table; w = 1; 16s->32s scaled. */
VdlStatus vdlsLogGauss_IdVar_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                           int width, Vdl32s* pDst, int height, Vdl32s val,
                                           int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGauss_Low_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                        Vdl32s val, int scaleFactor);
/* pDst[i] = val - q_i/2; row table; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGauss_Low_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                         const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                         Vdl32s val, int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGauss_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                           Vdl32f val, int scaleFactor);
/* pDst[i] = val - q_i/2; row table; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGauss_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pDst,
                                            int height, Vdl32f val, int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; w = 1; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGauss_IdVarLow_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32s* pDst, int height, Vdl32s val,
                                             int scaleFactor);
/* pDst[i] = val - q_i/2; row table; w = 1; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGauss_IdVarLow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32s* pDst, int height, Vdl32s val,
                                              int scaleFactor);
/* pDst[i] = val - q_i/2; step rows; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGauss_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pDst, int height, Vdl32f val,
                                                int scaleFactor);
/* pDst[i] = val - q_i/2; row table; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGauss_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pDst, int height, Vdl32f val,
                                                 int scaleFactor);

/* -- Log-likelihood of one frame against many Gaussians. -- */

/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; float. */
VdlStatus vdlsLogGaussMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                      const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; double. */
VdlStatus vdlsLogGaussMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                      const Vdl64f* pSrc, int width, Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                                const Vdl16s* pSrc, int width, Vdl32f* pSrcDst,
                                                int height, int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; 16s->32s scaled. */
VdlStatus vdlsLogGaussMultiMix_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                            const Vdl16s* pSrc, int width, Vdl32s* pSrcDst,
                                            int height, int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; float. */
VdlStatus vdlsLogGaussMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                       const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; double. */
VdlStatus vdlsLogGaussMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                       const Vdl64f* pSrc, int width, Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; 16s->32f scaled. */
VdlStatus vdlsLogGaussMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                 const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; 16s->32s scaled. */
VdlStatus vdlsLogGaussMultiMix_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                             const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                             int width, Vdl32s* pSrcDst, int height,
                                             int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMultiMix_Low_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                                const Vdl16s* pSrc, int width, Vdl32s* pSrcDst,
                                                int height, int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMultiMix_Low_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                 const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                 int width, Vdl32s* pSrcDst, int height,
                                                 int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   Vdl32f* pSrcDst, int height, int scaleFactor);
/* pSrcDst[j] = pSrcDst[j] - q_j/2; row tables; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, Vdl32f* pSrcDst, int height,
                                                    int scaleFactor);

/* -- Log-likelihood of frames against one Gaussian, log-added into the results. -- */

/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; float. */
VdlStatus vdlsLogGaussAdd_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                 const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                 Vdl32f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; float. */
VdlStatus vdlsLogGaussAdd_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean,
                                  const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                  Vdl32f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; double. */
VdlStatus vdlsLogGaussAdd_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                 const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                 Vdl64f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; double. */
VdlStatus vdlsLogGaussAdd_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean,
                                  const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                  Vdl64f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussAdd_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                           int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; 16s->32f scaled. */
VdlStatus vdlsLogGaussAdd_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                            int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; w = 1; float. */
VdlStatus vdlsLogGaussAdd_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                       int width, Vdl32f* pSrcDst, int height, Vdl32f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; w = 1; float. */
VdlStatus vdlsLogGaussAdd_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                        Vdl32f* pSrcDst, int height, Vdl32f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; w = 1; double. */
VdlStatus vdlsLogGaussAdd_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                       int width, Vdl64f* pSrcDst, int height, Vdl64f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; w = 1; double. */
VdlStatus vdlsLogGaussAdd_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                        Vdl64f* pSrcDst, int height, Vdl64f val);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussAdd_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pSrcDst, int height, Vdl32f val,
                                                int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussAdd_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAdd_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                              int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAdd_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                               int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step,
                                                   const Vdl16s* pMean, int width, Vdl32f* pSrcDst,
                                                   int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = logadd(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                    const Vdl16s* pMean, int width,
                                                    Vdl32f* pSrcDst, int height, Vdl32f val,
                                                    int scaleFactor);

/* -- Log-likelihood of one frame against many Gaussians, log-added into the results. -- */

/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); step rows; float. */
VdlStatus vdlsLogGaussAddMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                         const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                         Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); row tables; float. */
VdlStatus vdlsLogGaussAddMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                          const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                          Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); step rows; double. */
VdlStatus vdlsLogGaussAddMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                         const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                         Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); row tables; double. */
VdlStatus vdlsLogGaussAddMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                          const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                          Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussAddMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32f* pVal, Vdl32f* pSrcDst, int height,
                                                   int scaleFactor);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32f scaled. */
VdlStatus vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                    int height, int scaleFactor);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                      int step, const Vdl16s* pSrc, int width,
                                                      const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                      int height, int scaleFactor);
/* pSrcDst[j] = logadd(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                       const Vdl16s* const* ppVar,
                                                       const Vdl16s* pSrc, int width,
                                                       const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                       int height, int scaleFactor);

/* -- Log-likelihood of frames against one Gaussian, kept where it is the larger. -- */

/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; float. */
VdlStatus vdlsLogGaussMax_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                 const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                 Vdl32f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; float. */
VdlStatus vdlsLogGaussMax_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean,
                                  const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                  Vdl32f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; double. */
VdlStatus vdlsLogGaussMax_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                 const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                 Vdl64f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; double. */
VdlStatus vdlsLogGaussMax_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean,
                                  const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                  Vdl64f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussMax_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                           int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; 16s->32f scaled. */
VdlStatus vdlsLogGaussMax_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                            int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; 16s->32s scaled. */
VdlStatus vdlsLogGaussMax_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                       const Vdl16s* pVar, int width, Vdl32s* pSrcDst, int height,
                                       Vdl32s val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; 16s->32s scaled. */
VdlStatus vdlsLogGaussMax_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32s* pSrcDst, int height,
                                        Vdl32s val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; float. */
VdlStatus vdlsLogGaussMax_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                       int width, Vdl32f* pSrcDst, int height, Vdl32f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; float. */
VdlStatus vdlsLogGaussMax_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                        Vdl32f* pSrcDst, int height, Vdl32f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; double. */
VdlStatus vdlsLogGaussMax_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                       int width, Vdl64f* pSrcDst, int height, Vdl64f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; double. */
VdlStatus vdlsLogGaussMax_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                        Vdl64f* pSrcDst, int height, Vdl64f val);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussMax_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pSrcDst, int height, Vdl32f val,
                                                int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussMax_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32s scaled. */
VdlStatus vdlsLogGaussMax_IdVar_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                             int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32s scaled. */
VdlStatus vdlsLogGaussMax_IdVar_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                              int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMax_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                              int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMax_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                               int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMax_Low_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32s* pSrcDst,
                                           int height, Vdl32s val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMax_Low_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32s* pSrcDst,
                                            int height, Vdl32s val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMax_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step,
                                                   const Vdl16s* pMean, int width, Vdl32f* pSrcDst,
                                                   int height, Vdl32f val, int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                    const Vdl16s* pMean, int width,
                                                    Vdl32f* pSrcDst, int height, Vdl32f val,
                                                    int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); step rows; w = 1; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                                int scaleFactor);
/* pSrcDst[i] = max(pSrcDst[i], val - q_i/2); row table; w = 1; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32s* pSrcDst, int height,
                                                 Vdl32s val, int scaleFactor);

/* -- Log-likelihood of one frame against many Gaussians, kept where it is the larger. -- */

/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; float. */
VdlStatus vdlsLogGaussMaxMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                         const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                         Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; float. */
VdlStatus vdlsLogGaussMaxMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                          const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                          Vdl32f* pSrcDst, int height);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; double. */
VdlStatus vdlsLogGaussMaxMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                         const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                         Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; double. */
VdlStatus vdlsLogGaussMaxMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                          const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                          Vdl64f* pSrcDst, int height);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32f* pVal, Vdl32f* pSrcDst, int height,
                                                   int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32f scaled. */
VdlStatus vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                    int height, int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32s scaled. */
VdlStatus vdlsLogGaussMaxMultiMix_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                               const Vdl16s* pSrc, int width, const Vdl32s* pVal,
                                               Vdl32s* pSrcDst, int height, int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32s scaled. */
VdlStatus vdlsLogGaussMaxMultiMix_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                int width, const Vdl32s* pVal, Vdl32s* pSrcDst,
                                                int height, int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                      int step, const Vdl16s* pSrc, int width,
                                                      const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                      int height, int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                       const Vdl16s* const* ppVar,
                                                       const Vdl16s* pSrc, int width,
                                                       const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                       int height, int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); step rows; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32s* pVal, Vdl32s* pSrcDst, int height,
                                                   int scaleFactor);
/* pSrcDst[j] = max(pSrcDst[j], pVal[j] - q_j/2); row tables; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32s* pVal, Vdl32s* pSrcDst,
                                                    int height, int scaleFactor);

/* -- Log-likelihood of one frame against a whole mixture. -- */

/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; 16s->32f scaled. */
VdlStatus vdlsLogGaussMixture_Scaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int height, int step, int width,
                                               const Vdl32f* pVal, Vdl32f* pResult,
                                               int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; 16s->32f scaled. */
VdlStatus vdlsLogGaussMixture_Scaled_16s32f_D2L(const Vdl16s* pSrc, const Vdl16s* const* ppMean,
                                                const Vdl16s* const* ppVar, int height, int width,
                                                const Vdl32f* pVal, Vdl32f* pResult,
                                                int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMixture_LowScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const Vdl16s* pVar, int height, int step,
                                                  int width, const Vdl32f* pVal, Vdl32f* pResult,
                                                  int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMixture_LowScaled_16s32f_D2L(const Vdl16s* pSrc, const Vdl16s* const* ppMean,
                                                   const Vdl16s* const* ppVar, int height,
                                                   int width, const Vdl32f* pVal, Vdl32f* pResult,
                                                   int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; float. */
VdlStatus vdlsLogGaussMixture_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                     int height, int step, int width, const Vdl32f* pVal,
                                     Vdl32f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; float. */
VdlStatus vdlsLogGaussMixture_32f_D2L(const Vdl32f* pSrc, const Vdl32f* const* ppMean,
                                      const Vdl32f* const* ppVar, int height, int width,
                                      const Vdl32f* pVal, Vdl32f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; double. */
VdlStatus vdlsLogGaussMixture_64f_D2(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                     int height, int step, int width, const Vdl64f* pVal,
                                     Vdl64f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; double. */
VdlStatus vdlsLogGaussMixture_64f_D2L(const Vdl64f* pSrc, const Vdl64f* const* ppMean,
                                      const Vdl64f* const* ppVar, int height, int width,
                                      const Vdl64f* pVal, Vdl64f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussMixture_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    int height, int step, int width,
                                                    const Vdl32f* pVal, Vdl32f* pResult,
                                                    int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussMixture_IdVarScaled_16s32f_D2L(const Vdl16s* pSrc,
                                                     const Vdl16s* const* ppMean, int height,
                                                     int width, const Vdl32f* pVal,
                                                     Vdl32f* pResult, int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                       int height, int step, int width,
                                                       const Vdl32f* pVal, Vdl32f* pResult,
                                                       int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L(const Vdl16s* pSrc,
                                                        const Vdl16s* const* ppMean, int height,
                                                        int width, const Vdl32f* pVal,
                                                        Vdl32f* pResult, int scaleFactor);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; w = 1; float. */
VdlStatus vdlsLogGaussMixture_IdVar_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, int height,
                                           int step, int width, const Vdl32f* pVal,
                                           Vdl32f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; w = 1; float. */
VdlStatus vdlsLogGaussMixture_IdVar_32f_D2L(const Vdl32f* pSrc, const Vdl32f* const* ppMean,
                                            int height, int width, const Vdl32f* pVal,
                                            Vdl32f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); step rows; w = 1; double. */
VdlStatus vdlsLogGaussMixture_IdVar_64f_D2(const Vdl64f* pSrc, const Vdl64f* pMean, int height,
                                           int step, int width, const Vdl64f* pVal,
                                           Vdl64f* pResult);
/* *pResult = log sum_j exp(pVal[j] - q_j/2); row tables; w = 1; double. */
VdlStatus vdlsLogGaussMixture_IdVar_64f_D2L(const Vdl64f* pSrc, const Vdl64f* const* ppMean,
                                            int height, int width, const Vdl64f* pVal,
                                            Vdl64f* pResult);

/* -- Log-likelihood of one frame against one Gaussian. -- */

/* *pResult = val - q/2; float. */
VdlStatus vdlsLogGaussSingle_32f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                 int len, Vdl32f* pResult, Vdl32f val);
/* *pResult = val - q/2; double. */
VdlStatus vdlsLogGaussSingle_64f(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                 int len, Vdl64f* pResult, Vdl64f val);
/* *pResult = val - q/2; 32f->64f. */
VdlStatus vdlsLogGaussSingle_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                    int len, Vdl64f* pResult, Vdl64f val);
/* *pResult = val - q/2; 16s->32f scaled. */
VdlStatus vdlsLogGaussSingle_Scaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int len, Vdl32f* pResult,
                                           Vdl32f val, int scaleFactor);
/* *pResult = val - q/2; w = 1; 16s->32f scaled. */
VdlStatus vdlsLogGaussSingle_IdVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                                Vdl32f* pResult, Vdl32f val, int scaleFactor);
/* *pResult = val - q/2; 16s->32s scaled. */
VdlStatus vdlsLogGaussSingle_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int len, Vdl32s* pResult, Vdl32s val,
                                        int scaleFactor);
/* *pResult = val - q/2; w = 1; 16s->32s scaled. */
VdlStatus vdlsLogGaussSingle_IdVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                              Vdl32s* pResult, Vdl32s val, int scaleFactor);
/* *pResult = val - q/2; w = 1; float. */
VdlStatus vdlsLogGaussSingle_IdVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean, int len,
                                       Vdl32f* pResult, Vdl32f val);
/* *pResult = val - q/2; w = 1; double. */
VdlStatus vdlsLogGaussSingle_IdVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean, int len,
                                       Vdl64f* pResult, Vdl64f val);
/* *pResult = val - q/2; w = 1; 32f->64f. */
VdlStatus vdlsLogGaussSingle_IdVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, int len,
                                          Vdl64f* pResult, Vdl64f val);
/* *pResult = val - q/2; variances; float. */
VdlStatus vdlsLogGaussSingle_DirectVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                           const Vdl32f* pVar, int len, Vdl32f* pResult,
                                           Vdl32f val);
/* *pResult = val - q/2; variances; double. */
VdlStatus vdlsLogGaussSingle_DirectVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean,
                                           const Vdl64f* pVar, int len, Vdl64f* pResult,
                                           Vdl64f val);
/* *pResult = val - q/2; variances; 32f->64f. */
VdlStatus vdlsLogGaussSingle_DirectVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                              const Vdl32f* pVar, int len, Vdl64f* pResult,
                                              Vdl64f val);
/* *pResult = val - q/2; variances; 16s->32f scaled. */
VdlStatus vdlsLogGaussSingle_DirectVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    const Vdl16s* pVar, int len, Vdl32f* pResult,
                                                    Vdl32f val, int scaleFactor);
/* *pResult = val - q/2; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussSingle_LowScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int len, Vdl32f* pResult,
                                              Vdl32f val, int scaleFactor);
/* *pResult = val - q/2; w = 1; 16s->32f scaled, float sums. */
VdlStatus vdlsLogGaussSingle_IdVarLowScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                   int len, Vdl32f* pResult, Vdl32f val,
                                                   int scaleFactor);
/* *pResult = val - q/2; variances; 16s->32s scaled. */
VdlStatus vdlsLogGaussSingle_DirectVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const Vdl16s* pVar, int len, Vdl32s* pResult,
                                                  Vdl32s val, int scaleFactor);
/* *pResult = val - q/2; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussSingle_Low_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int len, Vdl32s* pResult,
                                            Vdl32s val, int scaleFactor);
/* *pResult = val - q/2; w = 1; 16s->32s scaled, float sums. */
VdlStatus vdlsLogGaussSingle_IdVarLow_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                                 Vdl32s* pResult, Vdl32s val, int scaleFactor);

/* -- Mahalanobis distance. -- */

/* *pResult = sqrt(q); float. */
VdlStatus vdlsMahDistSingle_32f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                int len, Vdl32f* pResult);
/* *pResult = sqrt(q); double. */
VdlStatus vdlsMahDistSingle_64f(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                int len, Vdl64f* pResult);
/* *pResult = sqrt(q); 32f->64f. */
VdlStatus vdlsMahDistSingle_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                   int len, Vdl64f* pResult);
/* *pResult = sqrt(q); 16s->32f. */
VdlStatus vdlsMahDistSingle_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean, const Vdl16s* pVar,
                                   int len, Vdl32f* pResult);
/* *pResult = sqrt(q); 16s->32s scaled. */
VdlStatus vdlsMahDistSingle_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, const Vdl16s* pVar,
                                       int len, Vdl32s* pResult, int scaleFactor);
/* pDst[i] = sqrt(q_i); step rows; float. */
VdlStatus vdlsMahDist_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean, const Vdl32f* pVar,
                             int width, Vdl32f* pDst, int height);
/* pDst[i] = sqrt(q_i); step rows; double. */
VdlStatus vdlsMahDist_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean, const Vdl64f* pVar,
                             int width, Vdl64f* pDst, int height);
/* pDst[i] = sqrt(q_i); row table; float. */
VdlStatus vdlsMahDist_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                              int width, Vdl32f* pDst, int height);
/* pDst[i] = sqrt(q_i); row table; double. */
VdlStatus vdlsMahDist_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                              int width, Vdl64f* pDst, int height);
/* pDst[j] = sqrt(q_j); step rows; float. */
VdlStatus vdlsMahDistMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                     const Vdl32f* pSrc, int width, Vdl32f* pDst, int height);
/* pDst[j] = sqrt(q_j); step rows; double. */
VdlStatus vdlsMahDistMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                     const Vdl64f* pSrc, int width, Vdl64f* pDst, int height);
/* pDst[j] = sqrt(q_j); row tables; float. */
VdlStatus vdlsMahDistMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                      const Vdl32f* pSrc, int width, Vdl32f* pDst, int height);
/* pDst[j] = sqrt(q_j); row tables; double. */
VdlStatus vdlsMahDistMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                      const Vdl64f* pSrc, int width, Vdl64f* pDst, int height);

/* -- Log-likelihood of one frame against a Gaussian with block-diagonal covariance. -- */

/* The precision matrix of such a Gaussian, kept by the library. Block b is
 * the square of pBlockSizes[b] rows and columns of the matrix whose rows
 * ppMatrix gives, from where block b - 1 ends; the rest of the matrix is not
 * read. The blocks are copied, so the matrix may go once the state exists. */
typedef struct VdlsBlockDMatrix_16s VdlsBlockDMatrix_16s;
typedef struct VdlsBlockDMatrix_32f VdlsBlockDMatrix_32f;
typedef struct VdlsBlockDMatrix_64f VdlsBlockDMatrix_64f;

/* Makes the state of nBlocks blocks into *ppState; vdlStsNoMemErr without memory. */
VdlStatus vdlsBlockDMatrixInitAlloc_16s(VdlsBlockDMatrix_16s** ppState,
                                        const Vdl16s* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks);
/* Makes the state of nBlocks blocks into *ppState; vdlStsNoMemErr without memory. */
VdlStatus vdlsBlockDMatrixInitAlloc_32f(VdlsBlockDMatrix_32f** ppState,
                                        const Vdl32f* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks);
/* Makes the state of nBlocks blocks into *ppState; vdlStsNoMemErr without memory. */
VdlStatus vdlsBlockDMatrixInitAlloc_64f(VdlsBlockDMatrix_64f** ppState,
                                        const Vdl64f* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks);
/* Releases a state of vdlsBlockDMatrixInitAlloc_16s. */
VdlStatus vdlsBlockDMatrixFree_16s(VdlsBlockDMatrix_16s* pState);
/* Releases a state of vdlsBlockDMatrixInitAlloc_32f. */
VdlStatus vdlsBlockDMatrixFree_32f(VdlsBlockDMatrix_32f* pState);
/* Releases a state of vdlsBlockDMatrixInitAlloc_64f. */
VdlStatus vdlsBlockDMatrixFree_64f(VdlsBlockDMatrix_64f* pState);

/* With d = x - mean over the len elements the blocks cover (len must equal
 * their total size, else vdlStsSizeErr), the score is val - (d P d)/2. */

/* *pResult = val - (d P d)/2, P the block-diagonal precision; 16s->32s scaled. */
VdlStatus vdlsLogGaussSingle_BlockDVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const VdlsBlockDMatrix_16s* pBlocks, int len,
                                                  Vdl32s* pResult, Vdl32s val, int scaleFactor);
/* *pResult = val - (d P d)/2, P the block-diagonal precision; 16s->32f scaled. */
VdlStatus vdlsLogGaussSingle_BlockDVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    const VdlsBlockDMatrix_16s* pBlocks, int len,
                                                    Vdl32f* pResult, Vdl32f val, int scaleFactor);
/* *pResult = val - (d P d)/2, P the block-diagonal precision; float. */
VdlStatus vdlsLogGaussSingle_BlockDVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                           const VdlsBlockDMatrix_32f* pBlocks, int len,
                                           Vdl32f* pResult, Vdl32f val);
/* *pResult = val - (d P d)/2, P the block-diagonal precision; 32f->64f. */
VdlStatus vdlsLogGaussSingle_BlockDVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                              const VdlsBlockDMatrix_32f* pBlocks, int len,
                                              Vdl64f* pResult, Vdl64f val);
/* *pResult = val - (d P d)/2, P the block-diagonal precision; double. */
VdlStatus vdlsLogGaussSingle_BlockDVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean,
                                           const VdlsBlockDMatrix_64f* pBlocks, int len,
                                           Vdl64f* pResult, Vdl64f val);

/* -- Operations on Gaussians. They take variances, not precisions, since they
 * make or compare Gaussians rather than score frames. -- */

/* Accumulates a frame x of weight val: pMeanAcc[k] += val * x[k],
 * pVarAcc[k] += val * (x[k] - pMean[k])^2. */
VdlStatus vdlsMeanVarAcc_32f(const Vdl32f* pSrc, const Vdl32f* pMean, Vdl32f* pMeanAcc,
                             Vdl32f* pVarAcc, int len, Vdl32f val);
/* The same in double. */
VdlStatus vdlsMeanVarAcc_64f(const Vdl64f* pSrc, const Vdl64f* pMean, Vdl64f* pMeanAcc,
                             Vdl64f* pVarAcc, int len, Vdl64f val);

/* Splits Gaussian 1 in two along its deviations s = sqrt(pVar1): pMean1 becomes
 * mean + val * s, pMean2 mean - val * s, pVar2 a copy of pVar1. */
VdlStatus vdlsGaussianSplit_32f(Vdl32f* pMean1, Vdl32f* pVar1, Vdl32f* pMean2, Vdl32f* pVar2,
                                int len, Vdl32f val);
/* The same in double. */
VdlStatus vdlsGaussianSplit_64f(Vdl64f* pMean1, Vdl64f* pVar1, Vdl64f* pMean2, Vdl64f* pVar2,
                                int len, Vdl64f val);

/* Log-likelihood lost by merging Gaussians 1 and 2 of occupations w1, w2 and log
 * determinants logDet1, logDet2 (sums of log variance): *pDst =
 * ((w1 + w2) * logdet(merged) - w1 * logDet1 - w2 * logDet2) / 2, the merged
 * Gaussian being that of vdlsGaussianMerge. */
VdlStatus vdlsGaussianDist_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                               const Vdl32f* pVar2, int len, Vdl32f* pDst, Vdl32f w1,
                               Vdl32f logDet1, Vdl32f w2, Vdl32f logDet2);
/* The same in double. */
VdlStatus vdlsGaussianDist_64f(const Vdl64f* pMean1, const Vdl64f* pVar1, const Vdl64f* pMean2,
                               const Vdl64f* pVar2, int len, Vdl64f* pDst, Vdl64f w1,
                               Vdl64f logDet1, Vdl64f w2, Vdl64f logDet2);

/* Merges Gaussians 1 and 2 with weights w1, w2 (a = w1 / (w1 + w2), b = 1 - a):
 * mean = a m1 + b m2, var = a v1 + b v2 + a b (m1 - m2)^2, into pMeanDst and
 * pVarDst (which may be inputs), and the merged log determinant sum log var
 * into *pLogDet. Weights must not be negative nor both 0 (vdlStsBadArgErr). */
VdlStatus vdlsGaussianMerge_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                                const Vdl32f* pVar2, Vdl32f* pMeanDst, Vdl32f* pVarDst, int len,
                                Vdl32f* pLogDet, Vdl32f w1, Vdl32f w2);
/* The same in double. */
VdlStatus vdlsGaussianMerge_64f(const Vdl64f* pMean1, const Vdl64f* pVar1, const Vdl64f* pMean2,
                                const Vdl64f* pVar2, Vdl64f* pMeanDst, Vdl64f* pVarDst, int len,
                                Vdl64f* pLogDet, Vdl64f w1, Vdl64f w2);

/* Bhattacharyya distance of Gaussians 1 and 2: *pResult = sum over k of
 * (m1 - m2)^2 / (4 (v1 + v2)) + log((v1 + v2) / 2) / 2, less
 * (sum log v1 + sum log v2) / 4. The SLog forms take those two sums of logs
 * as logSum1, logSum2. _32f sums in float, _32f64f in double. */
/* The distance, summed in float. */
VdlStatus vdlsBhatDist_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                           const Vdl32f* pVar2, int len, Vdl32f* pResult);
/* The distance, summed in double. */
VdlStatus vdlsBhatDist_32f64f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                              const Vdl32f* pVar2, int len, Vdl64f* pResult);
/* The distance from given sums of logs, summed in float. */
VdlStatus vdlsBhatDistSLog_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                               const Vdl32f* pVar2, int len, Vdl32f* pResult, Vdl32f logSum1,
                               Vdl32f logSum2);
/* The distance from given sums of logs, summed in double. */
VdlStatus vdlsBhatDistSLog_32f64f(const Vdl32f* pMean1, const Vdl32f* pVar1,
                                  const Vdl32f* pMean2, const Vdl32f* pVar2, int len,
                                  Vdl64f* pResult, Vdl32f logSum1, Vdl32f logSum2);

#ifdef __cplusplus
}
#endif

#endif
