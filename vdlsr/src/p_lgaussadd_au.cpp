// Log-likelihood of feature frames against Gaussian mixture components,
// added in the log domain to the scores already held by the destination.
#include "dl.h"
#include "dlgaussdata.h"
#include "dltwogrid.h"

DL_MODULE("vdlsr/src/p_lgaussadd_au");

static dlVector srcVector, vMean, vVar, SrcDst, Val;
static dlrMatrice mSrc, mMean, mVar;
static dlGaussData data(srcVector, vMean, vVar, mSrc, mMean, mVar);
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int rows, cols, stride;

class TimMahFAdd : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        grid.read(m_func, "Rows", "Cols");
        data.init(m_func);
        Val.init(m_func, DL_DST1);
        SrcDst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!grid.next(m_firstSet)) return false;
        rows = grid.rows;
        cols = grid.cols;
        stride = m_d2l ? 0 : roundedStride(cols);
        return data.create(m_multiMix, m_d2l, rows, cols, stride, dlFillTwo, dlFillTwo) &&
               Val.createVector(rows, SET_VALUE, 2.0, 0) &&
               SrcDst.createVector(rows, SET_VALUE, 0.0, 0);
    }
    void flushData() override {
        data.flush();
        Val.deleteVector();
        SrcDst.deleteVector();
    }
    double getDivisor() override { return cols * rows; }
    void columns(dlColumns& c) override {
        c << dlItem("rows", rows) << dlItem("cols", cols) << dlStrideItem("stride", m_d2l, stride)
          << scaleFactor;
    }

private:
    const bool m_d2l = m_name.found("D2L");
    const bool m_multiMix = m_name.found("MultiMix");
};

DL_REG(TimMahFAdd, vdlsLogGaussAdd_32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_64f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_64f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_Scaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_Scaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVar_32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVar_32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVar_64f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVar_64f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVarScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVarScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (Val, SrcDst)));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (Val, SrcDst)));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_64f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (Val, SrcDst)));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_64f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (Val, SrcDst)));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_Scaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (Val, SrcDst), scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (Val, SrcDst), scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_LowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_LowScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (Val, SrcDst), scaleFactor.value()));
DL_REG(TimMahFAdd, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (Val, SrcDst), scaleFactor.value()));
