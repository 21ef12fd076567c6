// Operations on Gaussians (accumulate, split, merge, merge loss,
// Bhattacharyya distance) against double models, in float and double.
#include <fenv.h>

#include <cmath>
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

// Two Gaussians of `len` elements with positive variances.
template <class T>
class GaussianOps : public ::testing::Test {
protected:
    static constexpr int len = 9;

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
        EXPECT_NEAR(got, want, Ops<T>::tolerance * (1 + std::fabs(want)));
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
    std::vector<T> meanAcc(this->mean2), varAcc(this->var2);
    ASSERT_EQ(Ops<T>::meanVarAcc(this->mean1.data(), this->var1.data(), meanAcc.data(),
                                 varAcc.data(), this->len, T(0.75)),
              vdlStsNoErr);
    for (int k = 0; k < this->len; ++k) {
        const double d = double(this->mean1[k]) - this->var1[k];
        this->expectNear(meanAcc[k], this->mean2[k] + 0.75 * this->mean1[k]);
        this->expectNear(varAcc[k], this->var2[k] + 0.75 * d * d);
    }
    const std::vector<T> before = meanAcc;
    EXPECT_EQ(Ops<T>::meanVarAcc(this->mean1.data(), nullptr, meanAcc.data(), varAcc.data(),
                                 this->len, T(1)),
              vdlStsNullPtrErr);
    EXPECT_EQ(Ops<T>::meanVarAcc(this->mean1.data(), this->var1.data(), meanAcc.data(),
                                 varAcc.data(), 0, T(1)),
              vdlStsSizeErr);
    EXPECT_EQ(meanAcc, before);
}

TYPED_TEST(GaussianOps, SplitMovesMeansApartByDeviations)
{
    using T = TypeParam;
    std::vector<T> mean1(this->mean1), mean2(this->len), var2(this->len);
    ASSERT_EQ(Ops<T>::split(mean1.data(), this->var1.data(), mean2.data(), var2.data(), this->len,
                            T(0.2)),
              vdlStsNoErr);
    for (int k = 0; k < this->len; ++k) {
        const double shift = 0.2 * std::sqrt(double(this->var1[k]));
        this->expectNear(mean1[k], this->mean1[k] + shift);
        this->expectNear(mean2[k], this->mean1[k] - shift);
        EXPECT_EQ(var2[k], this->var1[k]);
    }
    const std::vector<T> before = mean1;
    for (T bad : {T(-1), T(0), T(NAN)}) {
        std::vector<T> var1(this->var1);
        var1[4] = bad;
        EXPECT_EQ(Ops<T>::split(mean1.data(), var1.data(), mean2.data(), var2.data(), this->len,
                                T(0.2)),
                  vdlStsBadArgErr) << bad;
        EXPECT_EQ(mean1, before);
    }
}

TYPED_TEST(GaussianOps, MergeGivesMomentsOfTheWeightedPairEvenInPlace)
{
    using T = TypeParam;
    std::vector<T> mean(this->len), var(this->len);
    T logDet = 0;
    ASSERT_EQ(Ops<T>::merge(this->mean1.data(), this->var1.data(), this->mean2.data(),
                            this->var2.data(), mean.data(), var.data(), this->len, &logDet, T(3),
                            T(1)),
              vdlStsNoErr);
    double wantLogDet = 0;
    for (int k = 0; k < this->len; ++k) {
        const double m = 0.75 * this->mean1[k] + 0.25 * this->mean2[k];
        // Second moment of the mixture about its mean.
        const double v = 0.75 * (this->var1[k] + std::pow(this->mean1[k] - m, 2)) +
                         0.25 * (this->var2[k] + std::pow(this->mean2[k] - m, 2));
        this->expectNear(mean[k], m);
        this->expectNear(var[k], v);
        wantLogDet += std::log(v);
    }
    this->expectNear(logDet, wantLogDet);

    std::vector<T> mean1(this->mean1), var1(this->var1);
    ASSERT_EQ(Ops<T>::merge(mean1.data(), var1.data(), this->mean2.data(), this->var2.data(),
                            mean1.data(), var1.data(), this->len, &logDet, T(3), T(1)),
              vdlStsNoErr);
    EXPECT_EQ(mean1, mean);
    EXPECT_EQ(var1, var);
}

TYPED_TEST(GaussianOps, MergeRefusesBadWeightsAndVariances)
{
    using T = TypeParam;
    std::vector<T> mean(this->len, T(7)), var(this->len, T(7));
    T logDet = 7;
    auto merge = [&](const T* var2, T w1, T w2) {
        return Ops<T>::merge(this->mean1.data(), this->var1.data(), this->mean2.data(), var2,
                             mean.data(), var.data(), this->len, &logDet, w1, w2);
    };
    EXPECT_EQ(merge(this->var2.data(), T(0), T(0)), vdlStsBadArgErr);
    EXPECT_EQ(merge(this->var2.data(), T(-1), T(2)), vdlStsBadArgErr);
    std::vector<T> zeroVar(this->var2);
    zeroVar[0] = 0;
    EXPECT_EQ(merge(zeroVar.data(), T(1), T(1)), vdlStsBadArgErr);
    EXPECT_EQ(merge(nullptr, T(1), T(1)), vdlStsNullPtrErr);
    EXPECT_EQ(mean, std::vector<T>(this->len, T(7)));
    EXPECT_EQ(logDet, 7);
}

// A refused call computes nothing: no flag is raised, and with traps on it
// does not die of one.
TYPED_TEST(GaussianOps, RefusedCallsLeaveTheFloatingPointFlags)
{
    using T = TypeParam;
    std::vector<T> mean(this->len), var(this->len);
    T out = 0;
    const T m1 = this->mean1[0], nan = T(NAN);
    std::feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_INVALID | FE_DIVBYZERO);
    const VdlStatus refused[] = {
        Ops<T>::merge(&m1, this->var1.data(), &m1, this->var2.data(), mean.data(), var.data(), 1,
                      &out, T(0), T(0)),
        Ops<T>::merge(&m1, this->var1.data(), &m1, this->var2.data(), mean.data(), var.data(), 1,
                      &out, nan, T(1)),
        Ops<T>::dist(&m1, this->var1.data(), &m1, this->var2.data(), 1, &out, T(-1), T(0), T(2),
                     T(0)),
    };
    fedisableexcept(FE_ALL_EXCEPT);
    for (VdlStatus s : refused)
        EXPECT_EQ(s, vdlStsBadArgErr);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TYPED_TEST(GaussianOps, DistIsTheLikelihoodAMergeLoses)
{
    using T = TypeParam;
    const double ld1 = this->logDet(this->var1), ld2 = this->logDet(this->var2);
    T loss = 0;
    ASSERT_EQ(Ops<T>::dist(this->mean1.data(), this->var1.data(), this->mean2.data(),
                           this->var2.data(), this->len, &loss, T(2), T(ld1), T(5), T(ld2)),
              vdlStsNoErr);
    std::vector<T> mean(this->len), var(this->len);
    T merged = 0;
    ASSERT_EQ(Ops<T>::merge(this->mean1.data(), this->var1.data(), this->mean2.data(),
                            this->var2.data(), mean.data(), var.data(), this->len, &merged, T(2),
                            T(5)),
              vdlStsNoErr);
    this->expectNear(loss, 0.5 * (7 * double(merged) - 2 * double(T(ld1)) - 5 * double(T(ld2))));
    EXPECT_GT(loss, 0);  // merging never gains likelihood

    ASSERT_EQ(Ops<T>::dist(this->mean1.data(), this->var1.data(), this->mean1.data(),
                           this->var1.data(), this->len, &loss, T(2), T(ld1), T(5), T(ld1)),
              vdlStsNoErr);
    this->expectNear(loss + 1, 1);
    EXPECT_EQ(Ops<T>::dist(this->mean1.data(), this->var1.data(), this->mean2.data(),
                           this->var2.data(), 0, &loss, T(2), T(ld1), T(5), T(ld2)),
              vdlStsSizeErr);
}

double bhattacharyya(const std::vector<float>& m1, const std::vector<float>& v1,
                     const std::vector<float>& m2, const std::vector<float>& v2)
{
    double d = 0;
    for (size_t k = 0; k < m1.size(); ++k) {
        const double v = 0.5 * (double(v1[k]) + v2[k]);
        d += std::pow(double(m1[k]) - m2[k], 2) / (8 * v) +
             0.5 * std::log(v / std::sqrt(double(v1[k]) * v2[k]));
    }
    return d;
}

TEST(BhatDist, AllFormsMatchTheClosedForm)
{
    std::mt19937 rng(9);
    const int len = 6;
    const auto m1 = convert<float>(randomValues<float>(rng, len, -2, 2));
    const auto v1 = convert<float>(randomValues<float>(rng, len, 0.3, 3));
    const auto m2 = convert<float>(randomValues<float>(rng, len, -2, 2));
    const auto v2 = convert<float>(randomValues<float>(rng, len, 0.3, 3));
    double ls1 = 0, ls2 = 0;
    for (int k = 0; k < len; ++k) {
        ls1 += std::log(double(v1[k]));
        ls2 += std::log(double(v2[k]));
    }
    const double want = bhattacharyya(m1, v1, m2, v2);
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
}

TEST(BhatDist, RefusesBadArgumentsWithoutWriting)
{
    const float m[3] = {0, 1, 2}, v[3] = {1, 1, 1}, bad[3] = {1, 0, 1};
    Vdl32f f = 3;
    Vdl64f d = 3;
    EXPECT_EQ(vdlsBhatDist_32f(m, v, m, bad, 3, &f), vdlStsBadArgErr);
    EXPECT_EQ(vdlsBhatDistSLog_32f64f(m, bad, m, v, 3, &d, 0, 0), vdlStsBadArgErr);
    EXPECT_EQ(vdlsBhatDist_32f(m, v, m, v, 0, &f), vdlStsSizeErr);
    EXPECT_EQ(vdlsBhatDist_32f64f(m, v, nullptr, v, 3, &d), vdlStsNullPtrErr);
    EXPECT_EQ(f, 3);
    EXPECT_EQ(d, 3);
}

} // namespace
