// Element-wise curves, language-model scaling, entropy and the N-th
// maximum against plain models, on lengths 1, odd and one past a vector.
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "logsel_reference.h"
#include "vdlsr.h"

using namespace logselref;

namespace {

const int lengths[] = {1, 7, 17, 33};

TEST(ExpNegSqr, EachFormMatchesTheModelAndInPlaceMatchesOutOfPlace)
{
    std::mt19937 rng(3);
    for (int len : lengths) {
        std::vector<double> x = randomValues<double>(rng, len, -6, 6);
        x[0] = len == 1 ? 0.0 : 5.5;
        const std::vector<Vdl32f> xf = convert<Vdl32f>(x);
        std::vector<Vdl32f> d32(len);
        std::vector<Vdl64f> d32in64(len), d64(len);
        ASSERT_EQ(vdlsExpNegSqr_32f(xf.data(), d32.data(), len), vdlStsNoErr);
        ASSERT_EQ(vdlsExpNegSqr_32f64f(xf.data(), d32in64.data(), len), vdlStsNoErr);
        ASSERT_EQ(vdlsExpNegSqr_64f(x.data(), d64.data(), len), vdlStsNoErr);
        std::vector<Vdl32f> i32 = xf;
        std::vector<Vdl64f> i64 = x;
        ASSERT_EQ(vdlsExpNegSqr_32f_I(i32.data(), len), vdlStsNoErr);
        ASSERT_EQ(vdlsExpNegSqr_64f_I(i64.data(), len), vdlStsNoErr);
        for (int i = 0; i < len; ++i) {
            const long double wf = std::exp(-static_cast<long double>(xf[i]) * xf[i]);
            const long double wd = std::exp(-static_cast<long double>(x[i]) * x[i]);
            EXPECT_NEAR(d32[i], static_cast<double>(wf), FLT_EPSILON * wf) << xf[i];
            EXPECT_NEAR(d32in64[i], static_cast<double>(wf), 2 * DBL_EPSILON * wf) << xf[i];
            EXPECT_NEAR(d64[i], static_cast<double>(wd), 4 * DBL_EPSILON * wd) << x[i];
            EXPECT_EQ(i32[i], d32[i]);
            EXPECT_EQ(i64[i], d64[i]);
        }
    }
}

TEST(UnitCurve, FloatFormsFollowTheSmoothStep)
{
    std::mt19937 rng(4);
    for (int len : lengths) {
        std::vector<Vdl32f> x = convert<Vdl32f>(randomValues<Vdl32f>(rng, len, -1, 2.2));
        x[0] = 1.0f;
        std::vector<Vdl32f> dst(len), inPlace = x;
        ASSERT_EQ(vdlsUnitCurve_32f(x.data(), dst.data(), len), vdlStsNoErr);
        ASSERT_EQ(vdlsUnitCurve_32f_I(inPlace.data(), len), vdlStsNoErr);
        for (int i = 0; i < len; ++i) {
            EXPECT_NEAR(dst[i], unitCurve(x[i]), 4 * FLT_EPSILON) << x[i];
            EXPECT_EQ(inPlace[i], dst[i]);
        }
    }
}

TEST(UnitCurve, Q15FormsShiftTheSourceAndScaleTheResult)
{
    const std::vector<Vdl16s> x = {-100, 0, 4, 300, 16384, 32767, 8192, -32768, 24000};
    const int len = static_cast<int>(x.size());
    for (int shift : {-2, -1, 0, 1, 2}) {
        for (int sf : {-1, 0, 1, 2}) {
            std::vector<Vdl16s> dst(len), inPlace = x;
            ASSERT_EQ(vdlsUnitCurve_16s_Sfs(x.data(), shift, dst.data(), len, sf), vdlStsNoErr);
            ASSERT_EQ(vdlsUnitCurve_16s_ISfs(inPlace.data(), shift, len, sf), vdlStsNoErr);
            for (int i = 0; i < len; ++i) {
                const double u = unitCurve(x[i] * std::ldexp(1.0, shift) / 32768);
                EXPECT_EQ(dst[i], roundSaturate<Vdl16s>(u * 32768 * std::ldexp(1.0, -sf)))
                    << x[i] << " shift " << shift << " sf " << sf;
                EXPECT_EQ(inPlace[i], dst[i]);
            }
        }
    }
}

TEST(ScaleLM, FloorsWeightsAndOffsetsEachScore)
{
    std::mt19937 rng(5);
    for (int len : lengths) {
        const std::vector<double> x = randomValues<Vdl16s>(rng, len, -120, 10);
        const std::vector<Vdl32f> xf = convert<Vdl32f>(x);
        const std::vector<Vdl16s> xs = convert<Vdl16s>(x);
        std::vector<Vdl32f> df(len);
        std::vector<Vdl32s> ds(len);
        ASSERT_EQ(vdlsScaleLM_32f(xf.data(), df.data(), len, -50.0f, 13.0f, -8.0f), vdlStsNoErr);
        ASSERT_EQ(vdlsScaleLM_16s32s(xs.data(), ds.data(), len, -50, 13, -8), vdlStsNoErr);
        for (int i = 0; i < len; ++i) {
            const double want = std::max(x[i], -50.0) * 13 - 8;
            EXPECT_NEAR(df[i], want, FLT_EPSILON * std::fabs(want)) << x[i];
            EXPECT_EQ(ds[i], want) << x[i];
        }
    }
    const Vdl16s big[2] = {32767, -32768};
    Vdl32s out[2];
    ASSERT_EQ(vdlsScaleLM_16s32s(big, out, 1, -32768, 32767, 2147483000), vdlStsNoErr);
    ASSERT_EQ(vdlsScaleLM_16s32s(big + 1, out + 1, 1, -32768, 32767, -2147483000), vdlStsNoErr);
    EXPECT_EQ(out[0], 2147483647) << "saturates above";
    EXPECT_EQ(out[1], std::numeric_limits<Vdl32s>::min()) << "saturates below";
}

TEST(Entropy, SumsMinusPLogPAndScalesTheIntegerResult)
{
    std::mt19937 rng(6);
    for (int len : lengths) {
        std::vector<double> p = randomValues<Vdl16s>(rng, len, 0, 300);
        p[0] = 0;
        const std::vector<Vdl32f> pf = convert<Vdl32f>(p);
        std::vector<double> pfd(pf.begin(), pf.end());
        Vdl32f hf = 0;
        ASSERT_EQ(vdlsEntropy_32f(pf.data(), len, &hf), vdlStsNoErr);
        EXPECT_NEAR(hf, entropy(pfd), 1e-6 * std::max(1.0, std::fabs(entropy(pfd))));
        const std::vector<Vdl16s> ps = convert<Vdl16s>(p);
        for (int srcSf : {-4, 0, 8}) {
            for (int sf : {0, 6, -2}) {
                std::vector<double> scaled;
                for (double v : p)
                    scaled.push_back(v * std::ldexp(1.0, -srcSf));
                Vdl32s hs = 0;
                ASSERT_EQ(vdlsEntropy_16s32s_Sfs(ps.data(), srcSf, len, &hs, sf), vdlStsNoErr);
                EXPECT_NEAR(hs, entropy(scaled) * std::ldexp(1.0, -sf), 0.5 + 1e-6)
                    << "len " << len << " srcSf " << srcSf << " sf " << sf;
            }
        }
    }
}

template <class T, auto Fn>
struct NthMaxForm {
    using Type = T;
    static constexpr auto call = Fn;
};

template <class F>
class NthMaxElement : public ::testing::Test {};
using RankForms = ::testing::Types<NthMaxForm<Vdl32s, vdlsNthMaxElement_32s>, NthMaxForm<Vdl32f, vdlsNthMaxElement_32f>,
                                   NthMaxForm<Vdl64f, vdlsNthMaxElement_64f>>;
TYPED_TEST_SUITE(NthMaxElement, RankForms);

// Every rank of short vectors with repeated values, some ranks of one long
// enough to leave the stack copy; the source stays as it was.
TYPED_TEST(NthMaxElement, EveryRankMatchesASortedCopy)
{
    using T = typename TypeParam::Type;
    std::mt19937 rng(8);
    for (int len : {1, 7, 33, 3001}) {
        const std::vector<T> x = convert<T>(randomValues<T>(rng, len, -50, 50));
        const std::vector<T> kept = x;
        const int step = len > 100 ? 97 : 1;
        for (int n = 1; n <= len; n += step) {
            T got = 0;
            ASSERT_EQ(TypeParam::call(x.data(), len, n, &got), vdlStsNoErr);
            EXPECT_EQ(got, nthMax(x, n)) << "len " << len << " rank " << n;
        }
        T last = 0;
        ASSERT_EQ(TypeParam::call(x.data(), len, len, &last), vdlStsNoErr);
        EXPECT_EQ(last, nthMax(x, len));
        EXPECT_EQ(x, kept);
    }
}

} // namespace
