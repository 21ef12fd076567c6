// Weighted sums of two vectors, and half of them.
#include "dl.h"

DL_MODULE("vdlsr/src/p_wsum_au");

static dlVector pSrc1, pSrc2, pDst;
static kvStepIterator<int> len;

class TimWSum : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 68, 2, '+');
        dlInitAll({&pSrc1, &pSrc2, &pDst}, m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && pSrc1.createVector(len, SET_ZERO, 0, 0) &&
               pSrc2.createVector(len, SET_ONE, 0, 0) && pDst.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc1, &pSrc2, &pDst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimWSum, vdlsWeightedSum_32f, (pSrc1, pSrc2, pDst, len, 0.5f, 0.5f));
DL_REG(TimWSum, vdlsWeightedSum_64f, (pSrc1, pSrc2, pDst, len, 0.5, 0.5));
DL_REG(TimWSum, vdlsWeightedSum_16s, (pSrc1, pSrc2, pDst, len, 0.5f, 0.5f));
DL_REG(TimWSum, vdlsWeightedSumHalf_32f, (pSrc1, pSrc2, pDst, len, 0.5f, 0.5f));
DL_REG(TimWSum, vdlsWeightedSumHalf_64f, (pSrc1, pSrc2, pDst, len, 0.5, 0.5));
DL_REG(TimWSum, vdlsWeightedSumHalf_16s, (pSrc1, pSrc2, pDst, len, 0.5f, 0.5f));
