// Dynamic time warping against the plain path search of the reference, for
// every element type and both layouts.
#include <climits>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "align_reference.h"
#include "vdlsr.h"

using namespace alignref;

namespace {

enum class Kind { F32, U8, S16Low };

struct DtwForm {
    const char* name;
    Kind kind;
    bool table;  // _D2L: row pointers; else rows `step` apart
};

std::ostream& operator<<(std::ostream& os, const DtwForm& f) { return os << f.name; }

const DtwForm forms[] = {
    {"32f_D2", Kind::F32, false},        {"32f_D2L", Kind::F32, true},
    {"8u32s_D2Sfs", Kind::U8, false},    {"8u32s_D2LSfs", Kind::U8, true},
    {"Low_16s32s_D2Sfs", Kind::S16Low, false}, {"Low_16s32s_D2LSfs", Kind::S16Low, true},
};

struct Call {
    VdlStatus status;
    double dist;
};

template <class T, class D>
Call callTyped(const DtwForm& form, const Frames& a, const Frames& b, int width, int delta,
               double beam, int sf, int extraStep)
{
    const int step = width + extraStep;
    auto flat = [&](const Frames& f) {
        std::vector<double> v;
        for (const auto& row : f)
            v.insert(v.end(), row.begin(), row.end());
        return RowSet<T>(v, static_cast<int>(f.size()), width, step);
    };
    RowSet<T> ra = flat(a), rb = flat(b);
    const int h1 = static_cast<int>(a.size()), h2 = static_cast<int>(b.size());
    D dist = 7;
    VdlStatus s = vdlStsErr;
    const D bm = static_cast<D>(beam);
    if constexpr (std::is_same<T, Vdl32f>::value) {
        s = form.table ? vdlsDTW_L2_32f_D2L(ra.table.data(), h1, rb.table.data(), h2, width, &dist, delta, bm)
                       : vdlsDTW_L2_32f_D2(ra.flat.data(), h1, rb.flat.data(), h2, width, step, &dist, delta, bm);
    } else if constexpr (std::is_same<T, Vdl8u>::value) {
        s = form.table ? vdlsDTW_L2_8u32s_D2LSfs(ra.table.data(), h1, rb.table.data(), h2, width, &dist, delta, bm, sf)
                       : vdlsDTW_L2_8u32s_D2Sfs(ra.flat.data(), h1, rb.flat.data(), h2, width, step, &dist, delta, bm, sf);
    } else {
        s = form.table ? vdlsDTW_L2Low_16s32s_D2LSfs(ra.table.data(), h1, rb.table.data(), h2, width, &dist, delta, bm, sf)
                       : vdlsDTW_L2Low_16s32s_D2Sfs(ra.flat.data(), h1, rb.flat.data(), h2, width, step, &dist, delta, bm, sf);
    }
    return {s, static_cast<double>(dist)};
}

Call call(const DtwForm& form, const Frames& a, const Frames& b, int delta, double beam, int sf,
          int extraStep = 3)
{
    const int width = static_cast<int>(a[0].size());
    switch (form.kind) {
    case Kind::F32: return callTyped<Vdl32f, Vdl32f>(form, a, b, width, delta, beam, 0, extraStep);
    case Kind::U8: return callTyped<Vdl8u, Vdl32s>(form, a, b, width, delta, beam, sf, extraStep);
    default: return callTyped<Vdl16s, Vdl32s>(form, a, b, width, delta, beam, sf, extraStep);
    }
}

class Dtw : public ::testing::TestWithParam<DtwForm> {
protected:
    bool isFloat() const { return GetParam().kind == Kind::F32; }
    int scaleFactor() const { return isFloat() ? 0 : 1; }

    Frames randomFrames(std::mt19937& rng, int height, int width) const
    {
        const double lo = GetParam().kind == Kind::U8 ? 0 : isFloat() ? -2 : -300;
        const double hi = GetParam().kind == Kind::U8 ? 255 : isFloat() ? 2 : 300;
        Frames f(height);
        for (auto& row : f)
            row = GetParam().kind == Kind::F32 ? randomValues<Vdl32f>(rng, width, lo, hi)
                                               : randomValues<Vdl16s>(rng, width, lo, hi);
        return f;
    }

    // The model's distance as the form gives it.
    double expected(double exact) const
    {
        if (isFloat())
            return exact;
        return roundSaturate<Vdl32s>(exact * std::ldexp(1.0, -scaleFactor()));
    }

    void expectDistance(const Call& got, double exact) const
    {
        ASSERT_EQ(got.status, vdlStsNoErr);
        const double want = expected(exact);
        if (std::isinf(exact)) {
            EXPECT_EQ(got.dist, isFloat() ? static_cast<double>(INFINITY) : static_cast<double>(INT_MAX));
        } else if (GetParam().kind == Kind::U8) {
            EXPECT_EQ(got.dist, want);
        } else {
            EXPECT_NEAR(got.dist, want, 1e-5 * std::fabs(want) + (isFloat() ? 1e-5 : 1));
        }
    }
};

TEST_P(Dtw, MatchesThePathSearchOverSizesAndBounds)
{
    std::mt19937 rng(5);
    const double everything = 1e9;
    for (int width : {1, 3, 9})
        for (int h1 : {1, 2, 5, 9})
            for (int h2 : {1, 4, 9})
                for (int delta : {0, 1, 2, 4}) {
                    SCOPED_TRACE(::testing::Message() << "width " << width << " heights " << h1
                                                      << "," << h2 << " delta " << delta);
                    const Frames a = randomFrames(rng, h1, width), b = randomFrames(rng, h2, width);
                    expectDistance(call(GetParam(), a, b, delta, everything, scaleFactor()),
                                   dtwExact(a, b, delta));
                }
}

TEST_P(Dtw, IdenticalSequencesAreAtDistanceZero)
{
    std::mt19937 rng(6);
    const Frames a = randomFrames(rng, 17, 9);
    for (int delta : {0, 1, 3}) {
        const Call got = call(GetParam(), a, a, delta, 0, scaleFactor());
        ASSERT_EQ(got.status, vdlStsNoErr);
        EXPECT_EQ(got.dist, 0);
    }
}

TEST_P(Dtw, StretchedCopyIsCloserThanAnotherSequence)
{
    // A slow curve in every element, and the same curve at two thirds of the
    // speed, sampled between the original frames.
    auto curve = [&](int n, double speed) {
        Frames f(n, std::vector<double>(4));
        const double amp = GetParam().kind == Kind::U8 ? 100 : isFloat() ? 1 : 200;
        for (int i = 0; i < n; ++i)
            for (int k = 0; k < 4; ++k) {
                const double v = amp * std::sin(0.2 * speed * i + k) + (GetParam().kind == Kind::U8 ? 120 : 0);
                f[i][k] = isFloat() ? static_cast<float>(v) : std::round(v);
            }
        return f;
    };
    const Frames a = curve(20, 1.0), stretched = curve(30, 2.0 / 3.0);
    Frames other = curve(30, 2.0 / 3.0);
    std::reverse(other.begin(), other.end());
    const Call near = call(GetParam(), a, stretched, 0, 1e9, 0);
    const Call far = call(GetParam(), a, other, 0, 1e9, 0);
    ASSERT_EQ(near.status, vdlStsNoErr);
    expectDistance(call(GetParam(), a, stretched, 0, 1e9, scaleFactor()), dtwExact(a, stretched, 0));
    EXPECT_LT(near.dist, 0.05 * far.dist);
}

TEST_P(Dtw, BeamNeverLowersTheDistanceAndAWideOneKeepsIt)
{
    std::mt19937 rng(7);
    const int sf = scaleFactor();
    for (int delta : {0, 2}) {
        const Frames a = randomFrames(rng, 12, 5), b = randomFrames(rng, 9, 5);
        const double exact = expected(dtwExact(a, b, delta));
        for (double beam : {0.0, 1.0, 50.0, 1e3, 1e5}) {
            const Call got = call(GetParam(), a, b, delta, beam, sf);
            ASSERT_EQ(got.status, vdlStsNoErr);
            EXPECT_GE(got.dist, exact * (1 - 1e-6)) << "beam " << beam;
        }
        expectDistance(call(GetParam(), a, b, delta, 1e9, sf), dtwExact(a, b, delta));
    }
}

TEST_P(Dtw, LengthsBeyondTheWarpBoundHaveNoPath)
{
    std::mt19937 rng(8);
    const Frames a = randomFrames(rng, 1, 3), b = randomFrames(rng, 5, 3);
    // One frame against five: four steps of the second alone in a row.
    expectDistance(call(GetParam(), a, b, 3, 1e9, scaleFactor()), INFINITY);
    expectDistance(call(GetParam(), a, b, 4, 1e9, scaleFactor()), dtwExact(a, b, 4));
    expectDistance(call(GetParam(), b, a, 2, 1e9, scaleFactor()), INFINITY);
}

TEST_P(Dtw, RowStepsWiderThanTheRowAreSkipped)
{
    std::mt19937 rng(9);
    const Frames a = randomFrames(rng, 6, 9), b = randomFrames(rng, 7, 9);
    for (int extra : {0, 1, 8})
        expectDistance(call(GetParam(), a, b, 1, 1e9, scaleFactor(), extra), dtwExact(a, b, 1));
}

INSTANTIATE_TEST_SUITE_P(Forms, Dtw, ::testing::ValuesIn(forms),
                         [](const ::testing::TestParamInfo<DtwForm>& info) { return std::string(info.param.name); });

TEST(DtwScale, IntegerFormsScaleTheDistanceAndTheBeam)
{
    const Frames a = {{0, 0}, {10, 10}}, b = {{0, 0}, {10, 12}};   // distance 4
    for (int sf : {-2, 0, 1, 3}) {
        const Call got = call(forms[2], a, b, 0, 1e6, sf);
        ASSERT_EQ(got.status, vdlStsNoErr);
        EXPECT_EQ(got.dist, roundSaturate<Vdl32s>(4 * std::ldexp(1.0, -sf))) << sf;
    }
}

} // namespace
