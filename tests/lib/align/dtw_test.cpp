// Dynamic time warping against the plain path search of the reference, for
// every element type and both layouts.
#include <climits>
#include <cmath>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "align_reference.h"
#include "scaled_call.h"
#include "vdlsr.h"

using namespace alignref;

namespace {

enum class Kind { F32, U8, S16Low };

struct Call {
    VdlStatus status;
    double dist;
};

using DtwCall = std::function<Call(const Frames& a, const Frames& b, int delta, double beam, int sf, int extraStep)>;

// A form over T data giving a D distance: rows `step` apart (Table false)
// or behind tables of row pointers.
template <class T, class D, bool Table, class Fn>
DtwCall form(Fn fn)
{
    return [fn](const Frames& a, const Frames& b, int delta, double beam, int sf, int extraStep) {
        const int width = static_cast<int>(a[0].size()), step = width + extraStep;
        const int h1 = static_cast<int>(a.size()), h2 = static_cast<int>(b.size());
        const RowSet<T> ra = rowsOf<T>(a, step), rb = rowsOf<T>(b, step);
        D dist = 7;
        VdlStatus s;
        if constexpr (Table)
            s = callScaled(fn, sf, ra.table.data(), h1, rb.table.data(), h2, width, &dist, delta, D(beam));
        else
            s = callScaled(fn, sf, ra.flat.data(), h1, rb.flat.data(), h2, width, step, &dist, delta, D(beam));
        return Call{s, static_cast<double>(dist)};
    };
}

struct DtwForm {
    const char* name;
    Kind kind;
    DtwCall call;
};

std::ostream& operator<<(std::ostream& os, const DtwForm& f) { return os << f.name; }

const DtwForm forms[] = {
    {"32f_D2", Kind::F32, form<Vdl32f, Vdl32f, false>(vdlsDTW_L2_32f_D2)},
    {"32f_D2L", Kind::F32, form<Vdl32f, Vdl32f, true>(vdlsDTW_L2_32f_D2L)},
    {"8u32s_D2Sfs", Kind::U8, form<Vdl8u, Vdl32s, false>(vdlsDTW_L2_8u32s_D2Sfs)},
    {"8u32s_D2LSfs", Kind::U8, form<Vdl8u, Vdl32s, true>(vdlsDTW_L2_8u32s_D2LSfs)},
    {"Low_16s32s_D2Sfs", Kind::S16Low, form<Vdl16s, Vdl32s, false>(vdlsDTW_L2Low_16s32s_D2Sfs)},
    {"Low_16s32s_D2LSfs", Kind::S16Low, form<Vdl16s, Vdl32s, true>(vdlsDTW_L2Low_16s32s_D2LSfs)},
};

Call call(const DtwForm& form, const Frames& a, const Frames& b, int delta, double beam, int sf, int extraStep = 3)
{
    return form.call(a, b, delta, beam, sf, extraStep);
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
    // Rows one past the vector widths of 8 and 16 floats; row steps equal to
    // the width and wider; sequences too unequal for the warp bound, which
    // have no path.
    for (int width : {1, 3, 9, 17})
        for (int h1 : {1, 2, 5, 9})
            for (int h2 : {1, 4, 9})
                for (int delta : {0, 1, 2, 4}) {
                    SCOPED_TRACE(::testing::Message() << "width " << width << " heights " << h1
                                                      << "," << h2 << " delta " << delta);
                    const Frames a = randomFrames(rng, h1, width), b = randomFrames(rng, h2, width);
                    expectDistance(call(GetParam(), a, b, delta, everything, scaleFactor(), 2 * delta),
                                   dtwExact(a, b, delta));
                }
}

TEST_P(Dtw, BeamNeverLowersTheDistanceAndKeepsAnExactMatch)
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
        // The narrowest beam keeps the diagonal of a sequence against itself.
        const Call same = call(GetParam(), a, a, delta, 0, sf);
        ASSERT_EQ(same.status, vdlStsNoErr);
        EXPECT_EQ(same.dist, 0);
    }
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
