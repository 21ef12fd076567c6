// Operations that make Gaussians from Gaussians: a split in two along the
// deviations, a merge of two weighted ones, and the likelihood a merge loses.
// They work on variances, not precisions.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// The checks compare quietly (checkPositive, isgreaterequal): a NaN
// argument is refused without raising a floating-point flag.
template <class T>
VdlStatus split(T* pMean1, T* pVar1, T* pMean2, T* pVar2, int len, T val)
{
    if (VdlStatus s = firstError({checkPtrs({pMean1, pVar1, pMean2, pVar2}), checkLen(len)}))
        return s;
    if (VdlStatus s = checkPositive(pVar1, len))
        return s;
    for (int k = 0; k < len; ++k) {
        const T mean = pMean1[k];
        const T var = pVar1[k];
        const T shift = val * std::sqrt(var);
        pMean1[k] = mean + shift;
        pMean2[k] = mean - shift;
        pVar2[k] = var;
    }
    return vdlStsNoErr;
}

// Two Gaussians and the shares a, b = 1 - a of the merged one they make.
// The shares are divided out only once the arguments have passed, so that a
// refused call raises no floating-point flag.
template <class T>
class MergePair {
public:
    MergePair(const T* mean1, const T* var1, const T* mean2, const T* var2, T w1, T w2)
        : m_mean1(mean1), m_var1(var1), m_mean2(mean2), m_var2(var2), m_w1(w1), m_w2(w2) {}

    VdlStatus check(int len)
    {
        if (VdlStatus s =
                firstError({checkPtrs({m_mean1, m_var1, m_mean2, m_var2}), checkLen(len)}))
            return s;
        const bool zeroOrMore = std::isgreaterequal(m_w1, T(0)) && std::isgreaterequal(m_w2, T(0));
        if (!zeroOrMore || !(m_w1 > 0 || m_w2 > 0))
            return vdlStsBadArgErr;
        if (VdlStatus s = firstError({checkPositive(m_var1, len), checkPositive(m_var2, len)}))
            return s;
        m_a = m_w1 / (m_w1 + m_w2);
        m_b = m_w2 / (m_w1 + m_w2);
        return vdlStsNoErr;
    }

    T mean(int k) const { return m_a * m_mean1[k] + m_b * m_mean2[k]; }
    // The mixture's second moment about its own mean.
    T var(int k) const
    {
        const T d = m_mean1[k] - m_mean2[k];
        return m_a * m_var1[k] + m_b * m_var2[k] + m_a * m_b * d * d;
    }

private:
    const T* m_mean1;
    const T* m_var1;
    const T* m_mean2;
    const T* m_var2;
    T m_w1, m_w2, m_a = 0, m_b = 0;
};

template <class T>
VdlStatus merge(const T* pMean1, const T* pVar1, const T* pMean2, const T* pVar2, T* pMeanDst,
                T* pVarDst, int len, T* pLogDet, T w1, T w2)
{
    MergePair<T> pair(pMean1, pVar1, pMean2, pVar2, w1, w2);
    if (VdlStatus s = firstError({checkPtrs({pMeanDst, pVarDst, pLogDet}), pair.check(len)}))
        return s;
    T logDet = 0;
    for (int k = 0; k < len; ++k) {
        // Both before either store: the results may overwrite the inputs.
        const T mean = pair.mean(k);
        const T var = pair.var(k);
        pMeanDst[k] = mean;
        pVarDst[k] = var;
        logDet += std::log(var);
    }
    *pLogDet = logDet;
    return vdlStsNoErr;
}

template <class T>
VdlStatus mergeLoss(const T* pMean1, const T* pVar1, const T* pMean2, const T* pVar2, int len,
                    T* pDst, T w1, T logDet1, T w2, T logDet2)
{
    MergePair<T> pair(pMean1, pVar1, pMean2, pVar2, w1, w2);
    if (VdlStatus s = firstError({checkPtrs({pDst}), pair.check(len)}))
        return s;
    T logDet = 0;
    for (int k = 0; k < len; ++k)
        logDet += std::log(pair.var(k));
    *pDst = T(0.5) * ((w1 + w2) * logDet - w1 * logDet1 - w2 * logDet2);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsGaussianSplit_32f(Vdl32f* pMean1, Vdl32f* pVar1, Vdl32f* pMean2, Vdl32f* pVar2,
                                int len, Vdl32f val)
{
    return split(pMean1, pVar1, pMean2, pVar2, len, val);
}

VdlStatus vdlsGaussianSplit_64f(Vdl64f* pMean1, Vdl64f* pVar1, Vdl64f* pMean2, Vdl64f* pVar2,
                                int len, Vdl64f val)
{
    return split(pMean1, pVar1, pMean2, pVar2, len, val);
}

VdlStatus vdlsGaussianDist_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                               const Vdl32f* pVar2, int len, Vdl32f* pDst, Vdl32f w1,
                               Vdl32f logDet1, Vdl32f w2, Vdl32f logDet2)
{
    return mergeLoss(pMean1, pVar1, pMean2, pVar2, len, pDst, w1, logDet1, w2, logDet2);
}

VdlStatus vdlsGaussianDist_64f(const Vdl64f* pMean1, const Vdl64f* pVar1, const Vdl64f* pMean2,
                               const Vdl64f* pVar2, int len, Vdl64f* pDst, Vdl64f w1,
                               Vdl64f logDet1, Vdl64f w2, Vdl64f logDet2)
{
    return mergeLoss(pMean1, pVar1, pMean2, pVar2, len, pDst, w1, logDet1, w2, logDet2);
}

VdlStatus vdlsGaussianMerge_32f(const Vdl32f* pMean1, const Vdl32f* pVar1, const Vdl32f* pMean2,
                                const Vdl32f* pVar2, Vdl32f* pMeanDst, Vdl32f* pVarDst, int len,
                                Vdl32f* pLogDet, Vdl32f w1, Vdl32f w2)
{
    return merge(pMean1, pVar1, pMean2, pVar2, pMeanDst, pVarDst, len, pLogDet, w1, w2);
}

VdlStatus vdlsGaussianMerge_64f(const Vdl64f* pMean1, const Vdl64f* pVar1, const Vdl64f* pMean2,
                                const Vdl64f* pVar2, Vdl64f* pMeanDst, Vdl64f* pVarDst, int len,
                                Vdl64f* pLogDet, Vdl64f w1, Vdl64f w2)
{
    return merge(pMean1, pVar1, pMean2, pVar2, pMeanDst, pVarDst, len, pLogDet, w1, w2);
}

} // extern "C"
