// Predictor and reflection coefficients from an autocorrelation.
#include "lp_common.h"
#include "lp_recursion.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

using Recursion = bool (*)(const double* r, int p, double* out, double* err);

template <class T, class E>
VdlStatus fromLags(Recursion recursion, const T* pSrc, T* pDst, int len, E* pErr, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, pErr}), checkLen(len)}))
        return s;
    FlagKeeper flags;
    Scratch r(len + 1), out(len);
    loadInto(pSrc, len + 1, 0, r.data());
    double err = 0;
    if (!recursion(r.data(), len, out.data(), &err))
        return flags.restore(vdlStsBadArgErr);
    store(out.data(), len, pDst, scaleFactor);
    *pErr = scaled<E>(err, scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsDurbin_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pErr)
{
    return fromLags(levinsonDurbin, pSrc, pDst, len, pErr, 0);
}

VdlStatus vdlsDurbin_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32s* pErr,
                             int scaleFactor)
{
    return fromLags(levinsonDurbin, pSrc, pDst, len, pErr, scaleFactor);
}

VdlStatus vdlsSchur_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f* pErr)
{
    return fromLags(schur, pSrc, pDst, len, pErr, 0);
}

VdlStatus vdlsSchur_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32s* pErr,
                            int scaleFactor)
{
    return fromLags(schur, pSrc, pDst, len, pErr, scaleFactor);
}

} // extern "C"
