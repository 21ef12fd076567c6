// Log-likelihood of feature frames against Gaussian mixture components,
// kept where it exceeds the score already held by the destination.
#include "dl.h"
#include "dlscoringtest.h"

DL_MODULE("vdlsr/src/p_lgaussmax_au");

static dlVector srcVector, vMean, vVar, SrcDst, vVal;
static dlrMatrice mSrc, mMean, mVar;
static dlGaussData data(srcVector, vMean, vVar, mSrc, mMean, mVar);
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int rows, cols, stride;

// Frame fill, model fill, then the per-row vectors with theirs.
static dlScoringModule module(data, grid, rows, cols, stride,
                              dlFillTwo, dlFillOne, {{&vVal, dlFillTwo}, {&SrcDst, dlFillOne}});
DL_SCORING_CLASS(TimMahMaxF);

DL_REG(TimMahMaxF, vdlsLogGaussMax_32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f));
DL_REG(TimMahMaxF, vdlsLogGaussMax_32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f));
DL_REG(TimMahMaxF, vdlsLogGaussMax_64f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5));
DL_REG(TimMahMaxF, vdlsLogGaussMax_64f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5));
DL_REG(TimMahMaxF, vdlsLogGaussMax_Scaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_Scaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_16s32s_D2LSfs,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_64f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_64f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVar_16s32s_D2LSfs,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst)));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst)));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_64f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst)));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_64f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst)));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_16s32s_D2Sfs,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_16s32s_D2LSfs,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_LowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_LowScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_Low_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (vMean, vVar), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_Low_16s32s_D2LSfs,
       DL_GAUSS_D2L(mSrc, (vMean, vVar), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarLowScaled_16s32f_D2,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 0.5f, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs,
       DL_GAUSS_D2(srcVector, (vMean), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs,
       DL_GAUSS_D2L(mSrc, (vMean), (SrcDst), 16, scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs,
       DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
DL_REG(TimMahMaxF, vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs,
       DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, (vVal, SrcDst), scaleFactor.value()));
