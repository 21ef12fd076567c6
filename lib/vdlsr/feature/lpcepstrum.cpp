// Predictor coefficients to cepstrum and back by the usual recursions.
#include "vdlscratch.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// sum over k < n of (k/n) c_k a_(n-k), 1-based, from values held at [i-1].
inline double convolution(Scratch& c, Scratch& a, int n)
{
    double sum = 0;
    for (int k = 1; k < n; ++k)
        sum += k * c[k - 1] * a[n - k - 1];
    return sum / n;
}

// toCepstrum: c_n = a_n + conv; else a_n = c_n - conv. Q15 integers when
// `unit` is 32768.
template <class T>
VdlStatus recursion(const T* pSrc, T* pDst, int len, bool toCepstrum, double unit, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    Scratch in(len), out(len);
    if (!in.ok() || !out.ok())
        return vdlStsNoMemErr;
    for (int i = 0; i < len; ++i)
        in[i] = pSrc[i] / unit;
    for (int n = 1; n <= len; ++n)
        out[n - 1] = toCepstrum ? in[n - 1] + convolution(out, in, n)
                                : in[n - 1] - convolution(in, out, n);
    for (int i = 0; i < len; ++i)
        pDst[i] = scaled<T>(out[i] * unit, scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsLPToCepstrum_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return recursion(pSrc, pDst, len, true, 1.0, 0);
}

VdlStatus vdlsLPToCepstrum_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor)
{
    return recursion(pSrc, pDst, len, true, 32768.0, scaleFactor);
}

VdlStatus vdlsCepstrumToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return recursion(pSrc, pDst, len, false, 1.0, 0);
}

VdlStatus vdlsCepstrumToLP_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int len, int scaleFactor)
{
    return recursion(pSrc, pDst, len, false, 32768.0, scaleFactor);
}

} // extern "C"
