// Linear prediction of a signal by the autocorrelation method (lags, then
// Levinson-Durbin) and by the covariance method (normal equations solved by
// Cholesky).
#include <cmath>

#include "lp_common.h"
#include "lp_kernels.h"
#include "lp_recursion.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

VdlStatus checkPrediction(const void* pSrc, int lenSrc, const void* pDst, int lenDst)
{
    return firstError({checkPtrs({pSrc, pDst}), checkLen(lenSrc), checkLen(lenDst),
                       lenSrc > lenDst ? vdlStsNoErr : vdlStsSizeErr});
}

// sign +1 gives a, -1 the coefficients of A(z) = 1 + sum c z^-k.
template <class T>
VdlStatus byAutocorrelation(const T* pSrc, int lenSrc, T* pDst, int lenDst, int scaleFactor,
                            double sign)
{
    if (VdlStatus s = checkPrediction(pSrc, lenSrc, pDst, lenDst))
        return s;
    FlagKeeper flags;
    const LpKernels& kernels = lpKernels();
    std::vector<double> r(static_cast<size_t>(lenDst) + 1);
    for (int k = 0; k <= lenDst; ++k)
        r[k] = kernels.dot(pSrc, pSrc + k, lenSrc - k);
    std::vector<double> a(static_cast<size_t>(lenDst));
    double err = 0;
    if (!levinsonDurbin(r.data(), lenDst, a.data(), &err))
        return flags.restore(vdlStsBadArgErr);
    for (double& x : a)
        x *= sign;
    store(a, pDst, scaleFactor);
    return vdlStsNoErr;
}

// Solves phi a = psi for the leading orders whose pivots stay above
// 1e-12 of the largest diagonal; the later coefficients stay 0.
void solveTruncated(std::vector<double>& phi, const std::vector<double>& psi, int p,
                    std::vector<double>& a)
{
    double largest = 0;
    for (int i = 0; i < p; ++i)
        largest = std::fmax(largest, phi[i * p + i]);
    const double floor = 1e-12 * largest;
    int order = 0;
    // Left-looking Cholesky: column j of L in the lower triangle of phi.
    for (int j = 0; j < p; ++j) {
        double d = phi[j * p + j];
        for (int k = 0; k < j; ++k)
            d -= phi[j * p + k] * phi[j * p + k];
        if (!(d > floor))
            break;
        const double ljj = std::sqrt(d);
        phi[j * p + j] = ljj;
        for (int i = j + 1; i < p; ++i) {
            double s = phi[i * p + j];
            for (int k = 0; k < j; ++k)
                s -= phi[i * p + k] * phi[j * p + k];
            phi[i * p + j] = s / ljj;
        }
        order = j + 1;
    }
    std::vector<double> y(static_cast<size_t>(order));
    for (int i = 0; i < order; ++i) {
        double s = psi[i];
        for (int k = 0; k < i; ++k)
            s -= phi[i * p + k] * y[k];
        y[i] = s / phi[i * p + i];
    }
    a.assign(static_cast<size_t>(p), 0.0);
    for (int i = order - 1; i >= 0; --i) {
        double s = y[i];
        for (int k = i + 1; k < order; ++k)
            s -= phi[k * p + i] * a[k];
        a[i] = s / phi[i * p + i];
    }
}

template <class T>
VdlStatus byCovariance(const T* pSrc, int lenSrc, T* pDst, int lenDst, int scaleFactor)
{
    if (VdlStatus s = checkPrediction(pSrc, lenSrc, pDst, lenDst))
        return s;
    const LpKernels& kernels = lpKernels();
    const int p = lenDst;
    const int count = lenSrc - p;
    const T* x = pSrc + p;  // x[n - i] for n = p .. lenSrc-1 is x[-i ..]
    std::vector<double> phi(static_cast<size_t>(p) * p), psi(static_cast<size_t>(p));
    for (int i = 1; i <= p; ++i) {
        psi[i - 1] = kernels.dot(x - i, x, count);
        for (int j = 1; j <= i; ++j)
            phi[(i - 1) * p + (j - 1)] = phi[(j - 1) * p + (i - 1)] =
                kernels.dot(x - i, x - j, count);
    }
    std::vector<double> a;
    solveTruncated(phi, psi, p, a);
    store(a, pDst, scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsLinearPrediction_Auto_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst)
{
    return byAutocorrelation(pSrc, lenSrc, pDst, lenDst, 0, 1.0);
}

VdlStatus vdlsLinearPrediction_Auto_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                            int lenDst, int scaleFactor)
{
    return byAutocorrelation(pSrc, lenSrc, pDst, lenDst, scaleFactor, 1.0);
}

VdlStatus vdlsLinearPrediction_Cov_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst, int lenDst)
{
    return byCovariance(pSrc, lenSrc, pDst, lenDst, 0);
}

VdlStatus vdlsLinearPrediction_Cov_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                           int lenDst, int scaleFactor)
{
    return byCovariance(pSrc, lenSrc, pDst, lenDst, scaleFactor);
}

VdlStatus vdlsLinearPredictionNeg_Auto_32f(const Vdl32f* pSrc, int lenSrc, Vdl32f* pDst,
                                           int lenDst)
{
    return byAutocorrelation(pSrc, lenSrc, pDst, lenDst, 0, -1.0);
}

VdlStatus vdlsLinearPredictionNeg_Auto_16s_Sfs(const Vdl16s* pSrc, int lenSrc, Vdl16s* pDst,
                                               int lenDst, int scaleFactor)
{
    return byAutocorrelation(pSrc, lenSrc, pDst, lenDst, scaleFactor, -1.0);
}

} // extern "C"
