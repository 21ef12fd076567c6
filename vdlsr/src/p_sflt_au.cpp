// Taps of the front end's filter from its band gains.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_sflt_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> len_src;

class TimRflt : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len_src, "", 10, 10, 1, '+');
        dlInitAll({&pSrc, &pDst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len_src}) && pSrc.createVector(len_src, SET_ONE, 0, 0) &&
               pDst.createVector(17, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return len_src; }
};

DL_REG(TimRflt, vdlsTabsCalculation_Aurora_16s, (pSrc, pDst));
DL_REG(TimRflt, vdlsTabsCalculation_Aurora_32f, (pSrc, pDst));
