// Column and row statistics of both layouts against double sums written
// here, for each element type and every edge shape.
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "train_reference.h"
#include "vdlsr.h"

using namespace trainref;

namespace {

// A MeanVarColumn form: data, mean and variance types, scale factor, and
// its two layouts (the scale factor bound in).
template <class S, class M, class V, int Sf>
struct MeanVarForm {
    using Src = S;
    using Mean = M;
    using Var = V;
    static constexpr int scaleFactor = Sf;
};

struct MeanVar32f : MeanVarForm<Vdl32f, Vdl32f, Vdl32f, 0> {
    static VdlStatus d2(const Src* p, int h, int s, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_32f_D2(p, h, s, m, v, w);
    }
    static VdlStatus d2l(const Src* const* p, int h, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_32f_D2L(p, h, m, v, w);
    }
};
struct MeanVar16s : MeanVarForm<Vdl16s, Vdl16s, Vdl16s, 3> {
    static VdlStatus d2(const Src* p, int h, int s, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s_D2Sfs(p, h, s, m, v, w, scaleFactor);
    }
    static VdlStatus d2l(const Src* const* p, int h, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s_D2LSfs(p, h, m, v, w, scaleFactor);
    }
};
struct MeanVar16s32s : MeanVarForm<Vdl16s, Vdl32s, Vdl32s, -2> {
    static VdlStatus d2(const Src* p, int h, int s, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s32s_D2Sfs(p, h, s, m, v, w, scaleFactor);
    }
    static VdlStatus d2l(const Src* const* p, int h, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s32s_D2LSfs(p, h, m, v, w, scaleFactor);
    }
};
struct MeanVar16s16s32s : MeanVarForm<Vdl16s, Vdl16s, Vdl32s, 0> {
    static VdlStatus d2(const Src* p, int h, int s, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s16s32s_D2(p, h, s, m, v, w);
    }
    static VdlStatus d2l(const Src* const* p, int h, Mean* m, Var* v, int w)
    {
        return vdlsMeanVarColumn_16s16s32s_D2L(p, h, m, v, w);
    }
};

template <class F>
class MeanVarColumn : public ::testing::Test {};
using MeanVarForms = ::testing::Types<MeanVar32f, MeanVar16s, MeanVar16s32s, MeanVar16s16s32s>;
TYPED_TEST_SUITE(MeanVarColumn, MeanVarForms);

TYPED_TEST(MeanVarColumn, BothLayoutsMatchTheDoubleModel)
{
    using F = TypeParam;
    std::mt19937 rng(11);
    for (Shape s : shapes) {
        SCOPED_TRACE(::testing::Message() << s.height << "x" << s.width << " step " << s.step);
        Matrix<typename F::Src> a(rng, s, -3000, 3000);
        const auto mean = columnMeans(a.values, s.height, s.width);
        const auto var = columnVars(a.values, s.height, s.width, mean);
        std::vector<typename F::Mean> m2(s.width), mL(s.width);
        std::vector<typename F::Var> v2(s.width), vL(s.width);
        ASSERT_EQ(vdlStsNoErr, F::d2(a.flat(), s.height, s.step, m2.data(), v2.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, F::d2l(a.rowTable(), s.height, mL.data(), vL.data(), s.width));
        EXPECT_EQ(m2, mL);
        EXPECT_EQ(v2, vL);
        for (int k = 0; k < s.width; ++k) {
            const double wantM = expected<typename F::Mean>(mean[k]);
            const double wantV = expected<typename F::Var>(var[k], F::scaleFactor);
            EXPECT_NEAR(m2[k], wantM, tolerance<typename F::Mean>(wantM)) << k;
            EXPECT_NEAR(v2[k], wantV, tolerance<typename F::Var>(wantV)) << k;
        }
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
        std::vector<Vdl32f> f1(w), f2(w), givenF = convert<Vdl32f>(randomValues<Vdl32f>(rng, w, -5, 5));
        std::vector<Vdl16s> i1(w), i2(w), givenI = convert<Vdl16s>(randomValues<Vdl16s>(rng, w, -99, 99));
        std::vector<Vdl64f> d1(w), d2(w);
        std::vector<Vdl32s> s1(w), s2(w);

        const auto meanF = columnMeans(f.values, h, w);
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_32f_D2(f.flat(), h, s.step, f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_32f_D2L(f.rowTable(), h, f2.data(), w));
        const auto meanI = columnMeans(i.values, h, w);
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_16s_D2(i.flat(), h, s.step, i1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsMeanColumn_16s_D2L(i.rowTable(), h, i2.data(), w));
        for (int k = 0; k < w; ++k) {
            EXPECT_NEAR(f1[k], meanF[k], 1e-4);
            EXPECT_EQ(f1[k], f2[k]);
            EXPECT_EQ(i1[k], roundSaturate<Vdl16s>(meanI[k]));
            EXPECT_EQ(i1[k], i2[k]);
        }

        const auto varF = columnVars(f.values, h, w, std::vector<double>(givenF.begin(), givenF.end()));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_32f_D2(f.flat(), h, s.step, givenF.data(), f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_32f_D2L(f.rowTable(), h, givenF.data(), f2.data(), w));
        const auto varI = columnVars(i.values, h, w, std::vector<double>(givenI.begin(), givenI.end()));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_16s_D2Sfs(i.flat(), h, s.step, givenI.data(), i1.data(), w, 14));
        ASSERT_EQ(vdlStsNoErr, vdlsVarColumn_16s_D2LSfs(i.rowTable(), h, givenI.data(), i2.data(), w, 14));
        for (int k = 0; k < w; ++k) {
            EXPECT_NEAR(f1[k], varF[k], 1e-5 * (1 + varF[k]));
            EXPECT_EQ(f1[k], f2[k]);
            EXPECT_EQ(i1[k], expected<Vdl16s>(varI[k], 14));
            EXPECT_EQ(i1[k], i2[k]);
        }

        // Sums: columns, then rows.
        std::vector<double> colF(w, 0), colD(w, 0), colI(w, 0);
        std::vector<double> rowF(h, 0), rowD(h, 0), rowI(h, 0);
        for (int r = 0; r < h; ++r)
            for (int k = 0; k < w; ++k) {
                colF[k] += f.value(r, k), rowF[r] += f.value(r, k);
                colD[k] += d.value(r, k), rowD[r] += d.value(r, k);
                colI[k] += i.value(r, k), rowI[r] += i.value(r, k);
            }
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_32f_D2(f.flat(), s.step, h, f1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_32f_D2L(f.rowTable(), h, f2.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_64f_D2(d.flat(), s.step, h, d1.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_64f_D2L(d.rowTable(), h, d2.data(), w));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_16s32s_D2Sfs(i.flat(), s.step, h, s1.data(), w, 1));
        ASSERT_EQ(vdlStsNoErr, vdlsSumColumn_16s32s_D2LSfs(i.rowTable(), h, s2.data(), w, 1));
        for (int k = 0; k < w; ++k) {
            EXPECT_NEAR(f1[k], colF[k], 1e-5 * (1 + std::fabs(colF[k])));
            EXPECT_EQ(f1[k], f2[k]);
            EXPECT_NEAR(d1[k], colD[k], 1e-12 * (1 + std::fabs(colD[k])));
            EXPECT_EQ(d1[k], d2[k]);
            EXPECT_EQ(s1[k], expected<Vdl32s>(colI[k], 1));
            EXPECT_EQ(s1[k], s2[k]);
        }
        std::vector<Vdl32f> rf1(h), rf2(h);
        std::vector<Vdl64f> rd1(h), rd2(h);
        std::vector<Vdl32s> rs1(h), rs2(h);
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_32f_D2(f.flat(), w, s.step, rf1.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_32f_D2L(f.rowTable(), w, rf2.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_64f_D2(d.flat(), w, s.step, rd1.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_64f_D2L(d.rowTable(), w, rd2.data(), h));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_16s32s_D2Sfs(i.flat(), w, s.step, rs1.data(), h, -1));
        ASSERT_EQ(vdlStsNoErr, vdlsSumRow_16s32s_D2LSfs(i.rowTable(), w, rs2.data(), h, -1));
        for (int r = 0; r < h; ++r) {
            EXPECT_NEAR(rf1[r], rowF[r], 1e-5 * (1 + std::fabs(rowF[r])));
            EXPECT_EQ(rf1[r], rf2[r]);
            EXPECT_NEAR(rd1[r], rowD[r], 1e-12 * (1 + std::fabs(rowD[r])));
            EXPECT_EQ(rd1[r], rd2[r]);
            EXPECT_EQ(rs1[r], expected<Vdl32s>(rowI[r], -1));
            EXPECT_EQ(rs1[r], rs2[r]);
        }
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
        const std::vector<Vdl64f> wgt = convert<Vdl64f>(randomValues<Vdl64f>(rng, s.height, 0.1, 2));
        double total = 0;
        for (double x : wgt) total += x;
        std::vector<double> mean(s.width, 0), var(s.width, 0);
        for (int r = 0; r < s.height; ++r)
            for (int k = 0; k < s.width; ++k) mean[k] += wgt[r] * a.value(r, k) / total;
        for (int r = 0; r < s.height; ++r)
            for (int k = 0; k < s.width; ++k)
                var[k] += wgt[r] * (a.value(r, k) - mean[k]) * (a.value(r, k) - mean[k]) / total;
        std::vector<Vdl64f> m1(s.width), v1(s.width), m2(s.width), v2(s.width), v3(s.width);
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanVarColumn_64f_D2(a.flat(), s.step, wgt.data(), s.height, m1.data(), v1.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanColumn_64f_D2L(a.rowTable(), wgt.data(), s.height, m2.data(), s.width));
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedVarColumn_64f_D2L(a.rowTable(), wgt.data(), s.height, m2.data(), v2.data(), s.width));
        for (int k = 0; k < s.width; ++k) {
            EXPECT_NEAR(m1[k], mean[k], 1e-12);
            EXPECT_NEAR(v1[k], var[k], 1e-11);
            EXPECT_EQ(m1[k], m2[k]);
            EXPECT_NEAR(v2[k], v1[k], 1e-12);
        }
        std::vector<Vdl32f> fm(s.width);
        const std::vector<Vdl32f> fw(wgt.begin(), wgt.end());
        Matrix<Vdl32f> b(rng, s, -10, 10);
        ASSERT_EQ(vdlStsNoErr, vdlsWeightedMeanColumn_32f_D2(b.flat(), s.step, fw.data(), s.height, fm.data(), s.width));
        double fTotal = 0;
        for (float x : fw) fTotal += x;
        for (int k = 0; k < s.width; ++k) {
            double want = 0;
            for (int r = 0; r < s.height; ++r) want += fw[r] * b.value(r, k) / fTotal;
            EXPECT_NEAR(fm[k], want, 1e-5);
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
