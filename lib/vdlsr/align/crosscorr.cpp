// Normalised cross-correlation coefficients of 16-bit signals.
#include <cmath>

#include "align_paths.h"
#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

double coefficient(double xy, double xx, double yy)
{
    const double energy = xx * yy;
    return energy > 0 ? xy / std::sqrt(energy) : 0.0;
}

// The coefficient of pSrc1[n] and pSrc2[n + lag] over the samples both hold.
double atLag(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len, int lag)
{
    const int from = lag < 0 ? -lag : 0;
    const int n = len - (lag < 0 ? -lag : lag);
    double xy, xx, yy;
    signalKernels().corrSums(pSrc1 + from, pSrc2 + from + lag, n, &xy, &xx, &yy);
    return coefficient(xy, xx, yy);
}

} // namespace

extern "C" {

VdlStatus vdlsCrossCorrCoeff_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                    Vdl32f* pResult)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc1, pSrc2, pResult}), checkLen(len)}))
        return s;
    *pResult = static_cast<Vdl32f>(atLag(pSrc1, pSrc2, len, 0));
    return vdlStsNoErr;
}

VdlStatus vdlsCrossCorrCoeffPartial_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                           Vdl32f energy1, Vdl32f* pResult)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc1, pSrc2, pResult}), checkLen(len)}))
        return s;
    if (!std::isfinite(energy1) || energy1 < 0)
        return vdlStsBadArgErr;
    double xy, yy;
    signalKernels().corrSums(pSrc1, pSrc2, len, &xy, nullptr, &yy);
    *pResult = static_cast<Vdl32f>(coefficient(xy, energy1, yy));
    return vdlStsNoErr;
}

VdlStatus vdlsCrossCorrCoeffInterpolation_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int len,
                                                 Vdl32f* pBeta, Vdl32f* pResult)
{
    if (VdlStatus s = checkPtrs({pSrc1, pSrc2, pBeta, pResult}))
        return s;
    if (len < 2)
        return vdlStsSizeErr;
    const double before = atLag(pSrc1, pSrc2, len, -1);
    const double centre = atLag(pSrc1, pSrc2, len, 0);
    const double after = atLag(pSrc1, pSrc2, len, 1);
    // The parabola c(l) = centre + b l + a l^2 through the three points.
    const double a = 0.5 * (before + after) - centre;
    const double b = 0.5 * (after - before);
    double beta = 0, peak = centre;
    if (a < 0) {
        beta = -b / (2 * a);
        beta = beta > 1 ? 1 : beta < -1 ? -1 : beta;
        peak = centre + b * beta + a * beta * beta;
    }
    *pBeta = static_cast<Vdl32f>(beta);
    *pResult = static_cast<Vdl32f>(peak);
    return vdlStsNoErr;
}

VdlStatus vdlsCrossCorrCoeffDecim_16s32f(const Vdl16s* pSrc1, const Vdl16s* pSrc2, int maxLen,
                                         int minLen, Vdl32f* pDst, int dec)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc1, pSrc2, pDst}), checkLen(minLen), checkLen(dec)}))
        return s;
    if (maxLen < minLen)
        return vdlStsSizeErr;
    double xx, unused, yy, xy;
    signalKernels().corrSums(pSrc1, pSrc1, minLen, &unused, &xx, &yy);
    int best = minLen, k = 0;
    double bestValue = 0;
    for (int lag = minLen; lag <= maxLen; lag += dec, ++k) {
        signalKernels().corrSums(pSrc1, pSrc2 + (lag - minLen), minLen, &xy, nullptr, &yy);
        const double c = coefficient(xy, xx, yy);
        pDst[k] = static_cast<Vdl32f>(c);
        if (k == 0 || c > bestValue) {
            bestValue = c;
            best = lag;
        }
        if (lag > maxLen - dec)
            break;
    }
    pDst[k + 1] = static_cast<Vdl32f>(best);
    return vdlStsNoErr;
}

} // extern "C"
