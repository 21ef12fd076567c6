// Primitives of feature normalisation: reciprocal square roots, column
// normalisation, subtraction of a row, and column sums added to a row.
#include "dl.h"
#include "dlinplace.h"
#include "dlrows.h"

DL_MODULE("vdlsr/src/p_prim_au");

static dlVector pSrc, pDst, pSrcDst, pSrcDst_I;
static dlrMatrice mSrc, mDst, mSrcDst;
static kvStepIterator<int> rows, cols;
static dlScaleIterator scaleFactor;
static int stride;
static dlInPlace inPlace(pSrcDst_I, pSrcDst);
static float val = 1e-08f;
static int val_s = 1;

class TimPrim : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        if (m_recSqrt) {
            dlStep(rows, "Length", 10, 48, 2, '+');
            dlOne(cols);
        } else {
            dlStep(rows, "rows", 400, 1000, 200, '+');
            dlStep(cols, "cols", 36, 40, 1, '+');
        }
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pSrcDst, &pSrcDst_I, &mSrc, &mDst, &mSrcDst}, m_func, 1);
        pDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &rows, &cols})) return false;
        stride = m_recSqrt ? 0 : layoutStride(cols);
        if (m_recSqrt) return createRecSqrtData();
        return pSrc.createVector(cols, SET_ZERO, 0, 0) &&
               mSrc.createMatrice(rows, cols, SET_ZERO, 0, 0) &&
               mDst.createMatrice(rows, cols, SET_ZERO, 0, 0) &&
               mSrcDst.createMatrice(rows, cols, SET_ZERO, 0, 0) &&
               (m_d2l || pSrcDst.createVector(rows * stride, SET_ZERO, 0, 0)) &&
               pDst.createVector(cols, SET_ZERO, 0, 0);
    }
    void flushData() override {
        dlDeleteAll({&pSrc, &pDst, &pSrcDst, &pSrcDst_I}, {&mSrc, &mDst, &mSrcDst});
    }
    double getDivisor() override { return rows * cols; }
    void columns(dlColumns& c) override {
        c << rows << cols << (m_recSqrt ? dlItem("stride", "-") : strideItem("stride", stride))
          << scaleFactor;
    }

private:
    // The integer forms work in place on a copy of the default constant.
    bool createRecSqrtData() {
        if (!pDst.createVector(rows, SET_ZERO, 0, 0)) return false;
        if (m_func.type(1) == DL_32F) return pSrcDst_I.createVector(rows, SET_ONE, 0, 0);
        if (!pSrcDst.createVector(rows, -1) || !pSrcDst_I.createVector(rows, -1)) return false;
        inPlace.cover(rows);
        return true;
    }

    const bool m_recSqrt = m_name.found("RecSqrt");
};

#define SF scaleFactor.value()
DL_REG(TimPrim, vdlsRecSqrt_32f, (pSrcDst_I, rows, val));
DL_REG_I(TimPrim, vdlsRecSqrt_32s_Sfs, (pSrcDst_I, rows, val_s, SF), inPlace.restore());
DL_REG_I(TimPrim, vdlsRecSqrt_32s16s_Sfs, (pSrcDst_I, pDst, rows, val_s, SF),
         inPlace.restore());
DL_REG(TimPrim, vdlsNormalizeColumn_32f_D2, (pSrcDst, stride, rows, pSrc, pSrc, cols));
DL_REG(TimPrim, vdlsNormalizeColumn_32f_D2L, (mSrcDst, rows, pSrc, pSrc, cols));
DL_REG(TimPrim, vdlsNormalizeColumn_16s_D2Sfs, (pSrcDst, stride, rows, pSrc, pSrc, cols, SF));
DL_REG(TimPrim, vdlsNormalizeColumn_16s_D2LSfs, (mSrcDst, rows, pSrc, pSrc, cols, SF));
DL_REG(TimPrim, vdlsSubRow_32f_D2, (pSrc, cols, pSrcDst, stride, rows));
DL_REG(TimPrim, vdlsSubRow_32f_D2L, (pSrc, mDst, cols, rows));
DL_REG(TimPrim, vdlsSubRow_16s_D2, (pSrc, cols, pSrcDst, stride, rows));
DL_REG(TimPrim, vdlsSubRow_16s_D2L, (pSrc, mDst, cols, rows));
DL_REG(TimPrim, vdlsAddAllRowSum_32f_D2, (pSrcDst, stride, rows, pDst, cols));
DL_REG(TimPrim, vdlsAddAllRowSum_32f_D2L, (mSrc, rows, pDst, cols));
