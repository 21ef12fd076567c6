// Every family function refuses a bad argument with its status before it
// writes anything or raises a floating-point flag: values outside their
// domain, NaN among them, are refused before any arithmetic.
#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "refused_calls.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

// Inputs and outputs of every call, all 7 to start with.
struct B {
    B()
    {
        std::fill(std::begin(f), std::end(f), 7.0f), std::fill(std::begin(fo), std::end(fo), 7.0f);
        std::fill(std::begin(s), std::end(s), 7), std::fill(std::begin(so), std::end(so), 7);
        std::fill(std::begin(l), std::end(l), 7), std::fill(std::begin(lo), std::end(lo), 7);
        std::fill(std::begin(u), std::end(u), 7);
    }
    bool untouched() const
    {
        auto sevens = [](const auto& a) { return std::all_of(std::begin(a), std::end(a), [](auto v) { return v == 7; }); };
        return sevens(fo) && sevens(so) && sevens(lo) && sevens(u) && q == 7 && period == 7 && size == 7 &&
               fftLen == 7 && last16 == 7 && last32 == 7 && !lifter && !bank && !bank32;
    }
    Vdl32f f[256], fo[256];
    Vdl16s s[256], so[256];
    Vdl32s l[256], lo[256];
    Vdl8u u[256];
    Vdl16s q = 7, last16 = 7;
    int period = 7, size = 7, fftLen = 7;
    Vdl32f last32 = 7;
    VdlDCTLifterState_32f* lifter = nullptr;
    VdlFBankState_16s* bank = nullptr;
    VdlFBankState_32f* bank32 = nullptr;
};

const float notANumber = std::nanf("");

TEST(FeatureArguments, BadOnesAreRefusedWithoutWritingOrRaisingFlags)
{
    expectRefused<B>({
        {"delta null source", vdlStsNullPtrErr, [](B& b) { return vdlsDelta_Win1_32f_D2(nullptr, 4, b.fo, 8, 3, 1, 3); }},
        {"delta no width", vdlStsSizeErr, [](B& b) { return vdlsDelta_Win1_32f_D2(b.f, 0, b.fo, 8, 3, 1, 3); }},
        {"delta step below two blocks", vdlStsStepErr, [](B& b) { return vdlsDelta_Win2_16s_D2Sfs(b.s, 4, b.so, 7, 3, 1, 3, 0); }},
        {"delta bad mode", vdlStsBadArgErr, [](B& b) { return vdlsDelta_Win1_32f_D2(b.f, 4, b.fo, 8, 3, 1, 4); }},
        {"double delta step below three blocks", vdlStsStepErr, [](B& b) { return vdlsDeltaDelta_Win1_32f_D2(b.f, 4, b.fo, 11, 3, 1, 1, 3); }},
        {"mul without multipliers", vdlStsNullPtrErr, [](B& b) { return vdlsDeltaMul_Win1_16s_D2Sfs(b.s, nullptr, 4, b.so, 12, 3, 3, 0); }},
        {"eval window 3", vdlStsOutOfRangeErr, [](B& b) { return vdlsEvalDelta_32f_D2(b.fo, 4, 12, 4, 0, 3, 1); }},
        {"eval offset past the rows", vdlStsOutOfRangeErr, [](B& b) { return vdlsEvalDelta_16s_D2Sfs(b.so, 4, 12, 4, 4, 1, 1, 0); }},
        {"eval step below three blocks", vdlStsStepErr, [](B& b) { return vdlsEvalDeltaMul_32f_D2(b.fo, 4, 11, b.f, 4, 0, 1); }},
        {"aurora step below 39", vdlStsStepErr, [](B& b) { return vdlsDeltaDelta_Aurora_32f_D2(b.f, b.fo, 38, 2, 3); }},
        {"aurora no rows", vdlStsSizeErr, [](B& b) { return vdlsDeltaDeltaMul_Aurora_16s_D2Sfs(b.s, b.s, b.so, 40, 0, 3, 0); }},
        {"copy column step below width", vdlStsStepErr, [](B& b) { return vdlsCopyColumn_16s_D2(b.s, 5, b.so, 4, 2); }},
        {"lifter more cepstra than channels", vdlStsOutOfRangeErr, [](B& b) { return vdlsDCTLifterInitAlloc_32f(&b.lifter, 5, 6, 2, 1); }},
        {"lifter null state", vdlStsNullPtrErr, [](B& b) { return vdlsDCTLifter_32f(b.f, b.fo, nullptr); }},
        {"bank above Nyquist", vdlStsBadArgErr, [](B& b) { return vdlsMelFBankInitAlloc_16s(&b.bank, &b.fftLen, 256, 16000, 0, 8001, 5, 1127, 700, 1); }},
        {"bank mode 3", vdlStsBadArgErr, [](B& b) { return vdlsMelFBankInitAlloc_16s(&b.bank, &b.fftLen, 256, 16000, 0, 8000, 5, 1127, 700, 3); }},
        {"bank size of no filter", vdlStsSizeErr, [](B& b) { return vdlsMelFBankGetSize_32s(400, 0, 2, &b.size); }},
        {"bank null", vdlStsNullPtrErr, [](B& b) { return vdlsEvalFBank_16s_Sfs(b.s, b.so, nullptr, 0); }},
        {"mel scale zero", vdlStsBadArgErr, [](B& b) { return vdlsMelToLinear_32f(b.f, b.fo, 4, 0, 700); }},
        {"padding 16-bit to fewer", vdlStsSizeErr, [](B& b) { return vdlsCopyWithPadding_16s(b.s, 5, b.so, 4); }},
        {"padding to fewer", vdlStsSizeErr, [](B& b) { return vdlsCopyWithPadding_32f(b.f, 5, b.fo, 4); }},
        {"cepstrum of nothing", vdlStsSizeErr, [](B& b) { return vdlsLPToCepstrum_16s_Sfs(b.s, b.so, 0, 0); }},
        {"energy step 0", vdlStsSizeErr, [](B& b) { return vdlsNormEnergy_32f(b.fo, 0, 4, 1, 1); }},
        {"energy negative floor", vdlStsBadArgErr, [](B& b) { return vdlsNormEnergy_RT_16s(b.so, 2, 4, -1, 16, 1, 1); }},
        {"range cuts crossed", vdlStsBadArgErr, [](B& b) { return vdlsNormalizeInRange_16s8u(b.s, b.u, 4, 0.8f, 0.2f, 255); }},
        {"range min above max", vdlStsBadArgErr, [](B& b) { return vdlsNormalizeInRangeMinMax_32f_I(b.fo, 4, 5, 5, 0.2f, 0.8f, 1); }},
        {"zero mean of nothing", vdlStsSizeErr, [](B& b) { return vdlsZeroMean_16s(b.so, 0); }},
        {"sign changes no result", vdlStsNullPtrErr, [](B& b) { return vdlsSignChangeRate_16s(b.s, 4, nullptr); }},
        {"peaks search 0", vdlStsOutOfRangeErr, [](B& b) { return vdlsFindPeaks_32s8u(b.l, b.u, 4, 0, 0); }},
        {"lspe two periods beyond the frame", vdlStsOutOfRangeErr, [](B& b) { return vdlsPeriodicityLSPE_16s(b.s, 30, &b.q, &b.period, 16, 6); }},
        {"periods crossed", vdlStsOutOfRangeErr, [](B& b) { return vdlsPeriodicity_32s16s(b.l, 64, &b.q, &b.period, 6, 10); }},
        {"period past the frame", vdlStsOutOfRangeErr, [](B& b) { return vdlsPeriodicity_32s16s(b.l, 16, &b.q, &b.period, 16, 6); }},
        {"pitch marks none", vdlStsSizeErr, [](B& b) { return vdlsPitchmarkToF0Cand_32f(b.f, b.fo, 0); }},
        {"high band null", vdlStsNullPtrErr, [](B& b) { return vdlsHighBandCoding_Aurora_32s_Sfs(b.l, nullptr, b.l, b.lo, 0); }},
        {"blind nothing", vdlStsSizeErr, [](B& b) { return vdlsBlindEqualization_Aurora_16s(b.s, b.so, b.so, 0, 1); }},
        {"wave null", vdlStsNullPtrErr, [](B& b) { return vdlsWaveProcessing_Aurora_16s(nullptr, b.so); }},
        {"smoothed float length not of 4", vdlStsSizeErr, [](B& b) { return vdlsSmoothedPowerSpectrumAurora_32f(b.f, b.fo, 6); }},
        {"smoothed length not of 4", vdlStsSizeErr, [](B& b) { return vdlsSmoothedPowerSpectrumAurora_32s_Sfs(b.l, b.lo, 10, 0); }},
        {"offset no last sample", vdlStsNullPtrErr, [](B& b) { return vdlsCompensateOffset_32f(b.f, b.fo, 4, nullptr, 0, 1); }},
        {"offset nothing", vdlStsSizeErr, [](B& b) { return vdlsCompensateOffsetQ15_16s_I(b.so, 0, &b.last16, 0, 1); }},
        {"offset in place null", vdlStsNullPtrErr, [](B& b) { return vdlsCompensateOffset_32f_I(nullptr, 4, &b.last32, 0, 1); }},
        {"sinc nothing", vdlStsNullPtrErr, [](B&) { return vdlsSinC_64f_I(nullptr, 4); }},
        {"sinc no length", vdlStsSizeErr, [](B& b) { return vdlsSinC_32f(b.f, b.fo, -1); }},
        {"range cut not a number", vdlStsBadArgErr, [](B& b) { return vdlsNormalizeInRange_32f(b.f, b.fo, 8, notANumber, 0.8f, 1); }},
        {"energy floor not a number", vdlStsBadArgErr, [](B& b) { return vdlsNormEnergy_RT_32f(b.fo, 1, 8, notANumber, 1, 1); }},
        {"mel scale not a number", vdlStsBadArgErr, [](B& b) { return vdlsLinearToMel_32f(b.f, b.fo, 8, notANumber, 700); }},
        {"bank rate not a number", vdlStsBadArgErr, [](B& b) { return vdlsMelFBankInitAlloc_32f(&b.bank32, &b.fftLen, 256, notANumber, 0, 4000, 8, 1127, 700, 1); }},
        {"offset pole not a number", vdlStsBadArgErr, [](B& b) { return vdlsCompensateOffset_32f_I(b.fo, 8, &b.last32, 0, notANumber); }},
    });
}

} // namespace
