// Levinson-Durbin, Schur, the conversions between predictor and reflection
// coefficients and the tube forms, in float and 16 bits, against the
// double models.
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
class Recursions : public ::testing::Test {
protected:
    // Lags of a random signal as the form holds them: 16-bit lags stay
    // below 2^15 with samples of at most 20 over 24 places.
    std::vector<T> lagsOf(int p)
    {
        std::mt19937 rng(11 + p);
        const Vec x = randomValues<T>(rng, 24, -20, 20);
        const Vec r = lags(x, p);
        return convert<T>(r);
    }
};

using Types = ::testing::Types<Vdl32f, Vdl16s>;
TYPED_TEST_SUITE(Recursions, Types);

const int orders[] = {1, 3, 9, 17};

TYPED_TEST(Recursions, DurbinSolvesTheNormalEquationsAndSchurGivesItsReflections)
{
    using T = TypeParam;
    using F = LpForm<T>;
    for (int p : orders) {
        SCOPED_TRACE(p);
        const std::vector<T> r = this->lagsOf(p);
        const Vec rd(r.begin(), r.end());
        Vec toeplitz(p * p);
        for (int i = 0; i < p; ++i)
            for (int j = 0; j < p; ++j)
                toeplitz[i * p + j] = rd[std::abs(i - j)];
        const Vec a = solve(toeplitz, Vec(rd.begin() + 1, rd.end()));
        const Levinson model = levinson(rd, p);

        std::vector<T> got(p + 1, T(77));
        typename F::Err err = 0;
        ASSERT_EQ(F::durbin(r.data(), got.data(), p, &err), vdlStsNoErr);
        for (int k = 0; k < p; ++k)
            F::expectResult(got[k], inUnits<T>(a[k]), 1e-3);
        EXPECT_EQ(got[p], T(77));  // nothing written past len
        EXPECT_NEAR(err, inUnits<T>(model.err), 1e-3 * inUnits<T>(model.err) + 1);

        ASSERT_EQ(F::schur(r.data(), got.data(), p, &err), vdlStsNoErr);
        for (int k = 0; k < p; ++k)
            F::expectResult(got[k], inUnits<T>(model.k[k]));
        EXPECT_NEAR(err, inUnits<T>(model.err), 1e-3 * inUnits<T>(model.err) + 1);
    }
}

TYPED_TEST(Recursions, ReflectionAndPredictorCoefficientsConvertBothWays)
{
    using T = TypeParam;
    using F = LpForm<T>;
    std::mt19937 rng(3);
    for (int p : orders) {
        SCOPED_TRACE(p);
        const Vec k = randomValues<double>(rng, p, -0.7, 0.7);
        std::vector<T> kFixed(p);
        Vec kReal(p);  // the coefficients as the form holds them
        for (int i = 0; i < p; ++i)
            kReal[i] = F::real(kFixed[i] = F::fixed(k[i]));
        const Vec a = stepUp(kReal);

        std::vector<T> got(p);
        ASSERT_EQ(F::toLp(kFixed.data(), got.data(), p), vdlStsNoErr);
        for (int i = 0; i < p; ++i)
            F::expectResult(got[i], inUnits<T>(a[i]));

        // Back again from the predictor as held: within the rounding that a
        // 16-bit predictor carries through the step-down.
        const double slack = std::is_same<T, Vdl16s>::value ? 0.05 : 1e-5;
        std::vector<T> back(p);
        ASSERT_EQ(F::toRefl(got.data(), back.data(), p), vdlStsNoErr);
        for (int i = 0; i < p; ++i)
            EXPECT_NEAR(F::real(back[i]), kReal[i], slack);
    }
}

TYPED_TEST(Recursions, TubeFormsAndTiltFollowTheirFormulas)
{
    using T = TypeParam;
    using F = LpForm<T>;
    std::mt19937 rng(8);
    const int n = 9;
    // Coefficients of at most 0.4: a tube of 9 sections stays within 16 bits in Q12.
    std::vector<T> k(n);
    for (T& x : k)
        x = F::fixed(randomValues<double>(rng, 1, -0.4, 0.4)[0]);
    std::vector<T> got(n);
    ASSERT_EQ(F::ar(k.data(), got.data(), n), vdlStsNoErr);
    for (int i = 0; i < n; ++i)
        F::expectResult(got[i], inUnits<T>((1 + F::real(k[i])) / (1 - F::real(k[i]))));
    ASSERT_EQ(F::lar(k.data(), got.data(), n, 0.3f), vdlStsNoErr);
    for (int i = 0; i < n; ++i) {
        const double c = std::fmax(-0.3, std::fmin(0.3, F::real(k[i])));
        F::expectResult(got[i], inUnits<T>(std::log((1 + c) / (1 - c))));
    }
    ASSERT_EQ(F::areas(k.data(), got.data(), n), vdlStsNoErr);
    double area = 1;
    for (int i = 0; i < n; ++i) {
        area *= (1 + F::real(k[i])) / (1 - F::real(k[i]));
        F::expectResult(got[i], inUnits<T>(area));
    }
    // Tilt: raw products, the 16-bit form scaled down by 2^3.
    const std::vector<T> e = convert<T>(randomValues<T>(rng, n, -30, 30));
    const std::vector<T> kt = convert<T>(randomValues<T>(rng, n, -30, 30));
    const double factor = std::is_same<T, Vdl16s>::value ? 0.125 : 1;
    ASSERT_EQ(F::tilt(kt.data(), e.data(), got.data(), n), vdlStsNoErr);
    for (int i = 0; i < n; ++i)
        F::expectResult(got[i], double(kt[i]) * e[i] * factor);
    ASSERT_EQ(F::absTilt(kt.data(), e.data(), got.data(), n), vdlStsNoErr);
    for (int i = 0; i < n; ++i)
        F::expectResult(got[i], std::fabs(double(kt[i])) * e[i] * factor);
}

} // namespace
