// Log-likelihood of one feature frame against a whole Gaussian mixture: the
// weighted components summed in the log domain into a single score.
#include "dl.h"
#include "dlgaussdata.h"
#include "dltwogrid.h"

DL_MODULE("vdlsr/src/p_lgaussmixt_au");

static dlVector pSrc, pMean, pVar, pVal, pResult;
static dlrMatrice mMean, mVar;
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int height, width, step;

class TimLogGMixt : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        grid.read(m_func, "height", "width");
        dlInitAll({&pSrc, &pMean, &pVar, &mMean, &mVar}, m_func);
        pVal.init(m_func, DL_DST1);
        pResult.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!grid.next(m_firstSet)) return false;
        height = grid.rows;
        width = grid.cols;
        step = layoutStride(width);
        return pSrc.createVector(width, SET_VALUE, 2.0, 0) &&
               createRows(pMean, mMean, height, width, step, dlFillTwo) &&
               createRows(pVar, mVar, height, width, step, dlFillTwo) &&
               pVal.createVector(height, SET_VALUE, 2.0, 0) && pResult.createVector(1, -1);
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pMean, &pVar, &pVal, &pResult}, {&mMean, &mVar});
    }
    double getDivisor() override { return width * height; }
    void columns(dlColumns& c) override {
        c << dlItem("height", height) << dlItem("width", width) << strideItem("step", step)
          << scaleFactor;
    }
};

DL_REG(TimLogGMixt, vdlsLogGaussMixture_Scaled_16s32f_D2,
       (pSrc, pMean, pVar, height, step, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_Scaled_16s32f_D2L,
       (pSrc, mMean, mVar, height, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_LowScaled_16s32f_D2,
       (pSrc, pMean, pVar, height, step, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_LowScaled_16s32f_D2L,
       (pSrc, mMean, mVar, height, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_32f_D2,
       (pSrc, pMean, pVar, height, step, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_32f_D2L,
       (pSrc, mMean, mVar, height, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_64f_D2,
       (pSrc, pMean, pVar, height, step, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_64f_D2L,
       (pSrc, mMean, mVar, height, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVarScaled_16s32f_D2,
       (pSrc, pMean, height, step, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVarScaled_16s32f_D2L,
       (pSrc, mMean, height, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2,
       (pSrc, pMean, height, step, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L,
       (pSrc, mMean, height, width, pVal, pResult, scaleFactor.value()));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVar_32f_D2,
       (pSrc, pMean, height, step, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVar_32f_D2L,
       (pSrc, mMean, height, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVar_64f_D2,
       (pSrc, pMean, height, step, width, pVal, pResult));
DL_REG(TimLogGMixt, vdlsLogGaussMixture_IdVar_64f_D2L,
       (pSrc, mMean, height, width, pVal, pResult));
