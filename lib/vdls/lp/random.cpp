// Uniform random values from a generator whose state the caller holds.
#include "vdlargcheck.h"
#include "vdls.h"

using namespace vdl;

namespace {

// The next value of the generator, in [0, 1) with 24 bits.
inline double nextUniform(unsigned int& seed)
{
    seed = seed * 1664525u + 1013904223u;
    return static_cast<double>(seed >> 8) * (1.0 / 16777216.0);
}

} // namespace

extern "C" {

VdlStatus vdlsRandUniform_Direct_32f(Vdl32f* pDst, int len, Vdl32f low, Vdl32f high,
                                     unsigned int* pSeed)
{
    if (VdlStatus s = firstError({checkPtrs({pDst, pSeed}), checkLen(len),
                                  low <= high ? vdlStsNoErr : vdlStsBadArgErr}))
        return s;
    unsigned int seed = *pSeed;
    const double width = static_cast<double>(high) - low;
    for (int k = 0; k < len; ++k) {
        const float x = static_cast<float>(low + width * nextUniform(seed));
        // Rounding to float may reach high itself; keep the interval half open.
        pDst[k] = x < high ? x : low;
    }
    *pSeed = seed;
    return vdlStsNoErr;
}

VdlStatus vdlsRandUniform_Direct_16s(Vdl16s* pDst, int len, Vdl16s low, Vdl16s high,
                                     unsigned int* pSeed)
{
    if (VdlStatus s = firstError({checkPtrs({pDst, pSeed}), checkLen(len),
                                  low <= high ? vdlStsNoErr : vdlStsBadArgErr}))
        return s;
    unsigned int seed = *pSeed;
    const int count = high - low + 1;
    for (int k = 0; k < len; ++k)
        pDst[k] = static_cast<Vdl16s>(low + static_cast<int>(count * nextUniform(seed)));
    *pSeed = seed;
    return vdlStsNoErr;
}

} // extern "C"
