// Element types of the Gaussian functions. Each form of a name (_32f,
// _Scaled_16s32f, _Low_16s32s ...) is one entry of this table: the type of
// its data, the type of its results and value arguments, and the type its
// sums run in.
#ifndef VDL_GAUSS_TYPES_H
#define VDL_GAUSS_TYPES_H

#include <climits>
#include <cmath>

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class SrcT, class DstT, class AccT>
struct GaussTypes {
    using Src = SrcT;  // frames, means, variances
    using Dst = DstT;  // results and value arguments
    using Acc = AccT;  // sums of squares
};

using Types32f = GaussTypes<Vdl32f, Vdl32f, float>;
using Types64f = GaussTypes<Vdl64f, Vdl64f, double>;
using Types32f64f = GaussTypes<Vdl32f, Vdl64f, double>;
// A product of 16-bit differences and a 16-bit weight needs 47 bits, so the
// exact forms sum in double; the Low forms sum in float and lose the low bits.
using Types16s32f = GaussTypes<Vdl16s, Vdl32f, double>;
using Types16s32fLow = GaussTypes<Vdl16s, Vdl32f, float>;
using Types16s32s = GaussTypes<Vdl16s, Vdl32s, double>;
using Types16s32sLow = GaussTypes<Vdl16s, Vdl32s, float>;

// A computed value as a result element: floating results take it as it is;
// integer results round to nearest, halves away from zero, and saturate.
template <class D>
struct ResultOf {
    template <class A>
    static D from(A x) { return static_cast<D>(x); }
};

template <>
struct ResultOf<Vdl32s> {
    template <class A>
    static Vdl32s from(A x)
    {
        const double v = x;
        if (std::isnan(v))
            return 0;
        if (v >= static_cast<double>(INT_MAX))
            return INT_MAX;
        if (v <= static_cast<double>(INT_MIN))
            return INT_MIN;
        return static_cast<Vdl32s>(std::lround(v));
    }
};

template <class D, class A>
D toResult(A x)
{
    return ResultOf<D>::from(x);
}

// 2 to the minus scaleFactor. The clamp keeps the factor a finite, normal
// double, so that a zero sum stays zero and a large one saturates.
inline double scaleOf(int scaleFactor)
{
    const int limit = 1000;
    const int sf = scaleFactor > limit ? limit : scaleFactor < -limit ? -limit : scaleFactor;
    return std::ldexp(1.0, -sf);
}

} // namespace vdl

#pragma GCC visibility pop

#endif
