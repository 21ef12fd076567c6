// Linear prediction from a signal by both methods, and the front-end
// filters, against plain double models.
#include <cmath>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "lp_forms.h"

using namespace lpref;
using namespace vdltest;

namespace {

template <class T>
class Prediction : public ::testing::Test {};

using Types = ::testing::Types<Vdl32f, Vdl16s>;
TYPED_TEST_SUITE(Prediction, Types);

TYPED_TEST(Prediction, AutocorrelationMethodIsDurbinOfTheSignalsLags)
{
    using T = TypeParam;
    using F = LpForm<T>;
    std::mt19937 rng(4);
    for (int p : {1, 3, 9, 17}) {
        SCOPED_TRACE(p);
        const Vec x = randomValues<T>(rng, p + 14, -100, 100);
        const std::vector<T> src = convert<T>(x);
        const Levinson model = levinson(lags(x, p), p);
        std::vector<T> got(p + 1, T(77)), neg(p);
        ASSERT_EQ(F::autoLp(src.data(), p + 14, got.data(), p), vdlStsNoErr);
        ASSERT_EQ(F::negLp(src.data(), p + 14, neg.data(), p), vdlStsNoErr);
        for (int k = 0; k < p; ++k) {
            F::expectResult(got[k], inUnits<T>(model.a[k]));
            EXPECT_EQ(neg[k], -got[k]);
        }
        EXPECT_EQ(got[p], T(77));
    }
}

TYPED_TEST(Prediction, CovarianceMethodSolvesItsNormalEquations)
{
    using T = TypeParam;
    using F = LpForm<T>;
    std::mt19937 rng(6);
    for (int p : {1, 3, 9}) {
        SCOPED_TRACE(p);
        const int n = 3 * p + 5;
        const Vec x = randomValues<T>(rng, n, -100, 100);
        Vec phi(p * p), psi(p);
        for (int i = 1; i <= p; ++i) {
            for (int t = p; t < n; ++t)
                psi[i - 1] += x[t - i] * x[t];
            for (int j = 1; j <= p; ++j)
                for (int t = p; t < n; ++t)
                    phi[(i - 1) * p + j - 1] += x[t - i] * x[t - j];
        }
        const Vec a = solve(phi, psi);
        const std::vector<T> src = convert<T>(x);
        std::vector<T> got(p);
        ASSERT_EQ(F::covLp(src.data(), n, got.data(), p), vdlStsNoErr);
        for (int k = 0; k < p; ++k)
            F::expectResult(got[k], inUnits<T>(a[k]), 1e-3);
    }
}

TEST(Prediction, CovarianceOfAConstantSignalStopsAtTheFirstOrder)
{
    const std::vector<Vdl32f> ones(30, 1.0f);
    std::vector<Vdl32f> a(12, 77.0f);
    ASSERT_EQ(vdlsLinearPrediction_Cov_32f(ones.data(), 30, a.data(), 12), vdlStsNoErr);
    EXPECT_NEAR(a[0], 1.0f, 1e-6);
    for (int k = 1; k < 12; ++k)
        EXPECT_EQ(a[k], 0.0f);
}

// ---- front-end filters

TEST(Aurora, TapsFollowTheWindowedCosineSeries)
{
    std::vector<Vdl32f> gains(10, 1.0f), taps(17);
    ASSERT_EQ(vdlsTabsCalculation_Aurora_32f(gains.data(), taps.data()), vdlStsNoErr);
    for (int i = 0; i < 17; ++i)
        EXPECT_NEAR(taps[i], i == 8 ? 1.0f : 0.0f, 1e-6);  // all-pass: an impulse

    std::mt19937 rng(12);
    const Vec g = randomValues<double>(rng, 10, 0, 1);
    const std::vector<Vdl32f> gf = convert<Vdl32f>(g);
    std::vector<Vdl16s> g16(10), t16(17);
    for (int k = 0; k < 10; ++k)
        g16[k] = static_cast<Vdl16s>(std::lround(g[k] * 32767));
    ASSERT_EQ(vdlsTabsCalculation_Aurora_32f(gf.data(), taps.data()), vdlStsNoErr);
    ASSERT_EQ(vdlsTabsCalculation_Aurora_16s(g16.data(), t16.data()), vdlStsNoErr);
    for (int n = -8; n <= 8; ++n) {
        auto series = [n](auto gain) {
            double s = 0;
            for (int k = 0; k < 10; ++k)
                s += (k == 0 || k == 9 ? 1 : 2) * gain(k) * std::cos(M_PI * k * n / 9);
            return (1 + std::cos(M_PI * n / 9)) / 2 * s / 18;
        };
        EXPECT_NEAR(taps[n + 8], series([&](int k) { return double(gf[k]); }), 1e-6);
        EXPECT_NEAR(t16[n + 8],
                    roundSaturate<Vdl16s>(32768 * series([&](int k) { return g16[k] / 32768.0; })), 1);
    }
}

// 16-bit sums are exact, then scaled by 2^-4; float sums within their bound.
template <class T>
void expectSum(double got, double exact, double absSum)
{
    if (std::is_same<T, Vdl16s>::value)
        EXPECT_EQ(got, roundSaturate<Vdl16s>(exact / 16));
    else
        EXPECT_NEAR(got, exact, 130 * 6e-8 * absSum + 1e-30);
}

TYPED_TEST(Prediction, ResidualFilterRunsTheTapsOverTheFrame)
{
    using T = TypeParam;
    std::mt19937 rng(2);
    const Vec x = randomValues<T>(rng, 96, -300, 300), h = randomValues<T>(rng, 17, -300, 300);
    const std::vector<T> src = convert<T>(x), taps = convert<T>(h);
    std::vector<T> got(81, T(77));
    ASSERT_EQ(LpForm<T>::residual(src.data(), got.data(), taps.data()), vdlStsNoErr);
    for (int n = 0; n < 80; ++n) {
        double sum = 0, abs = 0;
        for (int k = 0; k < 17; ++k)
            sum += h[k] * x[n + k], abs += std::fabs(h[k] * x[n + k]);
        expectSum<T>(got[n], sum, abs);
    }
    EXPECT_EQ(got[80], T(77));
}

TYPED_TEST(Prediction, LowHighSplitRunsAFilterAndItsMirrorAtHalfRate)
{
    using T = TypeParam;
    std::mt19937 rng(7);
    for (int taps : {1, 2, 9, 17}) {
        for (int len : {2, 10, 18}) {
            SCOPED_TRACE(taps * 100 + len);
            const Vec x = randomValues<T>(rng, len + taps - 2, -300, 300);
            const Vec h = randomValues<T>(rng, taps, -300, 300);
            const std::vector<T> src = convert<T>(x), tabs = convert<T>(h);
            std::vector<T> low(len / 2 + 1, T(77)), high(len / 2 + 1, T(77));
            ASSERT_EQ(LpForm<T>::lowHigh(src.data(), low.data(), high.data(), len, tabs.data(), taps),
                      vdlStsNoErr);
            for (int n = 0; n < len / 2; ++n) {
                double l = 0, hi = 0, abs = 0;
                for (int k = 0; k < taps; ++k) {
                    l += h[k] * x[2 * n + k];
                    hi += (k % 2 ? -1 : 1) * h[k] * x[2 * n + k];
                    abs += std::fabs(h[k] * x[2 * n + k]);
                }
                expectSum<T>(low[n], l, abs);
                expectSum<T>(high[n], hi, abs);
            }
            EXPECT_EQ(low[len / 2], T(77));
            EXPECT_EQ(high[len / 2], T(77));
        }
    }
}

} // namespace
