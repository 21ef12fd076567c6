// Bhattacharyya distance of two diagonal Gaussians given by their variances:
// how much the two overlap, as used to cluster states.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// The SLog forms take the sums of log variances of both Gaussians, which a
// caller comparing one Gaussian with many computes once.
template <class Acc, bool GivenLogSums, class T>
VdlStatus bhatDist(const T* pMean1, const T* pVar1, const T* pMean2, const T* pVar2, int len,
                   Acc* pResult, T logSum1, T logSum2)
{
    if (VdlStatus s = firstError(
            {checkPtrs({pMean1, pVar1, pMean2, pVar2, pResult}), checkLen(len)}))
        return s;
    // Every variance is checked, quietly, before anything is computed, so that
    // a refused call raises no floating-point flag.
    if (VdlStatus s = firstError({checkPositive(pVar1, len), checkPositive(pVar2, len)}))
        return s;
    Acc spread = 0;   // sum of d^2 / (v1 + v2)
    Acc logMeans = 0; // sum of log((v1 + v2) / 2)
    Acc logs = 0;     // sum of log v1 + log v2
    for (int k = 0; k < len; ++k) {
        const Acc v1 = pVar1[k];
        const Acc v2 = pVar2[k];
        const Acc d = static_cast<Acc>(pMean1[k]) - static_cast<Acc>(pMean2[k]);
        spread += d * d / (v1 + v2);
        logMeans += std::log((v1 + v2) * Acc(0.5));
        if (!GivenLogSums)
            logs += std::log(v1) + std::log(v2);
    }
    if (GivenLogSums)
        logs = static_cast<Acc>(logSum1) + static_cast<Acc>(logSum2);
    *pResult = Acc(0.25) * spread + Acc(0.5) * logMeans - Acc(0.25) * logs;
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsBhatDist_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                           const Vdl32f* pVar2, int len, Vdl32f* pResult)
{
    return bhatDist<Vdl32f, false>(pMean1, pVar1, pMean2, pVar2, len, pResult, 0.0f, 0.0f);
}

VdlStatus vdlsBhatDist_32f64f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                              const Vdl32f* pVar2, int len, Vdl64f* pResult)
{
    return bhatDist<Vdl64f, false>(pMean1, pVar1, pMean2, pVar2, len, pResult, 0.0f, 0.0f);
}

VdlStatus vdlsBhatDistSLog_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                               const Vdl32f* pVar2, int len, Vdl32f* pResult, Vdl32f logSum1,
                               Vdl32f logSum2)
{
    return bhatDist<Vdl32f, true>(pMean1, pVar1, pMean2, pVar2, len, pResult, logSum1, logSum2);
}

VdlStatus vdlsBhatDistSLog_32f64f(const Vdl32f* pMean1, const Vdl32f* pVar1,
                                  const Vdl32f* pMean2, const Vdl32f* pVar2, int len,
                                  Vdl64f* pResult, Vdl32f logSum1, Vdl32f logSum2)
{
    return bhatDist<Vdl64f, true>(pMean1, pVar1, pMean2, pVar2, len, pResult, logSum1, logSum2);
}

} // extern "C"
