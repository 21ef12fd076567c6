// Column sums and sums of squares of a matrix; the _I forms add them to
// accumulators, which nothing resets between calls.
#include "dl.h"

DL_MODULE("vdlsr/src/p_summnvar_au");

static dlVector pSrc, pMean, pVar;
static kvStepIterator<int> rows, cols;
static dlScaleIterator scaleFactor;
static int stride;

class TimSumMeanVar : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(rows, "Rows", 200, 400, 50, '+');
        dlStep(cols, "Cols", 30, 40, 3, '+');
        dlScale(scaleFactor, m_func);
        pSrc.init(m_func, 1);
        dlInitAll({&pMean, &pVar}, m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &rows, &cols})) return false;
        stride = roundedStride(cols);
        return pSrc.createVector(rows * stride, SET_ZERO, 0, 0) &&
               dlCreateAll({&pMean, &pVar}, cols, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pMean, &pVar}); }
    double getDivisor() override { return rows * cols; }
    void columns(dlColumns& c) override {
        c << rows << cols << dlItem("stride", stride) << scaleFactor;
    }
};

DL_REG(TimSumMeanVar, vdlsSumMeanVar_32f, (pSrc, stride, rows, pMean, pVar, cols));
DL_REG(TimSumMeanVar, vdlsSumMeanVar_32f_I, (pSrc, stride, rows, pMean, pVar, cols));
DL_REG(TimSumMeanVar, vdlsSumMeanVar_16s32f, (pSrc, stride, rows, pMean, pVar, cols));
DL_REG(TimSumMeanVar, vdlsSumMeanVar_16s32f_I, (pSrc, stride, rows, pMean, pVar, cols));
DL_REG(TimSumMeanVar, vdlsSumMeanVar_16s32s_Sfs,
       (pSrc, stride, rows, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimSumMeanVar, vdlsSumMeanVar_16s32s_ISfs,
       (pSrc, stride, rows, pMean, pVar, cols, scaleFactor.value()));
