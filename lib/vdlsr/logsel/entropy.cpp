// Entropy of a distribution given by its probabilities.
#include <cmath>

#include "logsel_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// The arguments, and no negative probability, before anything is computed.
template <class T, class R>
VdlStatus checkEntropy(const T* p, int len, const R* pResult)
{
    if (VdlStatus s = firstError({checkPtrs({p, pResult}), checkLen(len)}))
        return s;
    for (int i = 0; i < len; ++i)
        if (p[i] < 0)
            return vdlStsBadArgErr;
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsEntropy_32f(const Vdl32f* pSrc, int len, Vdl32f* pResult)
{
    if (VdlStatus s = checkEntropy(pSrc, len, pResult))
        return s;
    *pResult = static_cast<Vdl32f>(logSelKernels().entropy32f(pSrc, len));
    return vdlStsNoErr;
}

VdlStatus vdlsEntropy_16s32s_Sfs(const Vdl16s* pSrc, int srcScaleFactor, int len,
                                 Vdl32s* pResult, int scaleFactor)
{
    if (VdlStatus s = checkEntropy(pSrc, len, pResult))
        return s;
    const double toP = scaleOf(srcScaleFactor);
    double sum = 0;
    for (int i = 0; i < len; ++i) {
        const double p = pSrc[i] * toP;
        if (p > 0)
            sum -= p * std::log(p);
    }
    *pResult = scaled<Vdl32s>(sum, scaleFactor);
    return vdlStsNoErr;
}

} // extern "C"
