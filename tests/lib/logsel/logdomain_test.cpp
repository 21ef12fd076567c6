// Log-add, log-sub and log-sum against long-double models, in float, double
// and both fixed-point types, each hint held to the error bound that the
// header states. Float pairs cover a wide range (equal, close, far apart,
// with -infinity); fixed-point ones a few scale factors.
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "logsel_reference.h"
#include "vdlsr.h"

using namespace logselref;

namespace {

const VdlHintAlgorithm hints[] = {vdlAlgHintNone, vdlAlgHintFast, vdlAlgHintAccurate};

// The entry points of each type with one signature: an element v of a
// fixed-point type stands for v * 2^-sf, float forms take no sf.
template <class T>
struct Forms;

template <>
struct Forms<Vdl32f> {
    static VdlStatus add(const Vdl32f* s, Vdl32f* d, int n, int, VdlHintAlgorithm h) { return vdlsLogAdd_32f(s, d, n, h); }
    static VdlStatus sub(const Vdl32f* s, Vdl32f* d, int n, int) { return vdlsLogSub_32f(s, d, n); }
    static VdlStatus sum(const Vdl32f* s, Vdl32f* d, int n, int, VdlHintAlgorithm h) { return vdlsLogSum_32f(s, d, n, h); }
    static std::vector<int> scaleFactors() { return {0}; }
};

template <>
struct Forms<Vdl64f> {
    static VdlStatus add(const Vdl64f* s, Vdl64f* d, int n, int, VdlHintAlgorithm h) { return vdlsLogAdd_64f(s, d, n, h); }
    static VdlStatus sub(const Vdl64f* s, Vdl64f* d, int n, int) { return vdlsLogSub_64f(s, d, n); }
    static VdlStatus sum(const Vdl64f* s, Vdl64f* d, int n, int, VdlHintAlgorithm h) { return vdlsLogSum_64f(s, d, n, h); }
    static std::vector<int> scaleFactors() { return {0}; }
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

template <class T>
class LogDomain : public ::testing::Test {
protected:
    static constexpr bool isFloat = std::is_floating_point<T>::value;

    // Float pairs: every gap from 0 to far beyond the table, both orders,
    // around values from -1000 to 50; and -infinity against a value.
    // Fixed-point pairs: -20 to -5 in the units of sf, two of them equal.
    static void pairs(int sf, std::vector<T>& a, std::vector<T>& b)
    {
        a.clear(), b.clear();
        std::mt19937 rng(31 + sf);
        if constexpr (isFloat) {
            std::uniform_real_distribution<double> base(-1000, 50), any(-60, 10);
            for (double gap : {0.0, 1e-7, 1e-3, 0.4, 0.7, 1.0, 3.0, 9.99, 15.9, 16.1, 30.0, 90.0, 200.0, 800.0}) {
                const double v = base(rng);
                a.insert(a.end(), {T(v), T(v - gap)});
                b.insert(b.end(), {T(v - gap), T(v)});
            }
            for (int i = 0; i < 25; ++i)
                a.push_back(T(any(rng))), b.push_back(T(any(rng)));
            a.insert(a.end(), {-std::numeric_limits<T>::infinity(), T(2.25)});
            b.insert(b.end(), {T(-3.5), -std::numeric_limits<T>::infinity()});
        } else {
            const double unit = std::ldexp(1.0, sf), least = std::numeric_limits<T>::min();
            const double lo = std::max(-20 * unit, least), hi = std::max(-5 * unit, least + 100);
            a = convert<T>(randomValues<T>(rng, 19, lo, hi));
            b = convert<T>(randomValues<T>(rng, 19, lo, hi));
            b[3] = a[3];
            b[11] = a[11];
        }
    }
    // The value of an element, and the element of an exact value.
    static double value(T v, int sf) { return v * std::ldexp(1.0, -sf); }
    static double inUnits(double x, int sf) { return x * std::ldexp(1.0, sf); }
    static T logZero() { return isFloat ? -std::numeric_limits<T>::infinity() : std::numeric_limits<T>::min(); }

    // The bound of `adds` log-adds of result r (n - 1 for a sum of n): floats
    // 4 ulps of max(|r|, 1) exact, the table's 1e-5 and two roundings a step
    // fast; fixed point the rounding, and the table's 1e-5 a step fast.
    static double bound(VdlHintAlgorithm hint, double r, int adds, int sf, bool sum)
    {
        const bool fast = hint == vdlAlgHintFast;
        if constexpr (isFloat) {
            const double unit = std::numeric_limits<T>::epsilon() * std::max(std::fabs(r), 1.0);
            return fast ? adds * (1e-5 + 2 * unit) + (sum ? unit : 0) : 4 * unit;
        }
        return 0.5 + 1e-9 + (fast ? adds * 1e-5 * std::ldexp(1.0, sf) : 0);
    }
};

using Types = ::testing::Types<Vdl32f, Vdl64f, Vdl16s, Vdl32s>;
TYPED_TEST_SUITE(LogDomain, Types);

TYPED_TEST(LogDomain, AddIsWithinTheBoundOfEachHint)
{
    using T = TypeParam;
    for (int sf : Forms<T>::scaleFactors()) {
        std::vector<T> a, b;
        this->pairs(sf, a, b);
        for (VdlHintAlgorithm hint : hints) {
            std::vector<T> dst = b;
            ASSERT_EQ(Forms<T>::add(a.data(), dst.data(), static_cast<int>(a.size()), sf, hint), vdlStsNoErr);
            for (size_t i = 0; i < a.size(); ++i) {
                const double want = this->inUnits(logAdd(this->value(a[i], sf), this->value(b[i], sf)), sf);
                EXPECT_NEAR(dst[i], want, this->bound(hint, want, 1, sf, false))
                    << "sf " << sf << ", hint " << hint << ", " << a[i] << " and " << b[i];
            }
        }
        // One element: the one after it stays.
        std::vector<T> one = {b[0], T(7)};
        ASSERT_EQ(Forms<T>::add(a.data(), one.data(), 1, sf, vdlAlgHintAccurate), vdlStsNoErr);
        const double want = this->inUnits(logAdd(this->value(a[0], sf), this->value(b[0], sf)), sf);
        EXPECT_NEAR(one[0], want, this->bound(vdlAlgHintAccurate, want, 1, sf, false));
        EXPECT_EQ(one[1], T(7));
    }
}

// Equal pairs give the log of zero; a pair in the wrong order too, with a
// warning, while the others are computed.
TYPED_TEST(LogDomain, SubIsWithinItsBoundAndFloorsLogZero)
{
    using T = TypeParam;
    for (int sf : Forms<T>::scaleFactors()) {
        std::vector<T> a, b;
        this->pairs(sf, a, b);
        for (size_t i = 0; i < a.size(); ++i)
            if (a[i] < b[i])
                std::swap(a[i], b[i]);
        std::vector<T> dst = b;
        ASSERT_EQ(Forms<T>::sub(a.data(), dst.data(), static_cast<int>(a.size()), sf), vdlStsNoErr);
        for (size_t i = 0; i < a.size(); ++i) {
            if (a[i] == b[i]) {
                EXPECT_EQ(dst[i], this->logZero()) << a[i] << " less itself";
            } else if (this->isFloat && a[i] - b[i] > 1e-6) {
                const double want = logSub(a[i], b[i]);
                EXPECT_NEAR(dst[i], want, 4 * std::numeric_limits<T>::epsilon() * std::max(std::fabs(want), 1.0))
                    << a[i] << " less " << b[i];
            } else if (!this->isFloat) {
                const double want = roundSaturate<T>(this->inUnits(logSub(this->value(a[i], sf), this->value(b[i], sf)), sf));
                EXPECT_NEAR(dst[i], want, 1.0) << "sf " << sf << ", " << a[i] << " less " << b[i];
            }
        }
        const T src[3] = {T(-5), T(-7), T(-7)};
        T wrongOrder[3] = {T(-8), T(-6), T(-7)};
        EXPECT_EQ(Forms<T>::sub(src, wrongOrder, 3, sf), vdlStsLogNegArgWrn);
        EXPECT_EQ(wrongOrder[1], this->logZero());
        EXPECT_EQ(wrongOrder[2], this->logZero());
        const double want = this->inUnits(logSub(this->value(src[0], sf), this->value(T(-8), sf)), sf);
        EXPECT_NEAR(wrongOrder[0], this->isFloat ? want : roundSaturate<T>(want),
                    this->isFloat ? 4 * std::numeric_limits<T>::epsilon() * std::fabs(want) : 1.0);
    }
}

TYPED_TEST(LogDomain, SumIsWithinTheBoundOfEachHint)
{
    using T = TypeParam;
    std::mt19937 rng(23);
    for (int sf : Forms<T>::scaleFactors())
        for (int len : {1, 2, 9, 17, 33})
            for (double spread : {3.0, 60.0, 2000.0}) {
                // Values from -spread to 5 that T holds at sf.
                const double unit = std::ldexp(1.0, sf), least = std::numeric_limits<T>::lowest() / 4;
                const std::vector<T> x =
                    convert<T>(randomValues<T>(rng, len, std::max(-spread * unit, least), 5 * unit));
                std::vector<double> values;
                for (T v : x)
                    values.push_back(this->value(v, sf));
                const double want = this->inUnits(logSum(values), sf);
                for (VdlHintAlgorithm hint : hints) {
                    T got = 0;
                    ASSERT_EQ(Forms<T>::sum(x.data(), &got, len, sf, hint), vdlStsNoErr);
                    EXPECT_NEAR(got, want, this->bound(hint, want, len - 1, sf, true))
                        << "sf " << sf << ", len " << len << ", spread " << spread << ", hint " << hint;
                }
            }
}

} // namespace
