// Weighted sum of selected rows of a matrix into one row.
#include "dl.h"

DL_MODULE("vdlsr/src/p_addnrow_au");

static dlVector pSrc, pDst, pInd, pAddInd;
static kvStepIterator<int> cols, rows1, offset;
static int rows = 600;
static int stride = 50;
static float weight = -5.5f;

class TimAddNRow : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(cols, "Column", 20, 30, 1, '+');
        dlStep(rows1, "Row1", 36, 40, 1, '+');
        dlStep(offset, "Offset", 4, 16, 4, '+');
        pSrc.init(m_func, 1);
        pInd.init(dlFunc("_32s_"), 1);
        pAddInd.init(dlFunc("_16u_"), 1);
        pDst.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&offset, &rows1, &cols}) &&
               pSrc.createVector(dlProduct(rows, stride), SET_ZERO, 0, 0) &&
               pInd.createVector(rows1, -1) && pAddInd.createVector(rows1, -1) &&
               pDst.createVector(cols, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pInd, &pAddInd, &pDst}); }
    double getDivisor() override { return rows1 * cols; }
    void columns(dlColumns& c) override { c << cols << dlItem("stride", stride) << rows1 << offset; }
};

DL_REG(TimAddNRow, vdlsAddNRows_32f_D2,
       (pSrc, rows, offset, stride, pInd, pAddInd, rows1, pDst, cols, weight));
