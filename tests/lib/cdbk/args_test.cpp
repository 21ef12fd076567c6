// Bad arguments of every kind of call, in one table: each gives its
// negative status, writes nothing, and leaves the floating-point flags.
#include <cfenv>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

#include <gtest/gtest.h>

#include "vdlsr.h"

namespace {

const float nan32 = std::numeric_limits<float>::quiet_NaN();

struct BadCall {
    const char* what;
    VdlStatus expected;
    std::function<VdlStatus()> call;
};

class BadArguments : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (int i = 0; i < 40; ++i) {
            src16[i] = static_cast<Vdl16s>(i * 7 % 23 - 11);
            src32[i] = static_cast<Vdl32f>(src16[i]);
        }
        ASSERT_EQ(vdlsCdbkInitAlloc_L2_16s(&cb16, src16, 2, 2, 5, 5, vdlCdbkHintFull), 0);
        ASSERT_EQ(vdlsCdbkInitAlloc_L2_32f(&cb32, src32, 2, 2, 5, 5, vdlCdbkHintFull), 0);
        table16[0] = table16[1] = cb16;
        table32[0] = table32[1] = cb32;
        std::memset(out, 0x5A, sizeof out);
        std::memcpy(saved, out, sizeof out);
    }
    void TearDown() override
    {
        vdlsCdbkFree_16s(cb16);
        vdlsCdbkFree_32f(cb32);
    }

    Vdl16s src16[40];
    Vdl32f src32[40];
    VdlsCdbkState_16s* cb16 = nullptr;
    VdlsCdbkState_32f* cb32 = nullptr;
    VdlsCdbkState_16s* table16[2] = {};
    VdlsCdbkState_32f* table32[2] = {};
    // Every output of the calls points in here.
    unsigned char out[512];
    unsigned char saved[512];

    template <class P>
    P* at(int offset) { return reinterpret_cast<P*>(out + offset); }
};

TEST_F(BadArguments, RefusedWithoutWritingOrRaisingFlags)
{
    auto** pp16 = at<VdlsCdbkState_16s*>(0);
    auto** pp32 = at<VdlsCdbkState_32f*>(0);
    Vdl32s* idx = at<Vdl32s>(64);
    Vdl32s* dist32s = at<Vdl32s>(256);
    Vdl32f* dist32f = at<Vdl32f>(256);
    Vdl16s* dst16 = at<Vdl16s>(128);
    Vdl32f* dst32 = at<Vdl32f>(128);
    Vdl8u* dst8 = at<Vdl8u>(128);
    int* num = at<int>(500);
    const Vdl16s wgt16[2] = {1, -1};
    const Vdl32f wgtNan[2] = {1, nan32};
    const Vdl32f wgtInf[2] = {INFINITY, 1};
    const Vdl16s badIdx16[2] = {0, 5};   // codebook 1 has 5 codewords
    const Vdl16s negIdx16[2] = {-1, 0};
    const Vdl8u idx8[4] = {0, 1, 2, 3};
    const Vdl8u packed7[1] = {0xFC};     // 3 bits of 7 and 3 of 7: above 4
    const Vdl32s heights[2] = {3, 3}, zeroHeights[2] = {3, 0}, widths[2] = {2, 2},
                 shortSteps[2] = {2, 1};
    const Vdl16s rowIdx[2] = {1, 3};
    const Vdl16s* rows[2] = {src16, src16};
    const Vdl16s* nullRow[2] = {src16, nullptr};
    VdlsCdbkState_16s* withNull[2] = {cb16, nullptr};
    auto* wrongKind = reinterpret_cast<const VdlsCdbkState_16s*>(cb32);

    const BadCall table[] = {
        {"init: null handle", vdlStsNullPtrErr, [&] { return vdlsCdbkInitAlloc_L2_16s(nullptr, src16, 2, 2, 5, 5, vdlCdbkHintKmeansLong); }},
        {"init: null data", vdlStsNullPtrErr, [&] { return vdlsCdbkInitAlloc_L2_32f(pp32, nullptr, 2, 2, 5, 5, vdlCdbkHintKmeansLong); }},
        {"init: null weights", vdlStsNullPtrErr, [&] { return vdlsCdbkInitAlloc_WgtL2_16s(pp16, src16, nullptr, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: width 0", vdlStsSizeErr, [&] { return vdlsCdbkInitAlloc_L2_16s(pp16, src16, 0, 2, 5, 5, vdlCdbkHintFull); }},
        {"init: height 0", vdlStsSizeErr, [&] { return vdlsCdbkInitAlloc_L2_32f(pp32, src32, 2, 2, 0, 1, vdlCdbkHintKmeansLong); }},
        {"init: nClust 0", vdlStsSizeErr, [&] { return vdlsCdbkInitAlloc_L2_16s(pp16, src16, 2, 2, 5, 0, vdlCdbkHintKmeansLong); }},
        {"init: step below width", vdlStsStepErr, [&] { return vdlsCdbkInitAlloc_L2_32f(pp32, src32, 3, 2, 5, 2, vdlCdbkHintKmeansLong); }},
        {"init: nClust above height", vdlStsOutOfRangeErr, [&] { return vdlsCdbkInitAlloc_L2_16s(pp16, src16, 2, 2, 5, 6, vdlCdbkHintKmeansLong); }},
        {"init: hint 0", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_L2_16s(pp16, src16, 2, 2, 5, 2, Vdl_Cdbk_Hint(0)); }},
        {"init: hint 4", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_L2_32f(pp32, src32, 2, 2, 5, 2, Vdl_Cdbk_Hint(4)); }},
        {"init: full hint, fewer clusters", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_L2_16s(pp16, src16, 2, 2, 5, 4, vdlCdbkHintFull); }},
        {"init: negative weight", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_WgtL2_16s(pp16, src16, wgt16, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: NaN weight", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_WgtL2_32f(pp32, src32, wgtNan, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: infinite weight", vdlStsBadArgErr, [&] { return vdlsCdbkInitAlloc_WgtL2_32f(pp32, src32, wgtInf, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"free: null", vdlStsNullPtrErr, [&] { return vdlsCdbkFree_32f(nullptr); }},
        {"size: wrong kind", vdlStsContextMatchErr, [&] { return vdlsGetCdbkSize_16s(wrongKind, num, num); }},
        {"vq: null source", vdlStsNullPtrErr, [&] { return vdlsVQ_16s(nullptr, 2, idx, 3, cb16); }},
        {"vq: null codebook", vdlStsNullPtrErr, [&] { return vdlsVQ_32f(src32, 2, idx, 3, nullptr); }},
        {"vq: wrong kind", vdlStsContextMatchErr, [&] { return vdlsVQ_16s(src16, 2, idx, 3, wrongKind); }},
        {"vq: null distances", vdlStsNullPtrErr, [&] { return vdlsVQDist_32f(src32, 2, idx, nullptr, 3, cb32); }},
        {"vq: height 0", vdlStsSizeErr, [&] { return vdlsVQDist_16s32s_Sfs(src16, 2, idx, dist32s, 0, cb16, 1); }},
        {"vq: step below width", vdlStsStepErr, [&] { return vdlsVQDist_32f(src32, 1, idx, dist32f, 3, cb32); }},
        {"thresh: below 1", vdlStsBadArgErr, [&] { return vdlsVQSingle_Thresh_16s(src16, idx, cb16, 0.5f, num); }},
        {"thresh: NaN", vdlStsBadArgErr, [&] { return vdlsVQDistSingle_Thresh_32f(src32, idx, dist32f, cb32, nan32, num); }},
        {"thresh: null count", vdlStsNullPtrErr, [&] { return vdlsVQSingle_Thresh_32f(src32, idx, cb32, 2.0f, nullptr); }},
        {"sort: N 0", vdlStsSizeErr, [&] { return vdlsVQSingle_Sort_16s(src16, idx, cb16, 0); }},
        {"sort: N above size", vdlStsOutOfRangeErr, [&] { return vdlsVQDistSingle_Sort_32f(src32, idx, dist32f, cb32, 6); }},
        {"form VQ: index above size", vdlStsOutOfRangeErr, [&] { return vdlsFormVectorVQ_16s16s(badIdx16, 2, dst16, 4, 1, table16, 2); }},
        {"form VQ: negative index", vdlStsOutOfRangeErr, [&] { return vdlsFormVectorVQ_16s32f(negIdx16, 2, dst32, 4, 1, table32, 2); }},
        {"form VQ: packed index above size", vdlStsOutOfRangeErr, [&] { return vdlsFormVectorVQ_1u16s(packed7, 6, dst16, 4, 1, table16, 2); }},
        {"form VQ: index step", vdlStsStepErr, [&] { return vdlsFormVectorVQ_8u32f(idx8, 1, dst32, 4, 2, table32, 2); }},
        {"form VQ: packed step", vdlStsStepErr, [&] { return vdlsFormVectorVQ_1u32f(packed7, 5, dst32, 4, 1, table32, 2); }},
        {"form VQ: vector step", vdlStsStepErr, [&] { return vdlsFormVectorVQ_8u16s(idx8, 2, dst16, 3, 2, table16, 2); }},
        {"form VQ: null codebook", vdlStsNullPtrErr, [&] { return vdlsFormVectorVQ_8u16s(idx8, 2, dst16, 4, 2, withNull, 2); }},
        {"form VQ: no codebooks", vdlStsSizeErr, [&] { return vdlsFormVectorVQ_8u16s(idx8, 2, dst16, 4, 2, table16, 0); }},
        {"split: index step 0", vdlStsStepErr, [&] { return vdlsSplitVQ_16s8u(src16, 4, dst8, 0, 2, table16, 2); }},
        {"split: packed step", vdlStsStepErr, [&] { return vdlsSplitVQ_32f1u(src32, 4, dst8, 5, 2, table32, 2); }},
        {"split: vector step", vdlStsStepErr, [&] { return vdlsSplitVQ_32f16s(src32, 3, dst16, 2, 2, table32, 2); }},
        {"split: null indices", vdlStsNullPtrErr, [&] { return vdlsSplitVQ_16s16s(src16, 4, nullptr, 2, 2, table16, 2); }},
        {"form: index above height", vdlStsOutOfRangeErr, [&] { return vdlsFormVector_2i_16s16s(rowIdx, rows, heights, dst16, 2); }},
        {"form: height 0", vdlStsSizeErr, [&] { return vdlsFormVector_4i_8u16s(idx8, rows, zeroHeights, dst16, 2); }},
        {"form: step below width", vdlStsStepErr, [&] { return vdlsFormVector_8u16s(idx8, rows, heights, widths, shortSteps, 2, dst16); }},
        {"form: null row", vdlStsNullPtrErr, [&] { return vdlsFormVector_16s16s(rowIdx, nullRow, heights, widths, widths, 2, dst16); }},
        {"form: len 0", vdlStsSizeErr, [&] { return vdlsFormVector_2i_8u16s(idx8, rows, heights, dst16, 0); }},
    };
    for (const BadCall& bad : table) {
        SCOPED_TRACE(bad.what);
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(bad.call(), bad.expected);
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
        EXPECT_EQ(std::memcmp(out, saved, sizeof out), 0) << "an output was written";
    }
}

// A codebook of more codewords than an index type holds is refused for it.
TEST_F(BadArguments, IndexTypeTooNarrowForCodebook)
{
    Vdl16s wide[300];
    for (int i = 0; i < 300; ++i)
        wide[i] = static_cast<Vdl16s>(i);
    VdlsCdbkState_16s* cdbk = nullptr;
    ASSERT_EQ(vdlsCdbkInitAlloc_L2_16s(&cdbk, wide, 1, 1, 300, 300, vdlCdbkHintFull), 0);
    Vdl8u dst[4] = {7, 7, 7, 7};
    EXPECT_EQ(vdlsSplitVQ_16s8u(wide, 1, dst, 1, 4, &cdbk, 1), vdlStsOutOfRangeErr);
    EXPECT_EQ(dst[0], 7);
    vdlsCdbkFree_16s(cdbk);
}

} // namespace
