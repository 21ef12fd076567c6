// Bad arguments of the training functions: each call returns its status
// and leaves the destination and the floating-point flags as they were.
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "refused_calls.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

// Buffers every call may use: a 4 x 4 matrix in both layouts, vectors of 4,
// and a destination that a refused call must leave at 7.
struct Buffers {
    Vdl32f f[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    Vdl64f d[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    Vdl16s s[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    Vdl32s i32[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const Vdl32f* fRows[4] = {f, f + 4, f + 8, f + 12};
    const Vdl32f* fRowsNull[4] = {f, nullptr, f + 8, f + 12};
    Vdl64f* dRows[4] = {d, d + 4, d + 8, d + 12};
    const Vdl16s* sRows[4] = {s, s + 4, s + 8, s + 12};
    Vdl32f fOut[16];
    Vdl64f dOut[16];
    Vdl16s sOut[16];
    Vdl32s iOut[16];
    Vdl64f* dOutRows[4] = {dOut, dOut + 4, dOut + 8, dOut + 12};
    Vdl32s index[4] = {0, 1, 2, 3};
    Vdl32s badIndex[4] = {0, 1, 4, 3};
    Vdl32f zeroWgt[4] = {1e-20f, 1, -1e-20f, -1};  // sums to zero, inexactly on the way
    Vdl16u addIndex[4] = {0, 1, 2, 3};
    Vdl16u badAddIndex[4] = {0, 1, 4, 0};

    Buffers()
    {
        for (int k = 0; k < 16; ++k) fOut[k] = 7, dOut[k] = 7, sOut[k] = 7, iOut[k] = 7;
    }
    bool untouched() const
    {
        for (int k = 0; k < 16; ++k)
            if (fOut[k] != 7 || dOut[k] != 7 || sOut[k] != 7 || iOut[k] != 7) return false;
        return true;
    }
};

TEST(TrainBadArguments, AreRefusedWithoutWritingOrRaisingFlags)
{
    expectRefused<Buffers>({
        {"null source", vdlStsNullPtrErr, [](Buffers& b) { return vdlsMeanColumn_32f_D2(nullptr, 4, 4, b.fOut, 4); }},
        {"null row", vdlStsNullPtrErr, [](Buffers& b) { return vdlsMeanVarColumn_32f_D2L(b.fRowsNull, 4, b.fOut, b.fOut + 4, 4); }},
        {"zero height", vdlStsSizeErr, [](Buffers& b) { return vdlsVarColumn_16s_D2Sfs(b.s, 0, 4, b.s, b.sOut, 4, 0); }},
        {"zero width", vdlStsSizeErr, [](Buffers& b) { return vdlsSumRow_16s32s_D2LSfs(b.sRows, 0, b.iOut, 4, 0); }},
        {"step below width", vdlStsStepErr, [](Buffers& b) { return vdlsSumColumn_32f_D2(b.f, 3, 4, b.fOut, 4); }},
        {"step below width", vdlStsStepErr, [](Buffers& b) { return vdlsMatVecMul_16s32s_D2Sfs(b.s, 2, b.s, 4, b.iOut, 4, 0); }},
        {"weights sum to zero", vdlStsDivByZeroErr, [](Buffers& b) { return vdlsWeightedMeanVarColumn_32f_D2L(b.fRows, b.zeroWgt, 4, b.fOut, b.fOut + 4, 4); }},
        {"null mean", vdlStsNullPtrErr, [](Buffers& b) { return vdlsAccCovarianceMatrix_32f64f_D2L(b.fRows, 4, nullptr, b.dOutRows, 4, 1.0); }},
        {"destination step", vdlStsStepErr, [](Buffers& b) { return vdlsAccCovarianceMatrix_16s64f_D2(b.s, 4, 4, b.d, b.dOut, 4, 3, 1.0); }},
        {"occupancy zero", vdlStsBadArgErr, [](Buffers& b) { return vdlsUpdateMean_32f(b.f, b.fOut, 4, 0.0f); }},
        {"occupancy NaN", vdlStsBadArgErr, [](Buffers& b) { return vdlsUpdateVar_64f(b.d, b.d, b.d, b.dOut, 4, std::nan(""), 1.0); }},
        {"total occupancy", vdlStsBadArgErr, [](Buffers& b) { return vdlsUpdateWeight_64f(b.d, b.dOut, 4, b.dOut + 4, 0.1, -1.0); }},
        {"precision zero", vdlStsBadArgErr, [](Buffers& b) { b.f[2] = 0; return vdlsDcsClustLAccumulate_32f(b.f, b.f, b.fOut, b.fOut + 4, 4, 1.0f); }},
        {"cluster occupancy", vdlStsBadArgErr, [](Buffers& b) { return vdlsDcsClustLCompute_64f(b.d, b.d, 4, b.dOut, 0.0); }},
        {"negative length", vdlStsSizeErr, [](Buffers& b) { return vdlsNewVar_32s_Sfs(b.i32, b.i32, b.iOut, -1, 1, 1, 0); }},
        {"null weight sum", vdlStsNullPtrErr, [](Buffers& b) { return vdlsWeightedSum_16s(b.s, nullptr, b.sOut, 4, 1, 1); }},
        {"floor zero", vdlStsBadArgErr, [](Buffers& b) { return vdlsRecSqrt_32s16s_Sfs(b.i32, b.sOut, 4, 0, 0); }},
        {"index past the row", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsCopyColumn_Indirect_16s_D2(b.s, 4, 4, b.sOut, b.badIndex, 4, 4, 4); }},
        {"source step", vdlStsStepErr, [](Buffers& b) { return vdlsCopyColumn_Indirect_32f_D2(b.f, 4, 3, b.fOut, b.index, 4, 4, 4); }},
        {"first row past the end", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsSumColumnAbs_64f_D2L(b.dRows, 4, 4, b.dOut, 4, 0); }},
        {"column past the end", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsQRTransColumn_64f_D2L(b.dOutRows, 4, 4, 0, 4, 1, 0); }},
        {"SVD wider than high", vdlStsSizeErr, [](Buffers& b) { return vdlsSVD_64f_D2(b.d, b.dOut, 2, b.dOut + 8, b.dOut, 4, 4, 10); }},
        {"SVD iterations", vdlStsBadArgErr, [](Buffers& b) { return vdlsSVDSort_64f_D2L(b.dRows, b.dOutRows, 4, b.dOut, b.dOutRows, 4, 0); }},
        {"MCRA null state", vdlStsNullPtrErr, [](Buffers& b) { return vdlsUpdateNoisePSDMCRA_32s_I(b.i32, nullptr, b.iOut); }},
        {"MCRA sampling rate", vdlStsBadArgErr, [](Buffers& b) { return vdlsInitMCRA_32s(0, 64, reinterpret_cast<VdlMCRAState_32s*>(b.iOut)); }},
        {"MCRA transform length", vdlStsBadArgErr, [](Buffers& b) { return vdlsGetSizeMCRA_32s(1, b.iOut); }},
        {"null table", vdlStsNullPtrErr, [](Buffers& b) { return vdlsSubRow_32f_D2L(b.f, nullptr, 4, 4); }},
        {"add rows index past the last row", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 1, 4, b.index, b.addIndex, 4, b.fOut, 4, 1); }},
        {"add rows index before the first", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, -1, 4, b.index, b.addIndex, 1, b.fOut, 4, 1); }},
        {"add rows additional row past the last", vdlStsOutOfRangeErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 0, 4, b.index, b.badAddIndex, 3, b.fOut, 4, 1); }},
        {"add rows no width", vdlStsSizeErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 0, 4, b.index, b.addIndex, 4, b.fOut, 0, 1); }},
        {"add rows none", vdlStsSizeErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 0, 4, b.index, b.addIndex, 0, b.fOut, 4, 1); }},
        {"add rows step below width", vdlStsStepErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 0, 3, b.index, b.addIndex, 4, b.fOut, 4, 1); }},
        {"add rows null index", vdlStsNullPtrErr, [](Buffers& b) { return vdlsAddNRows_32f_D2(b.f, 4, 0, 4, nullptr, b.addIndex, 4, b.fOut, 4, 1); }},
        {"set nothing", vdlStsSizeErr, [](Buffers& b) { return vdlsSet_32f(2, b.fOut, 0); }},
        {"set null", vdlStsNullPtrErr, [](Buffers&) { return vdlsSet_32f(2, nullptr, 3); }},
    });
}

} // namespace
