// Straightforward double-precision models of the Gaussian functions, and
// the data helpers their tests share: random values that the element type
// holds exactly, and rows laid out both in one padded buffer and as a table.
#ifndef VDL_TESTS_GAUSS_REFERENCE_H
#define VDL_TESTS_GAUSS_REFERENCE_H

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "vdlcore.h"

namespace gaussref {

// What a layout puts where no row element lies; a function that reads it
// gives a visibly wrong result.
template <class T>
T poison()
{
    if (std::is_floating_point<T>::value)
        return std::numeric_limits<T>::quiet_NaN();
    return std::numeric_limits<T>::min();
}

// Values in [lo, hi] that T holds exactly: whole numbers for integer types.
template <class T>
std::vector<double> randomValues(std::mt19937& rng, int count, double lo, double hi)
{
    std::vector<double> v(count);
    if (std::is_integral<T>::value) {
        std::uniform_int_distribution<int> dist(static_cast<int>(lo), static_cast<int>(hi));
        for (double& x : v)
            x = dist(rng);
    } else {
        std::uniform_real_distribution<double> dist(lo, hi);
        for (double& x : v)
            x = static_cast<T>(dist(rng));
    }
    return v;
}

template <class T>
std::vector<T> convert(const std::vector<double>& v)
{
    return std::vector<T>(v.begin(), v.end());
}

// `height` rows of `width` values, as one buffer `step` apart (padding
// poisoned) and as separate rows behind a table of pointers.
template <class T>
struct RowSet {
    RowSet(const std::vector<double>& values, int height, int width, int step)
        : flat(static_cast<size_t>(height) * step, poison<T>()), rows(height)
    {
        for (int i = 0; i < height; ++i) {
            for (int k = 0; k < width; ++k) {
                flat[static_cast<size_t>(i) * step + k] = static_cast<T>(values[i * width + k]);
                rows[i].push_back(static_cast<T>(values[i * width + k]));
            }
            table.push_back(rows[i].data());
        }
    }
    std::vector<T> flat;
    std::vector<std::vector<T>> rows;
    std::vector<const T*> table;
};

inline double logAdd(double a, double b)
{
    const double hi = std::max(a, b);
    const double lo = std::min(a, b);
    return lo == -INFINITY ? hi : hi + std::log1p(std::exp(lo - hi));
}

// Round to nearest, halves away from zero, saturated to 32 bits.
inline double saturateRound32(double x)
{
    if (x >= 2147483647.0)
        return 2147483647.0;
    if (x <= -2147483648.0)
        return -2147483648.0;
    return std::round(x);
}

enum class Var { Precision, Unit, Direct };

// sum over k of (x - m)^2 * w, with w from `var` as the form reads it.
inline double quadForm(const double* x, const double* m, const double* var, int width, Var form)
{
    double q = 0;
    for (int k = 0; k < width; ++k) {
        const double d = x[k] - m[k];
        const double w = form == Var::Unit ? 1.0 : form == Var::Direct ? 1.0 / var[k] : var[k];
        q += d * d * w;
    }
    return q;
}

} // namespace gaussref

#endif
