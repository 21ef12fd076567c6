// The data layouts and argument lists shared by the Gaussian scoring modules.
#include <gtest/gtest.h>

#include <vector>

#include "dlgaussdata.h"

namespace {

struct Objects {
    dlVector src, mean, var;
    dlrMatrice srcRows, meanRows, varRows;
    dlGaussData data{src, mean, var, srcRows, meanRows, varRows};

    explicit Objects(const char* func) { data.init(dlFunc(func)); }
    ~Objects() { data.flush(); }
};

struct Layout {
    const char* func;
    bool multiMix, d2l;
    int srcLen, modelLen;         // flat vectors, 0 when not made
    int srcMatRows, modelMatRows; // matrices, 0 when not made
};

TEST(DlGaussData, EachFormMakesItsOwnShapes) {
    const int rows = 3, cols = 5, stride = 8;
    const Layout layouts[] = {
        {"vdlsLogGauss_32f_D2", false, false, rows * stride, cols, 0, 0},
        {"vdlsLogGauss_32f_D2L", false, true, 0, cols, rows, 0},
        {"vdlsLogGaussMultiMix_32f_D2", true, false, cols, rows * stride, 0, 0},
        {"vdlsLogGaussMultiMix_32f_D2L", true, true, cols, 0, 0, rows},
    };
    for (const Layout& l : layouts) {
        SCOPED_TRACE(l.func);
        Objects o(l.func);
        ASSERT_TRUE(o.data.create(l.multiMix, l.d2l, rows, cols, l.d2l ? 0 : stride,
                                  dlFillTwo, dlFillOne));
        EXPECT_EQ(l.srcLen, o.src.m_len);
        EXPECT_EQ(l.modelLen, o.mean.m_len);
        EXPECT_EQ(l.modelLen, o.var.m_len);
        EXPECT_EQ(l.srcMatRows, o.srcRows.rows());
        EXPECT_EQ(l.modelMatRows, o.meanRows.rows());
        EXPECT_EQ(l.modelMatRows, o.varRows.rows());
        if (l.srcMatRows) {
            EXPECT_EQ(cols, o.srcRows.columns());
        }
        if (l.modelMatRows) {
            EXPECT_EQ(cols, o.varRows.columns());
        }
    }
}

TEST(DlGaussData, FrameAndModelTakeTheirFills) {
    Objects o("vdlsLogGauss_Scaled_16s32f_D2L");
    EXPECT_EQ(DL_16S, o.src.m_type);
    ASSERT_TRUE(o.data.create(false, true, 4, 6, 0, dlFillTwo, dlFillOne));
    EXPECT_EQ(2.0, o.srcRows.getMatriceAt(3, 5));
    EXPECT_EQ(1.0, o.mean.getIndex(5));
    EXPECT_EQ(1.0, o.var.getIndex(0));

    // Flushing a grid point leaves nothing behind for the next one.
    o.data.flush();
    EXPECT_EQ(0, o.srcRows.rows());
    EXPECT_EQ(nullptr, o.mean.m_data);
    ASSERT_TRUE(o.data.create(true, false, 2, 6, 8, dlFillZero, dlFillTwo));
    EXPECT_EQ(0, o.srcRows.rows());
    EXPECT_EQ(0.0, o.src.getIndex(5));
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
    EXPECT_EQ((std::vector<int>{src, mean, cols, dst, rows, v}),
              list DL_GAUSS_D2L(src, (mean), (dst), v));
    EXPECT_EQ((std::vector<int>{mean, var, stride, src, cols, val, dst, rows}),
              list DL_GAUSS_MULTIMIX_D2((mean, var), src, (val, dst)));
    EXPECT_EQ((std::vector<int>{mean, var, src, cols, dst, rows, sf}),
              list DL_GAUSS_MULTIMIX_D2L((mean, var), src, (dst), sf));
}

}  // namespace
