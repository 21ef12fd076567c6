// Bad arguments of every kind of call, in one table: each gives its
// negative status, writes nothing, and leaves the floating-point flags.
#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "refused_calls.h"
#include "vdlsr.h"

using namespace vdltest;

namespace {

const float nan32 = std::numeric_limits<float>::quiet_NaN();
const Vdl16s wgt16[2] = {1, -1};
const Vdl32f wgtNan[2] = {1, nan32};
const Vdl32f wgtInf[2] = {INFINITY, 1};
const Vdl16s badIdx16[2] = {0, 5};   // codebook 1 has 5 codewords
const Vdl16s negIdx16[2] = {-1, 0};
const Vdl8u idx8[4] = {0, 1, 2, 3};
const Vdl8u packed7[1] = {0xFC};     // 3 bits of 7 and 3 of 7: above 4
const Vdl32s heights[2] = {3, 3}, zeroHeights[2] = {3, 0}, widths[2] = {2, 2}, shortSteps[2] = {2, 1};
const Vdl16s rowIdx[2] = {1, 3};

// Two codebooks of each type, and one block that every output points into.
struct B {
    B()
    {
        for (int i = 0; i < 40; ++i) {
            src16[i] = static_cast<Vdl16s>(i * 7 % 23 - 11);
            src32[i] = static_cast<Vdl32f>(src16[i]);
        }
        EXPECT_EQ(vdlsCdbkInitAlloc_L2_16s(&cb16, src16, 2, 2, 5, 5, vdlCdbkHintFull), 0);
        EXPECT_EQ(vdlsCdbkInitAlloc_L2_32f(&cb32, src32, 2, 2, 5, 5, vdlCdbkHintFull), 0);
        table16[0] = table16[1] = withNull[0] = cb16;
        table32[0] = table32[1] = cb32;
        wrongKind = reinterpret_cast<const VdlsCdbkState_16s*>(cb32);
        std::memset(out, 0x5A, sizeof out);
    }
    ~B()
    {
        vdlsCdbkFree_16s(cb16);
        vdlsCdbkFree_32f(cb32);
    }
    bool untouched() const
    {
        unsigned char pattern[sizeof out];
        std::memset(pattern, 0x5A, sizeof pattern);
        return std::memcmp(out, pattern, sizeof out) == 0;
    }
    template <class P>
    P* at(int offset) { return reinterpret_cast<P*>(out + offset); }

    Vdl16s src16[40];
    Vdl32f src32[40];
    VdlsCdbkState_16s* cb16 = nullptr;
    VdlsCdbkState_32f* cb32 = nullptr;
    VdlsCdbkState_16s* table16[2] = {};
    VdlsCdbkState_32f* table32[2] = {};
    VdlsCdbkState_16s* withNull[2] = {};
    const VdlsCdbkState_16s* wrongKind = nullptr;
    const Vdl16s* rows[2] = {src16, src16};
    const Vdl16s* nullRow[2] = {src16, nullptr};
    unsigned char out[512];
    VdlsCdbkState_16s** pp16 = at<VdlsCdbkState_16s*>(0);
    VdlsCdbkState_32f** pp32 = at<VdlsCdbkState_32f*>(0);
    Vdl32s* idx = at<Vdl32s>(64);
    Vdl32s* dist32s = at<Vdl32s>(256);
    Vdl32f* dist32f = at<Vdl32f>(256);
    Vdl16s* dst16 = at<Vdl16s>(128);
    Vdl32f* dst32 = at<Vdl32f>(128);
    Vdl8u* dst8 = at<Vdl8u>(128);
    int* num = at<int>(500);
};

TEST(CdbkArguments, RefusedWithoutWritingOrRaisingFlags)
{
    expectRefused<B>({
        {"init: null handle", vdlStsNullPtrErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(nullptr, b.src16, 2, 2, 5, 5, vdlCdbkHintKmeansLong); }},
        {"init: null data", vdlStsNullPtrErr, [](B& b) { return vdlsCdbkInitAlloc_L2_32f(b.pp32, nullptr, 2, 2, 5, 5, vdlCdbkHintKmeansLong); }},
        {"init: null weights", vdlStsNullPtrErr, [](B& b) { return vdlsCdbkInitAlloc_WgtL2_16s(b.pp16, b.src16, nullptr, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: width 0", vdlStsSizeErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(b.pp16, b.src16, 0, 2, 5, 5, vdlCdbkHintFull); }},
        {"init: height 0", vdlStsSizeErr, [](B& b) { return vdlsCdbkInitAlloc_L2_32f(b.pp32, b.src32, 2, 2, 0, 1, vdlCdbkHintKmeansLong); }},
        {"init: nClust 0", vdlStsSizeErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(b.pp16, b.src16, 2, 2, 5, 0, vdlCdbkHintKmeansLong); }},
        {"init: step below width", vdlStsStepErr, [](B& b) { return vdlsCdbkInitAlloc_L2_32f(b.pp32, b.src32, 3, 2, 5, 2, vdlCdbkHintKmeansLong); }},
        {"init: nClust above height", vdlStsOutOfRangeErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(b.pp16, b.src16, 2, 2, 5, 6, vdlCdbkHintKmeansLong); }},
        {"init: hint 0", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(b.pp16, b.src16, 2, 2, 5, 2, Vdl_Cdbk_Hint(0)); }},
        {"init: hint 4", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_L2_32f(b.pp32, b.src32, 2, 2, 5, 2, Vdl_Cdbk_Hint(4)); }},
        {"init: full hint, fewer clusters", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_L2_16s(b.pp16, b.src16, 2, 2, 5, 4, vdlCdbkHintFull); }},
        {"init: negative weight", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_WgtL2_16s(b.pp16, b.src16, wgt16, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: NaN weight", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_WgtL2_32f(b.pp32, b.src32, wgtNan, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"init: infinite weight", vdlStsBadArgErr, [](B& b) { return vdlsCdbkInitAlloc_WgtL2_32f(b.pp32, b.src32, wgtInf, 2, 2, 5, 2, vdlCdbkHintKmeansNum); }},
        {"free: null", vdlStsNullPtrErr, [](B&) { return vdlsCdbkFree_32f(nullptr); }},
        {"size: wrong kind", vdlStsContextMatchErr, [](B& b) { return vdlsGetCdbkSize_16s(b.wrongKind, b.num, b.num); }},
        {"vq: null source", vdlStsNullPtrErr, [](B& b) { return vdlsVQ_16s(nullptr, 2, b.idx, 3, b.cb16); }},
        {"vq: null codebook", vdlStsNullPtrErr, [](B& b) { return vdlsVQ_32f(b.src32, 2, b.idx, 3, nullptr); }},
        {"vq: wrong kind", vdlStsContextMatchErr, [](B& b) { return vdlsVQ_16s(b.src16, 2, b.idx, 3, b.wrongKind); }},
        {"vq: null distances", vdlStsNullPtrErr, [](B& b) { return vdlsVQDist_32f(b.src32, 2, b.idx, nullptr, 3, b.cb32); }},
        {"vq: height 0", vdlStsSizeErr, [](B& b) { return vdlsVQDist_16s32s_Sfs(b.src16, 2, b.idx, b.dist32s, 0, b.cb16, 1); }},
        {"vq: step below width", vdlStsStepErr, [](B& b) { return vdlsVQDist_32f(b.src32, 1, b.idx, b.dist32f, 3, b.cb32); }},
        {"thresh: below 1", vdlStsBadArgErr, [](B& b) { return vdlsVQSingle_Thresh_16s(b.src16, b.idx, b.cb16, 0.5f, b.num); }},
        {"thresh: NaN", vdlStsBadArgErr, [](B& b) { return vdlsVQDistSingle_Thresh_32f(b.src32, b.idx, b.dist32f, b.cb32, nan32, b.num); }},
        {"thresh: null count", vdlStsNullPtrErr, [](B& b) { return vdlsVQSingle_Thresh_32f(b.src32, b.idx, b.cb32, 2.0f, nullptr); }},
        {"sort: N 0", vdlStsSizeErr, [](B& b) { return vdlsVQSingle_Sort_16s(b.src16, b.idx, b.cb16, 0); }},
        {"sort: N above size", vdlStsOutOfRangeErr, [](B& b) { return vdlsVQDistSingle_Sort_32f(b.src32, b.idx, b.dist32f, b.cb32, 6); }},
        {"form VQ: index above size", vdlStsOutOfRangeErr, [](B& b) { return vdlsFormVectorVQ_16s16s(badIdx16, 2, b.dst16, 4, 1, b.table16, 2); }},
        {"form VQ: negative index", vdlStsOutOfRangeErr, [](B& b) { return vdlsFormVectorVQ_16s32f(negIdx16, 2, b.dst32, 4, 1, b.table32, 2); }},
        {"form VQ: packed index above size", vdlStsOutOfRangeErr, [](B& b) { return vdlsFormVectorVQ_1u16s(packed7, 6, b.dst16, 4, 1, b.table16, 2); }},
        {"form VQ: index step", vdlStsStepErr, [](B& b) { return vdlsFormVectorVQ_8u32f(idx8, 1, b.dst32, 4, 2, b.table32, 2); }},
        {"form VQ: packed step", vdlStsStepErr, [](B& b) { return vdlsFormVectorVQ_1u32f(packed7, 5, b.dst32, 4, 1, b.table32, 2); }},
        {"form VQ: vector step", vdlStsStepErr, [](B& b) { return vdlsFormVectorVQ_8u16s(idx8, 2, b.dst16, 3, 2, b.table16, 2); }},
        {"form VQ: null codebook", vdlStsNullPtrErr, [](B& b) { return vdlsFormVectorVQ_8u16s(idx8, 2, b.dst16, 4, 2, b.withNull, 2); }},
        {"form VQ: no codebooks", vdlStsSizeErr, [](B& b) { return vdlsFormVectorVQ_8u16s(idx8, 2, b.dst16, 4, 2, b.table16, 0); }},
        {"split: index step 0", vdlStsStepErr, [](B& b) { return vdlsSplitVQ_16s8u(b.src16, 4, b.dst8, 0, 2, b.table16, 2); }},
        {"split: packed step", vdlStsStepErr, [](B& b) { return vdlsSplitVQ_32f1u(b.src32, 4, b.dst8, 5, 2, b.table32, 2); }},
        {"split: vector step", vdlStsStepErr, [](B& b) { return vdlsSplitVQ_32f16s(b.src32, 3, b.dst16, 2, 2, b.table32, 2); }},
        {"split: null indices", vdlStsNullPtrErr, [](B& b) { return vdlsSplitVQ_16s16s(b.src16, 4, nullptr, 2, 2, b.table16, 2); }},
        {"form: index above height", vdlStsOutOfRangeErr, [](B& b) { return vdlsFormVector_2i_16s16s(rowIdx, b.rows, heights, b.dst16, 2); }},
        {"form: height 0", vdlStsSizeErr, [](B& b) { return vdlsFormVector_4i_8u16s(idx8, b.rows, zeroHeights, b.dst16, 2); }},
        {"form: step below width", vdlStsStepErr, [](B& b) { return vdlsFormVector_8u16s(idx8, b.rows, heights, widths, shortSteps, 2, b.dst16); }},
        {"form: null row", vdlStsNullPtrErr, [](B& b) { return vdlsFormVector_16s16s(rowIdx, b.nullRow, heights, widths, widths, 2, b.dst16); }},
        {"form: len 0", vdlStsSizeErr, [](B& b) { return vdlsFormVector_2i_8u16s(idx8, b.rows, heights, b.dst16, 0); }},
    });
}

// A codebook of more codewords than an index type holds is refused for it.
TEST(CdbkArguments, IndexTypeTooNarrowForCodebook)
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
