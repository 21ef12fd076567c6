// The hot loop of every Gaussian score: the quadratic forms
// q_i = sum over k of term(x_ik, m_ik, w_ik) of a block of rows, one kernel
// per element types and variance kind, built once per code path.
#ifndef VDL_GAUSS_QUAD_H
#define VDL_GAUSS_QUAD_H

#include "vdlcore.h"
#include "vdlpaths.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// q[j] for rows first .. first + count - 1 of `width` elements.
template <class A, class T>
using QuadRowsFn = void (*)(RowRef<T> x, RowRef<T> m, RowRef<T> w, int width, int first,
                            int count, A* q);

// The three variance kinds of one pair of sum and data types.
template <class A, class T>
struct QuadSet {
    QuadRowsFn<A, T> inverse;  // w holds precisions
    QuadRowsFn<A, T> unit;     // every w is 1; w is not read
    QuadRowsFn<A, T> direct;   // w holds variances
};

struct GaussKernels {
    QuadSet<float, Vdl32f> f32;
    QuadSet<double, Vdl64f> f64;
    QuadSet<double, Vdl32f> f32in64;
    QuadSet<double, Vdl16s> s16;
    QuadSet<float, Vdl16s> s16Low;

    template <class A, class T>
    const QuadSet<A, T>& set() const;
};

template <> inline const QuadSet<float, Vdl32f>& GaussKernels::set() const { return f32; }
template <> inline const QuadSet<double, Vdl64f>& GaussKernels::set() const { return f64; }
template <> inline const QuadSet<double, Vdl32f>& GaussKernels::set() const { return f32in64; }
template <> inline const QuadSet<double, Vdl16s>& GaussKernels::set() const { return s16; }
template <> inline const QuadSet<float, Vdl16s>& GaussKernels::set() const { return s16Low; }

VDL_DISPATCH(GaussKernels, gaussKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
