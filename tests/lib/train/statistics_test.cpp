// Column and row statistics of both layouts against double sums written
// here, for each element type and every edge shape.
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "scaled_call.h"
#include "train_reference.h"
#include "vdlsr.h"

using namespace trainref;

namespace {

// A MeanVarColumn form: data, mean and variance types, the scale factor of
// the variance, and its two layouts.
template <class S, class M, class V, int Sf, auto D2, auto D2L>
struct MeanVarForm {
    using Src = S;
    using Mean = M;
    using Var = V;
    static constexpr int scaleFactor = Sf;
    static constexpr auto d2 = D2, d2l = D2L;
};

template <class F>
class MeanVarColumn : public ::testing::Test {};
using MeanVarForms = ::testing::Types<
    MeanVarForm<Vdl32f, Vdl32f, Vdl32f, 0, vdlsMeanVarColumn_32f_D2, vdlsMeanVarColumn_32f_D2L>,
    MeanVarForm<Vdl16s, Vdl16s, Vdl16s, 3, vdlsMeanVarColumn_16s_D2Sfs, vdlsMeanVarColumn_16s_D2LSfs>,
    MeanVarForm<Vdl16s, Vdl32s, Vdl32s, -2, vdlsMeanVarColumn_16s32s_D2Sfs, vdlsMeanVarColumn_16s32s_D2LSfs>,
    MeanVarForm<Vdl16s, Vdl16s, Vdl32s, 0, vdlsMeanVarColumn_16s16s32s_D2, vdlsMeanVarColumn_16s16s32s_D2L>>;
TYPED_TEST_SUITE(MeanVarColumn, MeanVarForms);

TYPED_TEST(MeanVarColumn, BothLayoutsMatchTheDoubleModel)
{
    using F = TypeParam;
    std::mt19937 rng(11);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width << " step " << s.step);
        Matrix<typename F::Src> a(rng, s, -3000, 3000);
        const auto mean = columnMeans(a.values, s.height, s.width);
        std::vector<typename F::Mean> m2(s.width), mL(s.width);
        std::vector<typename F::Var> v2(s.width), vL(s.width);
        const int sf = F::scaleFactor;
        ASSERT_EQ(vdlStsNoErr, callScaled(F::d2, sf, a.flat(), s.height, s.step, m2.data(), v2.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, callScaled(F::d2l, sf, a.rowTable(), s.height, mL.data(), vL.data(), s.width));
        expectLayouts(m2, mL, mean, 0, 1e-5, 1e-5, 1);
        expectLayouts(v2, vL, columnVars(a.values, s.height, s.width, mean), sf, 1e-5, 1e-5, 1);
    }
}

// Mean, variance about a given mean, and sums, of the other forms.
TEST(ColumnStatistics, MeanVarianceAndSumsOfEachForm)
{
    std::mt19937 rng(12);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width);
        Matrix<Vdl32f> f(rng, s, -50, 50);
        Matrix<Vdl64f> d(rng, s, -50, 50);
        Matrix<Vdl16s> i(rng, s, -30000, 30000);
        const int h = s.height, w = s.width;
        const std::vector<double> givenF = randomValues<Vdl32f>(rng, w, -5, 5),
                                  givenI = randomValues<Vdl16s>(rng, w, -99, 99);
        const std::vector<Vdl32f> gF = convert<Vdl32f>(givenF);
        const std::vector<Vdl16s> gI = convert<Vdl16s>(givenI);
        std::vector<Vdl32f> f1(w), f2(w);
        std::vector<Vdl16s> i1(w), i2(w);
        std::vector<Vdl64f> d1(w), d2(w);
        std::vector<Vdl32s> s1(w), s2(w);

        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_32f_D2(f.flat(), h, s.step, f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_32f_D2L(f.rowTable(), h, f2.data(), w));
        expectLayouts(f1, f2, columnMeans(f.values, h, w), 0, 1e-4, 0);
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_16s_D2(i.flat(), h, s.step, i1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_16s_D2L(i.rowTable(), h, i2.data(), w));
        expectLayouts(i1, i2, columnMeans(i.values, h, w), 0, 0, 0);

        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_32f_D2(f.flat(), h, s.step, gF.data(), f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_32f_D2L(f.rowTable(), h, gF.data(), f2.data(), w));
        expectLayouts(f1, f2, columnVars(f.values, h, w, givenF), 0, 1e-5, 1e-5);
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_16s_D2Sfs(i.flat(), h, s.step, gI.data(), i1.data(), w, 14));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_16s_D2LSfs(i.rowTable(), h, gI.data(), i2.data(), w, 14));
        expectLayouts(i1, i2, columnVars(i.values, h, w, givenI), 14, 0, 0);

        // Sums: columns, then rows.
        std::vector<double> colF(w, 0), colD(w, 0), colI(w, 0), rowF(h, 0), rowD(h, 0), rowI(h, 0);
        for (int r = 0; r < h; ++r)
            for (int k = 0; k < w; ++k) {
                colF[k] += f.value(r, k), rowF[r] += f.value(r, k);
                colD[k] += d.value(r, k), rowD[r] += d.value(r, k);
                colI[k] += i.value(r, k), rowI[r] += i.value(r, k);
            }
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_32f_D2(f.flat(), s.step, h, f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_32f_D2L(f.rowTable(), h, f2.data(), w));
        expectLayouts(f1, f2, colF, 0, 1e-5, 1e-5);
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_64f_D2(d.flat(), s.step, h, d1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_64f_D2L(d.rowTable(), h, d2.data(), w));
        expectLayouts(d1, d2, colD, 0, 1e-12, 1e-12);
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_16s32s_D2Sfs(i.flat(), s.step, h, s1.data(), w, 1));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_16s32s_D2LSfs(i.rowTable(), h, s2.data(), w, 1));
        expectLayouts(s1, s2, colI, 1, 0, 0);
        f1.resize(h), f2.resize(h), d1.resize(h), d2.resize(h), s1.resize(h), s2.resize(h);
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_32f_D2(f.flat(), w, s.step, f1.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_32f_D2L(f.rowTable(), w, f2.data(), h));
        expectLayouts(f1, f2, rowF, 0, 1e-5, 1e-5);
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_64f_D2(d.flat(), w, s.step, d1.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_64f_D2L(d.rowTable(), w, d2.data(), h));
        expectLayouts(d1, d2, rowD, 0, 1e-12, 1e-12);
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_16s32s_D2Sfs(i.flat(), w, s.step, s1.data(), h, -1));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_16s32s_D2LSfs(i.rowTable(), w, s2.data(), h, -1));
        expectLayouts(s1, s2, rowI, -1, 0, 0);
    }
}

TEST(ColumnStatistics, SumMeanVarWritesOrAddsSumsAndSquares)
{
    std::mt19937 rng(13);
    const Shape s{9, 17, 24};
    Matrix<Vdl16s> a(rng, s, -1000, 1000);
    std::vector<double> sum(s.width, 0), sqr(s.width, 0);
    for (int r = 0; r < s.height; ++r)
        for (int k = 0; k < s.width; ++k)
            sum[k] += a.value(r, k), sqr[k] += a.value(r, k) * a.value(r, k);
    std::vector<Vdl32f> m(s.width, 5.0f), v(s.width, 7.0f);
    ASSERT_EQ(vdlStsNoErr, vdlsSumMeanVar_16s32f_I(a.flat(), s.step, s.height, m.data(), v.data(), s.width));
    for (int k = 0; k < s.width; ++k) {
        EXPECT_NEAR(m[k], 5 + sum[k], 1e-6 * std::fabs(sum[k]) + 1e-3);
        EXPECT_NEAR(v[k], 7 + sqr[k], 1e-6 * sqr[k]);
    }
    ASSERT_EQ(vdlStsNoErr, vdlsSumMeanVar_16s32f(a.flat(), s.step, s.height, m.data(), v.data(), s.width));
    EXPECT_NEAR(m[3], sum[3], 1e-6 * std::fabs(sum[3]) + 1e-3);
    std::vector<Vdl32s> mi(s.width, 100), vi(s.width, 0);
    ASSERT_EQ(vdlStsNoErr, vdlsSumMeanVar_16s32s_ISfs(a.flat(), s.step, s.height, mi.data(), vi.data(), s.width, 4));
    for (int k = 0; k < s.width; ++k) {
        EXPECT_EQ(mi[k], roundSaturate<Vdl32s>(100 + sum[k] / 16));
        EXPECT_EQ(vi[k], roundSaturate<Vdl32s>(sqr[k] / 16));
    }
}

TEST(ColumnStatistics, WeightedFormsWeighEachRow)
{
    std::mt19937 rng(14);
    for (Shape s : shapes) {
        Matrix<Vdl64f> a(rng, s, -10, 10);
        Matrix<Vdl32f> b(rng, s, -10, 10);
        const std::vector<Vdl64f> wgt = convert<Vdl64f>(randomValues<Vdl64f>(rng, s.height, 0.1, 2));
        const std::vector<Vdl32f> fw(wgt.begin(), wgt.end());
        double total = 0, fTotal = 0;
        for (int r = 0; r < s.height; ++r)
            total += wgt[r], fTotal += fw[r];
        std::vector<double> mean(s.width, 0), var(s.width, 0), fMean(s.width, 0);
        for (int r = 0; r < s.height; ++r)
            for (int k = 0; k < s.width; ++k)
                mean[k] += wgt[r] * a.value(r, k) / total, fMean[k] += fw[r] * b.value(r, k) / fTotal;
        for (int r = 0; r < s.height; ++r)
            for (int k = 0; k < s.width; ++k)
                var[k] += wgt[r] * (a.value(r, k) - mean[k]) * (a.value(r, k) - mean[k]) / total;
        std::vector<Vdl64f> m1(s.width), v1(s.width), m2(s.width), v2(s.width);
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanVarColumn_64f_D2(a.flat(), s.step, wgt.data(), s.height, m1.data(), v1.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanColumn_64f_D2L(a.rowTable(), wgt.data(), s.height, m2.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedVarColumn_64f_D2L(a.rowTable(), wgt.data(), s.height, m2.data(), v2.data(), s.width));
        std::vector<Vdl32f> fm(s.width);
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanColumn_32f_D2(b.flat(), s.step, fw.data(), s.height, fm.data(), s.width));
        EXPECT_EQ(m1, m2);
        for (int k = 0; k < s.width; ++k) {
            EXPECT_NEAR(m1[k], mean[k], 1e-12);
            EXPECT_NEAR(v1[k], var[k], 1e-11);
            EXPECT_NEAR(v2[k], v1[k], 1e-12);
            EXPECT_NEAR(fm[k], fMean[k], 1e-5);
        }
    }
    // Weights that sum to zero leave the mean as it was.
    Matrix<Vdl32f> a(rng, {2, 3, 3}, -1, 1);
    const Vdl32f wgt[2] = {1, -1};
    std::vector<Vdl32f> m(3, 9.0f);
    EXPECT_EQ(vdlStsDivByZeroErr, vdlsWeightedMeanColumn_32f_D2(a.flat(), 3, wgt, 2, m.data(), 3));
    EXPECT_EQ(m, std::vector<Vdl32f>(3, 9.0f));
}

} // namespace
