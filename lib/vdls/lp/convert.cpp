// Float to 16-bit conversion with a scale factor and a rounding mode.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdls.h"

using namespace vdl;

namespace {

enum RoundMode { roundTowardZero = 0, roundNearest = 1 };

} // namespace

extern "C" VdlStatus vdlsConvert_32f16s_Sfs(const Vdl32f* pSrc, Vdl16s* pDst, int len, int rndMode,
                                            int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len),
                                  checkRange(rndMode, roundTowardZero, roundNearest)}))
        return s;
    const double factor = scaleOf(scaleFactor);
    for (int k = 0; k < len; ++k) {
        const double x = static_cast<double>(pSrc[k]) * factor;
        pDst[k] = toResult<Vdl16s>(rndMode == roundNearest ? x : std::trunc(x));
    }
    return vdlStsNoErr;
}
