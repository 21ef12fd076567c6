// Sums of indexed rows (vdlsAddNRows_32f_D2) and filling (vdlsSet_32f);
// their refused arguments are in the table of bad arguments.
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "test_data.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

TEST(AddNRows, AddsMainRowsAndWeightedAdditionalRows)
{
    // 12 rows of 5 elements, 6 apart; three index pairs relative to offset 2.
    const int height = 12, width = 5, step = 6, offset = 2;
    std::mt19937 rng(3);
    const std::vector<float> src = convert<float>(randomValues<float>(rng, height * step, -4, 4));
    std::vector<float> dst = convert<float>(randomValues<float>(rng, width + 1, -1, 1));
    const std::vector<Vdl32s> ind = {0, 9, 4};
    const std::vector<Vdl16u> addInd = {3, 3, 0};
    std::vector<double> want(dst.begin(), dst.end());
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < width; ++k)
            want[k] += src[(offset + ind[i]) * step + k] - 0.5 * src[(offset + addInd[i]) * step + k];
    ASSERT_EQ(vdlsAddNRows_32f_D2(src.data(), height, offset, step, ind.data(), addInd.data(), 3,
                                  dst.data(), width, -0.5f),
              vdlStsNoErr);
    for (int k = 0; k <= width; ++k)
        EXPECT_NEAR(dst[k], want[k], 1e-5) << k;  // the element past the width stays
}

TEST(Set, FillsExactlyLenElements)
{
    std::vector<float> v(6, 1.0f);
    ASSERT_EQ(vdlsSet_32f(-4.5f, v.data(), 5), vdlStsNoErr);
    EXPECT_EQ(v, (std::vector<float>{-4.5f, -4.5f, -4.5f, -4.5f, -4.5f, 1.0f}));
}

} // namespace
