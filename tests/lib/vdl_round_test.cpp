// The one rule of integer results: x * 2^-scaleFactor, rounded half away
// from zero, saturated to the result type.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "vdlcore.h"
#include "vdlround.h"

namespace {

TEST(VdlRound, HalvesGoAwayFromZeroAndTheRestToNearest)
{
    const struct { double in; long long out; } cases[] = {
        {0.5, 1}, {-0.5, -1}, {1.5, 2}, {2.5, 3}, {-2.5, -3}, {0.49999999999999994, 0},
        {-0.49999999999999994, 0}, {2.4999999, 2}, {-7.6, -8}, {4503599627370497.0, 4503599627370497},
        {0.0, 0}, {-0.0, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(vdl::roundHalfAway(c.in), c.out) << c.in;
        EXPECT_EQ(vdl::toResult<Vdl64s>(c.in), c.out) << c.in;
    }
}

TEST(VdlRound, ResultsSaturateToTheirTypeAndNanGivesZero)
{
    EXPECT_EQ(vdl::toResult<Vdl16s>(32767.5), 32767);
    EXPECT_EQ(vdl::toResult<Vdl16s>(-40000.0), -32768);
    EXPECT_EQ(vdl::toResult<Vdl32s>(3e9), std::numeric_limits<Vdl32s>::max());
    EXPECT_EQ(vdl::toResult<Vdl32s>(-2147483648.4), std::numeric_limits<Vdl32s>::min());
    EXPECT_EQ(vdl::toResult<Vdl8u>(-3.0), 0);
    EXPECT_EQ(vdl::toResult<Vdl8u>(255.49), 255);
    EXPECT_EQ(vdl::toResult<Vdl16u>(1e300), 65535);
    EXPECT_EQ(vdl::toResult<Vdl64s>(1e19), std::numeric_limits<Vdl64s>::max());
    EXPECT_EQ(vdl::toResult<Vdl64s>(-1e19), std::numeric_limits<Vdl64s>::min());
    EXPECT_EQ(vdl::toResult<Vdl32s>(std::nan("")), 0);
    EXPECT_EQ(vdl::toResult<Vdl32f>(2.7), 2.7f);
}

TEST(VdlRound, ScaleFactorDividesByItsPowerOfTwo)
{
    EXPECT_EQ(vdl::scaled<Vdl32s>(12.0, 3), 2);    // 1.5 -> 2
    EXPECT_EQ(vdl::scaled<Vdl32s>(-12.0, 3), -2);  // -1.5 -> -2
    EXPECT_EQ(vdl::scaled<Vdl16s>(3.0, -2), 12);
    EXPECT_EQ(vdl::scaled<Vdl16s>(1.0, -20), 32767);
    EXPECT_EQ(vdl::scaled<Vdl32s>(1e6, 5000), 0);  // beyond the clamp still a plain zero
    const vdl::ScaleRule<Vdl32s> rule(3);
    for (double x : {12.0, -12.0, 7.9, 1e12})
        EXPECT_EQ(rule(x), vdl::scaled<Vdl32s>(x, 3)) << x;
}

} // namespace
