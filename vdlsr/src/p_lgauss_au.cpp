// Log-likelihood of feature frames against diagonal Gaussian mixture
// components, in four layouts: many frames against one component or one
// frame against many (MultiMix), rows in one buffer (_D2) or by row
// pointers (_D2L).
#include "dl.h"
#include "dlgaussdata.h"
#include "dltwogrid.h"

DL_MODULE("vdlsr/src/p_lgauss_au");

static dlVector srcVector, meanVector, varVector, dst;
static dlrMatrice srcMatrice, meanMatrice, varMatrice;
static dlGaussData data(srcVector, meanVector, varVector, srcMatrice, meanMatrice, varMatrice);
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int rows, cols, stride;

class TimLGauss : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        grid.read(m_func, "Rows", "Cols");
        data.init(m_func);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        if (!grid.next(m_firstSet)) return false;
        rows = grid.rows;
        cols = grid.cols;
        stride = m_d2l ? 0 : roundedStride(cols);
        return data.create(m_multiMix, m_d2l, rows, cols, stride, dlFillZero, dlFillZero) &&
               dst.createVector(rows, SET_ZERO, 0, 0);
    }
    void flushData() override {
        data.flush();
        dst.deleteVector();
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

DL_REG(TimLGauss, vdlsLogGauss_32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0.5f));
DL_REG(TimLGauss, vdlsLogGauss_64f_D2,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0.5));
DL_REG(TimLGauss, vdlsLogGauss_Scaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0.5f));
DL_REG(TimLGauss, vdlsLogGauss_64f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0.5));
DL_REG(TimLGauss, vdlsLogGauss_Scaled_16s32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_16s32s_D2LSfs,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_32f_D2,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst)));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_64f_D2,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst)));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_Scaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_16s32s_D2Sfs,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst)));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_64f_D2L,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst)));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_Scaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_16s32s_D2LSfs,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0.5f));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_64f_D2,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0.5));
DL_REG(TimLGauss, vdlsLogGauss_IdVarScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0.5f));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_64f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0.5));
DL_REG(TimLGauss, vdlsLogGauss_IdVarScaled_16s32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVar_16s32s_D2LSfs,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_Low_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_Low_16s32s_D2LSfs,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_LowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector, varVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_LowScaled_16s32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector, varVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVarLow_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVarLow_16s32s_D2LSfs,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVarLowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (meanVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGauss_IdVarLowScaled_16s32f_D2L,
       DL_GAUSS_D2L(srcMatrice, (meanVector), (dst), 0.5f, scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_Low_16s32s_D2Sfs,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_Low_16s32s_D2LSfs,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_LowScaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((meanVector, varVector), srcVector, (dst), scaleFactor.value()));
DL_REG(TimLGauss, vdlsLogGaussMultiMix_LowScaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((meanMatrice, varMatrice), srcVector, (dst), scaleFactor.value()));
