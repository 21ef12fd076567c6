// The lifter's DCT by its sum, mel filter banks by explicit triangles, the
// mel scale both ways, and the LP / cepstrum recursions round-tripping.
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "feature_reference.h"
#include "test_data.h"
#include "vdlsr.h"

using namespace featref;
using namespace vdltest;

namespace {

TEST(DCTLifter, GivesLifteredCepstraInEachTypeForm)
{
    std::mt19937 rng(3);
    for (int channels : {1, 9, 23, 24})
        for (int nLifter : {0, 22}) {
            const int nMFCC = channels < 12 ? channels : 12;
            const std::vector<double> x = randomValues<Vdl16s>(rng, channels, -200, 200);
            const std::vector<double> want = dctLifter(x, nMFCC, nLifter, 0.5);
            VdlDCTLifterState_32f* s32 = nullptr;
            VdlDCTLifterState_16s* s16 = nullptr;
            ASSERT_EQ(vdlStsNoErr, vdlsDCTLifterInitAlloc_32f(&s32, channels, nMFCC, nLifter, 0.5f));
            ASSERT_EQ(vdlStsNoErr, vdlsDCTLifterInitAlloc_16s(&s16, channels, nMFCC, nLifter, 0.5f));
            std::vector<Vdl32f> f(nMFCC);
            std::vector<Vdl16s> i16(nMFCC), j16(nMFCC);
            const std::vector<Vdl32f> xf = convert<Vdl32f>(x);
            const std::vector<Vdl16s> xs = convert<Vdl16s>(x);
            const std::vector<Vdl32s> xl = convert<Vdl32s>(x);
            ASSERT_EQ(vdlStsNoErr, vdlsDCTLifter_32f(xf.data(), f.data(), s32));
            ASSERT_EQ(vdlStsNoErr, vdlsDCTLifter_16s_Sfs(xs.data(), i16.data(), s16, 1));
            ASSERT_EQ(vdlStsNoErr, vdlsDCTLifter_32s16s_Sfs(xl.data(), j16.data(), s16, -1));
            for (int n = 0; n < nMFCC; ++n) {
                EXPECT_NEAR(f[n], want[n], 1e-5 * (1 + std::fabs(want[n])));
                // Float table entries: within one of the rounded exact value.
                EXPECT_NEAR(i16[n], roundSaturate<Vdl16s>(want[n] / 2), 1);
                EXPECT_NEAR(j16[n], roundSaturate<Vdl16s>(want[n] * 2), 1);
            }
            // A state of the other kind is refused.
            EXPECT_EQ(vdlStsContextMatchErr,
                      vdlsDCTLifter_32f(xf.data(), f.data(),
                                        reinterpret_cast<const VdlDCTLifterState_32f*>(s16)));
            EXPECT_EQ(vdlStsNoErr, vdlsDCTLifterFree_32f(s32));
            EXPECT_EQ(vdlStsNoErr, vdlsDCTLifterFree_16s(s16));
        }
}

TEST(MelFilterBank, SumsThePowerSpectrumUnderEachTriangle)
{
    std::mt19937 rng(4);
    for (int lenFFT : {7, 8})
        for (int nFilter : {1, 3, 24}) {
            const int frameLen = (1 << lenFFT) + 2, fftLen = 1 << (lenFFT + 1), bins = fftLen / 2;
            const std::vector<double> power = randomValues<Vdl16s>(rng, bins, 0, 1000);
            const std::vector<double> want =
                melBank(power, fftLen, 16000, 64, 8000, nFilter, 1127, 700);
            VdlFBankState_16s* b16 = nullptr;
            VdlFBankState_32f* b32 = nullptr;
            int len16 = 0, len32 = 0;
            ASSERT_EQ(vdlStsNoErr, vdlsMelFBankInitAlloc_16s(&b16, &len16, frameLen, 16000, 64, 8000,
                                                             nFilter, 1127, 700, 1));
            ASSERT_EQ(vdlStsNoErr, vdlsMelFBankInitAlloc_32f(&b32, &len32, frameLen, 16000, 64, 8000,
                                                             nFilter, 1127, 700, 1));
            EXPECT_EQ(fftLen, len16);
            EXPECT_EQ(fftLen, len32);
            const std::vector<Vdl16s> p16 = convert<Vdl16s>(power);
            const std::vector<Vdl32f> p32 = convert<Vdl32f>(power);
            std::vector<Vdl16s> o16(nFilter);
            std::vector<Vdl32s> o32(nFilter);
            std::vector<Vdl32f> of(nFilter);
            ASSERT_EQ(vdlStsNoErr, vdlsEvalFBank_16s_Sfs(p16.data(), o16.data(), b16, 4));
            ASSERT_EQ(vdlStsNoErr, vdlsEvalFBank_16s32s_Sfs(p16.data(), o32.data(), b16, 0));
            ASSERT_EQ(vdlStsNoErr, vdlsEvalFBank_32f(p32.data(), of.data(), b32));
            for (int i = 0; i < nFilter; ++i) {
                EXPECT_NEAR(of[i], want[i], 1e-5 * (1 + want[i])) << i;
                EXPECT_NEAR(o32[i], roundSaturate<Vdl32s>(want[i]), 1) << i;
                EXPECT_NEAR(o16[i], roundSaturate<Vdl16s>(want[i] / 16), 1) << i;
            }
            EXPECT_EQ(vdlStsNoErr, vdlsFBankFree_16s(b16));
            EXPECT_EQ(vdlStsNoErr, vdlsFBankFree_32f(b32));
        }
}

TEST(MelFilterBank, IntegerBankLivesInCallerMemoryOfTheGivenSize)
{
    int size = 0, fftLen = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsMelFBankGetSize_32s(400, 20, 2, &size));
    std::vector<unsigned char> memory(size + 64);
    auto* bank = reinterpret_cast<VdlFBankState_32s*>(
        memory.data() + (64 - reinterpret_cast<uintptr_t>(memory.data()) % 64) % 64);
    ASSERT_EQ(vdlStsNoErr, vdlsMelFBankInit_32s(bank, &fftLen, 400, 40000, 10, 19000, 20, 85032960,
                                                22937600, 2));
    EXPECT_EQ(512, fftLen);
    // A flat spectrum sums each filter's weights: all filters reach bins,
    // and the mel filters widen with frequency.
    std::vector<Vdl32s> ones(256, 1 << 10), out(20);
    ASSERT_EQ(vdlStsNoErr, vdlsEvalFBank_32s_Sfs(ones.data(), out.data(), bank, 10));
    for (int i = 0; i < 20; ++i)
        EXPECT_GT(out[i], 0) << i;
    EXPECT_GT(out[19], 4 * out[0]);
}

TEST(MelScale, ConvertsBothWaysAndPadsCopies)
{
    const std::vector<Vdl32f> hz = {0, 100, 700, 1000, 4000, 7999};
    std::vector<Vdl32f> mel(hz.size()), back(hz.size());
    ASSERT_EQ(vdlStsNoErr, vdlsLinearToMel_32f(hz.data(), mel.data(), int(hz.size()), 1127, 700));
    ASSERT_EQ(vdlStsNoErr, vdlsMelToLinear_32f(mel.data(), back.data(), int(hz.size()), 1127, 700));
    for (size_t i = 0; i < hz.size(); ++i) {
        EXPECT_NEAR(mel[i], 1127 * std::log(1 + hz[i] / 700.0), 1e-3);
        EXPECT_NEAR(back[i], hz[i], 1e-3 * (1 + hz[i]));
    }
    const std::vector<Vdl16s> src = {1, -2, 3};
    std::vector<Vdl16s> dst(5, 9);
    ASSERT_EQ(vdlStsNoErr, vdlsCopyWithPadding_16s(src.data(), 3, dst.data(), 5));
    EXPECT_EQ((std::vector<Vdl16s>{1, -2, 3, 0, 0}), dst);
}

TEST(LinearPrediction, CepstrumRecursionsRoundTrip)
{
    std::mt19937 rng(8);
    for (int len : {1, 5, 9, 21}) {
        const std::vector<double> a = randomValues<Vdl32f>(rng, len, -0.5, 0.5);
        const std::vector<double> c = lpToCepstrum(a);
        const std::vector<Vdl32f> af = convert<Vdl32f>(a);
        std::vector<Vdl32f> cf(len), back(len);
        ASSERT_EQ(vdlStsNoErr, vdlsLPToCepstrum_32f(af.data(), cf.data(), len));
        ASSERT_EQ(vdlStsNoErr, vdlsCepstrumToLP_32f(cf.data(), back.data(), len));
        // Q15 coefficients: the cepstrum of the values they stand for.
        std::vector<Vdl16s> aq(len), cq(len), bq(len);
        std::vector<double> q15(len);
        for (int i = 0; i < len; ++i) {
            aq[i] = static_cast<Vdl16s>(std::lround(a[i] * 32768));
            q15[i] = aq[i] / 32768.0;
        }
        ASSERT_EQ(vdlStsNoErr, vdlsLPToCepstrum_16s_Sfs(aq.data(), cq.data(), len, 1));
        const std::vector<double> cFromQ = lpToCepstrum(q15);
        for (int i = 0; i < len; ++i) {
            EXPECT_NEAR(cf[i], c[i], 1e-5);
            EXPECT_NEAR(back[i], a[i], 1e-5);
            EXPECT_EQ(cq[i], roundSaturate<Vdl16s>(cFromQ[i] * 16384));
        }
        // Q15 both ways with no scaling returns small coefficients within
        // the rounding of the cepstrum.
        for (int i = 0; i < len; ++i)
            aq[i] = static_cast<Vdl16s>(std::lround(a[i] * 0.2 * 32768));
        ASSERT_EQ(vdlStsNoErr, vdlsLPToCepstrum_16s_Sfs(aq.data(), cq.data(), len, 0));
        ASSERT_EQ(vdlStsNoErr, vdlsCepstrumToLP_16s_Sfs(cq.data(), bq.data(), len, 0));
        for (int i = 0; i < len; ++i)
            EXPECT_NEAR(bq[i], aq[i], 2 + i);
    }
}

} // namespace
