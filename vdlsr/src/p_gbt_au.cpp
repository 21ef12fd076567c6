// Means and variances of the columns of a feature matrix, in both layouts
// and the integer forms; the "16s16s32s" form keeps a 16-bit mean beside a
// 32-bit variance.
#include "dl.h"
#include "dlrows.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_gbt_au");

static dlVector pSrc, pMean, pVar;
static dlrMatrice mSrc;
static kvStepIterator<int> rows, cols;
static dlScaleIterator scaleFactor;
static int stride;

class TimGbt : public dlRowsTest {
public:
    using dlRowsTest::dlRowsTest;

    bool canStart() override {
        dlStep(rows, "Rows", 200, 400, 50, '+');
        dlStep(cols, "Cols", 30, 40, 3, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &mSrc}, m_func, 1);
        pVar.init(m_func, DL_DST1);
        pMean.init(m_func, m_mean16 ? DL_SRC2 : DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &rows, &cols})) return false;
        stride = layoutStride(cols);
        return createRows(pSrc, mSrc, rows, cols, stride, dlFillZero) &&
               dlCreateShifted({&pMean, &pVar}, cols, 2, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pSrc, &pMean, &pVar}, {&mSrc}); }
    double getDivisor() override { return rows * cols; }
    void columns(dlColumns& c) override {
        c << rows << cols << strideItem("stride", stride) << scaleFactor;
    }

private:
    const bool m_mean16 = m_name.found("16s16s32s");
};

DL_REG(TimGbt, vdlsMeanColumn_32f_D2, (pSrc, rows, stride, pMean, cols));
DL_REG(TimGbt, vdlsMeanColumn_32f_D2L, (mSrc, rows, pMean, cols));
DL_REG(TimGbt, vdlsMeanColumn_16s_D2, (pSrc, rows, stride, pMean, cols));
DL_REG(TimGbt, vdlsMeanColumn_16s_D2L, (mSrc, rows, pMean, cols));
DL_REG(TimGbt, vdlsVarColumn_32f_D2, (pSrc, rows, stride, pMean, pVar, cols));
DL_REG(TimGbt, vdlsVarColumn_32f_D2L, (mSrc, rows, pMean, pVar, cols));
DL_REG(TimGbt, vdlsVarColumn_16s_D2Sfs, (pSrc, rows, stride, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsVarColumn_16s_D2LSfs, (mSrc, rows, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsMeanVarColumn_32f_D2, (pSrc, rows, stride, pMean, pVar, cols));
DL_REG(TimGbt, vdlsMeanVarColumn_32f_D2L, (mSrc, rows, pMean, pVar, cols));
DL_REG(TimGbt, vdlsMeanVarColumn_16s_D2Sfs,
       (pSrc, rows, stride, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsMeanVarColumn_16s_D2LSfs, (mSrc, rows, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsMeanVarColumn_16s32s_D2Sfs,
       (pSrc, rows, stride, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsMeanVarColumn_16s32s_D2LSfs,
       (mSrc, rows, pMean, pVar, cols, scaleFactor.value()));
DL_REG(TimGbt, vdlsMeanVarColumn_16s16s32s_D2, (pSrc, rows, stride, pMean, pVar, cols));
DL_REG(TimGbt, vdlsMeanVarColumn_16s16s32s_D2L, (mSrc, rows, pMean, pVar, cols));
