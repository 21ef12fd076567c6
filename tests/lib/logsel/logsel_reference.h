// Plain long-double and bit-by-bit models of the log-domain and selection
// functions, written the obvious way.
#ifndef VDL_TESTS_LOGSEL_REFERENCE_H
#define VDL_TESTS_LOGSEL_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "../gauss/gauss_reference.h"
#include "test_data.h"

namespace logselref {

using namespace vdltest;
using gaussref::logAdd;

// log(exp(a) - exp(b)) for a > b.
inline double logSub(double a, double b)
{
    const long double d = static_cast<long double>(b) - a;
    return static_cast<double>(a + std::log(-std::expm1(d)));
}

inline double logSum(const std::vector<double>& x)
{
    const long double m = *std::max_element(x.begin(), x.end());
    long double sum = 0;
    for (double v : x)
        sum += std::exp(v - m);
    return static_cast<double>(m + std::log(sum));
}

inline double unitCurve(double x)
{
    return x <= 0 ? 0 : x >= 1 ? 1 : x * x * (3 - 2 * x);
}

inline double entropy(const std::vector<double>& p)
{
    long double h = 0;
    for (double v : p)
        if (v > 0)
            h -= v * std::log(static_cast<long double>(v));
    return static_cast<double>(h);
}

template <class T>
T nthMax(std::vector<T> v, int n)
{
    std::sort(v.begin(), v.end(), std::greater<T>());
    return v[n - 1];
}

// Bit k of a bit row, the first bit the most significant of byte 0.
inline bool bitOf(const std::vector<uint8_t>& row, int k)
{
    return (row[k / 8] >> (7 - k % 8)) & 1;
}

inline void setBitOf(std::vector<uint8_t>& row, int k, bool on)
{
    const uint8_t mask = static_cast<uint8_t>(0x80 >> (k % 8));
    row[k / 8] = on ? row[k / 8] | mask : row[k / 8] & ~mask;
}

// Sign bits of frames whose clusters are listed in `clusters[f]`.
inline std::vector<uint8_t> signTable(const std::vector<std::vector<int>>& clusters,
                                      const std::vector<std::vector<uint8_t>>& shortlists,
                                      int shift, int height)
{
    const int bytes = (height + 7) / 8;
    std::vector<uint8_t> sign(clusters.size() * bytes, 0);
    for (size_t f = 0; f < clusters.size(); ++f) {
        std::vector<uint8_t> frame(bytes, 0);
        for (int j = 0; j < height; ++j) {
            bool on = false;
            for (int c : clusters[f])
                on = on || bitOf(shortlists[c], shift + j);
            setBitOf(frame, j, on);
        }
        std::copy(frame.begin(), frame.end(), sign.begin() + f * bytes);
    }
    return sign;
}

} // namespace logselref

#endif
