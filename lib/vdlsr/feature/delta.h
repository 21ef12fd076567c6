// Delta regression over a sequence of frames: R(x)[t] = sum over d of
// d * (x[t+d] - x[t-d]) and R(R(x)), with the sequence's ends repeated, and
// the row writers of the plain, Mul, in-matrix and Aurora forms.
#ifndef VDL_FEATURE_DELTA_H
#define VDL_FEATURE_DELTA_H

#include <type_traits>

#include "feature_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// float sums for float data; 16-bit data are summed exactly in double.
template <class T>
using DeltaAcc = std::conditional_t<std::is_same_v<T, Vdl32f>, float, double>;

// A computed coefficient as a result: floats as they are, integers times
// `scale` (2^-scaleFactor, from scaleOf once per call), rounded and saturated.
template <class T>
T coefficient(double v, double scale)
{
    if constexpr (std::is_same_v<T, Vdl32f>)
        return static_cast<T>(v);
    else
        return toResult<T>(v * scale);
}

// Windows and the rows whose dynamics a call writes.
struct DeltaPlan {
    int w1;      // window of the delta
    int w2;      // window of the double delta, 0 for none
    int first;   // rows first .. last - 1 get dynamics
    int last;
};

// The rows of a call with deltaMode: an end whose bit is clear keeps the
// rows that lack a full window as context.
inline DeltaPlan modePlan(int w1, int w2, int height, int deltaMode)
{
    const int reach = w1 + w2;
    return {w1, w2, deltaMode & 1 ? 0 : reach, deltaMode & 2 ? height : height - reach};
}

inline VdlStatus checkMode(int deltaMode)
{
    return deltaMode >= 0 && deltaMode <= 3 ? vdlStsNoErr : vdlStsBadArgErr;
}

// Calls sink(t, col0, n, d1, d2) for each planned row and block of up to 64
// columns, d1 = R(x), d2 = R(R(x)) (null without a double delta).
template <class T, class Sink>
void regress(RowRef<T> x, int height, int width, const DeltaPlan& plan, Sink&& sink)
{
    using A = DeltaAcc<T>;
    constexpr int block = 64;
    const FeatureKernels& k = featureKernels();
    auto at = [height](int s) { return s < 0 ? 0 : s >= height ? height - 1 : s; };
    A d1[block], d2[block];
    for (int col0 = 0; col0 < width; col0 += block) {
        const int n = width - col0 < block ? width - col0 : block;
        const RowRef<T> xs{x.base + col0, x.step};
        for (int t = plan.first; t < plan.last; ++t) {
            for (int c = 0; c < n; ++c)
                d1[c] = d2[c] = 0;
            for (int d = 1; d <= plan.w1; ++d)
                diffAcc(k, d1, xs.row(at(t + d)), xs.row(at(t - d)), A(d), n);
            for (int d = 1; d <= plan.w2; ++d)
                for (int sign = 1; sign >= -1; sign -= 2) {
                    const int s = at(t + sign * d);
                    for (int e = 1; e <= plan.w1; ++e)
                        diffAcc(k, d2, xs.row(at(s + e)), xs.row(at(s - e)), A(sign * d * e), n);
                }
            sink(t, col0, n, d1, plan.w2 ? d2 : nullptr);
        }
    }
}

// Writes the dynamics of a row: block `width` wide, this segment's columns
// from dstCol; multipliers per output column (mul, 3 blocks) or scalars.
template <class T, class M>
struct DynamicsWriter {
    T* dst;
    int step;
    int width;
    int dstCol;
    const M* mul;   // null: every multiplier 1
    double c1, c2;  // factors of every delta and double delta
    double scale;   // 2^-scaleFactor

    template <class A>
    void operator()(int t, int col0, int n, const A* d1, const A* d2) const
    {
        T* row = dst + static_cast<long long>(t) * step;
        for (int c = 0; c < n; ++c) {
            const int j = dstCol + col0 + c;
            const double m1 = c1 * (mul ? static_cast<double>(mul[width + j]) : 1.0);
            row[width + j] = coefficient<T>(m1 * d1[c], scale);
            if (d2) {
                const double m2 = c2 * (mul ? static_cast<double>(mul[2 * width + j]) : 1.0);
                row[2 * width + j] = coefficient<T>(m2 * d2[c], scale);
            }
        }
    }
};

// Statics of every row: a copy, or multiplied by mul[k] and scaled.
template <class T, class M>
void writeStatics(RowRef<T> x, int height, int count, T* dst, int step, int dstCol,
                  const M* mul, double scale)
{
    for (int t = 0; t < height; ++t) {
        const T* in = x.row(t);
        T* out = dst + static_cast<long long>(t) * step + dstCol;
        for (int c = 0; c < count; ++c)
            out[c] = mul ? coefficient<T>(static_cast<double>(mul[dstCol + c]) * in[c], scale)
                         : in[c];
    }
}

} // namespace vdl

#pragma GCC visibility pop

#endif
