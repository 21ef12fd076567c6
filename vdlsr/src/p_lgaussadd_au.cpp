// Log-likelihood of feature frames against Gaussian mixture components,
// added in the log domain to the scores already held by the destination.
#include "dl.h"
#include "dlscoringtest.h"

DL_MODULE("vdlsr/src/p_lgaussadd_au");

static dlVector srcVector, vMean, vVar, SrcDst, Val;
static dlrMatrice mSrc, mMean, mVar;
static dlGaussData data(srcVector, vMean, vVar, mSrc, mMean, mVar);
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int rows, cols, stride;

// Frame fill, model fill, then the per-row vectors with theirs.
static dlScoringModule module(data, grid, rows, cols, stride,
                              dlFillTwo, dlFillTwo, {{&Val, dlFillTwo}, {&SrcDst, {SET_VALUE, 0.0}}});
DL_SCORING_CLASS(TimMahFAdd);

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
