// Accumulation of a covariance matrix over the rows of a feature matrix.
#include "dl.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_acccm_au");

static dlVector pSrc, pDst, pMean;
static dlrMatrice mSrc, mDst;
static kvStepIterator<int> height, width;
static int srcStep, dstStep;

class TimAcccm : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(height, "height", 100, 10000, 100, '*');
        dlStep(width, "width", 40, 40, 1, '+');
        dlInitAll({&pSrc, &mSrc}, m_func, 1);
        dlInitAll({&pDst, &mDst, &pMean}, m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&height, &width})) return false;
        // Both steps a whole number of 8 elements, whatever the type.
        srcStep = dstStep = m_d2l ? 0 : (width + 7) / 8 * 8;
        return createRows(pSrc, mSrc, height, width, srcStep, dlFillOne) &&
               createRows(pDst, mDst, width, width, dstStep, dlFillZero) &&
               pMean.createVector(width, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pMean}, {&mSrc, &mDst}); }
    double getDivisor() override { return height * width; }
    void columns(dlColumns& c) override { c << height << width; }
};

DL_REG(TimAcccm, vdlsAccCovarianceMatrix_16s64f_D2L, (mSrc, height, pMean, mDst, width, 1.0));
DL_REG(TimAcccm, vdlsAccCovarianceMatrix_32f64f_D2L, (mSrc, height, pMean, mDst, width, 1.0));
DL_REG(TimAcccm, vdlsAccCovarianceMatrix_16s64f_D2,
       (pSrc, srcStep, height, pMean, pDst, width, dstStep, 1.0));
DL_REG(TimAcccm, vdlsAccCovarianceMatrix_32f64f_D2,
       (pSrc, srcStep, height, pMean, pDst, width, dstStep, 1.0));
