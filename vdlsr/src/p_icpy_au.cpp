// Copy of the columns of a matrix picked by an index list.
#include "dl.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_icpy_au");

static dlVector pSrc, pDst, pIndx;
static dlrMatrice mSrc, mDst;
static kvStepIterator<int> height, dstStep, srcStep;
static int srcLen, dstLen;

class TimICpy : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(height, "height", 2, 16, 2, '+');
        dlStep(dstStep, "dstStep", 2, 16, 2, '+');
        dlStep(srcStep, "srcStep", 16, 16, 1, '+');
        dlInitAll({&pSrc, &pDst, &mSrc, &mDst}, m_func, 1);
        pIndx.init(dlFunc("_32s_"), 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&height, &dstStep, &srcStep})) return false;
        srcLen = srcStep;
        dstLen = dstStep;
        return pIndx.createVector(dstStep, SET_ONE, 0, 0) &&
               createRows(pSrc, mSrc, height, srcStep, srcStep, dlFillZero) &&
               createRows(pDst, mDst, height, dstStep, dstStep, dlFillZero);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pIndx}, {&mSrc, &mDst}); }
    double getDivisor() override { return height * dstStep; }
    void columns(dlColumns& c) override {
        c << height << dlItem("srcLen", srcLen) << srcStep << dstStep;
    }
};

DL_REG(TimICpy, vdlsCopyColumn_Indirect_64f_D2,
       (pSrc, srcLen, srcStep, pDst, pIndx, dstLen, dstStep, height));
DL_REG(TimICpy, vdlsCopyColumn_Indirect_32f_D2,
       (pSrc, srcLen, srcStep, pDst, pIndx, dstLen, dstStep, height));
DL_REG(TimICpy, vdlsCopyColumn_Indirect_16s_D2,
       (pSrc, srcLen, srcStep, pDst, pIndx, dstLen, dstStep, height));
DL_REG(TimICpy, vdlsCopyColumn_Indirect_64f_D2L, (mSrc, srcLen, mDst, pIndx, dstLen, height));
DL_REG(TimICpy, vdlsCopyColumn_Indirect_32f_D2L, (mSrc, srcLen, mDst, pIndx, dstLen, height));
DL_REG(TimICpy, vdlsCopyColumn_Indirect_16s_D2L, (mSrc, srcLen, mDst, pIndx, dstLen, height));
