// Test data that the library's family tests share: random values that the
// element type holds exactly, rows laid out both in one padded buffer and as
// a table of row pointers, and the one rounding rule of integer results.
#ifndef VDL_TESTS_TEST_DATA_H
#define VDL_TESTS_TEST_DATA_H

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include "vdlcore.h"

namespace vdltest {

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

// Rows of equal length laid out both ways.
template <class T>
RowSet<T> rowsOf(const std::vector<std::vector<double>>& rows, int step)
{
    std::vector<double> v;
    for (const auto& r : rows)
        v.insert(v.end(), r.begin(), r.end());
    return RowSet<T>(v, static_cast<int>(rows.size()), static_cast<int>(rows[0].size()), step);
}

template <class T>
std::vector<double> asDouble(const std::vector<T>& v)
{
    return {v.begin(), v.end()};
}

// Round to nearest, halves away from zero, saturated to the range of T.
template <class T>
double roundSaturate(double x)
{
    if (x >= static_cast<double>(std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    if (x <= static_cast<double>(std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    return std::round(x);
}

} // namespace vdltest

#endif
