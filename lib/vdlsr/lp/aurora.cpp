// The front-end filters: taps of a linear-phase filter from band gains, the
// filtering of a frame with them, and the split of a signal into a low and
// a high band at half the rate.
#include <cmath>

#include "lp_common.h"
#include "lp_kernels.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

constexpr int gainCount = 10;
constexpr int tapCount = 17;
constexpr int frameLen = 80;
constexpr int q15 = 15;

// Taps from gains by the cosine series and the Hann window of the header.
void tapsOfGains(const double* g, double* h)
{
    const double pi = 3.14159265358979323846;
    for (int n = -8; n <= 8; ++n) {
        double s = g[0] + g[gainCount - 1] * std::cos(pi * n);
        for (int k = 1; k < gainCount - 1; ++k)
            s += 2 * g[k] * std::cos(pi * k * n / 9);
        const double hann = (1 + std::cos(pi * n / 9)) / 2;
        h[n + 8] = hann * s / 18;
    }
}

template <class T>
VdlStatus tabsCalculation(const T* pSrc, T* pDst, int shift)
{
    if (VdlStatus s = checkPtrs({pSrc, pDst}))
        return s;
    const std::vector<double> g = loadFixed(pSrc, gainCount, shift);
    double h[tapCount];
    tapsOfGains(g.data(), h);
    store(h, tapCount, pDst, -shift);
    return vdlStsNoErr;
}

// Float sums stay float; 16-bit sums are exact 64-bit integers.
template <class T>
struct SumOf {
    using type = float;
};
template <>
struct SumOf<Vdl16s> {
    using type = long long;
};

template <class T>
VdlStatus residualFilter(const T* pSrc, T* pDst, const T* pTabs, int scaleFactor)
{
    if (VdlStatus s = checkPtrs({pSrc, pDst, pTabs}))
        return s;
    typename SumOf<T>::type out[frameLen];
    lpKernels().fir(pSrc, 1, pTabs, tapCount, out, frameLen);
    for (int n = 0; n < frameLen; ++n)
        pDst[n] = scaled<T>(static_cast<double>(out[n]), scaleFactor);
    return vdlStsNoErr;
}

// Even and odd taps run over the even and odd samples at the full rate of
// the half-rate output: low = even + odd, high = even - odd.
template <class T>
VdlStatus lowHighFilter(const T* pSrc, T* pDstL, T* pDstH, int len, const T* pTabs, int tabsLen,
                        int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDstL, pDstH, pTabs}), checkLen(len),
                                  checkLen(tabsLen), len % 2 == 0 ? vdlStsNoErr : vdlStsSizeErr}))
        return s;
    using Sum = typename SumOf<T>::type;
    const int count = len / 2;
    const int evenTaps = (tabsLen + 1) / 2, oddTaps = tabsLen / 2;
    const int samples = len + tabsLen - 2;
    std::vector<T> hEven(evenTaps), hOdd(oddTaps + 1), xEven((samples + 1) / 2), xOdd(samples / 2 + 1);
    for (int k = 0; k < tabsLen; ++k)
        (k % 2 ? hOdd[k / 2] : hEven[k / 2]) = pTabs[k];
    for (int i = 0; i < samples; ++i)
        (i % 2 ? xOdd[i / 2] : xEven[i / 2]) = pSrc[i];
    std::vector<Sum> even(count), odd(count, Sum(0));
    const LpKernels& kernels = lpKernels();
    kernels.fir(xEven.data(), 1, hEven.data(), evenTaps, even.data(), count);
    if (oddTaps > 0)
        kernels.fir(xOdd.data(), 1, hOdd.data(), oddTaps, odd.data(), count);
    for (int n = 0; n < count; ++n) {
        pDstL[n] = scaled<T>(static_cast<double>(even[n] + odd[n]), scaleFactor);
        pDstH[n] = scaled<T>(static_cast<double>(even[n] - odd[n]), scaleFactor);
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsTabsCalculation_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst)
{
    return tabsCalculation(pSrc, pDst, 0);
}

VdlStatus vdlsTabsCalculation_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst)
{
    return tabsCalculation(pSrc, pDst, q15);
}

VdlStatus vdlsResidualFilter_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, const Vdl32f* pTabs)
{
    return residualFilter(pSrc, pDst, pTabs, 0);
}

VdlStatus vdlsResidualFilter_Aurora_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, const Vdl16s* pTabs,
                                            int scaleFactor)
{
    return residualFilter(pSrc, pDst, pTabs, scaleFactor);
}

VdlStatus vdlsLowHighFilter_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDstL, Vdl32f* pDstH, int len,
                                       const Vdl32f* pTabs, int tabsLen)
{
    return lowHighFilter(pSrc, pDstL, pDstH, len, pTabs, tabsLen, 0);
}

VdlStatus vdlsLowHighFilter_Aurora_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDstL, Vdl16s* pDstH,
                                           int len, const Vdl16s* pTabs, int tabsLen,
                                           int scaleFactor)
{
    return lowHighFilter(pSrc, pDstL, pDstH, len, pTabs, tabsLen, scaleFactor);
}

} // extern "C"
