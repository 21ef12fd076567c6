// The hot loops of the alignment and signal family, one table per kind of
// work, each built once per code path: local distances of time warping,
// filter sums of resampling, correlation sums, and the per-bin loops of
// noise reduction.
#ifndef VDL_ALIGN_PATHS_H
#define VDL_ALIGN_PATHS_H

#include "vdlcore.h"
#include "vdlpaths.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// d[j - lo] = sum over k of (a[k] - b_j[k])^2 for the rows j = lo .. hi of b.
template <class C, class T>
using FrameDistFn = void (*)(const T* a, RowRef<T> b, int width, int lo, int hi, C* d);

struct DtwKernels {
    FrameDistFn<float, Vdl32f> f32;
    FrameDistFn<double, Vdl8u> u8;       // exact
    FrameDistFn<float, Vdl16s> s16Low;   // float sums

    template <class C, class T>
    FrameDistFn<C, T> dist() const;
};

template <> inline FrameDistFn<float, Vdl32f> DtwKernels::dist() const { return f32; }
template <> inline FrameDistFn<double, Vdl8u> DtwKernels::dist() const { return u8; }
template <> inline FrameDistFn<float, Vdl16s> DtwKernels::dist() const { return s16Low; }

VDL_DISPATCH(DtwKernels, dtwKernels)

// One output of the any-ratio resampler: sum over i < count of
// x[i] * h(|pos + i * step|), h the table at that position in entries,
// interpolated linearly or taken at the nearest entry.
template <class T>
using PhaseSumFn = float (*)(const T* x, int count, double pos, double step, const float* table,
                             int interpolate);
// A dot product of n samples and n taps, in float or in double.
template <class A, class T>
using TapSumFn = A (*)(const T* x, const float* h, int n);

struct ResampleKernels {
    PhaseSumFn<Vdl32f> phase32f;
    PhaseSumFn<Vdl16s> phase16s;
    TapSumFn<float, Vdl32f> taps32f;
    TapSumFn<double, Vdl32f> taps32fIn64;
    TapSumFn<float, Vdl16s> taps16s;
    TapSumFn<double, Vdl16s> taps16sIn64;

    template <class T>
    PhaseSumFn<T> phase() const;
    template <class A, class T>
    TapSumFn<A, T> taps() const;
};

template <> inline PhaseSumFn<Vdl32f> ResampleKernels::phase() const { return phase32f; }
template <> inline PhaseSumFn<Vdl16s> ResampleKernels::phase() const { return phase16s; }
template <> inline TapSumFn<float, Vdl32f> ResampleKernels::taps() const { return taps32f; }
template <> inline TapSumFn<double, Vdl32f> ResampleKernels::taps() const { return taps32fIn64; }
template <> inline TapSumFn<float, Vdl16s> ResampleKernels::taps() const { return taps16s; }
template <> inline TapSumFn<double, Vdl16s> ResampleKernels::taps() const { return taps16sIn64; }

VDL_DISPATCH(ResampleKernels, resampleKernels)

// The per-element loops of correlation and noise reduction. Integer forms
// give doubles, which the entry points round by the library's rule.
struct SignalKernels {
    // sums of x*y, x*x (when xx is not null) and y*y, exact in double
    void (*corrSums)(const Vdl16s* x, const Vdl16s* y, int n, double* xy, double* xx, double* yy);
    void (*wiener32f)(const Vdl32f* src, const Vdl32f* noise, const Vdl32f* den, Vdl32f* gain,
                      int len);
    void (*wiener16s)(const Vdl16s* src, const Vdl16s* noise, const Vdl16s* den, double* gain,
                      int len);
    void (*noise32f)(const Vdl32f* src, const Vdl32f* noise, Vdl32f* dst, int len);
    void (*noise16s)(const Vdl16s* src, const Vdl16s* noise, double* dst, int len);
    void (*noise32s)(const Vdl32s* src, const Vdl32s* noise, double* dst, int len);
    void (*gainWiener)(const Vdl32s* prio, double* gain, int len);
    void (*gainEmns)(const Vdl32s* prio, const Vdl32s* post, double* gain, int len);
};

VDL_DISPATCH(SignalKernels, signalKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
