// Per-element loops of correlation and noise reduction, compiled once per
// code path. Products of 16-bit samples are exact in double and so are
// their sums, in any order; the other loops compute each element on its
// own, so every path gives the same results up to the rounding of the
// compiler's contractions (a few units in the last place).
#include <cmath>

#include "align_paths.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

constexpr int lanes = 8;

// Decision-directed a priori ratio: the weight of the denoised spectrum of
// the frame before, and the floor of -22 dB.
constexpr double priorWeight = 0.98;
constexpr double etaFloor = 0.079432823;
// Weight of the old estimate when the noise follows the frame.
constexpr double noiseMemory = 0.99;
// Q22 ratios in, as real numbers.
constexpr double ratioUnit = 1.0 / 4194304.0;

void corrSums(const Vdl16s* __restrict x, const Vdl16s* __restrict y, int n, double* xy,
              double* xx, double* yy)
{
    double sxy[lanes] = {}, sxx[lanes] = {}, syy[lanes] = {};
    int k = 0;
    for (; k + lanes <= n; k += lanes)
        for (int l = 0; l < lanes; ++l) {
            const double a = x[k + l], b = y[k + l];
            sxy[l] += a * b;
            sxx[l] += a * a;
            syy[l] += b * b;
        }
    double txy = 0, txx = 0, tyy = 0;
    for (; k < n; ++k) {
        const double a = x[k], b = y[k];
        txy += a * b;
        txx += a * a;
        tyy += b * b;
    }
    for (int l = 0; l < lanes; ++l) {
        txy += sxy[l];
        txx += sxx[l];
        tyy += syy[l];
    }
    *xy = txy;
    if (xx)
        *xx = txx;
    *yy = tyy;
}

template <class F>
F wienerGain(F src, F noise, F den)
{
    if (!(noise > 0))
        return 1;
    const F post = src / noise - 1;
    F eta = static_cast<F>(priorWeight) * den / noise +
            static_cast<F>(1 - priorWeight) * (post > 0 ? post : 0);
    eta = eta > static_cast<F>(etaFloor) ? eta : static_cast<F>(etaFloor);
    return eta / (1 + eta);
}

void wiener32f(const Vdl32f* src, const Vdl32f* noise, const Vdl32f* den, Vdl32f* gain, int len)
{
    for (int k = 0; k < len; ++k)
        gain[k] = wienerGain<float>(src[k], noise[k], den[k]);
}

void wiener16s(const Vdl16s* src, const Vdl16s* noise, const Vdl16s* den, double* gain, int len)
{
    for (int k = 0; k < len; ++k)
        gain[k] = 32768.0 * wienerGain<double>(src[k], noise[k], den[k]);
}

template <class F>
F noiseUpdate(F src, F noise)
{
    const F v = static_cast<F>(noiseMemory) * noise + static_cast<F>(1 - noiseMemory) * src;
    return v > 0 ? v : 0;
}

void noise32f(const Vdl32f* __restrict src, const Vdl32f* __restrict noise, Vdl32f* __restrict dst,
              int len)
{
    for (int k = 0; k < len; ++k)
        dst[k] = noiseUpdate<float>(src[k], noise[k]);
}

template <class T>
void noiseInt(const T* __restrict src, const T* __restrict noise, double* __restrict dst, int len)
{
    for (int k = 0; k < len; ++k)
        dst[k] = noiseUpdate<double>(src[k], noise[k]);
}

double ratio(Vdl32s q22)
{
    return q22 > 0 ? q22 * ratioUnit : 0.0;
}

void gainWiener(const Vdl32s* __restrict prio, double* __restrict gain, int len)
{
    for (int k = 0; k < len; ++k) {
        const double xi = ratio(prio[k]);
        gain[k] = xi / (1 + xi);
    }
}

// exp(-x) I0(x) and exp(-x) I1(x) for x >= 0, by the classic polynomial
// forms (absolute errors of the scaled forms below 2.2e-7 of their value).
void scaledBessel(double x, double* i0, double* i1)
{
    if (x < 3.75) {
        const double t = (x / 3.75) * (x / 3.75);
        const double p0 = 1.0 + t * (3.5156229 + t * (3.0899424 + t * (1.2067492 +
                          t * (0.2659732 + t * (0.0360768 + t * 0.0045813)))));
        const double p1 = x * (0.5 + t * (0.87890594 + t * (0.51498869 + t * (0.15084934 +
                          t * (0.02658733 + t * (0.00301532 + t * 0.00032411))))));
        const double e = std::exp(-x);
        *i0 = p0 * e;
        *i1 = p1 * e;
    } else {
        const double u = 3.75 / x;
        const double r = 1.0 / std::sqrt(x);
        *i0 = r * (0.39894228 + u * (0.01328592 + u * (0.00225319 + u * (-0.00157565 +
              u * (0.00916281 + u * (-0.02057706 + u * (0.02635537 + u * (-0.01647633 +
              u * 0.00392377))))))));
        *i1 = r * (0.39894228 + u * (-0.03988024 + u * (-0.00362018 + u * (0.00163801 +
              u * (-0.01031555 + u * (0.02282967 + u * (-0.02895312 + u * (0.01787654 -
              u * 0.00420059))))))));
    }
}

void gainEmns(const Vdl32s* __restrict prio, const Vdl32s* __restrict post,
              double* __restrict gain, int len)
{
    const double halfSqrtPi = 0.88622692545275801;
    for (int k = 0; k < len; ++k) {
        const double xi = ratio(prio[k]);
        const double g = ratio(post[k]);
        const double wiener = xi / (1 + xi);
        if (!(g > 0)) {
            gain[k] = wiener;
            continue;
        }
        const double v = wiener * g;
        double i0, i1;
        scaledBessel(0.5 * v, &i0, &i1);
        gain[k] = halfSqrtPi * std::sqrt(v) / g * ((1 + v) * i0 + v * i1);
    }
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(SignalKernels, signalKernels) = {
    &VDL_PATH_NS::corrSums,
    &VDL_PATH_NS::wiener32f,
    &VDL_PATH_NS::wiener16s,
    &VDL_PATH_NS::noise32f,
    &VDL_PATH_NS::noiseInt<Vdl16s>,
    &VDL_PATH_NS::noiseInt<Vdl32s>,
    &VDL_PATH_NS::gainWiener,
    &VDL_PATH_NS::gainEmns,
};

} // namespace vdl

#pragma GCC visibility pop
