// The front end's split of a signal into a low and a high band at half the
// rate.
#include "dllp.h"

DL_MODULE("vdlsr/src/p_lhflt_ml");

static dlVector pSrc, pTabs, pDstH, pDstL;
static kvStepIterator<int> len, tabslen;
static dlScaleIterator scaleFactor;

class TimLHFlt : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "len", 70, 100, 10, '+');
        dlStep(tabslen, "tabslen", 100, 120, 4, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pTabs, &pDstH, &pDstL}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &len, &tabslen}) &&
               pSrc.createVector(tabslen + 2 * len, SET_ZERO, 0, 0) &&
               pTabs.createVector(tabslen, SET_ZERO, 0, 0) &&
               dlCreateAll({&pDstH, &pDstL}, len, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pTabs, &pDstH, &pDstL}); }
    double getDivisor() override { return len * tabslen; }
    void columns(dlColumns& c) override { c << len << tabslen << scaleFactor; }
};

DL_REG(TimLHFlt, vdlsLowHighFilter_Aurora_32f, (pSrc, pDstL, pDstH, 2 * len, pTabs, tabslen));
DL_REG(TimLHFlt, vdlsLowHighFilter_Aurora_16s_Sfs,
       (pSrc, pDstL, pDstH, 2 * len, pTabs, tabslen, scaleFactor.value()));
