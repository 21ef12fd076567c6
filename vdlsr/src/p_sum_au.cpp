// Sums over the columns and over the rows of a matrix, in both layouts.
#include "dl.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_sum_au");

static dlVector pSrc, pDst;
static dlrMatrice mSrc;
static kvStepIterator<int> rows, cols;
static dlScaleIterator scaleFactor;
static int stride;

class TimSum : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(rows, "rows", 200, 1000, 200, '+');
        dlStep(cols, "cols", 30, 40, 3, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &mSrc}, m_func, 1);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &rows, &cols})) return false;
        stride = layoutStride(cols);
        return createRows(pSrc, mSrc, rows, cols, stride, dlFillZero) &&
               pDst.createVector(rows * cols, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}, {&mSrc}); }
    double getDivisor() override { return rows * cols; }
    void columns(dlColumns& c) override {
        c << rows << cols << strideItem("stride", stride) << scaleFactor;
    }
};

DL_REG(TimSum, vdlsSumColumn_32f_D2, (pSrc, stride, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_64f_D2, (pSrc, stride, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_32f_D2L, (mSrc, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_64f_D2L, (mSrc, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_16s32f_D2, (pSrc, stride, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_16s32f_D2L, (mSrc, rows, pDst, cols));
DL_REG(TimSum, vdlsSumColumn_16s32s_D2Sfs, (pSrc, stride, rows, pDst, cols, scaleFactor.value()));
DL_REG(TimSum, vdlsSumColumn_16s32s_D2LSfs, (mSrc, rows, pDst, cols, scaleFactor.value()));
DL_REG(TimSum, vdlsSumRow_32f_D2, (pSrc, cols, stride, pDst, rows));
DL_REG(TimSum, vdlsSumRow_64f_D2, (pSrc, cols, stride, pDst, rows));
DL_REG(TimSum, vdlsSumRow_32f_D2L, (mSrc, cols, pDst, rows));
DL_REG(TimSum, vdlsSumRow_64f_D2L, (mSrc, cols, pDst, rows));
DL_REG(TimSum, vdlsSumRow_16s32f_D2, (pSrc, cols, stride, pDst, rows));
DL_REG(TimSum, vdlsSumRow_16s32f_D2L, (mSrc, cols, pDst, rows));
DL_REG(TimSum, vdlsSumRow_16s32s_D2Sfs, (pSrc, cols, stride, pDst, rows, scaleFactor.value()));
DL_REG(TimSum, vdlsSumRow_16s32s_D2LSfs, (mSrc, cols, pDst, rows, scaleFactor.value()));
