// Curves applied element by element: exp(-x^2) and the unit smooth step.
#include <cmath>

#include "logsel_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class S, class D, class Loop>
VdlStatus elementwise(const S* pSrc, D* pDst, int len, Loop loop)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    loop(pSrc, pDst, len);
    return vdlStsNoErr;
}

// The unit curve of Q15 data: x = v * 2^shift / 32768.
VdlStatus unitCurve16s(const Vdl16s* pSrc, int srcShiftVal, Vdl16s* pDst, int len,
                       int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len),
                                  checkRange(srcShiftVal, -15, 15)}))
        return s;
    const double toX = std::ldexp(1.0, srcShiftVal - 15);
    const double one = 32768.0;
    for (int i = 0; i < len; ++i) {
        const double x = pSrc[i] * toX;
        const double u = x <= 0 ? 0 : x >= 1 ? 1 : x * x * (3 - 2 * x);
        pDst[i] = scaled<Vdl16s>(u * one, scaleFactor);
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsExpNegSqr_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return elementwise(pSrc, pDst, len, logSelKernels().f32.expNegSqr);
}

VdlStatus vdlsExpNegSqr_32f64f(const Vdl32f* pSrc, Vdl64f* pDst, int len)
{
    return elementwise(pSrc, pDst, len, logSelKernels().expNegSqr32f64f);
}

VdlStatus vdlsExpNegSqr_64f(const Vdl64f* pSrc, Vdl64f* pDst, int len)
{
    return elementwise(pSrc, pDst, len, logSelKernels().f64.expNegSqr);
}

VdlStatus vdlsExpNegSqr_32f_I(Vdl32f* pSrcDst, int len)
{
    return elementwise(pSrcDst, pSrcDst, len, logSelKernels().f32.expNegSqr);
}

VdlStatus vdlsExpNegSqr_64f_I(Vdl64f* pSrcDst, int len)
{
    return elementwise(pSrcDst, pSrcDst, len, logSelKernels().f64.expNegSqr);
}

VdlStatus vdlsUnitCurve_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return elementwise(pSrc, pDst, len, logSelKernels().unitCurve32f);
}

VdlStatus vdlsUnitCurve_32f_I(Vdl32f* pSrcDst, int len)
{
    return elementwise(pSrcDst, pSrcDst, len, logSelKernels().unitCurve32f);
}

VdlStatus vdlsUnitCurve_16s_Sfs(const Vdl16s* pSrc, int srcShiftVal, Vdl16s* pDst, int len,
                                int scaleFactor)
{
    return unitCurve16s(pSrc, srcShiftVal, pDst, len, scaleFactor);
}

VdlStatus vdlsUnitCurve_16s_ISfs(Vdl16s* pSrcDst, int srcShiftVal, int len, int scaleFactor)
{
    return unitCurve16s(pSrcDst, srcShiftVal, pSrcDst, len, scaleFactor);
}

} // extern "C"
