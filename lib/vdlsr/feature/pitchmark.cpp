// F0 candidates from the intervals between pitch marks.
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus pitchmarkToF0(const T* pSrc, T* pDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    double f0 = 0;
    for (int i = 0; i + 1 < len; ++i) {
        const double interval = double(pSrc[i + 1]) - double(pSrc[i]);
        f0 = interval > 0 ? 1.0 / interval : 0.0;
        pDst[i] = scaled<T>(f0, scaleFactor);
    }
    pDst[len - 1] = scaled<T>(f0, scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsPitchmarkToF0Cand_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return pitchmarkToF0(pSrc, pDst, len, 0);
}

VdlStatus vdlsPitchmarkToF0Cand_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len,
                                        int scaleFactor)
{
    return pitchmarkToF0(pSrc, pDst, len, scaleFactor);
}

} // extern "C"
