// Log-add, log-sub and log-sum against long-double models over a wide range
// of pairs (equal, close, far apart, with -infinity), each hint held to the
// error bound that the header states.
#include <cfloat>
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "logsel_reference.h"
#include "vdlsr.h"

using namespace logselref;

namespace {

const VdlHintAlgorithm hints[] = {vdlAlgHintNone, vdlAlgHintFast, vdlAlgHintAccurate};

// Pairs of log values: every gap from 0 to far beyond the table, both
// orders, around values from -1000 to 50; and -infinity against a value.
std::vector<std::pair<double, double>> wideRangePairs()
{
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> base(-1000, 50);
    const double gaps[] = {0, 1e-7, 1e-3, 0.4, 0.7, 1, 3, 9.99, 15.9, 16.1, 30, 90, 200, 800};
    std::vector<std::pair<double, double>> pairs;
    for (double gap : gaps) {
        const double a = base(rng);
        pairs.push_back({a, a - gap});
        pairs.push_back({a - gap, a});
    }
    std::uniform_real_distribution<double> any(-60, 10);
    for (int i = 0; i < 25; ++i)
        pairs.push_back({any(rng), any(rng)});
    pairs.push_back({-INFINITY, -3.5});
    pairs.push_back({2.25, -INFINITY});
    return pairs;
}

// The entry points of each type; fixed-point elements v stand for
// v * 2^-scaleFactor.
template <class T>
struct Forms;

template <>
struct Forms<Vdl32f> {
    static constexpr auto add = vdlsLogAdd_32f;
    static constexpr auto sub = vdlsLogSub_32f;
    static constexpr auto sum = vdlsLogSum_32f;
    static constexpr double eps = FLT_EPSILON;
};

template <>
struct Forms<Vdl64f> {
    static constexpr auto add = vdlsLogAdd_64f;
    static constexpr auto sub = vdlsLogSub_64f;
    static constexpr auto sum = vdlsLogSum_64f;
    static constexpr double eps = DBL_EPSILON;
};

template <>
struct Forms<Vdl16s> {
    static constexpr auto add = vdlsLogAdd_16s_Sfs;
    static constexpr auto sub = vdlsLogSub_16s_Sfs;
    static constexpr auto sum = vdlsLogSum_16s_Sfs;
    static std::vector<int> scaleFactors() { return {-1, 0, 3, 8, 10}; }
};

template <>
struct Forms<Vdl32s> {
    static constexpr auto add = vdlsLogAdd_32s_Sfs;
    static constexpr auto sub = vdlsLogSub_32s_Sfs;
    static constexpr auto sum = vdlsLogSum_32s_Sfs;
    static std::vector<int> scaleFactors() { return {-1, 0, 8, 16, 24}; }
};

// The bound of one log-add: 4 ulps of max(|r|, 1) exact, the table's 1e-5
// and a rounding of the result fast.
template <class T>
double addBound(VdlHintAlgorithm hint, double r)
{
    const double unit = Forms<T>::eps * std::max(std::fabs(r), 1.0);
    return hint == vdlAlgHintFast ? 1e-5 + 2 * unit : 4 * unit;
}

template <class T>
class FloatLogDomain : public ::testing::Test {};

using FloatTypes = ::testing::Types<Vdl32f, Vdl64f>;
TYPED_TEST_SUITE(FloatLogDomain, FloatTypes);

TYPED_TEST(FloatLogDomain, AddIsWithinTheBoundOfEachHintAtAnyLength)
{
    using T = TypeParam;
    const auto pairs = wideRangePairs();
    std::vector<T> a, b;
    for (const auto& p : pairs) {
        a.push_back(static_cast<T>(p.first));
        b.push_back(static_cast<T>(p.second));
    }
    for (VdlHintAlgorithm hint : hints) {
        std::vector<T> dst = b;
        ASSERT_EQ(Forms<T>::add(a.data(), dst.data(), static_cast<int>(a.size()), hint),
                  vdlStsNoErr);
        for (size_t i = 0; i < a.size(); ++i) {
            const double want = logAdd(a[i], b[i]);
            EXPECT_NEAR(dst[i], want, addBound<T>(hint, want))
                << "hint " << hint << ", " << a[i] << " and " << b[i];
        }
    }
    // One element: the one after it stays.
    T one[2] = {T(-2), T(7)};
    ASSERT_EQ(Forms<T>::add(a.data(), one, 1, vdlAlgHintAccurate), vdlStsNoErr);
    EXPECT_NEAR(one[0], logAdd(a[0], -2), addBound<T>(vdlAlgHintAccurate, one[0]));
    EXPECT_EQ(one[1], T(7));
}

TYPED_TEST(FloatLogDomain, SubIsExactAndFloorsPairsWithoutALog)
{
    using T = TypeParam;
    std::vector<T> a, b;
    for (const auto& p : wideRangePairs()) {
        if (p.first > p.second && p.first - p.second > 1e-6) {
            a.push_back(static_cast<T>(p.first));
            b.push_back(static_cast<T>(p.second));
        }
    }
    std::vector<T> dst = b;
    ASSERT_EQ(Forms<T>::sub(a.data(), dst.data(), static_cast<int>(a.size())), vdlStsNoErr);
    for (size_t i = 0; i < a.size(); ++i) {
        const double want = logSub(a[i], b[i]);
        EXPECT_NEAR(dst[i], want, 4 * Forms<T>::eps * std::max(std::fabs(want), 1.0))
            << a[i] << " less " << b[i];
    }

    const T src[3] = {T(15), T(2), T(1)};
    T pair[3] = {T(-INFINITY), T(2), T(1)};
    ASSERT_EQ(Forms<T>::sub(src, pair, 3), vdlStsNoErr);
    EXPECT_EQ(pair[0], T(15));
    EXPECT_EQ(pair[1], -std::numeric_limits<T>::infinity());
    T wrongOrder[3] = {T(14), T(5), T(1)};
    EXPECT_EQ(Forms<T>::sub(src, wrongOrder, 3), vdlStsLogNegArgWrn);
    EXPECT_EQ(wrongOrder[1], -std::numeric_limits<T>::infinity());
    EXPECT_NEAR(wrongOrder[0], logSub(15, 14), 4 * Forms<T>::eps * 15);
}

TYPED_TEST(FloatLogDomain, SumIsWithinTheBoundOfEachHint)
{
    using T = TypeParam;
    std::mt19937 rng(23);
    for (int len : {1, 2, 9, 17, 33}) {
        for (double spread : {3.0, 60.0, 2000.0}) {
            const std::vector<double> values = randomValues<T>(rng, len, -spread, 5);
            const std::vector<T> x = convert<T>(values);
            const double want = logSum(values);
            for (VdlHintAlgorithm hint : hints) {
                T got = 0;
                ASSERT_EQ(Forms<T>::sum(x.data(), &got, len, hint), vdlStsNoErr);
                const double unit = Forms<T>::eps * std::max(std::fabs(want), 1.0);
                const double bound =
                    hint == vdlAlgHintFast ? (len - 1) * (1e-5 + 2 * unit) + unit : 4 * unit;
                EXPECT_NEAR(got, want, bound) << "len " << len << ", spread " << spread
                                              << ", hint " << hint;
            }
        }
    }
}

template <class T>
class FixedLogDomain : public ::testing::Test {
protected:
    // Elements of -20 to -5 in the units of sf, and a few equal pairs.
    static void makePairs(int sf, std::vector<T>& a, std::vector<T>& b)
    {
        std::mt19937 rng(31 + sf);
        const double unit = std::ldexp(1.0, sf);
        const double least = std::numeric_limits<T>::min();
        const double lo = std::max(-20 * unit, least), hi = std::max(-5 * unit, least + 100);
        a = convert<T>(randomValues<T>(rng, 19, lo, hi));
        b = convert<T>(randomValues<T>(rng, 19, lo, hi));
        b[3] = a[3];
        b[11] = a[11];
    }
};

using FixedTypes = ::testing::Types<Vdl16s, Vdl32s>;
TYPED_TEST_SUITE(FixedLogDomain, FixedTypes);

TYPED_TEST(FixedLogDomain, AddRoundsTheValueInItsUnits)
{
    using T = TypeParam;
    for (int sf : Forms<T>::scaleFactors()) {
        std::vector<T> a, b;
        this->makePairs(sf, a, b);
        const double toValue = std::ldexp(1.0, -sf);
        for (VdlHintAlgorithm hint : hints) {
            std::vector<T> dst = b;
            ASSERT_EQ(Forms<T>::add(a.data(), dst.data(), static_cast<int>(a.size()), sf,
                                         hint),
                      vdlStsNoErr);
            for (size_t i = 0; i < a.size(); ++i) {
                const double want = logAdd(a[i] * toValue, b[i] * toValue) / toValue;
                const double slack = 0.5 + 1e-9 + (hint == vdlAlgHintFast ? 1e-5 / toValue : 0);
                EXPECT_NEAR(dst[i], want, slack) << "sf " << sf << ", hint " << hint;
            }
        }
    }
}

TYPED_TEST(FixedLogDomain, SubRoundsAndSaturatesLogZero)
{
    using T = TypeParam;
    for (int sf : Forms<T>::scaleFactors()) {
        std::vector<T> a, b;
        this->makePairs(sf, a, b);
        for (size_t i = 0; i < a.size(); ++i)
            if (a[i] < b[i])
                std::swap(a[i], b[i]);
        std::vector<T> dst = b;
        ASSERT_EQ(Forms<T>::sub(a.data(), dst.data(), static_cast<int>(a.size()), sf),
                  vdlStsNoErr);
        const double toValue = std::ldexp(1.0, -sf);
        for (size_t i = 0; i < a.size(); ++i) {
            if (a[i] == b[i]) {
                EXPECT_EQ(dst[i], std::numeric_limits<T>::min()) << "log 0 saturates";
                continue;
            }
            const double want = roundSaturate<T>(
                logSub(a[i] * toValue, b[i] * toValue) / toValue);
            EXPECT_NEAR(dst[i], want, 1.0) << "sf " << sf;
        }
        std::vector<T> wrongOrder = a;
        wrongOrder[0] = static_cast<T>(a[0] + 1);
        EXPECT_EQ(Forms<T>::sub(a.data(), wrongOrder.data(), 1, sf), vdlStsLogNegArgWrn);
        EXPECT_EQ(wrongOrder[0], std::numeric_limits<T>::min());
    }
}

TYPED_TEST(FixedLogDomain, SumRoundsTheValueInItsUnits)
{
    using T = TypeParam;
    for (int sf : Forms<T>::scaleFactors()) {
        std::vector<T> a, b;
        this->makePairs(sf, a, b);
        const double toValue = std::ldexp(1.0, -sf);
        for (int len : {1, 5, 19}) {
            std::vector<double> values;
            for (int i = 0; i < len; ++i)
                values.push_back(a[i] * toValue);
            const double want = logSum(values) / toValue;
            for (VdlHintAlgorithm hint : hints) {
                T got = 0;
                ASSERT_EQ(Forms<T>::sum(a.data(), &got, len, sf, hint), vdlStsNoErr);
                const double slack =
                    0.5 + 1e-9 + (hint == vdlAlgHintFast ? (len - 1) * 1e-5 / toValue : 0);
                EXPECT_NEAR(got, want, slack) << "sf " << sf << ", len " << len;
            }
        }
    }
}

} // namespace
