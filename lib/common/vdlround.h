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

// v rounded to nearest, halves away from zero, for |v| below 2^63. The
// truncation and the remainder are exact, and no library call is made, so
// that a loop of integer results stays cheap.
inline long long roundHalfAway(double v)
{
    long long i = static_cast<long long>(v);
    const double rest = v - static_cast<double>(i);
    if (rest >= 0.5)
        ++i;
    else if (rest <= -0.5)
        --i;
    return i;
}

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
        return static_cast<D>(roundHalfAway(v));
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

// The same rule for many elements of one call: the factor is found once.
template <class D>
class ScaleRule {
public:
    explicit ScaleRule(int scaleFactor) : m_factor(scaleOf(scaleFactor)) {}
    D operator()(double x) const { return toResult<D>(x * m_factor); }

private:
    double m_factor;
};

// A fixed-point element of scale factor sf and the value it stands for,
// element * 2^-sf; a value goes back to an element by the one rule.
class FixedPoint {
public:
    explicit FixedPoint(int scaleFactor)
        : m_toValue(scaleOf(scaleFactor)), m_toElement(1.0 / m_toValue) {}  // exact: a power of 2
    double value(double element) const { return element * m_toValue; }
    template <class D>
    D element(double value) const { return toResult<D>(value * m_toElement); }

private:
    double m_toValue;
    double m_toElement;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
