// Spectral tilt of frames: the first reflection coefficient of each frame
// weighted by its energy.
#include "lp_common.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <bool absolute, class T>
VdlStatus tilt(const T* pSrc1, const T* pSrc2, T* pDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc1, pSrc2, pDst}), checkLen(len)}))
        return s;
    const double factor = scaleOf(scaleFactor);
    for (int i = 0; i < len; ++i) {
        const double k = pSrc1[i];
        pDst[i] = toResult<T>((absolute ? std::fabs(k) : k) * static_cast<double>(pSrc2[i]) * factor);
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsReflectionToTilt_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst, int len)
{
    return tilt<false>(pSrc1, pSrc2, pDst, len, 0);
}

VdlStatus vdlsReflectionToTilt_16s_Sfs(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst,
                                       int len, int scaleFactor)
{
    return tilt<false>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

VdlStatus vdlsReflectionToAbsTilt_32f(const Vdl32f* pSrc1, const Vdl32f* pSrc2, Vdl32f* pDst,
                                      int len)
{
    return tilt<true>(pSrc1, pSrc2, pDst, len, 0);
}

VdlStatus vdlsReflectionToAbsTilt_16s_Sfs(const Vdl16s* pSrc1, const Vdl16s* pSrc2, Vdl16s* pDst,
                                          int len, int scaleFactor)
{
    return tilt<true>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

} // extern "C"
