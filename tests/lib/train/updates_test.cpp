// Model updates, clustering sums, weighted sums and the row primitives
// (sums of indexed rows and filling among them) against the formulas
// written plainly here.
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "train_reference.h"
#include "vdlsr.h"

using namespace trainref;

namespace {

const double log2Pi = std::log(2 * M_PI);

TEST(Updates, VarianceFromSumsIsFlooredAndScaled)
{
    const std::vector<Vdl32f> sum = {10, 4, -6}, sqr = {60, 9, 40};
    std::vector<Vdl32f> var(3);
    // With 1/occ = 0.5: 30 - 25 = 5, 4.5 - 4 = 0.5 floored to 1, 20 - 9 = 11.
    ASSERT_EQ(vdlStsNoErr, vdlsNewVar_32f(sum.data(), sqr.data(), var.data(), 3, 0.5f, 1.0f));
    EXPECT_EQ(var, (std::vector<Vdl32f>{5, 1, 11}));
    std::vector<Vdl32f> inPlace = sqr;
    ASSERT_EQ(vdlStsNoErr, vdlsNewVar_32f_I(sum.data(), inPlace.data(), 3, 0.5f, 1.0f));
    EXPECT_EQ(inPlace, var);
    const std::vector<Vdl32s> isum = {10, 4, -6}, isqr = {60, 9, 40};
    std::vector<Vdl32s> ivar(3);
    ASSERT_EQ(vdlStsNoErr, vdlsNewVar_32s_Sfs(isum.data(), isqr.data(), ivar.data(), 3, 0.5f, 1.0f, 1));
    EXPECT_EQ(ivar, (std::vector<Vdl32s>{3, 1, 6}));  // 2.5, 0.5, 5.5 rounded away from zero
    std::vector<Vdl32s> isqrInPlace = isqr;
    ASSERT_EQ(vdlStsNoErr, vdlsNewVar_32s_ISfs(isum.data(), isqrInPlace.data(), 3, 0.5f, 0.0f, -1));
    EXPECT_EQ(isqrInPlace, (std::vector<Vdl32s>{10, 1, 22}));
}

TEST(Updates, MeanVarianceWeightAndConstants)
{
    const std::vector<Vdl64f> acc = {2, -4, 8}, sqr = {6, 20, 40}, floor = {1, 1, 10};
    std::vector<Vdl64f> mean(3), var(3), wgt(3);
    ASSERT_EQ(vdlStsNoErr, vdlsUpdateMean_64f(acc.data(), mean.data(), 3, 2.0));
    EXPECT_EQ(mean, (std::vector<Vdl64f>{1, -2, 4}));
    // 3 - 1 = 2, 10 - 4 = 6, 20 - 16 = 4 floored to 0.5 * 10.
    ASSERT_EQ(vdlStsNoErr, vdlsUpdateVar_64f(acc.data(), sqr.data(), floor.data(), var.data(), 3, 2.0, 0.5));
    EXPECT_EQ(var, (std::vector<Vdl64f>{2, 6, 5}));
    Vdl64f total = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsUpdateWeight_64f(sqr.data(), wgt.data(), 3, &total, 0.2, 66.0));
    EXPECT_NEAR(wgt[0], 0.2, 1e-15);  // 6/66 floored
    EXPECT_NEAR(wgt[1], 20.0 / 66, 1e-15);
    EXPECT_NEAR(total, 0.2 + 60.0 / 66, 1e-15);

    Vdl64f gconst = 0, gconstDirect = 0;
    const std::vector<Vdl64f> prec = {0.5, 4.0, 1.0}, vars = {2.0, 0.25, 1.0};
    ASSERT_EQ(vdlStsNoErr, vdlsUpdateGConst_64f(prec.data(), 3, &gconst));
    ASSERT_EQ(vdlStsNoErr, vdlsUpdateGConst_DirectVar_64f(vars.data(), 3, &gconstDirect));
    const double want = -0.5 * (3 * log2Pi + std::log(2.0) + std::log(0.25));
    EXPECT_NEAR(gconst, want, 1e-13);
    EXPECT_NEAR(gconstDirect, want, 1e-13);
    Vdl32f g32 = 0;
    const Vdl32f zeroPrec[2] = {1, 0};
    EXPECT_EQ(vdlStsBadArgErr, vdlsUpdateGConst_32f(zeroPrec, 2, &g32));
    EXPECT_EQ(0, g32);

    const std::vector<Vdl32s> lw = {-5, 2147483000}, gc = {-7, 1000};
    std::vector<Vdl32s> val(2);
    ASSERT_EQ(vdlStsNoErr, vdlsOutProbPreCalc_32s(lw.data(), gc.data(), val.data(), 2));
    EXPECT_EQ(val, (std::vector<Vdl32s>{-12, 2147483647}));
    std::vector<Vdl32f> fval = {1.5f, -2};
    const std::vector<Vdl32f> flw = {-0.25f, 3};
    ASSERT_EQ(vdlStsNoErr, vdlsOutProbPreCalc_32f_I(flw.data(), fval.data(), 2));
    EXPECT_EQ(fval, (std::vector<Vdl32f>{1.25f, 1}));
}

TEST(Clustering, AccumulatedSumsGiveThePooledLikelihood)
{
    // Two Gaussians of occupancy 3 and 1 pooled: mean and variance of the
    // mixture of their data.
    const std::vector<Vdl64f> m1 = {1, -2}, v1 = {2, 1}, m2 = {5, 2}, p2 = {0.5, 4};  // p2: precisions
    std::vector<Vdl64f> sum(2, 0), sqr(2, 0);
    ASSERT_EQ(vdlStsNoErr, vdlsDcsClustLAccumulate_DirectVar_64f(m1.data(), v1.data(), sum.data(), sqr.data(), 2, 3.0));
    ASSERT_EQ(vdlStsNoErr, vdlsDcsClustLAccumulate_64f(m2.data(), p2.data(), sum.data(), sqr.data(), 2, 1.0));
    EXPECT_EQ(sum, (std::vector<Vdl64f>{8, -4}));
    EXPECT_EQ(sqr, (std::vector<Vdl64f>{3 * 3 + 27, 3 * 5 + 4.25}));
    Vdl64f like = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsDcsClustLCompute_64f(sum.data(), sqr.data(), 2, &like, 4.0));
    const double var0 = 36.0 / 4 - 4, var1 = 19.25 / 4 - 1;
    EXPECT_NEAR(like, -2.0 * (2 * (1 + log2Pi) + std::log(var0) + std::log(var1)), 1e-12);
    const std::vector<Vdl32f> fs = {8, -4}, fq = {36, 19.25f};
    ASSERT_EQ(vdlStsNoErr, vdlsDcsClustLCompute_32f64f(fs.data(), fq.data(), 2, &like, 4.0f));
    EXPECT_NEAR(like, -2.0 * (2 * (1 + log2Pi) + std::log(var0) + std::log(var1)), 1e-6);
}

TEST(WeightedSums, FloatAndRoundedIntegerForms)
{
    const std::vector<Vdl16s> a = {100, -3, 32000}, b = {1, 2, 32000};
    std::vector<Vdl16s> d(3);
    ASSERT_EQ(vdlStsNoErr, vdlsWeightedSum_16s(a.data(), b.data(), d.data(), 3, 0.5f, 1.5f));
    EXPECT_EQ(d, (std::vector<Vdl16s>{52, 2, 32767}));  // 51.5, 1.5 away from zero, saturated
    ASSERT_EQ(vdlStsNoErr, vdlsWeightedSumHalf_16s(a.data(), b.data(), d.data(), 3, 0.5f, 1.5f));
    EXPECT_EQ(d, (std::vector<Vdl16s>{26, 1, 32000}));  // 25.75, 0.75
    const std::vector<Vdl64f> x = {1, 2}, y = {4, -8};
    std::vector<Vdl64f> z(2);
    ASSERT_EQ(vdlStsNoErr, vdlsWeightedSumHalf_64f(x.data(), y.data(), z.data(), 2, 2.0, 0.25));
    EXPECT_EQ(z, (std::vector<Vdl64f>{1.5, 1}));
}

TEST(RowPrimitives, RecSqrtNormalizeSubtractAndAddSums)
{
    std::vector<Vdl32f> x = {4, 0, 0.25f};
    ASSERT_EQ(vdlStsNoErr, vdlsRecSqrt_32f(x.data(), 3, 1e-8f));
    EXPECT_EQ(x, (std::vector<Vdl32f>{0.5f, 1e4f, 2}));
    std::vector<Vdl32s> xi = {4, 100, 0};
    std::vector<Vdl16s> yi(3);
    ASSERT_EQ(vdlStsNoErr, vdlsRecSqrt_32s16s_Sfs(xi.data(), yi.data(), 3, 1, -8));
    EXPECT_EQ(yi, (std::vector<Vdl16s>{128, 26, 256}));  // 256 / sqrt: 128, 25.6, 256
    EXPECT_EQ(vdlStsBadArgErr, vdlsRecSqrt_32s_Sfs(xi.data(), 3, 0, 0));

    std::mt19937 rng(31);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width);
        std::mt19937 twin = rng;  // b holds the values of a
        Matrix<Vdl16s> a(rng, s, -2000, 2000), b(twin, s, -2000, 2000);
        const auto mean = convert<Vdl16s>(randomValues<Vdl16s>(rng, s.width, -100, 100));
        const auto scale = convert<Vdl16s>(randomValues<Vdl16s>(rng, s.width, -20, 20));
        ASSERT_EQ(vdlStsNoErr, vdlsNormalizeColumn_16s_D2Sfs(a.flatW(), s.step, s.height, mean.data(), scale.data(), s.width, 3));
        ASSERT_EQ(vdlStsNoErr, vdlsSubRow_16s_D2L(mean.data(), b.rowTableW(), s.width, s.height));
        for (int i = 0; i < s.height; ++i)
            for (int k = 0; k < s.width; ++k) {
                EXPECT_EQ(a.rows.flat[i * s.step + k], roundSaturate<Vdl16s>((b.value(i, k) - mean[k]) * scale[k] / 8.0));
                EXPECT_EQ(b.rows.rows[i][k], b.value(i, k) - mean[k]);
            }
        Matrix<Vdl32f> f(rng, s, -9, 9);
        std::vector<Vdl32f> acc(s.width, 1.0f), accL(s.width, 1.0f);
        ASSERT_EQ(vdlStsNoErr, vdlsAddAllRowSum_32f_D2(f.flat(), s.step, s.height, acc.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, vdlsAddAllRowSum_32f_D2L(f.rowTable(), s.height, accL.data(), s.width));
        std::vector<double> want(s.width, 1.0);
        for (int i = 0; i < s.height; ++i)
            for (int k = 0; k < s.width; ++k)
                want[k] += f.value(i, k);
        expectLayouts(acc, accL, want, 0, 1e-5, 1e-5);
    }
}

TEST(IndirectCopy, PicksColumnsByIndex)
{
    std::mt19937 rng(32);
    Matrix<Vdl32f> src(rng, {5, 6, 7}, -9, 9);
    const std::vector<Vdl32s> indx = {5, 0, 0, 3};
    std::vector<Vdl32f> dst(5 * 6, -1.0f);
    ASSERT_EQ(vdlStsNoErr, vdlsCopyColumn_Indirect_32f_D2(src.flat(), 6, 7, dst.data(), indx.data(), 4, 6, 5));
    for (int i = 0; i < 5; ++i) {
        for (int k = 0; k < 4; ++k) EXPECT_EQ(dst[i * 6 + k], src.value(i, indx[k]));
        EXPECT_EQ(-1.0f, dst[i * 6 + 4]);
    }
    Matrix<Vdl16s> s16(rng, {3, 4, 4}, -9, 9), d16(rng, {3, 2, 2}, 0, 0);
    const std::vector<Vdl32s> two = {3, 1};
    ASSERT_EQ(vdlStsNoErr, vdlsCopyColumn_Indirect_16s_D2L(s16.rowTable(), 4, d16.rowTableW(), two.data(), 2, 3));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(d16.rows.rows[i][0], s16.value(i, 3));
        EXPECT_EQ(d16.rows.rows[i][1], s16.value(i, 1));
    }
}

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

TEST(NoiseEstimate, ConvergesToThePowerOfStationaryNoise)
{
    const int nFFT = 256, bins = nFFT / 2 + 1;
    int size = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsGetSizeMCRA_32s(nFFT, &size));
    std::vector<unsigned char> memory(size + 16);
    auto* state = reinterpret_cast<VdlMCRAState_32s*>(memory.data());
    ASSERT_EQ(vdlStsNoErr, vdlsInitMCRA_32s(8000, nFFT, state));
    // Power of white noise per bin: exponentially distributed about 10000,
    // with a louder start that the estimate must forget.
    std::mt19937 rng(41);
    std::exponential_distribution<double> power(1.0 / 10000);
    std::vector<Vdl32s> frame(bins), noise(bins, 0);
    for (int t = 0; t < 1500; ++t) {
        for (int k = 0; k < bins; ++k) frame[k] = static_cast<Vdl32s>(power(rng) * (t < 20 ? 4 : 1));
        ASSERT_EQ(vdlStsNoErr, vdlsUpdateNoisePSDMCRA_32s_I(frame.data(), state, noise.data()));
    }
    double mean = 0;
    for (Vdl32s n : noise) mean += n / static_cast<double>(bins);
    EXPECT_NEAR(mean, 10000, 1500);
    for (Vdl32s n : noise) EXPECT_GT(n, 3000);

    // A state that Init did not make is refused.
    std::vector<unsigned char> blank(size, 0);
    EXPECT_EQ(vdlStsContextMatchErr,
              vdlsUpdateNoisePSDMCRA_32s_I(frame.data(), reinterpret_cast<VdlMCRAState_32s*>(blank.data()), noise.data()));
}

} // namespace
