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
DL_CLASS(TimMahMaxF, dlScoringTest, module);

DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_32f, , (vMean, vVar), (SrcDst), 0.5f);
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_64f, , (vMean, vVar), (SrcDst), 0.5);
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_Scaled_16s32f, ,
                  (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_16s32s, Sfs,
                  (vMean, vVar), (SrcDst), 16, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVar_32f, , (vMean), (SrcDst), 0.5f);
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVar_64f, , (vMean), (SrcDst), 0.5);
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVarScaled_16s32f, ,
                  (vMean), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVar_16s32s, Sfs,
                  (vMean), (SrcDst), 16, scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_32f, , (vVal, SrcDst));
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_64f, , (vVal, SrcDst));
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_Scaled_16s32f, ,
                     (vVal, SrcDst), scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_16s32s, Sfs,
                     (vVal, SrcDst), scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_LowScaled_16s32f, ,
                  (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_Low_16s32s, Sfs,
                  (vMean, vVar), (SrcDst), 16, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVarLowScaled_16s32f, ,
                  (vMean), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahMaxF, vdlsLogGaussMax_IdVarLow_16s32s, Sfs,
                  (vMean), (SrcDst), 16, scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_LowScaled_16s32f, ,
                     (vVal, SrcDst), scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahMaxF, vdlsLogGaussMaxMultiMix_Low_16s32s, Sfs,
                     (vVal, SrcDst), scaleFactor.value());
