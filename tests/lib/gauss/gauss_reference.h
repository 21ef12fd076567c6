// Straightforward double-precision models of the Gaussian functions.
#ifndef VDL_TESTS_GAUSS_REFERENCE_H
#define VDL_TESTS_GAUSS_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "test_data.h"
#include "vdlcore.h"

namespace gaussref {

using namespace vdltest;

// log(exp(a) + exp(b)), carried in long double.
inline double logAdd(double a, double b)
{
    const long double hi = std::max(a, b), lo = std::min(a, b);
    if (lo == -INFINITY)
        return static_cast<double>(hi);
    return static_cast<double>(hi + std::log1p(std::exp(lo - hi)));
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
