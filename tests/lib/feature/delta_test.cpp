// Delta regression in all its forms against the regression written out in
// double: plain and Mul destinations, the in-matrix forms, the Aurora rows
// of 39, the context rows of a partial deltaMode, and CopyColumn.
#include <cmath>
#include <cstring>
#include <type_traits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "feature_reference.h"
#include "test_data.h"
#include "vdlsr.h"

using namespace featref;
using namespace vdltest;

namespace {

// One signature per shape for both element types: float forms ignore the
// scale factor, integer forms take val as int.
template <class T>
struct Forms;

template <>
struct Forms<Vdl32f> {
    static VdlStatus delta(int w, const Vdl32f* s, int wd, Vdl32f* d, int st, int h, double v, int m, int)
    {
        return (w == 1 ? vdlsDelta_Win1_32f_D2 : vdlsDelta_Win2_32f_D2)(s, wd, d, st, h, Vdl32f(v), m);
    }
    static VdlStatus deltaDelta(int w, const Vdl32f* s, int wd, Vdl32f* d, int st, int h, double v1,
                                double v2, int m, int)
    {
        return (w == 1 ? vdlsDeltaDelta_Win1_32f_D2 : vdlsDeltaDelta_Win2_32f_D2)(
            s, wd, d, st, h, Vdl32f(v1), Vdl32f(v2), m);
    }
    static VdlStatus deltaMul(int w, bool dd, const Vdl32f* s, const Vdl32f* val, int wd, Vdl32f* d,
                              int st, int h, int m, int)
    {
        auto f = dd ? (w == 1 ? vdlsDeltaDeltaMul_Win1_32f_D2 : vdlsDeltaDeltaMul_Win2_32f_D2)
                    : (w == 1 ? vdlsDeltaMul_Win1_32f_D2 : vdlsDeltaMul_Win2_32f_D2);
        return f(s, val, wd, d, st, h, m);
    }
    static VdlStatus eval(Vdl32f* p, int h, int st, int wd, int off, int w, double v, int)
    {
        return vdlsEvalDelta_32f_D2(p, h, st, wd, off, w, Vdl32f(v));
    }
    static VdlStatus evalMul(Vdl32f* p, int h, int st, const Vdl32f* val, int wd, int off, int w, int)
    {
        return vdlsEvalDeltaMul_32f_D2(p, h, st, val, wd, off, w);
    }
    static VdlStatus aurora(const Vdl32f* s, const Vdl32f* val, Vdl32f* d, int st, int h, int m, int)
    {
        return val ? vdlsDeltaDeltaMul_Aurora_32f_D2(s, val, d, st, h, m)
                   : vdlsDeltaDelta_Aurora_32f_D2(s, d, st, h, m);
    }
    static VdlStatus copyColumn(const Vdl32f* s, int wd, Vdl32f* d, int st, int h)
    {
        return vdlsCopyColumn_32f_D2(s, wd, d, st, h);
    }
    static constexpr double lo = -1, hi = 1, val = 0.25;
    static constexpr int scaleFactors[] = {0};
};

template <>
struct Forms<Vdl16s> {
    static VdlStatus delta(int w, const Vdl16s* s, int wd, Vdl16s* d, int st, int h, double v, int m,
                           int sf)
    {
        return (w == 1 ? vdlsDelta_Win1_16s_D2Sfs : vdlsDelta_Win2_16s_D2Sfs)(s, wd, d, st, h,
                                                                              int(v), m, sf);
    }
    static VdlStatus deltaDelta(int w, const Vdl16s* s, int wd, Vdl16s* d, int st, int h, double v1,
                                double v2, int m, int sf)
    {
        return (w == 1 ? vdlsDeltaDelta_Win1_16s_D2Sfs : vdlsDeltaDelta_Win2_16s_D2Sfs)(
            s, wd, d, st, h, int(v1), int(v2), m, sf);
    }
    static VdlStatus deltaMul(int w, bool dd, const Vdl16s* s, const Vdl16s* val, int wd, Vdl16s* d,
                              int st, int h, int m, int sf)
    {
        auto f = dd ? (w == 1 ? vdlsDeltaDeltaMul_Win1_16s_D2Sfs : vdlsDeltaDeltaMul_Win2_16s_D2Sfs)
                    : (w == 1 ? vdlsDeltaMul_Win1_16s_D2Sfs : vdlsDeltaMul_Win2_16s_D2Sfs);
        return f(s, val, wd, d, st, h, m, sf);
    }
    static VdlStatus eval(Vdl16s* p, int h, int st, int wd, int off, int w, double v, int sf)
    {
        return vdlsEvalDelta_16s_D2Sfs(p, h, st, wd, off, w, int(v), sf);
    }
    static VdlStatus evalMul(Vdl16s* p, int h, int st, const Vdl16s* val, int wd, int off, int w,
                             int sf)
    {
        return vdlsEvalDeltaMul_16s_D2Sfs(p, h, st, val, wd, off, w, sf);
    }
    static VdlStatus aurora(const Vdl16s* s, const Vdl16s* val, Vdl16s* d, int st, int h, int m, int sf)
    {
        return val ? vdlsDeltaDeltaMul_Aurora_16s_D2Sfs(s, val, d, st, h, m, sf)
                   : vdlsDeltaDelta_Aurora_16s_D2Sfs(s, d, st, h, m, sf);
    }
    static VdlStatus copyColumn(const Vdl16s* s, int wd, Vdl16s* d, int st, int h)
    {
        return vdlsCopyColumn_16s_D2(s, wd, d, st, h);
    }
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
    Matrix frames(int height, int width)
    {
        Matrix x(height);
        for (auto& row : x)
            row = randomValues<T>(rng, width, Forms<T>::lo, Forms<T>::hi);
        return x;
    }
    std::vector<T> packed(const Matrix& x)
    {
        std::vector<T> v;
        for (const auto& row : x)
            v.insert(v.end(), row.begin(), row.end());
        return v;
    }
    // Result element of an exact value: integers scaled and rounded.
    static double expected(double v, int sf)
    {
        if (std::is_floating_point<T>::value)
            return static_cast<T>(v);
        return roundSaturate<T>(v * std::ldexp(1.0, -sf));
    }
    void expectCell(T got, double want, int sf, const char* what, int t, int k)
    {
        const double e = expected(want, sf);
        const double tol = std::is_floating_point<T>::value ? 2e-5 * (1 + std::fabs(e)) : 0;
        EXPECT_NEAR(double(got), e, tol) << what << " row " << t << " col " << k << " sf " << sf;
    }
    std::mt19937 rng{11};
};

using Types = ::testing::Types<Vdl32f, Vdl16s>;
TYPED_TEST_SUITE(DeltaForms, Types);

TYPED_TEST(DeltaForms, DeltaAndDoubleDeltaFollowTheRegression)
{
    using T = TypeParam;
    for (const Shape& s : shapes)
        for (int w = 1; w <= 2; ++w)
            for (int blocks = 2; blocks <= 3; ++blocks)
                for (int sf : Forms<T>::scaleFactors) {
                    const Matrix x = this->frames(s.height, s.width);
                    const std::vector<T> src = this->packed(x);
                    const int step = blocks * s.width + 3;
                    std::vector<T> dst(size_t(s.height) * step, poison<T>());
                    const double v1 = Forms<T>::val, v2 = 2 * Forms<T>::val;
                    ASSERT_EQ(vdlStsNoErr,
                              blocks == 2 ? Forms<T>::delta(w, src.data(), s.width, dst.data(), step,
                                                            s.height, v1, 3, sf)
                                          : Forms<T>::deltaDelta(w, src.data(), s.width, dst.data(),
                                                                 step, s.height, v1, v2, 3, sf));
                    const Matrix d = regression(x, w), dd = regression(d, w);
                    for (int t = 0; t < s.height; ++t)
                        for (int k = 0; k < s.width; ++k) {
                            const T* row = &dst[size_t(t) * step];
                            EXPECT_EQ(row[k], src[size_t(t) * s.width + k]);
                            this->expectCell(row[s.width + k], v1 * d[t][k], sf, "delta", t, k);
                            if (blocks == 3)
                                this->expectCell(row[2 * s.width + k], v2 * dd[t][k], sf, "dd", t, k);
                        }
                    // The row padding is never written.
                    const T p = poison<T>();
                    for (int t = 0; t < s.height; ++t)
                        for (int k = blocks * s.width; k < step; ++k)
                            EXPECT_EQ(0, std::memcmp(&dst[size_t(t) * step + k], &p, sizeof(T)));
                }
}

TYPED_TEST(DeltaForms, MulFormsMultiplyEveryBlockByItsColumn)
{
    using T = TypeParam;
    for (const Shape& s : shapes)
        for (int w = 1; w <= 2; ++w)
            for (bool dd : {false, true})
                for (int sf : Forms<T>::scaleFactors) {
                    const Matrix x = this->frames(s.height, s.width);
                    const std::vector<T> src = this->packed(x);
                    const std::vector<T> val = convert<T>(randomValues<T>(this->rng, 3 * s.width, -3, 3));
                    const int step = 3 * s.width + 1;
                    std::vector<T> dst(size_t(s.height) * step, poison<T>());
                    ASSERT_EQ(vdlStsNoErr, Forms<T>::deltaMul(w, dd, src.data(), val.data(), s.width,
                                                              dst.data(), step, s.height, 3, sf));
                    const Matrix d = regression(x, w), d2 = regression(d, w);
                    for (int t = 0; t < s.height; ++t)
                        for (int k = 0; k < s.width; ++k) {
                            const T* row = &dst[size_t(t) * step];
                            this->expectCell(row[k], val[k] * x[t][k], sf, "static", t, k);
                            this->expectCell(row[s.width + k], val[s.width + k] * d[t][k], sf, "delta", t, k);
                            if (dd)
                                this->expectCell(row[2 * s.width + k], val[2 * s.width + k] * d2[t][k],
                                                 sf, "dd", t, k);
                        }
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
        std::vector<T> dst(size_t(height) * step, T(7));
        ASSERT_EQ(vdlStsNoErr, Forms<T>::deltaDelta(w, src.data(), width, dst.data(), step, height,
                                                    1, 1, mode, 0));
        const int first = mode & 1 ? 0 : 2 * w, last = mode & 2 ? height : height - 2 * w;
        for (int t = 0; t < height; ++t)
            for (int k = 0; k < width; ++k) {
                const T* row = &dst[size_t(t) * step];
                EXPECT_EQ(row[k], src[size_t(t) * width + k]);
                if (t < first || t >= last) {
                    EXPECT_EQ(row[width + k], T(7)) << "mode " << mode << " row " << t;
                    EXPECT_EQ(row[2 * width + k], T(7)) << "mode " << mode << " row " << t;
                } else {
                    this->expectCell(row[width + k], d[t][k], 0, "delta", t, k);
                    this->expectCell(row[2 * width + k], dd[t][k], 0, "dd", t, k);
                }
            }
    }
}

TYPED_TEST(DeltaForms, EvalDeltaWritesBesideTheStaticsFromTheOffset)
{
    using T = TypeParam;
    for (const Shape& s : shapes)
        for (int w = 1; w <= 2; ++w)
            for (int offset : {0, 2})
                for (bool mul : {false, true}) {
                    if (offset >= s.height)
                        continue;
                    const int sf = Forms<T>::scaleFactors[0];
                    const Matrix x = this->frames(s.height, s.width);
                    const int step = 3 * s.width + 2;
                    std::vector<T> m(size_t(s.height) * step, T(5));
                    for (int t = 0; t < s.height; ++t)
                        for (int k = 0; k < s.width; ++k)
                            m[size_t(t) * step + k] = static_cast<T>(x[t][k]);
                    const std::vector<T> val = convert<T>(randomValues<T>(this->rng, 3 * s.width, -3, 3));
                    ASSERT_EQ(vdlStsNoErr,
                              mul ? Forms<T>::evalMul(m.data(), s.height, step, val.data(), s.width,
                                                      offset, w, sf)
                                  : Forms<T>::eval(m.data(), s.height, step, s.width, offset, w,
                                                   Forms<T>::val, sf));
                    const Matrix d = regression(x, w), dd = regression(d, w);
                    for (int t = 0; t < s.height; ++t)
                        for (int k = 0; k < s.width; ++k) {
                            const T* row = &m[size_t(t) * step];
                            EXPECT_EQ(double(row[k]), x[t][k]);
                            if (t < offset) {
                                EXPECT_EQ(row[s.width + k], T(5));
                                continue;
                            }
                            const double m1 = mul ? val[s.width + k] : Forms<T>::val;
                            const double m2 = mul ? val[2 * s.width + k] : Forms<T>::val;
                            this->expectCell(row[s.width + k], m1 * d[t][k], sf, "delta", t, k);
                            this->expectCell(row[2 * s.width + k], m2 * dd[t][k], sf, "dd", t, k);
                        }
                }
}

TYPED_TEST(DeltaForms, AuroraRowsHoldCepstraAndEnergyWithTheirDynamics)
{
    using T = TypeParam;
    for (int height : {1, 6, 11})
        for (bool mul : {false, true}) {
            const int sf = Forms<T>::scaleFactors[0], step = 41;
            const Matrix src = this->frames(height, 14);
            Matrix x(height);
            for (int t = 0; t < height; ++t) {
                x[t].assign(src[t].begin(), src[t].begin() + 12);
                x[t].push_back(src[t][13]);
            }
            const std::vector<T> in = this->packed(src);
            const std::vector<T> val = convert<T>(randomValues<T>(this->rng, 39, 1, 3));
            std::vector<T> dst(size_t(height) * step, poison<T>());
            ASSERT_EQ(vdlStsNoErr, Forms<T>::aurora(in.data(), mul ? val.data() : nullptr, dst.data(),
                                                    step, height, 3, sf));
            const Matrix d = scaledBy(regression(x, 3), 1.0 / 28);
            const Matrix dd = scaledBy(regression(d, 2), 1.0 / 10);
            for (int t = 0; t < height; ++t)
                for (int k = 0; k < 13; ++k) {
                    const T* row = &dst[size_t(t) * step];
                    auto m = [&](int j) { return mul ? double(val[j]) : 1.0; };
                    this->expectCell(row[k], m(k) * x[t][k], sf, "static", t, k);
                    this->expectCell(row[13 + k], m(13 + k) * d[t][k], sf, "delta", t, k);
                    this->expectCell(row[26 + k], m(26 + k) * dd[t][k], sf, "dd", t, k);
                }
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
