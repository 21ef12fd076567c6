// Energy normalisation (whole utterance and running), normalisation into a
// range, and removal of the mean.
#include <cmath>

#include "feature_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// E_i = unit - enScale * (M - max(E_i, M - silFloor)) with M the largest
// energy, or, with decay >= 0, the running M_i = max(E_i, M_(i-1) - decay).
template <class T>
VdlStatus normEnergy(T* p, int step, int height, double silFloor, double decay, bool running,
                     double unit, double enScale)
{
    if (VdlStatus s = firstError({checkPtrs({p}), checkSize(step, height)}))
        return s;
    if (!std::isfinite(silFloor) || !std::isfinite(decay) || !std::isfinite(enScale) ||
        silFloor < 0 || decay < 0)
        return vdlStsBadArgErr;
    auto energy = [p, step](int i) -> T& { return p[static_cast<long long>(i) * step]; };
    double top = energy(0);
    if (!running)
        for (int i = 1; i < height; ++i)
            top = std::fmax(top, double(energy(i)));
    for (int i = 0; i < height; ++i) {
        const double e = energy(i);
        if (running)
            top = std::fmax(e, top - decay);
        energy(i) = toResult<T>(unit - enScale * (top - std::fmax(e, top - silFloor)));
    }
    return vdlStsNoErr;
}

struct Range {
    double low, high;  // the cuts
    double range;
};

template <class S, class D>
VdlStatus normalizeInRange(const S* pSrc, D* pDst, int len, bool given, double srcMin,
                           double srcMax, const Range& r)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    // Finite first: a comparison with NaN would raise the invalid flag.
    if (!std::isfinite(r.low) || !std::isfinite(r.high) || !std::isfinite(r.range) ||
        !std::isfinite(srcMin) || !std::isfinite(srcMax) ||
        !(r.low >= 0 && r.low < r.high && r.high <= 1) || (given && !(srcMin < srcMax)))
        return vdlStsBadArgErr;
    if (!given) {
        srcMin = srcMax = pSrc[0];
        for (int i = 1; i < len; ++i) {
            srcMin = std::fmin(srcMin, double(pSrc[i]));
            srcMax = std::fmax(srcMax, double(pSrc[i]));
        }
    }
    const double span = srcMax - srcMin;
    for (int i = 0; i < len; ++i) {
        double u = 0;
        if (span > 0) {
            u = ((pSrc[i] - srcMin) / span - r.low) / (r.high - r.low);
            u = u < 0 ? 0 : u > 1 ? 1 : u;
        }
        pDst[i] = toResult<D>(u * r.range);
    }
    return vdlStsNoErr;
}

template <class S, class D>
VdlStatus inRange(const S* pSrc, D* pDst, int len, Vdl32f lowCut, Vdl32f highCut, double range)
{
    return normalizeInRange(pSrc, pDst, len, false, 0, 0, Range{lowCut, highCut, range});
}

template <class S, class D>
VdlStatus inRangeMinMax(const S* pSrc, D* pDst, int len, double srcMin, double srcMax,
                        Vdl32f lowCut, Vdl32f highCut, double range)
{
    return normalizeInRange(pSrc, pDst, len, true, srcMin, srcMax, Range{lowCut, highCut, range});
}

} // namespace

extern "C" {

VdlStatus vdlsNormEnergy_32f(Vdl32f* pSrcDst, int step, int height, Vdl32f silFloor,
                             Vdl32f enScale)
{
    return normEnergy(pSrcDst, step, height, silFloor, 0, false, 1, enScale);
}

VdlStatus vdlsNormEnergy_16s(Vdl16s* pSrcDst, int step, int height, int silFloor, int unit,
                             Vdl32f enScale)
{
    return normEnergy(pSrcDst, step, height, silFloor, 0, false, unit, enScale);
}

VdlStatus vdlsNormEnergy_RT_32f(Vdl32f* pSrcDst, int step, int height, Vdl32f silFloor,
                                Vdl32f decay, Vdl32f enScale)
{
    return normEnergy(pSrcDst, step, height, silFloor, decay, true, 1, enScale);
}

VdlStatus vdlsNormEnergy_RT_16s(Vdl16s* pSrcDst, int step, int height, int silFloor, int decay,
                                int unit, Vdl32f enScale)
{
    return normEnergy(pSrcDst, step, height, silFloor, decay, true, unit, enScale);
}

VdlStatus vdlsNormalizeInRange_16s8u(const Vdl16s* pSrc, Vdl8u* pDst, int len, Vdl32f lowCut,
                                     Vdl32f highCut, int range)
{
    return inRange(pSrc, pDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl32f lowCut,
                                   Vdl32f highCut, int range)
{
    return inRange(pSrc, pDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_16s_I(Vdl16s* pSrcDst, int len, Vdl32f lowCut, Vdl32f highCut,
                                     int range)
{
    return inRange(pSrcDst, pSrcDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_32f8u(const Vdl32f* pSrc, Vdl8u* pDst, int len, Vdl32f lowCut,
                                     Vdl32f highCut, int range)
{
    return inRange(pSrc, pDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_32f16s(const Vdl32f* pSrc, Vdl16s* pDst, int len, Vdl32f lowCut,
                                      Vdl32f highCut, int range)
{
    return inRange(pSrc, pDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f lowCut,
                                   Vdl32f highCut, Vdl32f range)
{
    return inRange(pSrc, pDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRange_32f_I(Vdl32f* pSrcDst, int len, Vdl32f lowCut, Vdl32f highCut,
                                     Vdl32f range)
{
    return inRange(pSrcDst, pSrcDst, len, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_16s8u(const Vdl16s* pSrc, Vdl8u* pDst, int len,
                                           Vdl16s srcMin, Vdl16s srcMax, Vdl32f lowCut,
                                           Vdl32f highCut, int range)
{
    return inRangeMinMax(pSrc, pDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len, Vdl16s srcMin,
                                         Vdl16s srcMax, Vdl32f lowCut, Vdl32f highCut, int range)
{
    return inRangeMinMax(pSrc, pDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_16s_I(Vdl16s* pSrcDst, int len, Vdl16s srcMin,
                                           Vdl16s srcMax, Vdl32f lowCut, Vdl32f highCut,
                                           int range)
{
    return inRangeMinMax(pSrcDst, pSrcDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_32f8u(const Vdl32f* pSrc, Vdl8u* pDst, int len,
                                           Vdl32f srcMin, Vdl32f srcMax, Vdl32f lowCut,
                                           Vdl32f highCut, int range)
{
    return inRangeMinMax(pSrc, pDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_32f16s(const Vdl32f* pSrc, Vdl16s* pDst, int len,
                                            Vdl32f srcMin, Vdl32f srcMax, Vdl32f lowCut,
                                            Vdl32f highCut, int range)
{
    return inRangeMinMax(pSrc, pDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f srcMin,
                                         Vdl32f srcMax, Vdl32f lowCut, Vdl32f highCut,
                                         Vdl32f range)
{
    return inRangeMinMax(pSrc, pDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsNormalizeInRangeMinMax_32f_I(Vdl32f* pSrcDst, int len, Vdl32f srcMin,
                                           Vdl32f srcMax, Vdl32f lowCut, Vdl32f highCut,
                                           Vdl32f range)
{
    return inRangeMinMax(pSrcDst, pSrcDst, len, srcMin, srcMax, lowCut, highCut, range);
}

VdlStatus vdlsZeroMean_16s(Vdl16s* pSrcDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrcDst}), checkLen(len)}))
        return s;
    const FeatureKernels& k = featureKernels();
    const long long sum = k.sum16s(pSrcDst, len);
    // Rounded to nearest, halves away from zero, in integers.
    const long long mean = (sum >= 0 ? sum + len / 2 : sum - len / 2) / len;
    k.subtract16s(pSrcDst, len, static_cast<int>(mean));
    return vdlStsNoErr;
}

} // extern "C"
