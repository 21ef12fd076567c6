// The front end's 17-tap filter over one frame of 80 samples. The sizes are
// fixed: `len` only repeats the measurement.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_resid_ml");

static dlVector pSrc, pTabs, pDst;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class TimResid : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 32, 512, 64, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pTabs, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &len}) && pSrc.createVector(97, SET_ZERO, 0, 0) &&
               pTabs.createVector(17, SET_ONE, 0, 0) && pDst.createVector(80, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pTabs, &pDst}); }
    double getDivisor() override { return 1280; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(TimResid, vdlsResidualFilter_Aurora_32f, (pSrc, pDst, pTabs));
DL_REG(TimResid, vdlsResidualFilter_Aurora_16s_Sfs, (pSrc, pDst, pTabs, scaleFactor.value()));
