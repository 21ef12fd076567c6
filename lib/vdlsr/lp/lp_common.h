// What the entry points of the family share: sources read into double
// (fixed-point sources by their shift), results written by the library's
// one rounding rule, and the floating-point flags kept across a refusal
// that is found only while computing (vdlflags.h).
#ifndef VDL_LP_COMMON_H
#define VDL_LP_COMMON_H

#include <cmath>
#include <memory>
#include <vector>

#include "vdlargcheck.h"
#include "vdlflags.h"
#include "vdlround.h"
#include "vdlscratch.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// dst[i] = src[i] as a double, an integer v standing for v * 2^-shift.
template <class T>
void loadInto(const T* src, int n, int shift, double* dst)
{
    const FixedPoint fx(shift);
    for (int i = 0; i < n; ++i)
        dst[i] = fx.value(static_cast<double>(src[i]));
}

template <class T>
std::vector<double> loadFixed(const T* src, int n, int shift)
{
    std::vector<double> v(static_cast<size_t>(n));
    loadInto(src, n, shift, v.data());
    return v;
}

// dst[i] = v[i] * 2^-scaleFactor as a result element (floats take 0).
template <class D>
void store(const double* v, int n, D* dst, int scaleFactor)
{
    const ScaleRule<D> rule(scaleFactor);
    for (int i = 0; i < n; ++i)
        dst[i] = rule(v[i]);
}

template <class D>
void store(const std::vector<double>& v, D* dst, int scaleFactor)
{
    store(v.data(), static_cast<int>(v.size()), dst, scaleFactor);
}

} // namespace vdl

#pragma GCC visibility pop

#endif
