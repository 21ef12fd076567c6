// Bad and unstable inputs: each call is refused with its status, writes
// nothing and leaves the floating-point flags as it found them.
#include <cfenv>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "vdls.h"
#include "vdlsr.h"

namespace {

struct Refusal {
    const char* what;
    VdlStatus status;
    std::function<VdlStatus(Vdl32f*, Vdl16s*)> call;  // writes into the two buffers
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

const Refusal refusals[] = {
    {"Durbin null source", vdlStsNullPtrErr, [](Vdl32f* d, Vdl16s*) { return vdlsDurbin_32f(nullptr, d, 3, &errF); }},
    {"Durbin null error", vdlStsNullPtrErr, [](Vdl32f* d, Vdl16s*) { return vdlsDurbin_32f(lagsF, d, 3, nullptr); }},
    {"Durbin order 0", vdlStsSizeErr, [](Vdl32f* d, Vdl16s*) { return vdlsDurbin_32f(lagsF, d, 0, &errF); }},
    {"Durbin silent lags", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsDurbin_32f(silentF, d, 2, &errF); }},
    {"Durbin |k| >= 1", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsDurbin_32f(badLagsF, d, 2, &errF); }},
    {"Durbin 16s negative lag 0", vdlStsBadArgErr, [](Vdl32f*, Vdl16s* d) { const Vdl16s r[] = {-1, 0}; return vdlsDurbin_16s_Sfs(r, d, 1, &errS, 0); }},
    {"Schur |k| >= 1", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsSchur_32f(badLagsF, d, 2, &errF); }},
    {"Schur 16s order -1", vdlStsSizeErr, [](Vdl32f*, Vdl16s* d) { return vdlsSchur_16s_Sfs(lagsS, d, -1, &errS, 0); }},
    {"step-down unstable", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsLPToReflection_32f(unstableLpF, d, 2); }},
    {"step-down 16s unstable", vdlStsBadArgErr, [](Vdl32f*, Vdl16s* d) { return vdlsLPToReflection_16s_Sfs(unstableLpS, d, 2, -12); }},
    {"step-up null", vdlStsNullPtrErr, [](Vdl32f*, Vdl16s*) { return vdlsReflectionToLP_32f(unitK, nullptr, 2); }},
    {"area ratio of k = -1", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsReflectionToAR_32f(unitK, d, 2); }},
    {"areas 16s of k = -1", vdlStsBadArgErr, [](Vdl32f*, Vdl16s* d) { return vdlsReflectionToTrueAR_16s_Sfs(unitKS, 13, d, 2, 0); }},
    {"log-area limit 1", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsReflectionToLAR_32f(unitK, d, 2, 1.0f); }},
    {"tilt length 0", vdlStsSizeErr, [](Vdl32f* d, Vdl16s*) { return vdlsReflectionToTilt_32f(lagsF, lagsF, d, 0); }},
    {"spectrum order 0", vdlStsOutOfRangeErr, [](Vdl32f* d, Vdl16s*) { return vdlsLPToSpectrum_32f(lagsF, 2, d, 0, 1.0f); }},
    {"spectrum 16s order 17", vdlStsOutOfRangeErr, [](Vdl32f*, Vdl16s* d) { return vdlsLPToSpectrum_16s_Sfs(lagsS, 2, d, 17, 1, 0); }},
    {"LSP null roots", vdlStsNullPtrErr, [](Vdl32f* d, Vdl16s*) { return vdlsLPToLSP_32f(lagsF, d, 2, nullptr, 10, 4); }},
    {"LSP one interval", vdlStsOutOfRangeErr, [](Vdl32f* d, Vdl16s*) { return vdlsLPToLSP_32f(lagsF, d, 2, &roots, 1, 4); }},
    {"LSP 16s 53 bisections", vdlStsOutOfRangeErr, [](Vdl32f*, Vdl16s* d) { return vdlsLPToLSP_16s_Sfs(lagsS, 9, d, 2, &roots, 10, 53, -9); }},
    {"LSP to LP length 0", vdlStsSizeErr, [](Vdl32f* d, Vdl16s*) { return vdlsLSPToLP_32f(lagsF, d, 0); }},
    {"prediction order = length", vdlStsSizeErr, [](Vdl32f* d, Vdl16s*) { return vdlsLinearPrediction_Auto_32f(signal, 3, d, 3); }},
    {"prediction of silence", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsLinearPrediction_Auto_32f(silentF, 3, d, 2); }},
    {"covariance 16s null", vdlStsNullPtrErr, [](Vdl32f*, Vdl16s*) { return vdlsLinearPrediction_Cov_16s_Sfs(signalS, 6, nullptr, 2, 0); }},
    {"negated 16s order 0", vdlStsSizeErr, [](Vdl32f*, Vdl16s* d) { return vdlsLinearPredictionNeg_Auto_16s_Sfs(signalS, 6, d, 0, 0); }},
    {"taps null", vdlStsNullPtrErr, [](Vdl32f* d, Vdl16s*) { return vdlsTabsCalculation_Aurora_32f(nullptr, d); }},
    {"residual null taps", vdlStsNullPtrErr, [](Vdl32f* d, Vdl16s*) { return vdlsResidualFilter_Aurora_32f(signal, d, nullptr); }},
    {"low/high odd length", vdlStsSizeErr, [](Vdl32f* d, Vdl16s*) { return vdlsLowHighFilter_Aurora_32f(signal, d, d + 8, 3, signal, 2); }},
    {"low/high 16s no taps", vdlStsSizeErr, [](Vdl32f*, Vdl16s* d) { return vdlsLowHighFilter_Aurora_16s_Sfs(signalS, d, d + 8, 2, signalS, 0, 0); }},
    {"convert rounding mode 2", vdlStsOutOfRangeErr, [](Vdl32f*, Vdl16s* d) { return vdlsConvert_32f16s_Sfs(signal, d, 6, 2, 0); }},
    {"random low above high", vdlStsBadArgErr, [](Vdl32f* d, Vdl16s*) { return vdlsRandUniform_Direct_32f(d, 4, 1.0f, 0.0f, &seed); }},
    {"random 16s null seed", vdlStsNullPtrErr, [](Vdl32f*, Vdl16s* d) { return vdlsRandUniform_Direct_16s(d, 4, 0, 1, nullptr); }},
};

TEST(LpArguments, RefusedCallsWriteNothingAndKeepTheFlags)
{
    for (const Refusal& r : refusals) {
        SCOPED_TRACE(r.what);
        std::vector<Vdl32f> f(64, 77.0f);
        std::vector<Vdl16s> s(64, 77);
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(r.call(f.data(), s.data()), r.status);
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
        EXPECT_EQ(f, std::vector<Vdl32f>(64, 77.0f));
        EXPECT_EQ(s, std::vector<Vdl16s>(64, 77));
    }
    EXPECT_EQ(seed, 1u);
}

} // namespace
