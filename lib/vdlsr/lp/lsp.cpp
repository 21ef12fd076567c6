// Predictor coefficients to line spectral pairs and back.
#include <algorithm>
#include <functional>

#include "lp_common.h"
#include "lsp.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus lpToLsp(const T* pSrc, int srcShift, T* pDst, int len, int* pRoots, int nInt, int nDiv,
                  int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, pRoots}), checkLen(len),
                                  checkRange(nInt, 2, 65536), checkRange(nDiv, 0, 52)}))
        return s;
    const std::vector<double> a = loadFixed(pSrc, len, srcShift);
    std::vector<double> sum, diff;
    lspPolynomials(a.data(), len, sum, diff);
    const ChebyshevForm p(sum), q(diff);
    std::vector<double> x = searchZeros(p, p.zeros(), nInt, nDiv);
    const std::vector<double> xq = searchZeros(q, q.zeros(), nInt, nDiv);
    x.insert(x.end(), xq.begin(), xq.end());
    std::sort(x.begin(), x.end(), std::greater<double>());
    *pRoots = static_cast<int>(x.size());
    x.resize(static_cast<size_t>(len), 0.0);
    store(x, pDst, scaleFactor);
    return vdlStsNoErr;
}

template <class T>
VdlStatus lspToLpOf(const T* pSrc, int srcShift, T* pDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    const std::vector<double> x = loadFixed(pSrc, len, srcShift);
    std::vector<double> a(static_cast<size_t>(len));
    lspToLp(x.data(), len, a.data());
    store(a, pDst, scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsLPToLSP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len, int* pRoots, int nInt,
                          int nDiv)
{
    return lpToLsp(pSrc, 0, pDst, len, pRoots, nInt, nDiv, 0);
}

VdlStatus vdlsLPToLSP_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len, int* pRoots,
                              int nInt, int nDiv, int scaleFactor)
{
    return lpToLsp(pSrc, srcShift, pDst, len, pRoots, nInt, nDiv, scaleFactor);
}

VdlStatus vdlsLSPToLP_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return lspToLpOf(pSrc, 0, pDst, len, 0);
}

VdlStatus vdlsLSPToLP_16s_Sfs(const Vdl16s* pSrc, int srcShift, Vdl16s* pDst, int len,
                              int scaleFactor)
{
    return lspToLpOf(pSrc, srcShift, pDst, len, scaleFactor);
}

} // extern "C"
