// Bad arguments of every function of the family: the status of the fault,
// no element written, and the floating-point flags as they were.
#include <cfenv>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vdlsr.h"

namespace {

// Buffers every call may take; outputs start as a pattern that no call of
// the table may change.
struct Buffers {
    Buffers()
    {
        for (int i = 0; i < n; ++i) {
            f[i] = -1.0f - i;
            d[i] = -1.0 - i;
            s[i] = static_cast<Vdl16s>(-10 - i);
            l[i] = -10 - i;
            idx[i] = 1;
            counts[i] = 1;
            sign[i] = 1;
        }
        for (auto& row : bits)
            for (auto& b : row)
                b = 0x3C;
        for (int i = 0; i < n; ++i) {
            bitRows[i] = bits[i];
            fRows[i] = f;
            sRows[i] = s;
        }
        std::memset(outF, 0x7B, sizeof outF);
        std::memset(outD, 0x7B, sizeof outD);
        std::memset(outS, 0x7B, sizeof outS);
        std::memset(outL, 0x7B, sizeof outL);
        std::memset(outSign, 0x7B, sizeof outSign);
    }
    static constexpr int n = 8;
    Vdl32f f[n];
    Vdl64f d[n];
    Vdl16s s[n];
    Vdl32s l[n];
    Vdl32s idx[n], counts[n];
    Vdl8u sign[n * n];
    Vdl8u bits[n][4];
    Vdl8u* bitRows[n];
    const Vdl32f* fRows[n];
    const Vdl16s* sRows[n];
    Vdl32f outF[n];
    Vdl64f outD[n];
    Vdl16s outS[n];
    Vdl32s outL[n];
    Vdl8u outSign[n * n];
};

struct BadCall {
    const char* what;
    VdlStatus status;
    std::function<VdlStatus(Buffers&)> call;
};

const VdlHintAlgorithm hintNone = vdlAlgHintNone;
const VdlHintAlgorithm badHint = static_cast<VdlHintAlgorithm>(3);

const BadCall badCalls[] = {
    {"LogAdd null source", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsLogAdd_32f(nullptr, b.outF, 4, hintNone); }},
    {"LogAdd zero length", vdlStsSizeErr,
     [](Buffers& b) { return vdlsLogAdd_64f(b.d, b.outD, 0, hintNone); }},
    {"LogAdd unknown hint", vdlStsBadArgErr,
     [](Buffers& b) { return vdlsLogAdd_32f(b.f, b.outF, 4, badHint); }},
    {"LogAdd fixed unknown hint", vdlStsBadArgErr,
     [](Buffers& b) { return vdlsLogAdd_16s_Sfs(b.s, b.outS, 4, 0, badHint); }},
    {"LogAdd fixed null result", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsLogAdd_32s_Sfs(b.l, nullptr, 4, 0, hintNone); }},
    {"LogSub negative length", vdlStsSizeErr,
     [](Buffers& b) { return vdlsLogSub_32f(b.f, b.outF, -1); }},
    {"LogSub fixed null source", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsLogSub_16s_Sfs(nullptr, b.outS, 4, 0); }},
    {"LogSum null result", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsLogSum_64f(b.d, nullptr, 4, hintNone); }},
    {"LogSum unknown hint", vdlStsBadArgErr,
     [](Buffers& b) { return vdlsLogSum_32s_Sfs(b.l, b.outL, 4, 0, static_cast<VdlHintAlgorithm>(-1)); }},
    {"ScaleLM zero length", vdlStsSizeErr,
     [](Buffers& b) { return vdlsScaleLM_32f(b.f, b.outF, 0, -50, 13, -8); }},
    {"ScaleLM null result", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsScaleLM_16s32s(b.s, nullptr, 4, -50, 13, -8); }},
    {"ExpNegSqr null result", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsExpNegSqr_32f64f(b.f, nullptr, 4); }},
    {"ExpNegSqr in place zero length", vdlStsSizeErr,
     [](Buffers& b) { return vdlsExpNegSqr_64f_I(b.outD, 0); }},
    {"Entropy negative probability", vdlStsBadArgErr,
     [](Buffers& b) { return vdlsEntropy_32f(b.f, 4, b.outF); }},
    {"Entropy fixed null source", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsEntropy_16s32s_Sfs(nullptr, -4, 4, b.outL, 6); }},
    {"NthMax rank 0", vdlStsOutOfRangeErr,
     [](Buffers& b) { return vdlsNthMaxElement_32f(b.f, 4, 0, b.outF); }},
    {"NthMax rank past the length", vdlStsOutOfRangeErr,
     [](Buffers& b) { return vdlsNthMaxElement_32s(b.l, 4, 5, b.outL); }},
    {"NthMax not a number", vdlStsBadArgErr,
     [](Buffers& b) {
         b.d[2] = std::numeric_limits<double>::quiet_NaN();
         return vdlsNthMaxElement_64f(b.d, 4, 1, b.outD);
     }},
    {"UnitCurve shift out of range", vdlStsOutOfRangeErr,
     [](Buffers& b) { return vdlsUnitCurve_16s_Sfs(b.s, 16, b.outS, 4, 0); }},
    {"UnitCurve in place null", vdlStsNullPtrErr,
     [](Buffers&) { return vdlsUnitCurve_32f_I(nullptr, 4); }},
    {"SignTable cluster index out of range", vdlStsOutOfRangeErr,
     [](Buffers& b) {
         b.idx[3] = 8;
         return vdlsBuildSignTable_8u1u(b.idx, 2, b.bitRows, 8, 4, 0, b.outSign, 2, 8);
     }},
    {"SignTable negative count", vdlStsOutOfRangeErr,
     [](Buffers& b) {
         b.counts[1] = -1;
         return vdlsBuildSignTable_Var_8u1u(b.idx, b.counts, b.bitRows, 8, 4, 0, b.outSign, 4, 8);
     }},
    {"SignTable mixture past the row", vdlStsOutOfRangeErr,
     [](Buffers& b) {
         return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 25, b.outSign, 2, 8);
     }},
    {"SignTable null row", vdlStsNullPtrErr,
     [](Buffers& b) {
         b.bitRows[5] = nullptr;
         return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 0, b.outSign, 2, 8);
     }},
    {"SignTable zero frames", vdlStsSizeErr,
     [](Buffers& b) {
         return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 0, b.outSign, 0, 8);
     }},
    {"Shortlist row component out of range", vdlStsOutOfRangeErr,
     [](Buffers& b) {
         b.idx[7] = 6;
         return vdlsFillShortlist_Row_1u(b.idx, 6, 1, b.bitRows, 8, 4, 0);
     }},
    {"Shortlist row null counts", vdlStsNullPtrErr,
     [](Buffers& b) { return vdlsFillShortlist_RowVar_1u(b.idx, nullptr, 6, b.bitRows, 8, 4, 0); }},
    {"Shortlist column negative shift", vdlStsOutOfRangeErr,
     [](Buffers& b) { return vdlsFillShortlist_Column_1u(b.idx, 1, b.bitRows, 8, 4, -1, 6); }},
    {"Shortlist column zero width", vdlStsSizeErr,
     [](Buffers& b) {
         return vdlsFillShortlist_ColumnVar_1u(b.idx, b.counts, b.bitRows, 8, 0, 0, 6);
     }},
    {"Select null sign", vdlStsNullPtrErr,
     [](Buffers& b) {
         return vdlsLogGaussMixture_Select_32f_D2(b.f, b.f, b.f, 4, 4, b.f, nullptr, 2, b.outF, 2,
                                                  0);
     }},
    {"Select step below width", vdlStsStepErr,
     [](Buffers& b) {
         return vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2(b.s, b.s, 3, 4, b.f, b.sign, 2,
                                                                b.outF, 2, 0, 0);
     }},
    {"Select zero frames", vdlStsSizeErr,
     [](Buffers& b) {
         return vdlsLogGaussMixture_SelectScaled_16s32f_D2L(b.sRows, b.sRows, b.sRows, 4, b.f,
                                                            b.sign, 2, b.outF, 0, 0, 0);
     }},
    {"Select null row of a table", vdlStsNullPtrErr,
     [](Buffers& b) {
         b.fRows[1] = nullptr;
         return vdlsLogGaussMixture_SelectIdVar_32f_D2L(b.fRows, b.fRows, 4, b.f, b.sign, 2,
                                                        b.outF, 2, 0);
     }},
    {"Select zero width", vdlStsSizeErr,
     [](Buffers& b) {
         return vdlsLogGaussMixture_Select_32f_D2L(b.fRows, b.fRows, b.fRows, 0, b.f, b.sign, 2,
                                                   b.outF, 2, 0);
     }},
};

TEST(BadArguments, AreRefusedBeforeAnythingIsWrittenOrRaised)
{
    for (const BadCall& c : badCalls) {
        Buffers b;
        const Buffers before = b;
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(c.call(b), c.status) << c.what;
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0) << c.what << " raised a flag";
        EXPECT_EQ(std::memcmp(b.outF, before.outF, sizeof b.outF), 0) << c.what;
        EXPECT_EQ(std::memcmp(b.outD, before.outD, sizeof b.outD), 0) << c.what;
        EXPECT_EQ(std::memcmp(b.outS, before.outS, sizeof b.outS), 0) << c.what;
        EXPECT_EQ(std::memcmp(b.outL, before.outL, sizeof b.outL), 0) << c.what;
        EXPECT_EQ(std::memcmp(b.outSign, before.outSign, sizeof b.outSign), 0) << c.what;
        EXPECT_EQ(std::memcmp(b.bits, before.bits, sizeof b.bits), 0) << c.what;
    }
}

} // namespace
