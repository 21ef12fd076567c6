// Delta and double-delta coefficients of a feature matrix, in a separate
// destination (Delta, DeltaDelta, their Mul forms) or beside the statics
// in the matrix itself (EvalDelta); and the copy of columns into wider rows.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_dlt_au");

static dlVector pSrc, pDst, pVal;
static kvStepIterator<int> rows, cols, winSize, offset;
static dlScaleIterator scaleFactor;
static int stride;

class TimDlt : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(rows, "Rows", 100, 400, 100, '+');
        dlStep(cols, "Cols", 12, 16, 1, '+');
        dlStep(winSize, m_eval ? "winSize" : "", 1, m_eval ? 2 : 1, 1, '+');
        dlStep(offset, m_eval ? "offset" : "", m_eval ? 0 : 1, 1, 1, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&pSrc, &pDst, &pVal}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &winSize, &offset, &rows, &cols})) return false;
        // A frame row holds the static, delta and double-delta coefficients.
        stride = roundedStride(3 * cols);
        return pDst.createVector(rows * stride, SET_ZERO, 0, 0) &&
               pSrc.createVector(rows * (m_eval ? stride : cols), SET_ZERO, 0, 0) &&
               (!m_mul || pVal.createVector(3 * cols, SET_ZERO, 0, 0));
    }
    void flushData() override { dlDeleteAll({&pSrc, &pDst, &pVal}); }
    double getDivisor() override { return rows * cols; }
    double getDivisor_el() override { return rows * cols * stride; }
    void columns(dlColumns& c) override {
        c << rows << cols << dlItem("stride", stride) << winSize << offset << scaleFactor;
    }

private:
    const bool m_eval = m_name.found("Eval");
    const bool m_mul = m_name.found("Mul");
};

static const int mode = 3;

DL_REG(TimDlt, vdlsEvalDelta_32f_D2, (pSrc, rows, stride, cols, offset, winSize, 0.1f));
DL_REG(TimDlt, vdlsEvalDelta_16s_D2Sfs,
       (pSrc, rows, stride, cols, offset, winSize, 1, scaleFactor.value()));
DL_REG(TimDlt, vdlsEvalDeltaMul_32f_D2, (pSrc, rows, stride, pVal, cols, offset, winSize));
DL_REG(TimDlt, vdlsEvalDeltaMul_16s_D2Sfs,
       (pSrc, rows, stride, pVal, cols, offset, winSize, scaleFactor.value()));
DL_REG(TimDlt, vdlsDelta_Win1_32f_D2, (pSrc, cols, pDst, stride, rows, 0.1f, mode));
DL_REG(TimDlt, vdlsDelta_Win2_32f_D2, (pSrc, cols, pDst, stride, rows, 0.1f, mode));
DL_REG(TimDlt, vdlsDelta_Win1_16s_D2Sfs, (pSrc, cols, pDst, stride, rows, 1, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDelta_Win2_16s_D2Sfs, (pSrc, cols, pDst, stride, rows, 1, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaMul_Win1_32f_D2, (pSrc, pVal, cols, pDst, stride, rows, mode));
DL_REG(TimDlt, vdlsDeltaMul_Win2_32f_D2, (pSrc, pVal, cols, pDst, stride, rows, mode));
DL_REG(TimDlt, vdlsDeltaDeltaMul_Win1_32f_D2, (pSrc, pVal, cols, pDst, stride, rows, mode));
DL_REG(TimDlt, vdlsDeltaDeltaMul_Win2_32f_D2, (pSrc, pVal, cols, pDst, stride, rows, mode));
DL_REG(TimDlt, vdlsDeltaMul_Win1_16s_D2Sfs,
       (pSrc, pVal, cols, pDst, stride, rows, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaMul_Win2_16s_D2Sfs,
       (pSrc, pVal, cols, pDst, stride, rows, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaDeltaMul_Win1_16s_D2Sfs,
       (pSrc, pVal, cols, pDst, stride, rows, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaDeltaMul_Win2_16s_D2Sfs,
       (pSrc, pVal, cols, pDst, stride, rows, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaDelta_Win1_32f_D2, (pSrc, cols, pDst, stride, rows, 0.1f, 0.1f, mode));
DL_REG(TimDlt, vdlsDeltaDelta_Win2_32f_D2, (pSrc, cols, pDst, stride, rows, 0.1f, 0.1f, mode));
DL_REG(TimDlt, vdlsDeltaDelta_Win1_16s_D2Sfs,
       (pSrc, cols, pDst, stride, rows, 1, 1, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsDeltaDelta_Win2_16s_D2Sfs,
       (pSrc, cols, pDst, stride, rows, 1, 1, mode, scaleFactor.value()));
DL_REG(TimDlt, vdlsCopyColumn_32f_D2, (pSrc, cols, pDst, stride, rows));
DL_REG(TimDlt, vdlsCopyColumn_16s_D2, (pSrc, cols, pDst, stride, rows));
