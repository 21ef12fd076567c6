// The data helpers of the catalogue's families: the layouts and argument
// lists of the Gaussian scoring modules, the sparse sign table and log
// bounds of the log-domain modules, and the sort and lags of the
// linear-prediction modules.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

#include "dlgaussdata.h"
#include "dllogsel.h"
#include "dllp.h"

namespace {

struct GaussObjects {
    dlVector src, mean, var;
    dlrMatrice srcRows, meanRows, varRows;
    dlGaussData data{src, mean, var, srcRows, meanRows, varRows};

    explicit GaussObjects(const char* func) { data.init(dlFunc(func)); }
    ~GaussObjects() { data.flush(); }
};

TEST(DlGaussData, EachFormMakesItsOwnShapes) {
    const int rows = 3, cols = 5, stride = 8;
    const struct {
        const char* func;
        bool multiMix, d2l;
        int srcLen, modelLen;          // flat vectors, 0 when not made
        int srcMatRows, modelMatRows;  // matrices, 0 when not made
    } layouts[] = {
        {"vdlsLogGauss_32f_D2", false, false, rows * stride, cols, 0, 0},
        {"vdlsLogGauss_32f_D2L", false, true, 0, cols, rows, 0},
        {"vdlsLogGaussMultiMix_32f_D2", true, false, cols, rows * stride, 0, 0},
        {"vdlsLogGaussMultiMix_32f_D2L", true, true, cols, 0, 0, rows},
    };
    for (const auto& l : layouts) {
        SCOPED_TRACE(l.func);
        GaussObjects o(l.func);
        ASSERT_TRUE(o.data.create(l.multiMix, l.d2l, rows, cols, l.d2l ? 0 : stride, dlFillTwo,
                                  dlFillOne));
        EXPECT_EQ(l.srcLen, o.src.m_len);
        EXPECT_EQ(l.modelLen, o.var.m_len);
        EXPECT_EQ(l.srcMatRows, o.srcRows.rows());
        EXPECT_EQ(l.modelMatRows, o.varRows.rows());
        if (l.modelMatRows) {
            EXPECT_EQ(cols, o.varRows.columns());
        }
    }
}

TEST(DlGaussData, FillsAndFlushOfAGridPoint) {
    GaussObjects o("vdlsLogGauss_Scaled_16s32f_D2L");
    EXPECT_EQ(DL_16S, o.src.m_type);
    ASSERT_TRUE(o.data.create(false, true, 4, 6, 0, dlFillTwo, dlFillOne));
    EXPECT_EQ(2.0, o.srcRows.getMatriceAt(3, 5));
    EXPECT_EQ(1.0, o.var.getIndex(0));
    // Flushing a grid point leaves nothing behind for the next one.
    o.data.flush();
    EXPECT_EQ(nullptr, o.mean.m_data);
    ASSERT_TRUE(o.data.create(true, false, 2, 6, 8, dlFillZero, dlFillTwo));
    EXPECT_EQ(0, o.srcRows.rows());
    EXPECT_EQ(2.0, o.mean.getIndex(15));
}

template <class... Args>
std::vector<int> list(Args... args) {
    return {static_cast<int>(args)...};
}

TEST(DlGaussArgs, FormsPlaceStepWidthAndHeight) {
    const int rows = 7, cols = 5, stride = 8;
    const int src = 1, mean = 2, var = 3, dst = 4, val = 6, v = 10, sf = 11;
    EXPECT_EQ((std::vector<int>{src, stride, mean, var, cols, dst, rows, v, sf}),
              list DL_GAUSS_D2(src, (mean, var), (dst), v, sf));
    EXPECT_EQ((std::vector<int>{src, mean, cols, dst, rows, v}), list DL_GAUSS_D2L(src, (mean), (dst), v));
    EXPECT_EQ((std::vector<int>{mean, var, stride, src, cols, val, dst, rows}),
              list DL_GAUSS_MULTIMIX_D2((mean, var), src, (val, dst)));
    EXPECT_EQ((std::vector<int>{mean, var, src, cols, dst, rows, sf}),
              list DL_GAUSS_MULTIMIX_D2L((mean, var), src, (dst), sf));
}

// Draws are applied while the index is not above height / nSign; repeated
// draws mark fewer components than they are, and draws outside the frame
// are skipped.
TEST(DlPlantSigns, DrawsPerFrameAndTheirBounds) {
    const int frames = 3, height = 8;
    std::vector<dl32s> draws = {1, 2, 3, 4, 5, 6, 7, 1, 2, 3, 4, 5, 6, 7, 1, 2, 3};
    std::vector<dl8u> sign(frames * height, 0), thin(frames * height, 0);
    EXPECT_EQ(9, dlPlantSigns(sign.data(), draws.data(), (int)draws.size(), frames, height, 1.0));
    EXPECT_EQ(7, std::count(sign.begin(), sign.begin() + height, 1));
    EXPECT_EQ(3, dlPlantSigns(thin.data(), draws.data(), (int)draws.size(), frames, height, 3.3));
    for (int f = 0; f < frames; ++f)  // every frame the same pattern from the first draws
        for (int j = 0; j < height; ++j)
            EXPECT_EQ(thin[f * height + j], (j >= 1 && j <= 3) ? 1 : 0) << f << "," << j;

    std::vector<dl32s> few = {0, 9, -1};
    std::vector<dl8u> small(2 * 4, 0);
    EXPECT_EQ(3, dlPlantSigns(small.data(), few.data(), 3, 2, 4, 1.0));
    EXPECT_EQ(std::vector<dl8u>({1, 0, 0, 0, 1, 0, 0, 0}), small);
}

TEST(DlLogBounds, FixedPointFormsScaleByPositiveFactorsOnly) {
    EXPECT_EQ(-5120.0, dlLogBounds(true, 8).low);
    EXPECT_EQ(-1280.0, dlLogBounds(true, 8).high);
    EXPECT_EQ(-20.0, dlLogBounds(true, -1).low);
    EXPECT_EQ(-5.0, dlLogBounds(true, 0).high);
    EXPECT_EQ(-20.0, dlLogBounds(false, 8).low);
    EXPECT_EQ(16, dlPlaceIndex(DL_PLACE_MIDDLE, 32));
    EXPECT_EQ(31, dlPlaceIndex(DL_PLACE_END, 32));
}

TEST(DlMapNumbers, ShowsEachValueByItsDecimalText) {
    kvMapIterator<int> sf;
    dlMapNumbers(sf, "scaleFactor", {-1, 0, 8, 12});
    EXPECT_STREQ("-1; 0; 8; 12", sf.defaultString().c_str());
    std::vector<int> walked;
    for (bool more = sf.firstValue(); more; more = sf.nextValue()) walked.push_back(sf.value());
    EXPECT_EQ(std::vector<int>({-1, 0, 8, 12}), walked);
}

TEST(SortVector, SortsDescendingWithDuplicatesAndLeavesOneElement) {
    std::mt19937 rng(77);
    for (int n : {2, 3, 8, 31, 200}) {
        std::vector<short> v(n);
        for (short& x : v) x = (short)(rng() % 21) - 10;  // many duplicates
        std::vector<short> want = v;
        std::sort(want.begin(), want.end(), std::greater<short>());
        SortVector(v.data(), 0, n - 1);
        EXPECT_EQ(want, v) << n;
    }
    float one = 0.5f;
    SortVector(&one, 0, 0);
    EXPECT_EQ(0.5f, one);
}

TEST(DlLags, LagsBeyondTheDataAreZeroAndTheFirstIsAtLeastOne) {
    const float x[] = {0.5f, 0.25f, -0.5f};
    float r[6];
    dlLags(x, 3, r, 5);
    EXPECT_FLOAT_EQ(1.0f, r[0]);  // 0.5625 raised
    EXPECT_FLOAT_EQ(0.5f * 0.25f - 0.25f * 0.5f, r[1]);
    EXPECT_FLOAT_EQ(-0.25f, r[2]);
    EXPECT_EQ(0.0f, r[5]);
    const float loud[] = {2.0f, 1.0f};
    dlLags(loud, 2, r, 1);
    EXPECT_FLOAT_EQ(5.0f, r[0]);
    EXPECT_FLOAT_EQ(2.0f, r[1]);
}

}  // namespace
