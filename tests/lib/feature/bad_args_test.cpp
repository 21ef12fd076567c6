// Every family function refuses a bad argument with its status before it
// writes anything.
#include <cfenv>
#include <cmath>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "vdlsr.h"

namespace {

struct BadCall {
    const char* what;
    std::function<VdlStatus()> call;
    VdlStatus want;
};

TEST(FeatureArguments, BadOnesAreRefusedAndNothingIsWritten)
{
    std::vector<Vdl32f> f(256, 7), fo(256, 7);
    std::vector<Vdl16s> s(256, 7), so(256, 7);
    std::vector<Vdl32s> l(256, 7), lo(256, 7);
    std::vector<Vdl8u> u(256, 7);
    Vdl16s q = 7;
    int period = 7, size = 7, fftLen = 7;
    Vdl16s last16 = 7;
    Vdl32f last32 = 7;
    VdlDCTLifterState_32f* lifter = nullptr;
    VdlFBankState_16s* bank = nullptr;
    const std::vector<BadCall> table = {
        {"delta null source", [&] { return vdlsDelta_Win1_32f_D2(nullptr, 4, fo.data(), 8, 3, 1, 3); }, vdlStsNullPtrErr},
        {"delta no width", [&] { return vdlsDelta_Win1_32f_D2(f.data(), 0, fo.data(), 8, 3, 1, 3); }, vdlStsSizeErr},
        {"delta step below two blocks", [&] { return vdlsDelta_Win2_16s_D2Sfs(s.data(), 4, so.data(), 7, 3, 1, 3, 0); }, vdlStsStepErr},
        {"delta bad mode", [&] { return vdlsDelta_Win1_32f_D2(f.data(), 4, fo.data(), 8, 3, 1, 4); }, vdlStsBadArgErr},
        {"double delta step below three blocks", [&] { return vdlsDeltaDelta_Win1_32f_D2(f.data(), 4, fo.data(), 11, 3, 1, 1, 3); }, vdlStsStepErr},
        {"mul without multipliers", [&] { return vdlsDeltaMul_Win1_16s_D2Sfs(s.data(), nullptr, 4, so.data(), 12, 3, 3, 0); }, vdlStsNullPtrErr},
        {"eval window 3", [&] { return vdlsEvalDelta_32f_D2(fo.data(), 4, 12, 4, 0, 3, 1); }, vdlStsOutOfRangeErr},
        {"eval offset past the rows", [&] { return vdlsEvalDelta_16s_D2Sfs(so.data(), 4, 12, 4, 4, 1, 1, 0); }, vdlStsOutOfRangeErr},
        {"eval step below three blocks", [&] { return vdlsEvalDeltaMul_32f_D2(fo.data(), 4, 11, f.data(), 4, 0, 1); }, vdlStsStepErr},
        {"aurora step below 39", [&] { return vdlsDeltaDelta_Aurora_32f_D2(f.data(), fo.data(), 38, 2, 3); }, vdlStsStepErr},
        {"aurora no rows", [&] { return vdlsDeltaDeltaMul_Aurora_16s_D2Sfs(s.data(), s.data(), so.data(), 40, 0, 3, 0); }, vdlStsSizeErr},
        {"copy column step below width", [&] { return vdlsCopyColumn_16s_D2(s.data(), 5, so.data(), 4, 2); }, vdlStsStepErr},
        {"lifter more cepstra than channels", [&] { return vdlsDCTLifterInitAlloc_32f(&lifter, 5, 6, 2, 1); }, vdlStsOutOfRangeErr},
        {"lifter null state", [&] { return vdlsDCTLifter_32f(f.data(), fo.data(), nullptr); }, vdlStsNullPtrErr},
        {"bank above Nyquist", [&] { return vdlsMelFBankInitAlloc_16s(&bank, &fftLen, 256, 16000, 0, 8001, 5, 1127, 700, 1); }, vdlStsBadArgErr},
        {"bank mode 3", [&] { return vdlsMelFBankInitAlloc_16s(&bank, &fftLen, 256, 16000, 0, 8000, 5, 1127, 700, 3); }, vdlStsBadArgErr},
        {"bank size of no filter", [&] { return vdlsMelFBankGetSize_32s(400, 0, 2, &size); }, vdlStsSizeErr},
        {"bank null", [&] { return vdlsEvalFBank_16s_Sfs(s.data(), so.data(), nullptr, 0); }, vdlStsNullPtrErr},
        {"mel scale zero", [&] { return vdlsMelToLinear_32f(f.data(), fo.data(), 4, 0, 700); }, vdlStsBadArgErr},
        {"padding to fewer", [&] { return vdlsCopyWithPadding_32f(f.data(), 5, fo.data(), 4); }, vdlStsSizeErr},
        {"cepstrum of nothing", [&] { return vdlsLPToCepstrum_16s_Sfs(s.data(), so.data(), 0, 0); }, vdlStsSizeErr},
        {"energy step 0", [&] { return vdlsNormEnergy_32f(fo.data(), 0, 4, 1, 1); }, vdlStsSizeErr},
        {"energy negative floor", [&] { return vdlsNormEnergy_RT_16s(so.data(), 2, 4, -1, 16, 1, 1); }, vdlStsBadArgErr},
        {"range cuts crossed", [&] { return vdlsNormalizeInRange_16s8u(s.data(), u.data(), 4, 0.8f, 0.2f, 255); }, vdlStsBadArgErr},
        {"range min above max", [&] { return vdlsNormalizeInRangeMinMax_32f_I(fo.data(), 4, 5, 5, 0.2f, 0.8f, 1); }, vdlStsBadArgErr},
        {"zero mean of nothing", [&] { return vdlsZeroMean_16s(so.data(), 0); }, vdlStsSizeErr},
        {"sign changes no result", [&] { return vdlsSignChangeRate_16s(s.data(), 4, nullptr); }, vdlStsNullPtrErr},
        {"peaks search 0", [&] { return vdlsFindPeaks_32s8u(l.data(), u.data(), 4, 0, 0); }, vdlStsOutOfRangeErr},
        {"lspe two periods beyond the frame", [&] { return vdlsPeriodicityLSPE_16s(s.data(), 30, &q, &period, 16, 6); }, vdlStsOutOfRangeErr},
        {"periods crossed", [&] { return vdlsPeriodicity_32s16s(l.data(), 64, &q, &period, 6, 10); }, vdlStsOutOfRangeErr},
        {"period past the frame", [&] { return vdlsPeriodicity_32s16s(l.data(), 16, &q, &period, 16, 6); }, vdlStsOutOfRangeErr},
        {"pitch marks none", [&] { return vdlsPitchmarkToF0Cand_32f(f.data(), fo.data(), 0); }, vdlStsSizeErr},
        {"high band null", [&] { return vdlsHighBandCoding_Aurora_32s_Sfs(l.data(), nullptr, l.data(), lo.data(), 0); }, vdlStsNullPtrErr},
        {"blind nothing", [&] { return vdlsBlindEqualization_Aurora_16s(s.data(), so.data(), so.data(), 0, 1); }, vdlStsSizeErr},
        {"wave null", [&] { return vdlsWaveProcessing_Aurora_16s(nullptr, so.data()); }, vdlStsNullPtrErr},
        {"smoothed length not of 4", [&] { return vdlsSmoothedPowerSpectrumAurora_32s_Sfs(l.data(), lo.data(), 10, 0); }, vdlStsSizeErr},
        {"offset no last sample", [&] { return vdlsCompensateOffset_32f(f.data(), fo.data(), 4, nullptr, 0, 1); }, vdlStsNullPtrErr},
        {"offset nothing", [&] { return vdlsCompensateOffsetQ15_16s_I(so.data(), 0, &last16, 0, 1); }, vdlStsSizeErr},
        {"offset in place null", [&] { return vdlsCompensateOffset_32f_I(nullptr, 4, &last32, 0, 1); }, vdlStsNullPtrErr},
        {"sinc nothing", [&] { return vdlsSinC_64f_I(nullptr, 4); }, vdlStsNullPtrErr},
        {"sinc no length", [&] { return vdlsSinC_32f(f.data(), fo.data(), -1); }, vdlStsSizeErr},
    };
    for (const BadCall& c : table)
        EXPECT_EQ(c.want, c.call()) << c.what;
    EXPECT_EQ(std::vector<Vdl32f>(256, 7), fo);
    EXPECT_EQ(std::vector<Vdl16s>(256, 7), so);
    EXPECT_EQ(std::vector<Vdl32s>(256, 7), lo);
    EXPECT_EQ(std::vector<Vdl8u>(256, 7), u);
    EXPECT_EQ(7, q);
    EXPECT_EQ(7, period);
    EXPECT_EQ(7, size);
    EXPECT_EQ(7, fftLen);
    EXPECT_EQ(7, last16);
    EXPECT_EQ(7.0f, last32);
    EXPECT_EQ(nullptr, lifter);
    EXPECT_EQ(nullptr, bank);
}

// Values outside their domain, NaN among them, are refused before any
// arithmetic that could raise a floating-point flag.
TEST(FeatureArguments, RefusedValuesLeaveTheFloatingPointFlags)
{
    const float nan = std::nanf("");
    std::vector<Vdl32f> f(8, 1), fo(8);
    std::vector<Vdl16s> s(8, 1);
    VdlFBankState_32f* bank = nullptr;
    int fftLen = 0;
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(vdlStsBadArgErr, vdlsNormalizeInRange_32f(f.data(), fo.data(), 8, nan, 0.8f, 1));
    EXPECT_EQ(vdlStsBadArgErr, vdlsNormEnergy_RT_32f(fo.data(), 1, 8, nan, 1, 1));
    EXPECT_EQ(vdlStsBadArgErr, vdlsLinearToMel_32f(f.data(), fo.data(), 8, nan, 700));
    EXPECT_EQ(vdlStsBadArgErr,
              vdlsMelFBankInitAlloc_32f(&bank, &fftLen, 256, nan, 0, 4000, 8, 1127, 700, 1));
    EXPECT_EQ(vdlStsBadArgErr, vdlsCompensateOffset_32f_I(fo.data(), 8, &f[0], 0, nan));
    EXPECT_EQ(0, std::fetestexcept(FE_ALL_EXCEPT));
}

} // namespace
