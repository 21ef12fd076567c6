// Power spectrum of an all-pole model on a grid of 2^(order+1) points, by
// one FFT of the inverse filter.
#include <cfloat>

#include "lp_common.h"
#include "lp_kernels.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

constexpr int q12 = 12;

// k with its low `bits` bits in reverse order, without branches.
unsigned bitReversed(unsigned k, int bits)
{
    k = ((k >> 1) & 0x55555555u) | ((k & 0x55555555u) << 1);
    k = ((k >> 2) & 0x33333333u) | ((k & 0x33333333u) << 2);
    k = ((k >> 4) & 0x0F0F0F0Fu) | ((k & 0x0F0F0F0Fu) << 4);
    k = ((k >> 8) & 0x00FF00FFu) | ((k & 0x00FF00FFu) << 8);
    k = (k >> 16) | (k << 16);
    return k >> (32 - bits);
}

// The largest result where A has a zero on the grid.
template <class D>
D saturatedSpectrum()
{
    return toResult<D>(static_cast<double>(FLT_MAX));
}

template <class T, class D>
VdlStatus lpToSpectrum(const T* pSrc, int len, D* pDst, int order, double val, int srcShift,
                       int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len), checkRange(order, 1, 16)}))
        return s;
    const int n = 1 << (order + 1);
    std::vector<double> re(static_cast<size_t>(n)), im(static_cast<size_t>(n));
    // A(z) = 1 - sum a[k] z^-k, laid out as the FFT takes it; lags beyond
    // the grid fold onto it.
    const int bits = order + 1;
    re[0] = 1;
    const double unit = scaleOf(srcShift);
    for (int k = 1; k <= len; ++k)
        re[bitReversed(static_cast<unsigned>(k) & (n - 1), bits)] -=
            static_cast<double>(pSrc[k - 1]) * unit;
    // A zero power is told by the status, not by the division's flag.
    FlagKeeper flags;
    const LpKernels& kernels = lpKernels();
    kernels.fft(re.data(), im.data(), bits);
    const bool zero = kernels.inversePowers(re.data(), im.data(), n, val * scaleOf(scaleFactor));
    for (int m = 0; m < n; ++m)
        pDst[m] = toResult<D>(re[m]);
    if (!zero)
        return vdlStsNoErr;
    for (int m = 0; m < n; ++m)
        if (!(std::fabs(re[m]) <= DBL_MAX))
            pDst[m] = saturatedSpectrum<D>();
    return flags.restore(vdlStsDivByZeroWrn);
}

} // namespace

extern "C" {

VdlStatus vdlsLPToSpectrum_32f(const Vdl32f* pSrc, int len, Vdl32f* pDst, int order, Vdl32f val)
{
    return lpToSpectrum(pSrc, len, pDst, order, val, 0, 0);
}

VdlStatus vdlsLPToSpectrum_16s_Sfs(const Vdl16s* pSrc, int len, Vdl16s* pDst, int order, int val,
                                   int scaleFactor)
{
    return lpToSpectrum(pSrc, len, pDst, order, val, q12, scaleFactor);
}

} // extern "C"
