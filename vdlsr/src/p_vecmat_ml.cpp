// Products of a matrix and a vector on either side.
#include "dl.h"
#include "dlrows.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_vecmat_ml");

static dlVector pSrcH, pSrcW, pDstH, pDstW, pSrcVec;
static dlrMatrice mSrc;
static kvStepIterator<int> width, height;
static dlScaleIterator scaleFactor;
static int stride;

class TimVecMat : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(width, "width", 20, 40, 5, '+');
        dlStep(height, "height", 10, 20, 3, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrcH, &pSrcW, &pSrcVec, &mSrc}, m_func, 1);
        dlInitAll({&pDstH, &pDstW}, m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &width, &height})) return false;
        stride = layoutStride(width);
        return dlCreateShifted({&pSrcH, &pDstH}, height, 0, SET_ZERO) &&
               dlCreateShifted({&pSrcW, &pDstW}, width, 2, SET_ZERO) &&
               createRows(pSrcVec, mSrc, height, width, stride, dlFillZero);
    }
    void flushData() override { dlDeleteAll({&pSrcH, &pSrcW, &pDstH, &pDstW, &pSrcVec}, {&mSrc}); }
    double getDivisor() override { return width * height; }
    void columns(dlColumns& c) override {
        c << width << height << strideItem("stride", stride) << scaleFactor;
    }
};

#define SF scaleFactor.value()
DL_REG(TimVecMat, vdlsMatVecMul_32f_D2, (pSrcVec, stride, pSrcW, width, pDstH, height));
DL_REG(TimVecMat, vdlsMatVecMul_32f_D2L, (mSrc, pSrcW, width, pDstH, height));
DL_REG(TimVecMat, vdlsMatVecMul_16s_D2Sfs, (pSrcVec, stride, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsMatVecMul_16s_D2LSfs, (mSrc, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsMatVecMul_16s32s_D2Sfs, (pSrcVec, stride, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsMatVecMul_16s32s_D2LSfs, (mSrc, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsMatVecMul_32s_D2Sfs, (pSrcVec, stride, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsMatVecMul_32s_D2LSfs, (mSrc, pSrcW, width, pDstH, height, SF));
DL_REG(TimVecMat, vdlsVecMatMul_32f_D2, (pSrcH, pSrcVec, stride, height, pDstW, width));
DL_REG(TimVecMat, vdlsVecMatMul_32f_D2L, (pSrcH, mSrc, height, pDstW, width));
DL_REG(TimVecMat, vdlsVecMatMul_16s_D2Sfs, (pSrcH, pSrcVec, stride, height, pDstW, width, SF));
DL_REG(TimVecMat, vdlsVecMatMul_16s_D2LSfs, (pSrcH, mSrc, height, pDstW, width, SF));
DL_REG(TimVecMat, vdlsVecMatMul_16s32s_D2Sfs, (pSrcH, pSrcVec, stride, height, pDstW, width, SF));
DL_REG(TimVecMat, vdlsVecMatMul_16s32s_D2LSfs, (pSrcH, mSrc, height, pDstW, width, SF));
DL_REG(TimVecMat, vdlsVecMatMul_32s_D2Sfs, (pSrcH, pSrcVec, stride, height, pDstW, width, SF));
DL_REG(TimVecMat, vdlsVecMatMul_32s_D2LSfs, (pSrcH, mSrc, height, pDstW, width, SF));
