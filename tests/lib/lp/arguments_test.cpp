// Bad and unstable inputs: each call is refused with its status, writes
// nothing and leaves the floating-point flags as it found them.
#include <vector>

#include <gtest/gtest.h>

#include "refused_calls.h"
#include "vdls.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

// The float and 16-bit outputs a refused call must leave at 77.
struct B {
    std::vector<Vdl32f> f = std::vector<Vdl32f>(64, 77.0f);
    std::vector<Vdl16s> s = std::vector<Vdl16s>(64, 77);
    bool untouched() const { return f == std::vector<Vdl32f>(64, 77.0f) && s == std::vector<Vdl16s>(64, 77); }
};

const Vdl32f lagsF[] = {4, 1, 0.5f, 0.25f};
const Vdl16s lagsS[] = {400, 100, 50, 25};
const Vdl32f silentF[] = {0, 0, 0};
const Vdl32f badLagsF[] = {1, 1.5f, 0};    // k1 = 1.5
const Vdl32f unstableLpF[] = {0.5f, 1.2f};  // k2 = 1.2
const Vdl16s unstableLpS[] = {2048, 4915};  // the same in Q12
const Vdl32f unitK[] = {0.5f, -1.0f};
const Vdl16s unitKS[] = {100, -8192};       // -1 in Q13
const Vdl32f signal[] = {1, 2, 3, 4, 5, 6};
const Vdl16s signalS[] = {1, 2, 3, 4, 5, 6};
Vdl32f errF;
Vdl32s errS;
int roots;
unsigned int seed = 1;

TEST(LpArguments, RefusedCallsWriteNothingAndKeepTheFlags)
{
    expectRefused<B>({
        {"Durbin null source", vdlStsNullPtrErr, [](B& b) { return vdlsDurbin_32f(nullptr, b.f.data(), 3, &errF); }},
        {"Durbin null error", vdlStsNullPtrErr, [](B& b) { return vdlsDurbin_32f(lagsF, b.f.data(), 3, nullptr); }},
        {"Durbin order 0", vdlStsSizeErr, [](B& b) { return vdlsDurbin_32f(lagsF, b.f.data(), 0, &errF); }},
        {"Durbin silent lags", vdlStsBadArgErr, [](B& b) { return vdlsDurbin_32f(silentF, b.f.data(), 2, &errF); }},
        {"Durbin |k| >= 1", vdlStsBadArgErr, [](B& b) { return vdlsDurbin_32f(badLagsF, b.f.data(), 2, &errF); }},
        {"Durbin 16s negative lag 0", vdlStsBadArgErr, [](B& b) { const Vdl16s r[] = {-1, 0}; return vdlsDurbin_16s_Sfs(r, b.s.data(), 1, &errS, 0); }},
        {"Schur |k| >= 1", vdlStsBadArgErr, [](B& b) { return vdlsSchur_32f(badLagsF, b.f.data(), 2, &errF); }},
        {"Schur 16s order -1", vdlStsSizeErr, [](B& b) { return vdlsSchur_16s_Sfs(lagsS, b.s.data(), -1, &errS, 0); }},
        {"step-down unstable", vdlStsBadArgErr, [](B& b) { return vdlsLPToReflection_32f(unstableLpF, b.f.data(), 2); }},
        {"step-down 16s unstable", vdlStsBadArgErr, [](B& b) { return vdlsLPToReflection_16s_Sfs(unstableLpS, b.s.data(), 2, -12); }},
        {"step-up null", vdlStsNullPtrErr, [](B&) { return vdlsReflectionToLP_32f(unitK, nullptr, 2); }},
        {"area ratio of k = -1", vdlStsBadArgErr, [](B& b) { return vdlsReflectionToAR_32f(unitK, b.f.data(), 2); }},
        {"areas 16s of k = -1", vdlStsBadArgErr, [](B& b) { return vdlsReflectionToTrueAR_16s_Sfs(unitKS, 13, b.s.data(), 2, 0); }},
        {"log-area limit 1", vdlStsBadArgErr, [](B& b) { return vdlsReflectionToLAR_32f(unitK, b.f.data(), 2, 1.0f); }},
        {"tilt length 0", vdlStsSizeErr, [](B& b) { return vdlsReflectionToTilt_32f(lagsF, lagsF, b.f.data(), 0); }},
        {"spectrum order 0", vdlStsOutOfRangeErr, [](B& b) { return vdlsLPToSpectrum_32f(lagsF, 2, b.f.data(), 0, 1.0f); }},
        {"spectrum 16s order 17", vdlStsOutOfRangeErr, [](B& b) { return vdlsLPToSpectrum_16s_Sfs(lagsS, 2, b.s.data(), 17, 1, 0); }},
        {"LSP null roots", vdlStsNullPtrErr, [](B& b) { return vdlsLPToLSP_32f(lagsF, b.f.data(), 2, nullptr, 10, 4); }},
        {"LSP one interval", vdlStsOutOfRangeErr, [](B& b) { return vdlsLPToLSP_32f(lagsF, b.f.data(), 2, &roots, 1, 4); }},
        {"LSP 16s 53 bisections", vdlStsOutOfRangeErr, [](B& b) { return vdlsLPToLSP_16s_Sfs(lagsS, 9, b.s.data(), 2, &roots, 10, 53, -9); }},
        {"LSP to LP length 0", vdlStsSizeErr, [](B& b) { return vdlsLSPToLP_32f(lagsF, b.f.data(), 0); }},
        {"prediction order = length", vdlStsSizeErr, [](B& b) { return vdlsLinearPrediction_Auto_32f(signal, 3, b.f.data(), 3); }},
        {"prediction of silence", vdlStsBadArgErr, [](B& b) { return vdlsLinearPrediction_Auto_32f(silentF, 3, b.f.data(), 2); }},
        {"covariance 16s null", vdlStsNullPtrErr, [](B&) { return vdlsLinearPrediction_Cov_16s_Sfs(signalS, 6, nullptr, 2, 0); }},
        {"negated 16s order 0", vdlStsSizeErr, [](B& b) { return vdlsLinearPredictionNeg_Auto_16s_Sfs(signalS, 6, b.s.data(), 0, 0); }},
        {"taps null", vdlStsNullPtrErr, [](B& b) { return vdlsTabsCalculation_Aurora_32f(nullptr, b.f.data()); }},
        {"residual null taps", vdlStsNullPtrErr, [](B& b) { return vdlsResidualFilter_Aurora_32f(signal, b.f.data(), nullptr); }},
        {"low/high odd length", vdlStsSizeErr, [](B& b) { return vdlsLowHighFilter_Aurora_32f(signal, b.f.data(), b.f.data() + 8, 3, signal, 2); }},
        {"low/high 16s no taps", vdlStsSizeErr, [](B& b) { return vdlsLowHighFilter_Aurora_16s_Sfs(signalS, b.s.data(), b.s.data() + 8, 2, signalS, 0, 0); }},
        {"convert rounding mode 2", vdlStsOutOfRangeErr, [](B& b) { return vdlsConvert_32f16s_Sfs(signal, b.s.data(), 6, 2, 0); }},
        {"random low above high", vdlStsBadArgErr, [](B& b) { return vdlsRandUniform_Direct_32f(b.f.data(), 4, 1.0f, 0.0f, &seed); }},
        {"random 16s null seed", vdlStsNullPtrErr, [](B& b) { return vdlsRandUniform_Direct_16s(b.s.data(), 4, 0, 1, nullptr); }},
    });
    EXPECT_EQ(seed, 1u);
}

} // namespace
