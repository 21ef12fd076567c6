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
DL_CLASS(TimMahFAdd, dlScoringTest, module);

DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_32f, , (vMean, vVar), (SrcDst), 0.5f);
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_64f, , (vMean, vVar), (SrcDst), 0.5);
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_Scaled_16s32f, ,
                  (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_IdVar_32f, , (vMean), (SrcDst), 0.5f);
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_IdVar_64f, , (vMean), (SrcDst), 0.5);
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_IdVarScaled_16s32f, ,
                  (vMean), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahFAdd, vdlsLogGaussAddMultiMix_32f, , (Val, SrcDst));
DL_REG_MULTIMIX_PAIR(TimMahFAdd, vdlsLogGaussAddMultiMix_64f, , (Val, SrcDst));
DL_REG_MULTIMIX_PAIR(TimMahFAdd, vdlsLogGaussAddMultiMix_Scaled_16s32f, ,
                     (Val, SrcDst), scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_LowScaled_16s32f, ,
                  (vMean, vVar), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_GAUSS_PAIR(TimMahFAdd, vdlsLogGaussAdd_IdVarLowScaled_16s32f, ,
                  (vMean), (SrcDst), 0.5f, scaleFactor.value());
DL_REG_MULTIMIX_PAIR(TimMahFAdd, vdlsLogGaussAddMultiMix_LowScaled_16s32f, ,
                     (Val, SrcDst), scaleFactor.value());
