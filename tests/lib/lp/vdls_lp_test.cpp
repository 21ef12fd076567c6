// The libvdls functions the family's test data are made with: the scaled
// conversion to 16 bits and the uniform generator.
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "vdls.h"

namespace {

TEST(Convert32f16s, RoundsByModeScalesAndSaturates)
{
    const Vdl32f src[] = {2.5f, -2.5f, 1.75f, -1.25f, 40000.0f, -40000.0f, 0.3f};
    Vdl16s nearest[7], zero[7], scaled[7];
    ASSERT_EQ(vdlsConvert_32f16s_Sfs(src, nearest, 7, 1, 0), vdlStsNoErr);
    ASSERT_EQ(vdlsConvert_32f16s_Sfs(src, zero, 7, 0, 0), vdlStsNoErr);
    ASSERT_EQ(vdlsConvert_32f16s_Sfs(src, scaled, 7, 1, -2), vdlStsNoErr);
    EXPECT_EQ(std::vector<Vdl16s>(nearest, nearest + 7),
              (std::vector<Vdl16s>{3, -3, 2, -1, 32767, -32768, 0}));
    EXPECT_EQ(std::vector<Vdl16s>(zero, zero + 7), (std::vector<Vdl16s>{2, -2, 1, -1, 32767, -32768, 0}));
    EXPECT_EQ(std::vector<Vdl16s>(scaled, scaled + 7),
              (std::vector<Vdl16s>{10, -10, 7, -5, 32767, -32768, 1}));
}

TEST(RandUniform, SameSeedSameValuesInRangeAndTheSeedMovesOn)
{
    unsigned int a = 77, b = 77;
    std::vector<Vdl32f> x(1000), y(1000);
    ASSERT_EQ(vdlsRandUniform_Direct_32f(x.data(), 1000, -0.99f, 0.99f, &a), vdlStsNoErr);
    ASSERT_EQ(vdlsRandUniform_Direct_32f(y.data(), 1000, -0.99f, 0.99f, &b), vdlStsNoErr);
    EXPECT_EQ(x, y);
    EXPECT_NE(a, 77u);
    EXPECT_EQ(a, b);
    double sum = 0;
    for (Vdl32f v : x) {
        EXPECT_GE(v, -0.99f);
        EXPECT_LT(v, 0.99f);
        sum += v;
    }
    EXPECT_NEAR(sum / 1000, 0.0, 0.1);

    // Every integer of a small closed range turns up, and nothing beside it.
    std::vector<Vdl16s> s(600);
    unsigned int seed = 5;
    ASSERT_EQ(vdlsRandUniform_Direct_16s(s.data(), 600, -3, 2, &seed), vdlStsNoErr);
    EXPECT_EQ(std::set<Vdl16s>(s.begin(), s.end()), (std::set<Vdl16s>{-3, -2, -1, 0, 1, 2}));
    // The full range does not overflow.
    ASSERT_EQ(vdlsRandUniform_Direct_16s(s.data(), 600, -32768, 32767, &seed), vdlStsNoErr);
}

} // namespace
