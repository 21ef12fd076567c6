// Cross-correlation against the direct formula, the noise-reduction loops
// and the filter-gain updates against their formulas in double, and every
// function's bad arguments in one table.
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "align_reference.h"
#include "refused_calls.h"
#include "vdlsr.h"

using namespace alignref;

namespace {

// Lengths 1, odd, one past a vector width, and longer.
const int lengths[] = {1, 2, 7, 9, 17, 63};

std::vector<Vdl16s> randomSignal(std::mt19937& rng, int n)
{
    return convert<Vdl16s>(randomValues<Vdl16s>(rng, n, -32768, 32767));
}

TEST(CrossCorr, WholeAndPartialCoefficientsMatchTheFormula)
{
    std::mt19937 rng(21);
    for (int n : lengths) {
        const auto x = randomSignal(rng, n), y = randomSignal(rng, n);
        const auto dx = asDouble(x), dy = asDouble(y);
        Vdl32f r = 9;
        ASSERT_EQ(vdlsCrossCorrCoeff_16s32f(x.data(), y.data(), n, &r), vdlStsNoErr);
        EXPECT_NEAR(r, correlation(dx.data(), dy.data(), n), 1e-6) << n;
        double xx = 0, xy = 0, yy = 0;
        for (int k = 0; k < n; ++k) {
            xx += dx[k] * dx[k];
            xy += dx[k] * dy[k];
            yy += dy[k] * dy[k];
        }
        ASSERT_EQ(vdlsCrossCorrCoeffPartial_16s32f(x.data(), y.data(), n, static_cast<Vdl32f>(xx), &r),
                  vdlStsNoErr);
        EXPECT_NEAR(r, xy / std::sqrt(static_cast<Vdl32f>(xx) * yy), 1e-6) << n;
    }
    // Against silence there is no energy to divide by: the coefficient is 0.
    const std::vector<Vdl16s> x = {3, -7, 100, 5}, zero(4, 0);
    Vdl32f r = 9;
    ASSERT_EQ(vdlsCrossCorrCoeff_16s32f(x.data(), zero.data(), 4, &r), vdlStsNoErr);
    EXPECT_EQ(r, 0);
}

TEST(CrossCorr, InterpolationFindsThePeakBetweenLags)
{
    std::mt19937 rng(22);
    for (int n : {2, 3, 9, 40}) {
        const auto x = randomSignal(rng, n), y = randomSignal(rng, n);
        const auto dx = asDouble(x), dy = asDouble(y);
        const double c[3] = {correlation(dx.data() + 1, dy.data(), n - 1),
                             correlation(dx.data(), dy.data(), n),
                             correlation(dx.data(), dy.data() + 1, n - 1)};
        const double a = 0.5 * (c[0] + c[2]) - c[1], b = 0.5 * (c[2] - c[0]);
        double beta = 0, peak = c[1];
        if (a < 0) {
            beta = std::max(-1.0, std::min(1.0, -b / (2 * a)));
            peak = c[1] + b * beta + a * beta * beta;
        }
        Vdl32f gotBeta = 9, gotPeak = 9;
        ASSERT_EQ(vdlsCrossCorrCoeffInterpolation_16s32f(x.data(), y.data(), n, &gotBeta, &gotPeak),
                  vdlStsNoErr);
        EXPECT_NEAR(gotBeta, beta, 1e-5) << n;
        EXPECT_NEAR(gotPeak, peak, 1e-5) << n;
    }
    // A smooth pulse delayed by a third of a sample peaks near that lag.
    std::vector<Vdl16s> x(64), y(64);
    for (int k = 0; k < 64; ++k) {
        x[k] = static_cast<Vdl16s>(std::lround(10000 * std::exp(-0.01 * (k - 30) * (k - 30))));
        y[k] = static_cast<Vdl16s>(std::lround(10000 * std::exp(-0.01 * (k - 30.33) * (k - 30.33))));
    }
    Vdl32f beta, peak;
    ASSERT_EQ(vdlsCrossCorrCoeffInterpolation_16s32f(x.data(), y.data(), 64, &beta, &peak), vdlStsNoErr);
    EXPECT_NEAR(beta, 0.33, 0.05);
    EXPECT_GT(peak, 0.99);
}

TEST(CrossCorr, DecimatedSearchCoversTheLagsAndNamesTheBest)
{
    std::mt19937 rng(23);
    for (int dec : {1, 2, 3, 8}) {
        const int minLen = 9, maxLen = 30;
        auto x = randomSignal(rng, maxLen), y = randomSignal(rng, maxLen);
        // pSrc2 holds the window at lag 21: the best whenever 21 is searched.
        for (int k = 0; k < minLen; ++k)
            y[21 - minLen + k] = x[k];
        const int count = (maxLen - minLen) / dec + 1;
        std::vector<Vdl32f> dst(count + 2, 7);
        ASSERT_EQ(vdlsCrossCorrCoeffDecim_16s32f(x.data(), y.data(), maxLen, minLen, dst.data(), dec),
                  vdlStsNoErr);
        const auto dx = asDouble(x), dy = asDouble(y);
        int best = minLen;
        double bestValue = -2;
        for (int k = 0; k < count; ++k) {
            const int lag = minLen + k * dec;
            const double c = correlation(dx.data(), dy.data() + lag - minLen, minLen);
            EXPECT_NEAR(dst[k], c, 1e-6) << "dec " << dec << " lag " << lag;
            if (c > bestValue) {
                bestValue = c;
                best = lag;
            }
        }
        EXPECT_EQ(dst[count], best);
        EXPECT_EQ(dst[count + 1], 7) << "written past the best lag";
        if ((21 - minLen) % dec == 0) {
            EXPECT_EQ(dst[count], 21);
        }
    }
}

TEST(AuroraNoise, WienerDesignMatchesTheDecisionDirectedGain)
{
    std::mt19937 rng(24);
    for (int n : lengths) {
        std::vector<double> src = randomValues<Vdl32f>(rng, n, -1, 40), den = randomValues<Vdl32f>(rng, n, -1, 40),
                            noise = randomValues<Vdl32f>(rng, n, -0.5, 5);
        std::vector<Vdl32f> gain(n + 1, 7);
        ASSERT_EQ(vdlsWienerFilterDesign_Aurora_32f(convert<Vdl32f>(src).data(), convert<Vdl32f>(noise).data(),
                                                    convert<Vdl32f>(den).data(), gain.data(), n),
                  vdlStsNoErr);
        for (int k = 0; k < n; ++k)
            EXPECT_NEAR(gain[k], wienerGain(src[k], noise[k], den[k]), 1e-6) << k;
        EXPECT_EQ(gain[n], 7);

        const auto s16 = randomValues<Vdl16s>(rng, n, -100, 3000), d16 = randomValues<Vdl16s>(rng, n, -100, 3000),
                   n16 = randomValues<Vdl16s>(rng, n, -10, 300);
        std::vector<Vdl16s> q15(n);
        ASSERT_EQ(vdlsWienerFilterDesign_Aurora_16s(convert<Vdl16s>(s16).data(), convert<Vdl16s>(n16).data(),
                                                    convert<Vdl16s>(d16).data(), q15.data(), n),
                  vdlStsNoErr);
        for (int k = 0; k < n; ++k)
            EXPECT_EQ(q15[k], roundSaturate<Vdl16s>(32768 * wienerGain(s16[k], n16[k], d16[k]))) << k;
    }
}

TEST(AuroraNoise, NoiseUpdateSmoothsTowardTheFrame)
{
    std::mt19937 rng(25);
    for (int n : lengths) {
        const auto src = randomValues<Vdl32f>(rng, n, -50, 50), noise = randomValues<Vdl32f>(rng, n, 0, 5);
        std::vector<Vdl32f> out(n);
        ASSERT_EQ(vdlsNoiseSpectrumUpdate_Aurora_32f(convert<Vdl32f>(src).data(), convert<Vdl32f>(noise).data(),
                                                     out.data(), n),
                  vdlStsNoErr);
        for (int k = 0; k < n; ++k)
            EXPECT_NEAR(out[k], noiseUpdate(src[k], noise[k]), 1e-5) << k;
        for (int sf : {-1, 0, 2}) {
            const auto s16 = randomValues<Vdl16s>(rng, n, -32768, 32767), n16 = randomValues<Vdl16s>(rng, n, -32768, 32767);
            std::vector<Vdl16s> o16(n);
            ASSERT_EQ(vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs(convert<Vdl16s>(s16).data(), convert<Vdl16s>(n16).data(),
                                                             o16.data(), n, sf),
                      vdlStsNoErr);
            const auto s32 = randomValues<Vdl32s>(rng, n, -2e9, 2e9), n32 = randomValues<Vdl32s>(rng, n, -2e9, 2e9);
            std::vector<Vdl32s> o32(n);
            ASSERT_EQ(vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs(convert<Vdl32s>(s32).data(), convert<Vdl32s>(n32).data(),
                                                             o32.data(), n, sf),
                      vdlStsNoErr);
            for (int k = 0; k < n; ++k) {
                EXPECT_EQ(o16[k], roundSaturate<Vdl16s>(noiseUpdate(s16[k], n16[k]) * std::ldexp(1.0, -sf)));
                EXPECT_EQ(o32[k], roundSaturate<Vdl32s>(noiseUpdate(s32[k], n32[k]) * std::ldexp(1.0, -sf)));
            }
        }
    }
}

TEST(FilterUpdate, GainsMatchTheirFormulasInQ30)
{
    std::mt19937 rng(26);
    const double q22 = 4194304.0, q30 = 1073741824.0;
    for (int n : lengths) {
        auto prio = randomValues<Vdl32s>(rng, n, -1e6, 2147483647.0);
        auto post = randomValues<Vdl32s>(rng, n, -1e6, 1073741824.0);
        prio[0] = 4194304;  // 1.0
        if (n > 1)
            post[1] = 0;    // no observation: the Wiener gain
        std::vector<Vdl32s> wiener(n), emns(n);
        ASSERT_EQ(vdlsFilterUpdateWiener_32s(convert<Vdl32s>(prio).data(), wiener.data(), n), vdlStsNoErr);
        ASSERT_EQ(vdlsFilterUpdateEMNS_32s(convert<Vdl32s>(prio).data(), convert<Vdl32s>(post).data(), emns.data(), n),
                  vdlStsNoErr);
        for (int k = 0; k < n; ++k) {
            const double xi = std::max(prio[k], 0.0) / q22, g = std::max(post[k], 0.0) / q22;
            EXPECT_EQ(wiener[k], roundSaturate<Vdl32s>(xi / (1 + xi) * q30)) << k;
            const double want = roundSaturate<Vdl32s>(emnsGain(xi, g) * q30);
            EXPECT_NEAR(emns[k], want, 1e-6 * want + 1) << "xi " << xi << " g " << g;
        }
        EXPECT_EQ(wiener[0], 536870912);  // 1 / (1 + 1) in Q30
    }
    // A small a posteriori ratio asks for a gain beyond the format.
    const Vdl32s prio = 4194304, post = 1;
    Vdl32s gain = 0;
    vdlsFilterUpdateEMNS_32s(&prio, &post, &gain, 1);
    EXPECT_EQ(gain, 2147483647);
}

// ---- bad arguments: every function, each fault, nothing written

// Inputs, states made by the good calls, and outputs a refused call leaves.
struct B {
    B()
    {
        EXPECT_EQ(vdlsResamplePolyphaseInitAlloc_32f(&any, 64, 16, 0.95f, 9, vdlAlgHintFast), vdlStsNoErr);
        EXPECT_EQ(vdlsResamplePolyphaseFixedInitAlloc_16s(&fixed, 2, 3, 64, 0.95f, 9, vdlAlgHintAccurate), vdlStsNoErr);
        madeFixed = fixed;
    }
    ~B()
    {
        vdlsResamplePolyphaseFree_32f(any);
        vdlsResamplePolyphaseFixedFree_16s(madeFixed);
    }
    bool untouched() const
    {
        for (int k = 0; k < 4; ++k)
            if (fo[k] != 5 || so[k] != 5 || io[k] != 5)
                return false;
        return time == 40 && outLen == 5 && made16 == nullptr && fixed == madeFixed;
    }
    Vdl32f f[64] = {1};
    Vdl16s s[64] = {1};
    Vdl8u u[64] = {1};
    Vdl32s i32[64] = {1};
    const Vdl32f* ft[2] = {f, f};
    const Vdl32f* ftNull[2] = {f, nullptr};
    const Vdl8u* ut[2] = {u, u};
    const Vdl16s* st[2] = {s, s};
    Vdl32f fo[4] = {5, 5, 5, 5};
    Vdl16s so[4] = {5, 5, 5, 5};
    Vdl32s io[4] = {5, 5, 5, 5};
    double time = 40;
    int outLen = 5;
    VdlsResamplingPolyphase_32f* any = nullptr;
    VdlsResamplingPolyphaseFixed_16s* fixed = nullptr;
    VdlsResamplingPolyphaseFixed_16s* madeFixed = nullptr;
    VdlsResamplingPolyphase_16s* made16 = nullptr;
};

TEST(AlignArguments, BadCallsAreRefusedWithoutWriting)
{
    expectRefused<B>({
        {"dtw null table row", vdlStsNullPtrErr, [](B& b) { return vdlsDTW_L2_32f_D2L(b.ftNull, 2, b.ft, 2, 3, b.fo, 0, 1); }},
        {"dtw null result", vdlStsNullPtrErr, [](B& b) { return vdlsDTW_L2_32f_D2(b.f, 2, b.f, 2, 3, 4, nullptr, 0, 1); }},
        {"dtw zero width", vdlStsSizeErr, [](B& b) { return vdlsDTW_L2_8u32s_D2LSfs(b.ut, 2, b.ut, 2, 0, b.io, 0, 1, 0); }},
        {"dtw zero height", vdlStsSizeErr, [](B& b) { return vdlsDTW_L2_8u32s_D2Sfs(b.u, 2, b.u, 0, 3, 4, b.io, 0, 1, 0); }},
        {"dtw step below width", vdlStsStepErr, [](B& b) { return vdlsDTW_L2Low_16s32s_D2Sfs(b.s, 2, b.s, 2, 5, 4, b.io, 0, 1, 0); }},
        {"dtw negative delta", vdlStsBadArgErr, [](B& b) { return vdlsDTW_L2Low_16s32s_D2LSfs(b.st, 2, b.st, 2, 3, b.io, -1, 1, 0); }},
        {"dtw negative beam", vdlStsBadArgErr, [](B& b) { return vdlsDTW_L2_32f_D2L(b.ft, 2, b.ft, 2, 3, b.fo, 0, -1); }},
        {"dtw beam not a number", vdlStsBadArgErr, [](B& b) { return vdlsDTW_L2_32f_D2(b.f, 2, b.f, 2, 3, 4, b.fo, 0, NAN); }},
        {"resample init null holder", vdlStsNullPtrErr, [](B&) { return vdlsResamplePolyphaseInitAlloc_16s(nullptr, 64, 16, 0.9f, 9, vdlAlgHintFast); }},
        {"resample init zero phases", vdlStsSizeErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 64, 0, 0.9f, 9, vdlAlgHintFast); }},
        {"resample init zero window", vdlStsSizeErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 0, 16, 0.9f, 9, vdlAlgHintFast); }},
        {"resample init table too large", vdlStsSizeErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 16384, 256, 0.9f, 9, vdlAlgHintFast); }},
        {"resample init roll-off above 1", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 64, 16, 1.5f, 9, vdlAlgHintFast); }},
        {"resample init negative alpha", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 64, 16, 0.9f, -1, vdlAlgHintFast); }},
        {"resample init bad hint", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphaseInitAlloc_16s(&b.made16, 64, 16, 0.9f, 9, static_cast<VdlHintAlgorithm>(3)); }},
        {"fixed init zero rate", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphaseFixedInitAlloc_16s(&b.fixed, 0, 3, 64, 0.9f, 9, vdlAlgHintFast); }},
        {"fixed init zero length", vdlStsSizeErr, [](B& b) { return vdlsResamplePolyphaseFixedInitAlloc_16s(&b.fixed, 2, 3, 0, 0.9f, 9, vdlAlgHintFast); }},
        {"resample null state", vdlStsNullPtrErr, [](B& b) { return vdlsResamplePolyphase_32f(nullptr, b.f, 4, b.fo, 1, 1, &b.time, &b.outLen); }},
        {"resample null time", vdlStsNullPtrErr, [](B& b) { return vdlsResamplePolyphase_32f(b.any, b.f, 4, b.fo, 1, 1, nullptr, &b.outLen); }},
        {"resample zero length", vdlStsSizeErr, [](B& b) { return vdlsResamplePolyphase_32f(b.any, b.f, 0, b.fo, 1, 1, &b.time, &b.outLen); }},
        {"resample factor not a number", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphase_32f(b.any, b.f, 4, b.fo, NAN, 1, &b.time, &b.outLen); }},
        {"resample time not a number", vdlStsBadArgErr, [](B& b) { double t = NAN; return vdlsResamplePolyphase_32f(b.any, b.f, 4, b.fo, 1, 1, &t, &b.outLen); }},
        {"fixed init roll-off not a number", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphaseFixedInitAlloc_16s(&b.fixed, 2, 3, 64, NAN, 9, vdlAlgHintFast); }},
        {"partial energy not a number", vdlStsBadArgErr, [](B& b) { return vdlsCrossCorrCoeffPartial_16s32f(b.s, b.s, 4, NAN, b.fo); }},
        {"resample zero factor", vdlStsBadArgErr, [](B& b) { return vdlsResamplePolyphase_32f(b.any, b.f, 4, b.fo, 0, 1, &b.time, &b.outLen); }},
        {"resample time inside the reach", vdlStsBadArgErr, [](B& b) { double t = 31; return vdlsResamplePolyphase_32f(b.any, b.f, 4, b.fo, 1, 1, &t, &b.outLen); }},
        {"fixed null output count", vdlStsNullPtrErr, [](B& b) { return vdlsResamplePolyphaseFixed_16s(b.fixed, b.s, 4, b.so, 1, &b.time, nullptr); }},
        {"fixed time inside the reach", vdlStsBadArgErr, [](B& b) { double t = 10; return vdlsResamplePolyphaseFixed_16s(b.fixed, b.s, 4, b.so, 1, &t, &b.outLen); }},
        {"free null state", vdlStsNullPtrErr, [](B&) { return vdlsResamplePolyphaseFree_16s(nullptr); }},
        {"correlation null source", vdlStsNullPtrErr, [](B& b) { return vdlsCrossCorrCoeff_16s32f(nullptr, b.s, 4, b.fo); }},
        {"correlation zero length", vdlStsSizeErr, [](B& b) { return vdlsCrossCorrCoeff_16s32f(b.s, b.s, 0, b.fo); }},
        {"partial negative energy", vdlStsBadArgErr, [](B& b) { return vdlsCrossCorrCoeffPartial_16s32f(b.s, b.s, 4, -1, b.fo); }},
        {"interpolation one sample", vdlStsSizeErr, [](B& b) { return vdlsCrossCorrCoeffInterpolation_16s32f(b.s, b.s, 1, b.fo, b.fo + 1); }},
        {"interpolation null beta", vdlStsNullPtrErr, [](B& b) { return vdlsCrossCorrCoeffInterpolation_16s32f(b.s, b.s, 4, nullptr, b.fo); }},
        {"search zero step", vdlStsSizeErr, [](B& b) { return vdlsCrossCorrCoeffDecim_16s32f(b.s, b.s, 8, 4, b.fo, 0); }},
        {"search max below min", vdlStsSizeErr, [](B& b) { return vdlsCrossCorrCoeffDecim_16s32f(b.s, b.s, 3, 4, b.fo, 1); }},
        {"wiener null noise", vdlStsNullPtrErr, [](B& b) { return vdlsWienerFilterDesign_Aurora_32f(b.f, nullptr, b.f, b.fo, 4); }},
        {"wiener zero length", vdlStsSizeErr, [](B& b) { return vdlsWienerFilterDesign_Aurora_16s(b.s, b.s, b.s, b.so, 0); }},
        {"noise null result", vdlStsNullPtrErr, [](B& b) { return vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs(b.s, b.s, nullptr, 4, 0); }},
        {"noise negative length", vdlStsSizeErr, [](B& b) { return vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs(b.i32, b.i32, b.io, -2, 0); }},
        {"noise float zero length", vdlStsSizeErr, [](B& b) { return vdlsNoiseSpectrumUpdate_Aurora_32f(b.f, b.f, b.fo, 0); }},
        {"wiener gain null source", vdlStsNullPtrErr, [](B& b) { return vdlsFilterUpdateWiener_32s(nullptr, b.io, 4); }},
        {"emns zero length", vdlStsSizeErr, [](B& b) { return vdlsFilterUpdateEMNS_32s(b.i32, b.i32, b.io, 0); }},
    });
}

} // namespace
