// The hot loops of the linear-prediction family, built once per code path:
// dot products (autocorrelation and covariance sums), the FIR filters of the
// front end and the FFT of the all-pole spectrum.
#ifndef VDL_LP_KERNELS_H
#define VDL_LP_KERNELS_H

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

struct LpKernels {
    // sum of a[i] b[i], i < n, in double; 16-bit products summed exactly.
    double (*dot32f)(const Vdl32f* a, const Vdl32f* b, int n);
    double (*dot16s)(const Vdl16s* a, const Vdl16s* b, int n);
    // out[i] = sum over k < taps of h[k] src[step i + k], i < count.
    void (*fir32f)(const Vdl32f* src, int step, const Vdl32f* h, int taps, float* out, int count);
    void (*fir16s)(const Vdl16s* src, int step, const Vdl16s* h, int taps, long long* out,
                   int count);
    // In-place forward FFT of n = 2^log2n complex values, exp(-j 2 pi m k / n):
    // value k goes in at place k with its log2n low bits reversed, the
    // result comes out in natural order.
    void (*fft)(double* re, double* im, int log2n);
    // re[m] = gain / (re[m]^2 + im[m]^2), m < n; true when a power is 0
    // (its result is then inf or nan).
    bool (*inversePowers)(double* re, const double* im, int n, double gain);

    double dot(const Vdl32f* a, const Vdl32f* b, int n) const { return dot32f(a, b, n); }
    double dot(const Vdl16s* a, const Vdl16s* b, int n) const { return dot16s(a, b, n); }
    void fir(const Vdl32f* s, int step, const Vdl32f* h, int t, float* o, int c) const
    {
        fir32f(s, step, h, t, o, c);
    }
    void fir(const Vdl16s* s, int step, const Vdl16s* h, int t, long long* o, int c) const
    {
        fir16s(s, step, h, t, o, c);
    }
};

VDL_DISPATCH(LpKernels, lpKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
