// Sums of indexed rows (vdlsAddNRows_32f_D2) and filling (vdlsSet_32f).
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "test_data.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

// 12 rows of 5 elements, 6 apart; three index pairs relative to offset 2.
class AddNRows : public ::testing::Test {
protected:
    static constexpr int height = 12, width = 5, step = 6, offset = 2;

    AddNRows()
    {
        std::mt19937 rng(3);
        src = convert<float>(randomValues<float>(rng, height * step, -4, 4));
        dst = convert<float>(randomValues<float>(rng, width, -1, 1));
    }

    VdlStatus call(int count, int off = offset, int stride = step, int w = width)
    {
        return vdlsAddNRows_32f_D2(src.data(), height, off, stride, ind.data(), addInd.data(),
                                   count, dst.data(), w, -0.5f);
    }

    std::vector<float> src, dst;
    std::vector<Vdl32s> ind = {0, 9, 4};
    std::vector<Vdl16u> addInd = {3, 3, 0};
};

TEST_F(AddNRows, AddsMainRowsAndWeightedAdditionalRows)
{
    std::vector<double> want(dst.begin(), dst.end());
    for (int i = 0; i < 3; ++i)
        for (int k = 0; k < width; ++k)
            want[k] += src[(offset + ind[i]) * step + k] -
                       0.5 * src[(offset + addInd[i]) * step + k];
    ASSERT_EQ(call(3), vdlStsNoErr);
    for (int k = 0; k < width; ++k)
        EXPECT_NEAR(dst[k], want[k], 1e-5);
}

TEST_F(AddNRows, RefusesRowsOutsideTheMatrixBeforeWriting)
{
    const std::vector<float> before = dst;
    ind[2] = height - offset;  // one past the last row
    EXPECT_EQ(call(3), vdlStsOutOfRangeErr);
    ind[2] = 4;
    EXPECT_EQ(call(3, -1), vdlStsOutOfRangeErr);  // row -1 through index 0
    EXPECT_EQ(call(3, 9), vdlStsOutOfRangeErr);   // additional row 12
    EXPECT_EQ(call(0), vdlStsSizeErr);
    EXPECT_EQ(call(3, offset, width - 1), vdlStsStepErr);
    EXPECT_EQ(call(3, offset, step, 0), vdlStsSizeErr);
    EXPECT_EQ(vdlsAddNRows_32f_D2(src.data(), height, offset, step, nullptr, addInd.data(), 3,
                                  dst.data(), width, 1),
              vdlStsNullPtrErr);
    EXPECT_EQ(dst, before);
}

TEST(Set, FillsExactlyLenElements)
{
    std::vector<float> v(6, 1.0f);
    ASSERT_EQ(vdlsSet_32f(-4.5f, v.data(), 5), vdlStsNoErr);
    EXPECT_EQ(v, (std::vector<float>{-4.5f, -4.5f, -4.5f, -4.5f, -4.5f, 1.0f}));
    EXPECT_EQ(vdlsSet_32f(2, v.data(), 0), vdlStsSizeErr);
    EXPECT_EQ(vdlsSet_32f(2, nullptr, 3), vdlStsNullPtrErr);
    EXPECT_EQ(v[0], -4.5f);
}

} // namespace
