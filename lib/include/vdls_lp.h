/* General signal functions of libvdls used by the linear-prediction family: conversions, random generators. C linkage throughout; included by vdlsr.h. */
#ifndef VDLS_LP_H
#define VDLS_LP_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Conversion and uniform random values ----
 *
 * Rounding modes of the conversions: 0 toward zero, 1 to nearest with
 * halves away from zero. Results are saturated to the result type.
 *
 * The uniform generator is a 32-bit linear congruential generator whose
 * state the caller holds in *pSeed: each value takes
 *     seed = seed * 1664525 + 1013904223  (mod 2^32)
 * and u = (seed >> 8) * 2^-24, a value in [0, 1). A 32f value is
 * low + (high - low) * u; a 16s value is low + floor((high - low + 1) * u),
 * so every integer of [low, high] is equally likely. The same seed gives
 * the same values; the state after the call is left in *pSeed.
 *
 * Bad arguments (null pointer, len < 1, low > high, an unknown rounding
 * mode) return the negative status and touch nothing.
 */

/* pDst[k] = pSrc[k] * 2^-scaleFactor rounded by rndMode (0 toward zero, 1
 * nearest) and saturated to 16 bits; vdlStsOutOfRangeErr for another mode. */
VdlStatus vdlsConvert_32f16s_Sfs(const Vdl32f* pSrc, Vdl16s* pDst, int len, int rndMode,
                                 int scaleFactor);

/* len uniform values in [low, high) from the generator above; *pSeed advanced. */
VdlStatus vdlsRandUniform_Direct_32f(Vdl32f* pDst, int len, Vdl32f low, Vdl32f high,
                                     unsigned int* pSeed);

/* len uniform integers in [low, high] from the generator above; *pSeed advanced. */
VdlStatus vdlsRandUniform_Direct_16s(Vdl16s* pDst, int len, Vdl16s low, Vdl16s high,
                                     unsigned int* pSeed);

#ifdef __cplusplus
}
#endif

#endif
