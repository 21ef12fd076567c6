// The hot loops of the front end, built once per code path: the weighted
// row differences of delta regression, the weighted sums of filter banks
// and the lifter, and the sum and shift of zero-mean removal.
#ifndef VDL_FEATURE_KERNELS_H
#define VDL_FEATURE_KERNELS_H

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

struct FeatureKernels {
    // acc[k] += c * (a[k] - b[k]), k < n.
    void (*diffAcc32f)(float* acc, const Vdl32f* a, const Vdl32f* b, float c, int n);
    void (*diffAcc16s)(double* acc, const Vdl16s* a, const Vdl16s* b, double c, int n);
    // sum of w[k] * x[k], k < n, in double; the order of the sum depends
    // on the path (a relative difference up to n * 1.2e-16).
    double (*dot32f)(const float* w, const Vdl32f* x, int n);
    double (*dot16s)(const float* w, const Vdl16s* x, int n);
    double (*dot32s)(const float* w, const Vdl32s* x, int n);
    // Exact sum of 16-bit values; x[k] - value saturated, in place.
    long long (*sum16s)(const Vdl16s* x, int n);
    void (*subtract16s)(Vdl16s* x, int n, int value);
};

VDL_DISPATCH(FeatureKernels, featureKernels)

// Overloads that pick the kernel of the element type.
inline void diffAcc(const FeatureKernels& k, float* acc, const Vdl32f* a, const Vdl32f* b, float c,
                    int n)
{
    k.diffAcc32f(acc, a, b, c, n);
}
inline void diffAcc(const FeatureKernels& k, double* acc, const Vdl16s* a, const Vdl16s* b,
                    double c, int n)
{
    k.diffAcc16s(acc, a, b, c, n);
}
inline double dot(const FeatureKernels& k, const float* w, const Vdl32f* x, int n)
{
    return k.dot32f(w, x, n);
}
inline double dot(const FeatureKernels& k, const float* w, const Vdl16s* x, int n)
{
    return k.dot16s(w, x, n);
}
inline double dot(const FeatureKernels& k, const float* w, const Vdl32s* x, int n)
{
    return k.dot32s(w, x, n);
}

} // namespace vdl

#pragma GCC visibility pop

#endif
