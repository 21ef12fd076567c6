// Sign-change counts of a frame.
#include "dl.h"

DL_MODULE("vdlsr/src/p_ignr_au");

static dlVector pSrc, pDst;
static kvStepIterator<int> lenSrc;

class TimIgnr : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(lenSrc, "Lenght", 100, 256, 6, '+');
        pSrc.init(m_func, 1);
        if (m_name.found("_16s") || m_name.found("Xor")) pDst.init(dlFunc("_32s_"), 1);
        else pDst.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&lenSrc}) && pSrc.createVector(lenSrc, SET_RANDOM, 0, -1.0) &&
               pDst.createVector(1, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst}); }
    double getDivisor() override { return lenSrc; }
    void columns(dlColumns& c) override { c << lenSrc; }
};

DL_REG(TimIgnr, vdlsSignChangeRate_32f, (pSrc, lenSrc, pDst));
DL_REG(TimIgnr, vdlsSignChangeRateXor_32f, (pSrc, lenSrc, pDst));
DL_REG(TimIgnr, vdlsSignChangeRate_16s, (pSrc, lenSrc, pDst));
DL_REG(TimIgnr, vdlsSignChangeRate_Count0_32f, (pSrc, lenSrc, pDst));
DL_REG(TimIgnr, vdlsSignChangeRate_Count0_16s, (pSrc, lenSrc, pDst));
