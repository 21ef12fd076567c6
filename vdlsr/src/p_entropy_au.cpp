// Entropy of a vector of probabilities.
#include "dl.h"

DL_MODULE("vdlsr/src/p_entropy_au");

static dlVector pSrc, pResult;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;

class TimEntropy : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Length", 10, 48, 2, '+');
        dlScale(scaleFactor, m_name, 6);
        pSrc.init(m_func, 1);
        pResult.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &len}) && pSrc.createVector(len, SET_ONE, 0, 0) &&
               pResult.createVector(1, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pResult}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(TimEntropy, vdlsEntropy_32f, (pSrc, len, pResult));
DL_REG(TimEntropy, vdlsEntropy_16s32s_Sfs, (pSrc, -4, len, pResult, scaleFactor.value()));
