// Operations on Gaussians (accumulate, split, merge, merge loss,
// Bhattacharyya distance) against double models, in float and double.
#include <fenv.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "gauss_reference.h"
#include "vdlsr.h"

using namespace gaussref;

namespace {

template <class T>
struct Ops;

template <>
struct Ops<Vdl32f> {
    static constexpr auto meanVarAcc = vdlsMeanVarAcc_32f;
    static constexpr auto split = vdlsGaussianSplit_32f;
    static constexpr auto merge = vdlsGaussianMerge_32f;
    static constexpr auto dist = vdlsGaussianDist_32f;
    static constexpr double tolerance = 1e-5;
};

template <>
struct Ops<Vdl64f> {
    static constexpr auto meanVarAcc = vdlsMeanVarAcc_64f;
    static constexpr auto split = vdlsGaussianSplit_64f;
    static constexpr auto merge = vdlsGaussianMerge_64f;
    static constexpr auto dist = vdlsGaussianDist_64f;
    static constexpr double tolerance = 1e-12;
};

// Two Gaussians of `len` elements, one past the sixteen float lanes, with
// positive variances.
template <class T>
class GaussianOps : public ::testing::Test {
protected:
    using O = Ops<T>;
    static constexpr int len = 17;

    GaussianOps()
    {
        std::mt19937 rng(5);
        mean1 = convert<T>(randomValues<T>(rng, len, -3, 3));
        var1 = convert<T>(randomValues<T>(rng, len, 0.2, 4));
        mean2 = convert<T>(randomValues<T>(rng, len, -3, 3));
        var2 = convert<T>(randomValues<T>(rng, len, 0.2, 4));
    }

    void expectNear(double got, double want) const
    {
        EXPECT_NEAR(got, want, O::tolerance * (1 + std::fabs(want)));
    }

    static double logDet(const std::vector<T>& var)
    {
        double sum = 0;
        for (T v : var)
            sum += std::log(static_cast<double>(v));
        return sum;
    }

    std::vector<T> mean1, var1, mean2, var2;
};

using Floats = ::testing::Types<Vdl32f, Vdl64f>;
TYPED_TEST_SUITE(GaussianOps, Floats);

TYPED_TEST(GaussianOps, MeanVarAccAddsWeightedFrameAndSquaredDeviation)
{
    using T = TypeParam;
    const auto &m1 = this->mean1, &v1 = this->var1, &m2 = this->mean2, &v2 = this->var2;
    std::vector<T> meanAcc(m2), varAcc(v2);
    // The frame is mean1, the mean it deviates from var1.
    ASSERT_EQ(TestFixture::O::meanVarAcc(m1.data(), v1.data(), meanAcc.data(), varAcc.data(),
                                         this->len, T(0.75)),
              vdlStsNoErr);
    for (int k = 0; k < this->len; ++k) {
        this->expectNear(meanAcc[k], m2[k] + 0.75 * m1[k]);
        this->expectNear(varAcc[k], v2[k] + 0.75 * std::pow(double(m1[k]) - v1[k], 2));
    }
}

TYPED_TEST(GaussianOps, SplitMovesMeansApartByDeviations)
{
    using T = TypeParam;
    const auto &m1 = this->mean1, &v1 = this->var1;
    std::vector<T> mean1(m1), var1(v1), mean2(this->len), var2(this->len);
    ASSERT_EQ(TestFixture::O::split(mean1.data(), var1.data(), mean2.data(), var2.data(), this->len,
                                    T(0.2)),
              vdlStsNoErr);
    for (int k = 0; k < this->len; ++k) {
        this->expectNear(mean1[k], m1[k] + 0.2 * std::sqrt(double(v1[k])));
        this->expectNear(mean2[k], m1[k] - 0.2 * std::sqrt(double(v1[k])));
    }
    EXPECT_EQ(var1, v1);
    EXPECT_EQ(var2, v1);
}

TYPED_TEST(GaussianOps, MergeGivesMomentsOfTheWeightedPairEvenInPlace)
{
    using T = TypeParam;
    const auto &m1 = this->mean1, &v1 = this->var1, &m2 = this->mean2, &v2 = this->var2;
    std::vector<T> mean(this->len), var(this->len), inPlaceMean(m1), inPlaceVar(v1);
    T logDet = 0, inPlaceLogDet = 0;
    ASSERT_EQ(TestFixture::O::merge(m1.data(), v1.data(), m2.data(), v2.data(), mean.data(),
                                    var.data(), this->len, &logDet, T(3), T(1)),
              vdlStsNoErr);
    double wantLogDet = 0;
    for (int k = 0; k < this->len; ++k) {
        const double m = 0.75 * m1[k] + 0.25 * m2[k];
        // Second moment of the mixture about its mean.
        const double v = 0.75 * (v1[k] + std::pow(m1[k] - m, 2)) + 0.25 * (v2[k] + std::pow(m2[k] - m, 2));
        this->expectNear(mean[k], m);
        this->expectNear(var[k], v);
        wantLogDet += std::log(v);
    }
    this->expectNear(logDet, wantLogDet);

    ASSERT_EQ(TestFixture::O::merge(inPlaceMean.data(), inPlaceVar.data(), m2.data(), v2.data(),
                                    inPlaceMean.data(), inPlaceVar.data(), this->len,
                                    &inPlaceLogDet, T(3), T(1)),
              vdlStsNoErr);
    EXPECT_EQ(inPlaceMean, mean);
    EXPECT_EQ(inPlaceVar, var);
}

TYPED_TEST(GaussianOps, DistIsTheLikelihoodAMergeLoses)
{
    using T = TypeParam;
    using O = typename TestFixture::O;
    const T *m1 = this->mean1.data(), *v1 = this->var1.data();
    const T *m2 = this->mean2.data(), *v2 = this->var2.data();
    const double ld1 = this->logDet(this->var1), ld2 = this->logDet(this->var2);
    std::vector<T> mean(this->len), var(this->len);
    T loss = 0, merged = 0;
    ASSERT_EQ(O::dist(m1, v1, m2, v2, this->len, &loss, T(2), T(ld1), T(5), T(ld2)), vdlStsNoErr);
    ASSERT_EQ(O::merge(m1, v1, m2, v2, mean.data(), var.data(), this->len, &merged, T(2), T(5)),
              vdlStsNoErr);
    this->expectNear(loss, 0.5 * (7 * double(merged) - 2 * double(T(ld1)) - 5 * double(T(ld2))));
    EXPECT_GT(loss, 0);  // merging never gains likelihood

    ASSERT_EQ(O::dist(m1, v1, m1, v1, this->len, &loss, T(2), T(ld1), T(5), T(ld1)), vdlStsNoErr);
    this->expectNear(loss + 1, 1);
}

// Each refused call gives its status and writes nothing. It computes
// nothing either: no flag is raised, and with traps on it does not die.
TYPED_TEST(GaussianOps, RefusedCallsWriteNothingAndRaiseNoFlag)
{
    using T = TypeParam;
    using O = typename TestFixture::O;
    const int n = this->len;
    const T *m1 = this->mean1.data(), *v1 = this->var1.data();
    const T *m2 = this->mean2.data(), *v2 = this->var2.data();
    std::vector<T> zeroVar(this->var1), negVar(this->var1), nanVar(this->var1);
    zeroVar[4] = 0;
    negVar[4] = -1;
    nanVar[4] = T(NAN);
    const std::vector<T> untouched(n, T(7));
    std::vector<T> a(untouched), b(untouched);
    T out = 7;
    const T nan = T(NAN);
    const struct {
        const char* what;
        VdlStatus status;
        std::function<VdlStatus()> call;
    } cases[] = {
        {"accumulate: null", vdlStsNullPtrErr, [&] { return O::meanVarAcc(m1, nullptr, a.data(), b.data(), n, T(1)); }},
        {"accumulate: length 0", vdlStsSizeErr, [&] { return O::meanVarAcc(m1, v1, a.data(), b.data(), 0, T(1)); }},
        {"split: zero variance", vdlStsBadArgErr, [&] { return O::split(a.data(), zeroVar.data(), b.data(), b.data(), n, T(0.2)); }},
        {"split: negative variance", vdlStsBadArgErr, [&] { return O::split(a.data(), negVar.data(), b.data(), b.data(), n, T(0.2)); }},
        {"split: NaN variance", vdlStsBadArgErr, [&] { return O::split(a.data(), nanVar.data(), b.data(), b.data(), n, T(0.2)); }},
        {"merge: weights both 0", vdlStsBadArgErr, [&] { return O::merge(m1, v1, m2, v2, a.data(), b.data(), n, &out, T(0), T(0)); }},
        {"merge: negative weight", vdlStsBadArgErr, [&] { return O::merge(m1, v1, m2, v2, a.data(), b.data(), n, &out, T(-1), T(2)); }},
        {"merge: NaN weight", vdlStsBadArgErr, [&] { return O::merge(m1, v1, m2, v2, a.data(), b.data(), n, &out, nan, T(1)); }},
        {"merge: zero variance", vdlStsBadArgErr, [&] { return O::merge(m1, v1, m2, zeroVar.data(), a.data(), b.data(), n, &out, T(1), T(1)); }},
        {"merge: null", vdlStsNullPtrErr, [&] { return O::merge(m1, v1, m2, nullptr, a.data(), b.data(), n, &out, T(1), T(1)); }},
        {"dist: negative weight", vdlStsBadArgErr, [&] { return O::dist(m1, v1, m2, v2, n, &out, T(-1), T(0), T(2), T(0)); }},
        {"dist: length 0", vdlStsSizeErr, [&] { return O::dist(m1, v1, m2, v2, 0, &out, T(2), T(0), T(5), T(0)); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::feclearexcept(FE_ALL_EXCEPT);
        feenableexcept(FE_INVALID | FE_DIVBYZERO);
        const VdlStatus status = c.call();
        fedisableexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(status, c.status);
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
        EXPECT_EQ(a, untouched);
        EXPECT_EQ(b, untouched);
        EXPECT_EQ(out, T(7));
    }
}

TEST(BhatDist, AllFormsMatchTheClosedFormAndRefuseBadArguments)
{
    std::mt19937 rng(9);
    const int len = 17;
    const auto m1 = convert<float>(randomValues<float>(rng, len, -2, 2));
    const auto v1 = convert<float>(randomValues<float>(rng, len, 0.3, 3));
    const auto m2 = convert<float>(randomValues<float>(rng, len, -2, 2));
    const auto v2 = convert<float>(randomValues<float>(rng, len, 0.3, 3));
    double want = 0, ls1 = 0, ls2 = 0;
    for (int k = 0; k < len; ++k) {
        const double v = 0.5 * (double(v1[k]) + v2[k]);
        want += std::pow(double(m1[k]) - m2[k], 2) / (8 * v) +
                0.5 * std::log(v / std::sqrt(double(v1[k]) * v2[k]));
        ls1 += std::log(double(v1[k]));
        ls2 += std::log(double(v2[k]));
    }
    Vdl32f f = 0;
    Vdl64f d = 0;
    ASSERT_EQ(vdlsBhatDist_32f(m1.data(), v1.data(), m2.data(), v2.data(), len, &f), vdlStsNoErr);
    EXPECT_NEAR(f, want, 1e-5);
    ASSERT_EQ(vdlsBhatDist_32f64f(m1.data(), v1.data(), m2.data(), v2.data(), len, &d),
              vdlStsNoErr);
    EXPECT_NEAR(d, want, 1e-12);
    ASSERT_EQ(vdlsBhatDistSLog_32f(m1.data(), v1.data(), m2.data(), v2.data(), len, &f,
                                   float(ls1), float(ls2)),
              vdlStsNoErr);
    EXPECT_NEAR(f, want, 1e-5);
    ASSERT_EQ(vdlsBhatDistSLog_32f64f(m1.data(), v1.data(), m2.data(), v2.data(), len, &d,
                                      float(ls1), float(ls2)),
              vdlStsNoErr);
    EXPECT_NEAR(d, want, 1e-6);  // the sums of logs came in as floats
    ASSERT_EQ(vdlsBhatDist_32f64f(m1.data(), v1.data(), m1.data(), v1.data(), len, &d),
              vdlStsNoErr);
    EXPECT_NEAR(d, 0, 1e-12);

    // Refused: a zero variance, no length, no second mean; nothing written.
    auto bad = v1;
    bad[1] = 0;
    f = 3, d = 3;
    EXPECT_EQ(vdlsBhatDist_32f(m1.data(), v1.data(), m2.data(), bad.data(), len, &f), vdlStsBadArgErr);
    EXPECT_EQ(vdlsBhatDistSLog_32f64f(m1.data(), bad.data(), m2.data(), v2.data(), len, &d, 0, 0), vdlStsBadArgErr);
    EXPECT_EQ(vdlsBhatDist_32f(m1.data(), v1.data(), m2.data(), v2.data(), 0, &f), vdlStsSizeErr);
    EXPECT_EQ(vdlsBhatDist_32f64f(m1.data(), v1.data(), nullptr, v2.data(), len, &d), vdlStsNullPtrErr);
    EXPECT_EQ(f, 3);
    EXPECT_EQ(d, 3);
}

} // namespace
