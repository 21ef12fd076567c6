// Kernels of the linear-prediction family, compiled once per code path.
// Dot products run in four partial sums, so float data summed in double
// may differ between paths in the last bits; 16-bit products are summed
// exactly. The filters sum each output over its taps in tap order, the
// outputs side by side, which the compiler vectorises over the outputs.
#include <cmath>

#include "lp_kernels.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

template <class T>
double dotOf(const T* __restrict a, const T* __restrict b, int n)
{
    double s0 = 0, s1 = 0, s2 = 0, s3 = 0;
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        s0 += static_cast<double>(a[i]) * b[i];
        s1 += static_cast<double>(a[i + 1]) * b[i + 1];
        s2 += static_cast<double>(a[i + 2]) * b[i + 2];
        s3 += static_cast<double>(a[i + 3]) * b[i + 3];
    }
    for (; i < n; ++i)
        s0 += static_cast<double>(a[i]) * b[i];
    return (s0 + s1) + (s2 + s3);
}

template <class T, class A>
void firOf(const T* __restrict src, int step, const T* __restrict h, int taps, A* __restrict out,
           int count)
{
    for (int i = 0; i < count; ++i)
        out[i] = 0;
    if (step == 1) {
        for (int k = 0; k < taps; ++k) {
            const A hk = h[k];
            const T* s = src + k;
            for (int i = 0; i < count; ++i)
                out[i] += hk * static_cast<A>(s[i]);
        }
    } else {
        for (int k = 0; k < taps; ++k) {
            const A hk = h[k];
            const T* s = src + k;
            for (int i = 0; i < count; ++i)
                out[i] += hk * static_cast<A>(s[step * i]);
        }
    }
}

void fftOf(double* __restrict re, double* __restrict im, int log2n)
{
    const int n = 1 << log2n;
    // Twiddles of a stage by rotation from its step exp(-j pi / half); each
    // step from the one before by the half-angle formulas (no cancellation:
    // sin(t/2) = sin(t) / (2 cos(t/2))). Rounding grows with the stage's
    // size, about n * 1e-16 at the largest, far below a float result's.
    double stepR = -1, stepI = 0;
    for (int half = 1; half < n; half *= 2) {
        if (half == 2) {
            stepR = 0, stepI = -1;  // the step from pi has no sine to halve
        } else if (half > 2) {
            const double c = std::sqrt((1 + stepR) / 2);
            stepI = stepI / (2 * c);
            stepR = c;
        }
        double wr = 1, wi = 0;
        for (int j = 0; j < half; ++j) {
            for (int i = j; i < n; i += 2 * half) {
                const int m = i + half;
                const double xr = re[m] * wr - im[m] * wi;
                const double xi = re[m] * wi + im[m] * wr;
                re[m] = re[i] - xr, im[m] = im[i] - xi;
                re[i] += xr, im[i] += xi;
            }
            const double t = wr * stepR - wi * stepI;
            wi = wr * stepI + wi * stepR;
            wr = t;
        }
    }
}

bool inversePowersOf(double* __restrict re, const double* __restrict im, int n, double gain)
{
    bool zero = false;
    for (int m = 0; m < n; ++m) {
        const double power = re[m] * re[m] + im[m] * im[m];
        zero |= power == 0;
        re[m] = gain / power;
    }
    return zero;
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(LpKernels, lpKernels) = {
    &VDL_PATH_NS::dotOf<Vdl32f>, &VDL_PATH_NS::dotOf<Vdl16s>,
    &VDL_PATH_NS::firOf<Vdl32f, float>, &VDL_PATH_NS::firOf<Vdl16s, long long>,
    &VDL_PATH_NS::fftOf, &VDL_PATH_NS::inversePowersOf,
};

} // namespace vdl

#pragma GCC visibility pop
