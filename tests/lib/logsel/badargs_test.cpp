// Bad arguments of every function of the family: the status of the fault,
// no element written, and the floating-point flags as they were.
#include <cstring>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "refused_calls.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

// Inputs of every call, and outputs that start as a pattern no call of the
// table may change.
struct Buffers {
    static constexpr int n = 8;
    Buffers()
    {
        for (int i = 0; i < n; ++i) {
            f[i] = -1.0f - i;
            d[i] = -1.0 - i;
            s[i] = static_cast<Vdl16s>(-10 - i);
            l[i] = -10 - i;
            idx[i] = counts[i] = sign[i] = 1;
            bitRows[i] = bits[i];
            fRows[i] = f;
            sRows[i] = s;
        }
        std::memset(bits, 0x3C, sizeof bits);
        std::memset(&out, 0x7B, sizeof out);
    }
    bool untouched() const
    {
        Outputs pattern;
        std::memset(&pattern, 0x7B, sizeof pattern);
        Vdl8u bitPattern[n][4];
        std::memset(bitPattern, 0x3C, sizeof bitPattern);
        return std::memcmp(&out, &pattern, sizeof out) == 0 && std::memcmp(bits, bitPattern, sizeof bits) == 0;
    }
    Vdl32f f[n];
    Vdl64f d[n];
    Vdl16s s[n];
    Vdl32s l[n], idx[n], counts[n];
    Vdl8u sign[n * n], bits[n][4];
    Vdl8u* bitRows[n];
    const Vdl32f* fRows[n];
    const Vdl16s* sRows[n];
    struct Outputs {
        Vdl32f f[n];
        Vdl64f d[n];
        Vdl16s s[n];
        Vdl32s l[n];
        Vdl8u sign[n * n];
    } out;
};

const VdlHintAlgorithm hintNone = vdlAlgHintNone;
const VdlHintAlgorithm badHint = static_cast<VdlHintAlgorithm>(3);

TEST(BadArguments, AreRefusedBeforeAnythingIsWrittenOrRaised)
{
    expectRefused<Buffers>({
        {"LogAdd null source", vdlStsNullPtrErr, [](Buffers& b) { return vdlsLogAdd_32f(nullptr, b.out.f, 4, hintNone); }},
        {"LogAdd zero length", vdlStsSizeErr, [](Buffers& b) { return vdlsLogAdd_64f(b.d, b.out.d, 0, hintNone); }},
        {"LogAdd unknown hint", vdlStsBadArgErr, [](Buffers& b) { return vdlsLogAdd_32f(b.f, b.out.f, 4, badHint); }},
        {"LogAdd fixed unknown hint", vdlStsBadArgErr, [](Buffers& b) { return vdlsLogAdd_16s_Sfs(b.s, b.out.s, 4, 0, badHint); }},
        {"LogAdd fixed null result", vdlStsNullPtrErr, [](Buffers& b) { return vdlsLogAdd_32s_Sfs(b.l, nullptr, 4, 0, hintNone); }},
        {"LogSub negative length", vdlStsSizeErr, [](Buffers& b) { return vdlsLogSub_32f(b.f, b.out.f, -1); }},
        {"LogSub fixed null source", vdlStsNullPtrErr, [](Buffers& b) { return vdlsLogSub_16s_Sfs(nullptr, b.out.s, 4, 0); }},
        {"LogSum null result", vdlStsNullPtrErr, [](Buffers& b) { return vdlsLogSum_64f(b.d, nullptr, 4, hintNone); }},
        {"LogSum unknown hint", vdlStsBadArgErr, [](Buffers& b) { return vdlsLogSum_32s_Sfs(b.l, b.out.l, 4, 0, static_cast<VdlHintAlgorithm>(-1)); }},
        {"ScaleLM zero length", vdlStsSizeErr, [](Buffers& b) { return vdlsScaleLM_32f(b.f, b.out.f, 0, -50, 13, -8); }},
        {"ScaleLM null result", vdlStsNullPtrErr, [](Buffers& b) { return vdlsScaleLM_16s32s(b.s, nullptr, 4, -50, 13, -8); }},
        {"ExpNegSqr null result", vdlStsNullPtrErr, [](Buffers& b) { return vdlsExpNegSqr_32f64f(b.f, nullptr, 4); }},
        {"ExpNegSqr in place zero length", vdlStsSizeErr, [](Buffers& b) { return vdlsExpNegSqr_64f_I(b.out.d, 0); }},
        {"Entropy negative probability", vdlStsBadArgErr, [](Buffers& b) { return vdlsEntropy_32f(b.f, 4, b.out.f); }},
        {"Entropy fixed null source", vdlStsNullPtrErr, [](Buffers& b) { return vdlsEntropy_16s32s_Sfs(nullptr, -4, 4, b.out.l, 6); }},
        {"NthMax rank 0", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsNthMaxElement_32f(b.f, 4, 0, b.out.f); }},
        {"NthMax rank past the length", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsNthMaxElement_32s(b.l, 4, 5, b.out.l); }},
        {"NthMax not a number", vdlStsBadArgErr, [](Buffers& b) { b.d[2] = std::numeric_limits<double>::quiet_NaN(); return vdlsNthMaxElement_64f(b.d, 4, 1, b.out.d); }},
        {"UnitCurve shift out of range", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsUnitCurve_16s_Sfs(b.s, 16, b.out.s, 4, 0); }},
        {"UnitCurve in place null", vdlStsNullPtrErr, [](Buffers&) { return vdlsUnitCurve_32f_I(nullptr, 4); }},
        {"SignTable cluster index out of range", vdlStsOutOfRangeErr, [](Buffers& b) { b.idx[3] = 8; return vdlsBuildSignTable_8u1u(b.idx, 2, b.bitRows, 8, 4, 0, b.out.sign, 2, 8); }},
        {"SignTable negative count", vdlStsOutOfRangeErr, [](Buffers& b) { b.counts[1] = -1; return vdlsBuildSignTable_Var_8u1u(b.idx, b.counts, b.bitRows, 8, 4, 0, b.out.sign, 4, 8); }},
        {"SignTable mixture past the row", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 25, b.out.sign, 2, 8); }},
        {"SignTable null row", vdlStsNullPtrErr, [](Buffers& b) { b.bitRows[5] = nullptr; return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 0, b.out.sign, 2, 8); }},
        {"SignTable zero frames", vdlStsSizeErr, [](Buffers& b) { return vdlsBuildSignTable_8u1u(b.idx, 1, b.bitRows, 8, 4, 0, b.out.sign, 0, 8); }},
        {"Shortlist row component out of range", vdlStsOutOfRangeErr, [](Buffers& b) { b.idx[7] = 6; return vdlsFillShortlist_Row_1u(b.idx, 6, 1, b.bitRows, 8, 4, 0); }},
        {"Shortlist row null counts", vdlStsNullPtrErr, [](Buffers& b) { return vdlsFillShortlist_RowVar_1u(b.idx, nullptr, 6, b.bitRows, 8, 4, 0); }},
        {"Shortlist column negative shift", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsFillShortlist_Column_1u(b.idx, 1, b.bitRows, 8, 4, -1, 6); }},
        {"Shortlist column zero width", vdlStsSizeErr, [](Buffers& b) { return vdlsFillShortlist_ColumnVar_1u(b.idx, b.counts, b.bitRows, 8, 0, 0, 6); }},
        {"Select null sign", vdlStsNullPtrErr, [](Buffers& b) { return vdlsLogGaussMixture_Select_32f_D2(b.f, b.f, b.f, 4, 4, b.f, nullptr, 2, b.out.f, 2, 0); }},
        {"Select step below width", vdlStsStepErr, [](Buffers& b) { return vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2(b.s, b.s, 3, 4, b.f, b.sign, 2, b.out.f, 2, 0, 0); }},
        {"Select zero frames", vdlStsSizeErr, [](Buffers& b) { return vdlsLogGaussMixture_SelectScaled_16s32f_D2L(b.sRows, b.sRows, b.sRows, 4, b.f, b.sign, 2, b.out.f, 0, 0, 0); }},
        {"Select null row of a table", vdlStsNullPtrErr, [](Buffers& b) { b.fRows[1] = nullptr; return vdlsLogGaussMixture_SelectIdVar_32f_D2L(b.fRows, b.fRows, 4, b.f, b.sign, 2, b.out.f, 2, 0); }},
        {"Select zero width", vdlStsSizeErr, [](Buffers& b) { return vdlsLogGaussMixture_Select_32f_D2L(b.fRows, b.fRows, b.fRows, 0, b.f, b.sign, 2, b.out.f, 2, 0); }},
    });
}

} // namespace
