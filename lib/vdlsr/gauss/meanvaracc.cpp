// Accumulators of a Gaussian's re-estimation: each frame adds to the sums of
// its values and of its squared deviations from the current mean, weighted
// by how much the frame belongs to the Gaussian.
#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus meanVarAcc(const T* pSrc, const T* pMean, T* pMeanAcc, T* pVarAcc, int len, T val)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pMean, pMeanAcc, pVarAcc}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k) {
        const T d = pSrc[k] - pMean[k];
        pMeanAcc[k] += val * pSrc[k];
        pVarAcc[k] += val * d * d;
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsMeanVarAcc_32f(const Vdl32f* pSrc, const Vdl32f* pMean, Vdl32f* pMeanAcc,
                             Vdl32f* pVarAcc, int len, Vdl32f val)
{
    return meanVarAcc(pSrc, pMean, pMeanAcc, pVarAcc, len, val);
}

VdlStatus vdlsMeanVarAcc_64f(const Vdl64f* pSrc, const Vdl64f* pMean, Vdl64f* pMeanAcc,
                             Vdl64f* pVarAcc, int len, Vdl64f val)
{
    return meanVarAcc(pSrc, pMean, pMeanAcc, pVarAcc, len, val);
}

} // extern "C"
