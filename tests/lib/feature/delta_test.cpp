// Delta regression in all its forms against the regression written out in
// double: plain and Mul destinations, the in-matrix forms, the Aurora rows
// of 39, the context rows of a partial deltaMode, and CopyColumn.
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <functional>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "feature_reference.h"
#include "scaled_call.h"
#include "test_data.h"
#include "vdlsr.h"

using namespace featref;
using namespace vdltest;

namespace {

// The delta entry points of one element type, windows 1 and 2 in that
// order; integer forms take the multipliers as int and a scale factor.
template <class T>
struct Forms;

template <>
struct Forms<Vdl32f> {
    static constexpr std::array delta{vdlsDelta_Win1_32f_D2, vdlsDelta_Win2_32f_D2};
    static constexpr std::array deltaDelta{vdlsDeltaDelta_Win1_32f_D2, vdlsDeltaDelta_Win2_32f_D2};
    static constexpr std::array deltaMul{vdlsDeltaMul_Win1_32f_D2, vdlsDeltaMul_Win2_32f_D2};
    static constexpr std::array deltaDeltaMul{vdlsDeltaDeltaMul_Win1_32f_D2, vdlsDeltaDeltaMul_Win2_32f_D2};
    static constexpr auto eval = vdlsEvalDelta_32f_D2;
    static constexpr auto evalMul = vdlsEvalDeltaMul_32f_D2;
    static constexpr auto aurora = vdlsDeltaDelta_Aurora_32f_D2;
    static constexpr auto auroraMul = vdlsDeltaDeltaMul_Aurora_32f_D2;
    static constexpr auto copyColumn = vdlsCopyColumn_32f_D2;
    static constexpr double lo = -1, hi = 1, val = 0.25;
    static constexpr int scaleFactors[] = {0};
};

template <>
struct Forms<Vdl16s> {
    static constexpr std::array delta{vdlsDelta_Win1_16s_D2Sfs, vdlsDelta_Win2_16s_D2Sfs};
    static constexpr std::array deltaDelta{vdlsDeltaDelta_Win1_16s_D2Sfs, vdlsDeltaDelta_Win2_16s_D2Sfs};
    static constexpr std::array deltaMul{vdlsDeltaMul_Win1_16s_D2Sfs, vdlsDeltaMul_Win2_16s_D2Sfs};
    static constexpr std::array deltaDeltaMul{vdlsDeltaDeltaMul_Win1_16s_D2Sfs, vdlsDeltaDeltaMul_Win2_16s_D2Sfs};
    static constexpr auto eval = vdlsEvalDelta_16s_D2Sfs;
    static constexpr auto evalMul = vdlsEvalDeltaMul_16s_D2Sfs;
    static constexpr auto aurora = vdlsDeltaDelta_Aurora_16s_D2Sfs;
    static constexpr auto auroraMul = vdlsDeltaDeltaMul_Aurora_16s_D2Sfs;
    static constexpr auto copyColumn = vdlsCopyColumn_16s_D2;
    static constexpr double lo = -300, hi = 300, val = 3;
    static constexpr int scaleFactors[] = {0, 2, -1};
};

// Sizes: one frame, odd sizes, one past a vector width and one past the
// column block of 64.
struct Shape {
    int height, width;
};
const Shape shapes[] = {{1, 1}, {5, 9}, {3, 17}, {7, 65}, {9, 13}};

template <class T>
class DeltaForms : public ::testing::Test {
protected:
    using F = Forms<T>;

    Matrix frames(int height, int width)
    {
        Matrix x(height);
        for (auto& row : x)
            row = randomValues<T>(rng, width, F::lo, F::hi);
        return x;
    }
    static std::vector<T> packed(const Matrix& x)
    {
        std::vector<T> v;
        for (const auto& row : x)
            v.insert(v.end(), row.begin(), row.end());
        return v;
    }
    std::vector<T> multipliers(int count, double lo) { return convert<T>(randomValues<T>(rng, count, lo, 3)); }

    // Row t of dst (`step` apart) holds in block b, the `width` values from
    // b * width, the exact value want(b, t, k) as the form rounds it. Rows
    // outside [first, last) keep `kept` in every block after the first.
    static void expectBlocks(const std::vector<T>& dst, int step, int height, int width, int blocks, int sf,
                             const std::function<double(int, int, int)>& want, int first = 0,
                             int last = INT_MAX, T kept = T())
    {
        for (int t = 0; t < height; ++t)
            for (int b = 0; b < blocks; ++b)
                for (int k = 0; k < width; ++k) {
                    const T got = dst[size_t(t) * step + b * width + k];
                    if (b > 0 && (t < first || t >= last)) {
                        EXPECT_EQ(got, kept) << "block " << b << " row " << t << " col " << k;
                        continue;
                    }
                    const double e = std::is_floating_point<T>::value
                                         ? static_cast<T>(want(b, t, k))
                                         : roundSaturate<T>(want(b, t, k) * std::ldexp(1.0, -sf));
                    const double tol = std::is_floating_point<T>::value ? 2e-5 * (1 + std::fabs(e)) : 0;
                    EXPECT_NEAR(double(got), e, tol) << "block " << b << " row " << t << " col " << k << " sf " << sf;
                }
    }
    std::mt19937 rng{11};
};

using Types = ::testing::Types<Vdl32f, Vdl16s>;
TYPED_TEST_SUITE(DeltaForms, Types);

// Plain forms scale each block by its one multiplier, Mul forms every
// column by its own; either leaves the row padding alone.
TYPED_TEST(DeltaForms, DeltaAndDoubleDeltaFollowTheRegression)
{
    using T = TypeParam;
    using F = Forms<T>;
    for (const Shape& s : shapes)
        for (int w = 1; w <= 2; ++w)
            for (int blocks = 2; blocks <= 3; ++blocks)
                for (bool mul : {false, true})
                    for (int sf : F::scaleFactors) {
                        const Matrix x = this->frames(s.height, s.width);
                        const std::vector<T> src = this->packed(x), val = this->multipliers(3 * s.width, -3);
                        const int step = blocks * s.width + 3;
                        const bool dd = blocks == 3;
                        std::vector<T> dst(size_t(s.height) * step, poison<T>());
                        const double v1 = F::val, v2 = 2 * F::val;
                        ASSERT_EQ(vdlStsNoErr,
                                  mul  ? callScaled((dd ? F::deltaDeltaMul : F::deltaMul)[w - 1], sf, src.data(),
                                                    val.data(), s.width, dst.data(), step, s.height, 3)
                                  : dd ? callScaled(F::deltaDelta[w - 1], sf, src.data(), s.width, dst.data(), step,
                                                    s.height, v1, v2, 3)
                                       : callScaled(F::delta[w - 1], sf, src.data(), s.width, dst.data(), step,
                                                    s.height, v1, 3));
                        const Matrix d = regression(x, w), d2 = regression(d, w);
                        this->expectBlocks(dst, step, s.height, s.width, blocks, sf, [&](int b, int t, int k) {
                            const double factor = mul      ? double(val[b * s.width + k])
                                                  : b == 0 ? std::ldexp(1.0, sf)
                                                  : b == 1 ? v1
                                                           : v2;
                            return factor * (b == 0 ? x : b == 1 ? d : d2)[t][k];
                        });
                        const T p = poison<T>();
                        for (int t = 0; t < s.height; ++t)
                            for (int k = blocks * s.width; k < step; ++k)
                                EXPECT_EQ(0, std::memcmp(&dst[size_t(t) * step + k], &p, sizeof(T)));
                    }
}

// With a bit of deltaMode clear, the rows at that end lack a full window:
// their dynamics stay as they were, the others are those of the whole
// sequence.
TYPED_TEST(DeltaForms, PartialModeLeavesContextRowsAlone)
{
    using T = TypeParam;
    const int height = 12, width = 5, step = 3 * width, w = 2;
    const Matrix x = this->frames(height, width);
    const std::vector<T> src = this->packed(x);
    const Matrix d = regression(x, w), dd = regression(d, w);
    for (int mode = 0; mode <= 3; ++mode) {
        SCOPED_TRACE(::testing::Message() << "mode " << mode);
        std::vector<T> dst(size_t(height) * step, T(7));
        ASSERT_EQ(vdlStsNoErr, callScaled(Forms<T>::deltaDelta[w - 1], 0, src.data(), width, dst.data(), step,
                                          height, 1.0, 1.0, mode));
        this->expectBlocks(
            dst, step, height, width, 3, 0, [&](int b, int t, int k) { return (b == 0 ? x : b == 1 ? d : dd)[t][k]; },
            mode & 1 ? 0 : 2 * w, mode & 2 ? height : height - 2 * w, T(7));
    }
}

TYPED_TEST(DeltaForms, EvalDeltaWritesBesideTheStaticsFromTheOffset)
{
    using T = TypeParam;
    using F = Forms<T>;
    for (const Shape& s : shapes)
        for (int w = 1; w <= 2; ++w)
            for (int offset : {0, 2})
                for (bool mul : {false, true}) {
                    if (offset >= s.height)
                        continue;
                    const int sf = F::scaleFactors[0];
                    const Matrix x = this->frames(s.height, s.width);
                    const int step = 3 * s.width + 2;
                    std::vector<T> m(size_t(s.height) * step, T(5));
                    for (int t = 0; t < s.height; ++t)
                        std::copy(x[t].begin(), x[t].end(), &m[size_t(t) * step]);
                    const std::vector<T> val = this->multipliers(3 * s.width, -3);
                    ASSERT_EQ(vdlStsNoErr,
                              mul ? callScaled(F::evalMul, sf, m.data(), s.height, step, val.data(), s.width, offset, w)
                                  : callScaled(F::eval, sf, m.data(), s.height, step, s.width, offset, w, F::val));
                    const Matrix d = regression(x, w), dd = regression(d, w);
                    this->expectBlocks(m, step, s.height, s.width, 3, sf, [&](int b, int t, int k) {
                        const double factor = b == 0 ? 1 : mul ? double(val[b * s.width + k]) : F::val;
                        return factor * (b == 0 ? x : b == 1 ? d : dd)[t][k];
                    }, offset, INT_MAX, T(5));
                }
}

// Rows of 14 (12 cepstra, c0, energy) become rows of 39: the 12 cepstra and
// energy, their deltas over a window of 3 and double deltas over 2.
TYPED_TEST(DeltaForms, AuroraRowsHoldCepstraAndEnergyWithTheirDynamics)
{
    using T = TypeParam;
    using F = Forms<T>;
    for (int height : {1, 6, 11})
        for (bool mul : {false, true}) {
            const int sf = F::scaleFactors[0], step = 41;
            const Matrix src = this->frames(height, 14);
            Matrix x(height);
            for (int t = 0; t < height; ++t) {
                x[t].assign(src[t].begin(), src[t].begin() + 12);
                x[t].push_back(src[t][13]);
            }
            const std::vector<T> in = this->packed(src), val = this->multipliers(39, 1);
            std::vector<T> dst(size_t(height) * step, poison<T>());
            ASSERT_EQ(vdlStsNoErr, mul ? callScaled(F::auroraMul, sf, in.data(), val.data(), dst.data(), step, height, 3)
                                       : callScaled(F::aurora, sf, in.data(), dst.data(), step, height, 3));
            const Matrix d = scaledBy(regression(x, 3), 1.0 / 28);
            const Matrix dd = scaledBy(regression(d, 2), 1.0 / 10);
            this->expectBlocks(dst, step, height, 13, 3, sf, [&](int b, int t, int k) {
                return (mul ? double(val[13 * b + k]) : 1.0) * (b == 0 ? x : b == 1 ? d : dd)[t][k];
            });
        }
}

TYPED_TEST(DeltaForms, CopyColumnWidensRowsAndLeavesThePadding)
{
    using T = TypeParam;
    for (const Shape& s : shapes) {
        const std::vector<T> src = this->packed(this->frames(s.height, s.width));
        const int step = s.width + 3;
        std::vector<T> dst(size_t(s.height) * step, T(9));
        ASSERT_EQ(vdlStsNoErr, Forms<T>::copyColumn(src.data(), s.width, dst.data(), step, s.height));
        for (int t = 0; t < s.height; ++t)
            for (int k = 0; k < step; ++k)
                EXPECT_EQ(dst[size_t(t) * step + k], k < s.width ? src[size_t(t) * s.width + k] : T(9));
    }
}

} // namespace
