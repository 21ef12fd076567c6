// Straightforward double-precision models of the training functions, and
// matrices held in both layouts at once.
#ifndef VDL_TESTS_TRAIN_REFERENCE_H
#define VDL_TESTS_TRAIN_REFERENCE_H

#include <cmath>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "test_data.h"
#include "vdlcore.h"

namespace trainref {

using namespace vdltest;

// Matrix shapes that catch the edges of the kernels: one element, odd
// sizes, one past a vector width (16 floats), steps wider than the width.
struct Shape {
    int height, width, step;
};
const Shape shapes[] = {{1, 1, 1}, {7, 5, 9}, {9, 17, 24}, {33, 9, 12}, {4, 33, 40}};

// A random matrix of `shape` with both layouts, and its values as doubles
// (value(i, k)). Writable: the table's rows may be changed in place.
template <class T>
struct Matrix {
    Matrix(std::mt19937& rng, Shape s, double lo, double hi)
        : shape(s), values(randomValues<T>(rng, s.height * s.width, lo, hi)),
          rows(values, s.height, s.width, s.step)
    {
        for (auto& r : rows.rows)
            table.push_back(r.data());
    }
    double value(int i, int k) const { return values[i * shape.width + k]; }
    const T* flat() const { return rows.flat.data(); }
    T* flatW() { return rows.flat.data(); }
    const T* const* rowTable() const { return rows.table.data(); }
    T* const* rowTableW() { return table.data(); }

    Shape shape;
    std::vector<double> values;
    RowSet<T> rows;
    std::vector<T*> table;
};

inline std::vector<double> columnMeans(const std::vector<double>& v, int height, int width)
{
    std::vector<double> m(width, 0.0);
    for (int i = 0; i < height; ++i)
        for (int k = 0; k < width; ++k)
            m[k] += v[i * width + k] / height;
    return m;
}

// Mean of the squared deviations from `mean`.
inline std::vector<double> columnVars(const std::vector<double>& v, int height, int width,
                                      const std::vector<double>& mean)
{
    std::vector<double> s(width, 0.0);
    for (int i = 0; i < height; ++i)
        for (int k = 0; k < width; ++k)
            s[k] += (v[i * width + k] - mean[k]) * (v[i * width + k] - mean[k]) / height;
    return s;
}

// What the library writes for an exact value x of type D: floats as they
// are, integers by the one scale rule.
template <class D>
double expected(double x, int scaleFactor = 0)
{
    if (std::is_floating_point<D>::value)
        return x;
    return roundSaturate<D>(x * std::ldexp(1.0, -scaleFactor));
}

// The bound of a comparison: one unit for integers, a relative 1e-5 for
// floats (rounded once from a double sum).
template <class D>
double tolerance(double x)
{
    if (std::is_floating_point<D>::value)
        return 1e-5 * (1 + std::fabs(x));
    return 1.0;
}

// Both layouts agree exactly and match the model: floats within
// absTol + relTol * |value|, integers by the one scale rule within intTol.
template <class D>
void expectLayouts(const std::vector<D>& d2, const std::vector<D>& d2l, const std::vector<double>& want,
                   int scaleFactor, double absTol, double relTol, double intTol = 0)
{
    EXPECT_EQ(d2, d2l) << "the layouts differ";
    for (size_t k = 0; k < want.size(); ++k) {
        const double e = expected<D>(want[k], scaleFactor);
        EXPECT_NEAR(d2[k], e, std::is_floating_point<D>::value ? absTol + relTol * std::fabs(e) : intTol) << k;
    }
}

} // namespace trainref

#endif
