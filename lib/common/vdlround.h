// The one rule of every integer result: the exact value times
// 2^-scaleFactor, rounded to nearest with halves away from zero, saturated
// to the result type. Floating results take the value as it is.
#ifndef VDL_COMMON_ROUND_H
#define VDL_COMMON_ROUND_H

#include <cmath>
#include <limits>
#include <type_traits>

#pragma GCC visibility push(hidden)

namespace vdl {

// A computed value as a result element of type D.
template <class D, class A>
D toResult(A x)
{
    if constexpr (std::is_floating_point_v<D>) {
        return static_cast<D>(x);
    } else {
        const double v = static_cast<double>(x);
        if (std::isnan(v))
            return 0;
        // The bounds as doubles: for 64-bit types the upper one rounds up to
        // 2^63, which no D holds, so >= saturates exactly there.
        constexpr double hi = static_cast<double>(std::numeric_limits<D>::max());
        constexpr double lo = static_cast<double>(std::numeric_limits<D>::min());
        if (v >= hi)
            return std::numeric_limits<D>::max();
        if (v <= lo)
            return std::numeric_limits<D>::min();
        return static_cast<D>(std::round(v));
    }
}

// 2 to the minus scaleFactor. The clamp keeps the factor a finite, normal
// double, so that a zero stays zero and a large value saturates.
inline double scaleOf(int scaleFactor)
{
    const int limit = 1000;
    const int sf = scaleFactor > limit ? limit : scaleFactor < -limit ? -limit : scaleFactor;
    return std::ldexp(1.0, -sf);
}

// The whole rule: x * 2^-scaleFactor as a result element of type D.
template <class D>
D scaled(double x, int scaleFactor)
{
    return toResult<D>(x * scaleOf(scaleFactor));
}

} // namespace vdl

#pragma GCC visibility pop

#endif
