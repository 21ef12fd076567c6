// Log-likelihood of feature frames against diagonal Gaussian mixture
// components, in four layouts: many frames against one component or one
// frame against many (MultiMix), rows in one buffer (_D2) or by row
// pointers (_D2L).
#include "dl.h"
#include "dlscoringtest.h"

DL_MODULE("vdlsr/src/p_lgauss_au");

static dlVector srcVector, meanVector, varVector, dst;
static dlrMatrice srcMatrice, meanMatrice, varMatrice;
static dlGaussData data(srcVector, meanVector, varVector, srcMatrice, meanMatrice, varMatrice);
static dlTwoGrid grid;
static dlrScaleIterator& scaleFactor = grid.scaleFactor;
static int rows, cols, stride;

// Frame fill, model fill, then the per-row vectors with theirs.
static dlScoringModule module(data, grid, rows, cols, stride,
                              dlFillZero, dlFillZero, {{&dst, dlFillZero}});
DL_CLASS(TimLGauss, dlScoringTest, module);

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
