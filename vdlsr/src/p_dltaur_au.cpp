// Aurora double deltas: rows of 14 front-end values become rows of 39
// statics, deltas and double deltas, with or without multipliers.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_dltaur_au");

static dlVector pSrc, pDst, pVal;
static kvStepIterator<int> height, dstStep;
static dlScaleIterator scaleFactor;
static const int mode = 3;

class TimDltAur : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(height, "height", 8, 40, 4, '+');
        dlStep(dstStep, "dstStep", 39, 50, 3, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pDst, &pVal}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &height, &dstStep}) &&
               pDst.createVector(height * dstStep, SET_ZERO, 0, 0) &&
               pSrc.createVector(14 * height, SET_ZERO, 0, 0) && pVal.createVector(40, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pVal}); }
    double getDivisor() override { return height * dstStep; }
    void columns(dlColumns& c) override {
        c << height << dstStep << dlItem("mode", mode) << scaleFactor;
    }

private:
    const bool m_mul = m_name.found("Mul");
};

DL_REG(TimDltAur, vdlsDeltaDelta_Aurora_16s_D2Sfs,
       (pSrc, pDst, dstStep, height, mode, scaleFactor.value()));
DL_REG(TimDltAur, vdlsDeltaDeltaMul_Aurora_16s_D2Sfs,
       (pSrc, pVal, pDst, dstStep, height, mode, scaleFactor.value()));
DL_REG(TimDltAur, vdlsDeltaDelta_Aurora_32f_D2, (pSrc, pDst, dstStep, height, mode));
DL_REG(TimDltAur, vdlsDeltaDeltaMul_Aurora_32f_D2, (pSrc, pVal, pDst, dstStep, height, mode));
