// Floored variances from the accumulated sums of values and of squares.
// The _I forms write over the sums of squares; nothing restores them
// between calls, as the variance of constant sums is a fixed point.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_newvar_au");

static dlVector pSrcMean, pSrcVar, pDstVar;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class TimNewVar : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 68, 2, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrcMean, &pSrcVar, &pDstVar}, m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &len}) &&
               dlCreateShifted({&pSrcMean, &pSrcVar, &pDstVar}, len, 0, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrcMean, &pSrcVar, &pDstVar}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(TimNewVar, vdlsNewVar_32f, (pSrcMean, pSrcVar, pDstVar, len, 0.1f, 0.1f));
DL_REG(TimNewVar, vdlsNewVar_32f_I, (pSrcMean, pDstVar, len, 0.1f, 0.1f));
DL_REG(TimNewVar, vdlsNewVar_32s_Sfs,
       (pSrcMean, pSrcVar, pDstVar, len, 0.1f, 0.1f, scaleFactor.value()));
DL_REG(TimNewVar, vdlsNewVar_32s_ISfs, (pSrcMean, pDstVar, len, 0.1f, 0.1f, scaleFactor.value()));
