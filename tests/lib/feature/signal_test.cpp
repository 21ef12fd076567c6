// Per-frame signal measures and stages against their definitions: energy
// and range normalisation, zero mean, sign changes, peaks, periodicity,
// F0 from pitch marks, offset compensation by its difference equation,
// blind equalisation, the smoothed spectrum, high-band coding, waveform
// weighting and sinc.
#include <cmath>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "test_data.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

TEST(NormEnergy, WholeAndRunningMaximumWithSilenceFloor)
{
    // Energies in column 0 of rows of 3; the other columns stay.
    const std::vector<double> e = {5, 9, 2, 8, -4};
    std::vector<Vdl32f> f, r;
    std::vector<Vdl16s> s;
    for (double v : e)
        for (double x : {v, 77.0, 77.0}) {
            f.push_back(Vdl32f(x));
            s.push_back(Vdl16s(x));
        }
    r = f;
    ASSERT_EQ(vdlStsNoErr, vdlsNormEnergy_32f(f.data(), 3, 5, 6.0f, 0.5f));
    ASSERT_EQ(vdlStsNoErr, vdlsNormEnergy_16s(s.data(), 3, 5, 6, 100, 10.0f));
    ASSERT_EQ(vdlStsNoErr, vdlsNormEnergy_RT_32f(r.data(), 3, 5, 6.0f, 1.0f, 0.5f));
    double top = e[0];
    for (int i = 0; i < 5; ++i) {
        const double floored = std::fmax(e[i], 9 - 6.0);
        EXPECT_FLOAT_EQ(f[3 * i], Vdl32f(1 - 0.5 * (9 - floored)));
        EXPECT_EQ(s[3 * i], roundSaturate<Vdl16s>(100 - 10.0 * (9 - floored)));
        top = std::fmax(e[i], top - 1);
        EXPECT_FLOAT_EQ(r[3 * i], Vdl32f(1 - 0.5 * (top - std::fmax(e[i], top - 6))));
        EXPECT_EQ(f[3 * i + 1], 77.0f);
        EXPECT_EQ(s[3 * i + 2], 77);
    }
}

TEST(NormalizeInRange, MapsFoundOrGivenRangeThroughTheCuts)
{
    std::mt19937 rng(2);
    for (int len : {1, 9, 17}) {
        const std::vector<double> x = randomValues<Vdl16s>(rng, len, 8, 248);
        double lo = x[0], hi = x[0];
        for (double v : x) {
            lo = std::fmin(lo, v);
            hi = std::fmax(hi, v);
        }
        auto model = [](double v, double a, double b, double range) {
            if (b <= a)
                return 0.0;
            double u = ((v - a) / (b - a) - 0.2) / 0.6;
            u = u < 0 ? 0 : u > 1 ? 1 : u;
            return u * range;
        };
        const std::vector<Vdl16s> s = convert<Vdl16s>(x);
        const std::vector<Vdl32f> f = convert<Vdl32f>(x);
        std::vector<Vdl8u> u8(len);
        std::vector<Vdl32f> out(len);
        std::vector<Vdl16s> inPlace = s;
        ASSERT_EQ(vdlStsNoErr, vdlsNormalizeInRange_16s8u(s.data(), u8.data(), len, 0.2f, 0.8f, 255));
        ASSERT_EQ(vdlStsNoErr,
                  vdlsNormalizeInRangeMinMax_32f(f.data(), out.data(), len, 1, 255, 0.2f, 0.8f, 1.0f));
        ASSERT_EQ(vdlStsNoErr, vdlsNormalizeInRange_16s_I(inPlace.data(), len, 0.2f, 0.8f, 1000));
        for (int i = 0; i < len; ++i) {
            EXPECT_EQ(u8[i], roundSaturate<Vdl8u>(model(x[i], lo, hi, 255)));
            EXPECT_NEAR(out[i], model(x[i], 1, 255, 1), 1e-6);
            EXPECT_EQ(inPlace[i], roundSaturate<Vdl16s>(model(x[i], lo, hi, 1000)));
        }
    }
}

TEST(ZeroMean, SubtractsTheRoundedMeanWithSaturation)
{
    std::mt19937 rng(5);
    for (int len : {1, 7, 9, 17, 1000}) {
        std::vector<Vdl16s> x = convert<Vdl16s>(randomValues<Vdl16s>(rng, len, -32768, 32767));
        double sum = 0;
        for (Vdl16s v : x)
            sum += v;
        const double mean = std::round(sum / len);
        const std::vector<Vdl16s> before = x;
        ASSERT_EQ(vdlStsNoErr, vdlsZeroMean_16s(x.data(), len));
        for (int i = 0; i < len; ++i)
            EXPECT_EQ(x[i], roundSaturate<Vdl16s>(before[i] - mean));
    }
    std::vector<Vdl16s> half = {1, 2};  // mean 1.5 rounds away from zero
    ASSERT_EQ(vdlStsNoErr, vdlsZeroMean_16s(half.data(), 2));
    EXPECT_EQ((std::vector<Vdl16s>{-1, 0}), half);
}

TEST(SignChanges, CountStrictlyWithZerosAndBySignBit)
{
    const std::vector<Vdl32f> f = {1, -2, 0, 3, -0.0f, 4, -5, -6, 0.0f};
    Vdl32f strict = 0, zeros = 0;
    Vdl32s bits = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRate_32f(f.data(), 9, &strict));
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRate_Count0_32f(f.data(), 9, &zeros));
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRateXor_32f(f.data(), 9, &bits));
    EXPECT_EQ(2.0f, strict);  // 1|-2, 4|-5
    EXPECT_EQ(7.0f, zeros);   // and every pair with a zero: 4 more, and -6|0
    EXPECT_EQ(6, bits);       // sign bits 0 1 0 0 1 0 1 1 0
    const std::vector<Vdl16s> s = {3, -3, 0, -1, 2};
    Vdl32s si = 0, sz = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRate_16s(s.data(), 5, &si));
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRate_Count0_16s(s.data(), 5, &sz));
    EXPECT_EQ(2, si);
    EXPECT_EQ(4, sz);
    ASSERT_EQ(vdlStsNoErr, vdlsSignChangeRate_16s(s.data(), 1, &si));
    EXPECT_EQ(0, si);
}

TEST(VoiceActivity, PeaksAndPeriodicityOfAPeriodicSignal)
{
    const std::vector<Vdl32s> x = {0, 5, 1, 1, 9, 2, 3, 3, 2, 8};
    std::vector<Vdl8u> peaks(10);
    ASSERT_EQ(vdlStsNoErr, vdlsFindPeaks_32s8u(x.data(), peaks.data(), 10, 1, 0));
    EXPECT_EQ((std::vector<Vdl8u>{0, 1, 0, 0, 1, 0, 0, 0, 0, 1}), peaks);
    // A rise of 2 among ones is a peak of its neighbours, but not above the
    // mean of the tens around it.
    const std::vector<Vdl32s> dip = {10, 10, 10, 1, 2, 1, 10, 10, 10};
    std::vector<Vdl8u> flags(9);
    ASSERT_EQ(vdlStsNoErr, vdlsFindPeaks_32s8u(dip.data(), flags.data(), 9, 1, 0));
    EXPECT_EQ((std::vector<Vdl8u>{0, 0, 0, 0, 1, 0, 0, 0, 0}), flags);
    ASSERT_EQ(vdlStsNoErr, vdlsFindPeaks_32s8u(dip.data(), flags.data(), 9, 1, 2));
    EXPECT_EQ(std::vector<Vdl8u>(9, 0), flags);

    // A period of 7 samples: both measures find it and call it fully periodic.
    std::vector<Vdl16s> s(64);
    std::vector<Vdl32s> l(64);
    const Vdl16s cycle[7] = {0, 780, 1275, 434, -434, -975, -781};
    for (int n = 0; n < 64; ++n) {
        s[n] = cycle[n % 7];
        l[n] = s[n];
    }
    Vdl16s q = 0;
    int period = 0;
    ASSERT_EQ(vdlStsNoErr, vdlsPeriodicityLSPE_16s(s.data(), 64, &q, &period, 13, 5));
    EXPECT_EQ(7, period);
    EXPECT_GT(q, 32000);
    ASSERT_EQ(vdlStsNoErr, vdlsPeriodicity_32s16s(l.data(), 64, &q, &period, 10, 5));
    EXPECT_EQ(7, period);
    EXPECT_GT(q, 32000);
    // Silence: no periodicity, the shortest period.
    std::vector<Vdl16s> quiet(32, 0);
    ASSERT_EQ(vdlStsNoErr, vdlsPeriodicityLSPE_16s(quiet.data(), 32, &q, &period, 16, 6));
    EXPECT_EQ(0, q);
    EXPECT_EQ(6, period);
}

TEST(PitchMarks, GiveTheInverseIntervals)
{
    const std::vector<Vdl32f> marks = {10, 14, 22, 22, 30};
    std::vector<Vdl32f> f0(5);
    ASSERT_EQ(vdlStsNoErr, vdlsPitchmarkToF0Cand_32f(marks.data(), f0.data(), 5));
    EXPECT_EQ((std::vector<Vdl32f>{0.25f, 0.125f, 0.0f, 0.125f, 0.125f}), f0);
    const std::vector<Vdl16s> m16 = {1, 2, 3, 7};
    std::vector<Vdl16s> q(4);
    ASSERT_EQ(vdlStsNoErr, vdlsPitchmarkToF0Cand_16s_Sfs(m16.data(), q.data(), 4, -12));
    EXPECT_EQ((std::vector<Vdl16s>{4096, 4096, 1024, 1024}), q);
    ASSERT_EQ(vdlStsNoErr, vdlsPitchmarkToF0Cand_16s_Sfs(m16.data(), q.data(), 1, -12));
    EXPECT_EQ(0, q[0]);
}

// y[n] = x[n] - x[n-1] + pole * y[n-1] from the state x[-1], y[-1];
// rounded and saturated to 16 bits when `round`.
std::vector<double> offsetModel(const std::vector<double>& x, int len, double pole, double lastX, double lastY,
                                bool round)
{
    std::vector<double> y(len);
    for (int n = 0; n < len; ++n) {
        const double v = x[n] - lastX + pole * lastY;
        y[n] = lastY = round ? roundSaturate<Vdl16s>(v) : v;
        lastX = x[n];
    }
    return y;
}

TEST(CompensateOffset, FollowsTheDifferenceEquationAcrossFrames)
{
    std::mt19937 rng(6);
    for (int len : {1, 9, 17}) {
        SCOPED_TRACE(len);
        const std::vector<double> x = randomValues<Vdl16s>(rng, 2 * len, -20000, 20000);
        const std::vector<Vdl16s> in = convert<Vdl16s>(x);
        std::vector<Vdl16s> out(2 * len), inPlace = in, q(len);
        Vdl16s last = 100, lastI = 100, lastQ = 0;
        // Two frames in turn carry the state over; in place, one call does both.
        ASSERT_EQ(vdlStsNoErr, vdlsCompensateOffset_16s(in.data(), out.data(), len, &last, -50, 0.5f));
        ASSERT_EQ(vdlStsNoErr, vdlsCompensateOffset_16s(in.data() + len, out.data() + len, len, &last,
                                                        out[len - 1], 0.5f));
        ASSERT_EQ(vdlStsNoErr, vdlsCompensateOffset_16s_I(inPlace.data(), 2 * len, &lastI, -50, 0.5f));
        const std::vector<double> y = offsetModel(x, 2 * len, 0.5, 100, -50, true);
        EXPECT_EQ(asDouble(out), y);
        EXPECT_EQ(asDouble(inPlace), y);
        EXPECT_EQ(last, in[2 * len - 1]);
        // Q15: 32767 / 32768 as the pole; float forms in float.
        ASSERT_EQ(vdlStsNoErr, vdlsCompensateOffsetQ15_16s(in.data(), q.data(), len, &lastQ, 0, 32767));
        EXPECT_EQ(asDouble(q), offsetModel(x, len, 32767 / 32768.0, 0, 0, true));
        std::vector<Vdl32f> f = convert<Vdl32f>(x), g(len);
        Vdl32f lastF = 0;
        ASSERT_EQ(vdlStsNoErr, vdlsCompensateOffset_32f(f.data(), g.data(), len, &lastF, 0, 0.5f));
        const std::vector<double> yf = offsetModel(x, len, 0.5, 0, 0, false);
        for (int n = 0; n < len; ++n)
            EXPECT_NEAR(g[n], yf[n], 1e-3 * (1 + std::fabs(yf[n])));
    }
}

TEST(AuroraStages, BlindEqualisationSmoothedSpectrumHighBandAndWave)
{
    const std::vector<Vdl32f> c = {2, -1, 0.5f};
    std::vector<Vdl32f> bias = {1, 1, 1}, out(3);
    ASSERT_EQ(vdlStsNoErr, vdlsBlindEqualization_Aurora_32f(c.data(), out.data(), bias.data(), 3, 2));
    for (int i = 0; i < 3; ++i) {
        EXPECT_FLOAT_EQ(out[i], c[i] - 1);
        EXPECT_FLOAT_EQ(bias[i], Vdl32f(1 + 2 * 9.0 / 1024 * (c[i] - 1)));
    }

    // Bins (re, im): P = 1, 4, 9, 16.
    const std::vector<Vdl32f> spectrum = {1, 0, 0, 2, 3, 0, 0, 4};
    std::vector<Vdl32f> smooth(3);
    ASSERT_EQ(vdlStsNoErr, vdlsSmoothedPowerSpectrumAurora_32f(spectrum.data(), smooth.data(), 8));
    EXPECT_EQ((std::vector<Vdl32f>{(1 + 2 + 4) / 4.0f, (4 + 18 + 16) / 4.0f, (16 + 32 + 16) / 4.0f}),
              smooth);
    const std::vector<Vdl32s> spec32 = {1, 0, 0, 2, 3, 0, 0, 4};
    std::vector<Vdl64s> s64(3);
    ASSERT_EQ(vdlStsNoErr, vdlsSmoothedPowerSpectrumAurora_32s64s_Sfs(spec32.data(), s64.data(), 8, -2));
    EXPECT_EQ((std::vector<Vdl64s>{7, 38, 64}), s64);

    std::vector<Vdl32f> hfb = {1, 2, 3}, in(65, 2), dn(129, 1), coded(3);
    ASSERT_EQ(vdlStsNoErr, vdlsHighBandCoding_Aurora_32f(hfb.data(), in.data(), dn.data(), coded.data()));
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(coded[i], hfb[i] + std::log(129 / 2.0 / 130), 1e-6);

    // One pulse every 40 samples from 20. Smoothing spreads each pulse's
    // energy over a plateau from 3 samples before it, whose first sample is
    // the peak: 1.2 on the 32 samples from there, 0.8 before the first peak
    // and between.
    std::vector<Vdl32f> wave(200, 1), shaped(200);
    for (int n = 20; n < 200; n += 40)
        wave[n] = 50;
    ASSERT_EQ(vdlStsNoErr, vdlsWaveProcessing_Aurora_32f(wave.data(), shaped.data()));
    EXPECT_FLOAT_EQ(shaped[16], 0.8f);
    EXPECT_FLOAT_EQ(shaped[17], 1.2f);
    EXPECT_FLOAT_EQ(shaped[20], 60.0f);
    EXPECT_FLOAT_EQ(shaped[48], 1.2f);
    EXPECT_FLOAT_EQ(shaped[49], 0.8f);
    EXPECT_FLOAT_EQ(shaped[57], 1.2f);
    // The last peak keeps the interval before it.
    EXPECT_FLOAT_EQ(shaped[199], 1.2f);
    std::vector<Vdl32f> flat(200, 0), copy(200, 9);
    ASSERT_EQ(vdlStsNoErr, vdlsWaveProcessing_Aurora_32f(flat.data(), copy.data()));
    EXPECT_EQ(flat, copy);
}

TEST(SinC, IsOneAtZeroAndSinPiXOverPiXElsewhere)
{
    const std::vector<Vdl64f> x = {0, 0.5, 1, -2.5, 3.25};
    std::vector<Vdl64f> y(5), inPlace = x;
    std::vector<Vdl32f> xf(x.begin(), x.end()), yf(5);
    ASSERT_EQ(vdlStsNoErr, vdlsSinC_64f(x.data(), y.data(), 5));
    ASSERT_EQ(vdlStsNoErr, vdlsSinC_64f_I(inPlace.data(), 5));
    ASSERT_EQ(vdlStsNoErr, vdlsSinC_32f(xf.data(), yf.data(), 5));
    for (int i = 0; i < 5; ++i) {
        const double pi = 3.14159265358979323846;
        const double want = x[i] == 0 ? 1 : std::sin(pi * x[i]) / (pi * x[i]);
        EXPECT_NEAR(y[i], want, 1e-15);
        EXPECT_EQ(inPlace[i], y[i]);
        EXPECT_NEAR(yf[i], want, 1e-7);
    }
}

} // namespace
