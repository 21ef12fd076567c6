// Linear prediction of a signal by the autocorrelation and the covariance
// methods.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_pred_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> lenSrc, lenDst;
static dlScaleIterator scaleFactor;

class TimPred : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(lenSrc, "LenghtSRC", 30, 40, 2, '+');
        dlStep(lenDst, "LenghtDST", 10, 20, 2, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &lenSrc, &lenDst}) &&
               pSrc.createVector(lenSrc, SET_ONE, 0, 0) && pDst.createVector(lenSrc, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return lenDst; }
    void columns(dlColumns& c) override { c << lenSrc << lenDst << scaleFactor; }
};

DL_REG(TimPred, vdlsLinearPrediction_Auto_32f, (pSrc, lenSrc, pDst, lenDst));
DL_REG(TimPred, vdlsLinearPrediction_Auto_16s_Sfs, (pSrc, lenSrc, pDst, lenDst, scaleFactor.value()));
DL_REG(TimPred, vdlsLinearPrediction_Cov_32f, (pSrc, lenSrc, pDst, lenDst));
DL_REG(TimPred, vdlsLinearPrediction_Cov_16s_Sfs, (pSrc, lenSrc, pDst, lenDst, scaleFactor.value()));
DL_REG(TimPred, vdlsLinearPredictionNeg_Auto_32f, (pSrc, lenSrc, pDst, lenDst));
DL_REG(TimPred, vdlsLinearPredictionNeg_Auto_16s_Sfs,
       (pSrc, lenSrc, pDst, lenDst, scaleFactor.value()));
