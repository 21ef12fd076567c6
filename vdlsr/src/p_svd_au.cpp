// Singular-value decomposition of square matrices, and the row and column
// steps that orthogonal decompositions are made of.
#include "dl.h"
#include "dlinplace.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_svd_au");

static dlVector pSrc, pDst, pTmp, pDstU, pDstV, pDstW;
static dlrMatrice mSrc, mTmp, mDstU, mDstV;
static kvStepIterator<int> rows, cols;
static int r1 = 0, c1 = 0, c2 = 1;
static int step;
static dlInPlace inPlace(pSrc, pTmp);  // the _D2 input
static int rows_dataSize;  // bytes of one row of the _D2L input
static double val1;
static double dstValue;

class TimSvd : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        r1 = 0;
        c1 = 0;
        c2 = 1;
        if (m_svd) {
            dlStep(cols, "Rows=Cols", 20, 100, 10, '+');
            dlOne(rows);
        } else if (m_d2l) {
            dlStep(rows, "rows", 20, 100, 20, '+');
            dlStep(cols, "cols", 20, 100, 20, '+');
        } else {
            dlStep(rows, "Length", 20, 200, 10, '+');
            dlOne(cols);
        }
        dlInitAll({&pSrc, &pDst, &pTmp, &pDstU, &pDstV, &pDstW, &mSrc, &mTmp, &mDstU, &mDstV},
                  m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&rows, &cols})) return false;
        val1 = 1.0;
        if (m_svd) return pDstW.createVector(cols, SET_ZERO, 0, 0) && createSvdData();
        if (m_d2l) return mSrc.createMatrice(rows, cols, SET_ZERO, 0, 0);
        return dlCreateAll({&pSrc, &pDst}, rows, SET_ZERO);
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pDst, &pTmp, &pDstU, &pDstV, &pDstW}, {&mSrc, &mTmp, &mDstU, &mDstV});
    }
    double getDivisor() override { return cols * cols; }
    void columns(dlColumns& c) override { c << (m_svd ? cols : rows) << cols; }

private:
    // A random square matrix, kept in pTmp or mTmp for the in-place forms,
    // and the same values as the input.
    bool createSvdData() {
        if (m_d2l) {
            if (!mTmp.createMatrice(cols, cols, SET_RANDOM, 0, 100) ||
                !mSrc.createMatrice(cols, cols, SET_ZERO, 0, 0) ||
                !mDstU.createMatrice(cols, cols, SET_ZERO, 0, 0) ||
                !mDstV.createMatrice(cols, cols, SET_ZERO, 0, 0))
                return false;
            rows_dataSize = cols * dlVector::item(m_func);
            for (int i = 0; i < cols; ++i) memcpy(mSrc.rowAt(i), mTmp.rowAt(i), rows_dataSize);
            return true;
        }
        step = (cols + 3) / 4 * 4;
        if (!pTmp.createVector(cols * step, SET_RANDOM, 0, 100) ||
            !pSrc.createVector(cols * step, SET_ZERO, 0, 0) ||
            !pDstU.createVector(cols * step, SET_ZERO, 0, 0) ||
            !pDstV.createVector(cols * step, SET_ZERO, 0, 0))
            return false;
        inPlace.cover(cols * step);
        inPlace.restore();
        return true;
    }

    const bool m_svd = m_name.found("SVD");
};

static void restoreRows() {
    for (int i = 0; i < mTmp.rows(); ++i) memcpy(mSrc.rowAt(i), mTmp.rowAt(i), rows_dataSize);
}

DL_REG(TimSvd, vdlsSumRowAbs_64f, (pSrc, rows, &dstValue));
DL_REG(TimSvd, vdlsSumRowSqr_64f, (pSrc, rows, &dstValue, val1));
DL_REG(TimSvd, vdlsAddMulRow_64f, (pSrc, pDst, rows, val1));
DL_REG(TimSvd, vdlsSumColumnAbs_64f_D2L, (mSrc, cols, rows, &dstValue, r1, c1));
DL_REG(TimSvd, vdlsSumColumnSqr_64f_D2L, (mSrc, cols, rows, &dstValue, r1, c1, val1));
DL_REG(TimSvd, vdlsDotProdColumn_64f_D2L, (mSrc, cols, rows, &dstValue, r1, c1, c2));
DL_REG(TimSvd, vdlsMulColumn_64f_D2L, (mSrc, cols, rows, r1, c1, val1));
DL_REG(TimSvd, vdlsAddMulColumn_64f_D2L, (mSrc, cols, rows, c1, c2, r1, val1));
DL_REG(TimSvd, vdlsQRTransColumn_64f_D2L, (mSrc, cols, rows, c1, c2, val1, val1));
DL_REG(TimSvd, vdlsSVD_64f_D2, (pSrc, pDstU, cols, pDstW, pDstV, cols, step, 500));
DL_REG(TimSvd, vdlsSVDSort_64f_D2, (pSrc, pDstU, cols, pDstW, pDstV, cols, step, 500));
DL_REG_I(TimSvd, vdlsSVD_64f_D2_I, (pSrc, cols, pDstW, pDstV, cols, step, 500),
         inPlace.restore());
DL_REG_I(TimSvd, vdlsSVDSort_64f_D2_I, (pSrc, cols, pDstW, pDstV, cols, step, 500),
         inPlace.restore());
DL_REG(TimSvd, vdlsSVD_64f_D2L, (mSrc, mDstU, cols, pDstW, mDstV, cols, 500));
DL_REG(TimSvd, vdlsSVDSort_64f_D2L, (mSrc, mDstU, cols, pDstW, mDstV, cols, 500));
DL_REG_I(TimSvd, vdlsSVD_64f_D2L_I, (mSrc, cols, pDstW, mDstV, cols, 500), restoreRows());
DL_REG_I(TimSvd, vdlsSVDSort_64f_D2L_I, (mSrc, cols, pDstW, mDstV, cols, 500), restoreRows());
