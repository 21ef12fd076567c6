// Between predictor and reflection coefficients, and from reflection
// coefficients to the areas of the lossless tube.
#include "lp_common.h"
#include "lp_recursion.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus lpToReflection(const T* pSrc, T* pDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    FlagKeeper flags;
    Scratch a(len), k(len);
    loadInto(pSrc, len, -scaleFactor, a.data());
    if (!stepDown(a.data(), len, k.data()))
        return flags.restore(vdlStsBadArgErr);
    store(k.data(), len, pDst, scaleFactor);
    return vdlStsNoErr;
}

template <class T>
VdlStatus reflectionToLp(const T* pSrc, T* pDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    Scratch k(len), a(len);
    loadInto(pSrc, len, -scaleFactor, k.data());
    stepUp(k.data(), len, a.data());
    store(a.data(), len, pDst, scaleFactor);
    return vdlStsNoErr;
}

// The tube forms: every |k| must be below 1 (checked before any result),
// then `Shape` makes the results from the ratios g = (1 + k) / (1 - k).
struct Ratios {
    static void make(const std::vector<double>& k, std::vector<double>& out, double)
    {
        for (size_t i = 0; i < k.size(); ++i)
            out[i] = (1 + k[i]) / (1 - k[i]);
    }
};

struct Areas {
    static void make(const std::vector<double>& k, std::vector<double>& out, double)
    {
        double area = 1;
        for (size_t i = 0; i < k.size(); ++i)
            out[i] = area *= (1 + k[i]) / (1 - k[i]);
    }
};

struct LogRatios {
    static void make(const std::vector<double>& k, std::vector<double>& out, double limit)
    {
        for (size_t i = 0; i < k.size(); ++i) {
            const double c = k[i] > limit ? limit : k[i] < -limit ? -limit : k[i];
            out[i] = std::log((1 + c) / (1 - c));
        }
    }
};

template <class Shape, class T>
VdlStatus tube(const T* pSrc, int srcShift, T* pDst, int len, int scaleFactor, double limit = 0)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    FlagKeeper flags;
    const std::vector<double> k = loadFixed(pSrc, len, srcShift);
    // Clipped forms take any k; the others need a finite ratio.
    if (limit == 0)
        for (double x : k)
            if (!(std::fabs(x) < 1))
                return flags.restore(vdlStsBadArgErr);
    std::vector<double> out(static_cast<size_t>(len));
    Shape::make(k, out, limit);
    store(out, pDst, scaleFactor);
    return vdlStsNoErr;
}

// Log-area ratios clipped at val, which must keep the ratio finite.
template <class T>
VdlStatus logAreaRatios(const T* pSrc, int srcShift, T* pDst, int len, int scaleFactor, Vdl32f val)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    return val > 0 && val < 1 ? tube<LogRatios>(pSrc, srcShift, pDst, len, scaleFactor, val)
                              : vdlStsBadArgErr;
}

} // namespace

extern "C" {

VdlStatus vdlsLPToReflection_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return lpToReflection(pSrc, pDst, len, 0);
}

VdlStatus vdlsLPToReflection_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor)
{
    return lpToReflection(pSrc, pDst, len, scaleFactor);
}

VdlStatus vdlsReflectionToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return reflectionToLp(pSrc, pDst, len, 0);
}

VdlStatus vdlsReflectionToLP_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor)
{
    return reflectionToLp(pSrc, pDst, len, scaleFactor);
}

VdlStatus vdlsReflectionToAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return tube<Ratios>(pSrc, 0, pDst, len, 0);
}

VdlStatus vdlsReflectionToAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                     int scaleFactor)
{
    return tube<Ratios>(pSrc, srcShift, pDst, len, scaleFactor);
}

VdlStatus vdlsReflectionToLAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, Vdl32f val)
{
    return logAreaRatios(pSrc, 0, pDst, len, 0, val);
}

VdlStatus vdlsReflectionToLAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                      Vdl32f val, int scaleFactor)
{
    return logAreaRatios(pSrc, srcShift, pDst, len, scaleFactor, val);
}

VdlStatus vdlsReflectionToTrueAR_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return tube<Areas>(pSrc, 0, pDst, len, 0);
}

VdlStatus vdlsReflectionToTrueAR_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                                         int scaleFactor)
{
    return tube<Areas>(pSrc, srcShift, pDst, len, scaleFactor);
}

} // extern "C"
