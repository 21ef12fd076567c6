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

// len values of draw(u), u the successive uniform values of the generator.
template <class T, class Draw>
VdlStatus randUniform(T* pDst, int len, T low, T high, unsigned int* pSeed, const Draw& draw)
{
    if (VdlStatus s = firstError({checkPtrs({pDst, pSeed}), checkLen(len),
                                  low <= high ? vdlStsNoErr : vdlStsBadArgErr}))
        return s;
    unsigned int seed = *pSeed;
    for (int k = 0; k < len; ++k)
        pDst[k] = draw(nextUniform(seed));
    *pSeed = seed;
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsRandUniform_Direct_32f(Vdl32f* pDst, int len, Vdl32f low, Vdl32f high,
                                     unsigned int* pSeed)
{
    return randUniform(pDst, len, low, high, pSeed, [=](double u) {
        const float x = static_cast<float>(low + (static_cast<double>(high) - low) * u);
        // Rounding to float may reach high itself; keep the interval half open.
        return x < high ? x : low;
    });
}

VdlStatus vdlsRandUniform_Direct_16s(Vdl16s* pDst, int len, Vdl16s low, Vdl16s high,
                                     unsigned int* pSeed)
{
    return randUniform(pDst, len, low, high, pSeed, [=](double u) {
        return static_cast<Vdl16s>(low + static_cast<int>((high - low + 1) * u));
    });
}

} // extern "C"
