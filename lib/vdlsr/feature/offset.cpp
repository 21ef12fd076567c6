// DC offset compensation: the first-order high-pass
// y[n] = x[n] - x[n-1] + val * y[n-1], carried across frames.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus compensate(const T* pSrc, T* pDst, int len, T* pSrcLast, T dstLast, double val)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, pSrcLast}), checkLen(len)}))
        return s;
    if (!std::isfinite(val))
        return vdlStsBadArgErr;
    double before = *pSrcLast;
    double out = dstLast;
    for (int n = 0; n < len; ++n) {
        const double x = pSrc[n];
        const T y = toResult<T>(x - before + val * out);
        pDst[n] = y;
        before = x;
        out = y;
    }
    *pSrcLast = toResult<T>(before);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsCompensateOffset_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pSrcLast,
                                   Vdl32f dstLast, Vdl32f val)
{
    return compensate(pSrc, pDst, len, pSrcLast, dstLast, val);
}

VdlStatus vdlsCompensateOffset_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl16s* pSrcLast,
                                   Vdl16s dstLast, Vdl32f val)
{
    return compensate(pSrc, pDst, len, pSrcLast, dstLast, val);
}

VdlStatus vdlsCompensateOffset_32f_I(Vdl32f* pSrcDst, int len, Vdl32f* pSrcLast, Vdl32f dstLast,
                                     Vdl32f val)
{
    return compensate(pSrcDst, pSrcDst, len, pSrcLast, dstLast, val);
}

VdlStatus vdlsCompensateOffset_16s_I(Vdl16s* pSrcDst, int len, Vdl16s* pSrcLast, Vdl16s dstLast,
                                     Vdl32f val)
{
    return compensate(pSrcDst, pSrcDst, len, pSrcLast, dstLast, val);
}

VdlStatus vdlsCompensateOffsetQ15_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len,
                                      Vdl16s* pSrcLast, Vdl16s dstLast, Vdl16s valQ15)
{
    return compensate(pSrc, pDst, len, pSrcLast, dstLast, valQ15 / 32768.0);
}

VdlStatus vdlsCompensateOffsetQ15_16s_I(Vdl16s* pSrcDst, int len, Vdl16s* pSrcLast,
                                        Vdl16s dstLast, Vdl16s valQ15)
{
    return compensate(pSrcDst, pSrcDst, len, pSrcLast, dstLast, valQ15 / 32768.0);
}

} // extern "C"
