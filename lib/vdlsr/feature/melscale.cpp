// Mel and linear frequency conversion, and copies padded with zeros.
#include <cmath>
#include <cstring>

#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

VdlStatus checkMel(const void* pSrc, const void* pDst, int len, Vdl32f melMul, Vdl32f melDiv)
{
    return firstError({checkPtrs({pSrc, pDst}), checkLen(len),
                       std::isfinite(melMul) && std::isfinite(melDiv) && melMul > 0 && melDiv > 0
                           ? vdlStsNoErr
                           : vdlStsBadArgErr});
}

template <class T>
VdlStatus copyWithPadding(const T* pSrc, int lenSrc, T* pDst, int lenDst)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(lenSrc), checkLen(lenDst),
                                  lenDst >= lenSrc ? vdlStsNoErr : vdlStsSizeErr}))
        return s;
    std::memmove(pDst, pSrc, sizeof(T) * lenSrc);
    std::memset(pDst + lenSrc, 0, sizeof(T) * (lenDst - lenSrc));
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsMelToLinear_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f melMul,
                              Vdl32f melDiv)
{
    if (VdlStatus s = checkMel(pSrc, pDst, len, melMul, melDiv))
        return s;
    for (int i = 0; i < len; ++i)
        pDst[i] = static_cast<Vdl32f>(double(melDiv) * std::expm1(double(pSrc[i]) / melMul));
    return vdlStsNoErr;
}

VdlStatus vdlsLinearToMel_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f melMul,
                              Vdl32f melDiv)
{
    if (VdlStatus s = checkMel(pSrc, pDst, len, melMul, melDiv))
        return s;
    for (int i = 0; i < len; ++i)
        pDst[i] = static_cast<Vdl32f>(double(melMul) * std::log1p(double(pSrc[i]) / melDiv));
    return vdlStsNoErr;
}

VdlStatus vdlsCopyWithPadding_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst)
{
    return copyWithPadding(pSrc, lenSrc, pDst, lenDst);
}

VdlStatus vdlsCopyWithPadding_16s(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst, int lenDst)
{
    return copyWithPadding(pSrc, lenSrc, pDst, lenDst);
}

} // extern "C"
