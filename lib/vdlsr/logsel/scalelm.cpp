// Language-model scores: floored, weighted and offset.
#include <algorithm>

#include "logsel_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsScaleLM_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f lmFloor,
                          Vdl32f lmScale, Vdl32f lmBase)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    logSelKernels().scaleLM32f(pSrc, pDst, len, lmFloor, lmScale, lmBase);
    return vdlStsNoErr;
}

VdlStatus vdlsScaleLM_16s32s(const Vdl16s* pSrc, Vdl32s* pDst, int len, Vdl16s lmFloor,
                             Vdl16s lmScale, Vdl32s lmBase)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    // A 16-bit product plus a 32-bit base needs 33 bits: exact in 64.
    for (int i = 0; i < len; ++i) {
        const long long v = std::max(pSrc[i], lmFloor);
        pDst[i] = toResult<Vdl32s>(v * lmScale + lmBase);
    }
    return vdlStsNoErr;
}

} // extern "C"
