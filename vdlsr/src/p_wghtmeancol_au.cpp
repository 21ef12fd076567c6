// Weighted means and variances of the columns of a matrix, each row with
// its weight.
#include "dl.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_wghtmeancol_au");

static dlVector pSrc, pMean, pVar, pWgt;
static dlrMatrice mSrc;
static kvStepIterator<int> height, width;
static int step;

class TimWghtMean : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(height, "height", 200, 400, 50, '+');
        dlStep(width, "width", 30, 40, 3, '+');
        dlInitAll({&pSrc, &mSrc, &pMean, &pVar, &pWgt}, m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&height, &width})) return false;
        step = m_d2l ? 0 : (width + 3) / 4 * 4;
        return createRows(pSrc, mSrc, height, width, step, dlFillZero) &&
               dlCreateAll({&pMean, &pVar}, width, SET_ZERO) &&
               pWgt.createVector(height, SET_ONE, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pMean, &pVar, &pWgt}, {&mSrc}); }
    double getDivisor() override { return height * width; }
    void columns(dlColumns& c) override { c << height << width << strideItem("step", step); }
};

DL_REG(TimWghtMean, vdlsWeightedMeanColumn_32f_D2, (pSrc, step, pWgt, height, pMean, width));
DL_REG(TimWghtMean, vdlsWeightedMeanColumn_32f_D2L, (mSrc, pWgt, height, pMean, width));
DL_REG(TimWghtMean, vdlsWeightedMeanColumn_64f_D2, (pSrc, step, pWgt, height, pMean, width));
DL_REG(TimWghtMean, vdlsWeightedMeanColumn_64f_D2L, (mSrc, pWgt, height, pMean, width));
DL_REG(TimWghtMean, vdlsWeightedVarColumn_32f_D2, (pSrc, step, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedVarColumn_32f_D2L, (mSrc, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedVarColumn_64f_D2, (pSrc, step, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedVarColumn_64f_D2L, (mSrc, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedMeanVarColumn_32f_D2,
       (pSrc, step, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedMeanVarColumn_32f_D2L, (mSrc, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedMeanVarColumn_64f_D2,
       (pSrc, step, pWgt, height, pMean, pVar, width));
DL_REG(TimWghtMean, vdlsWeightedMeanVarColumn_64f_D2L, (mSrc, pWgt, height, pMean, pVar, width));
