// Schur recursion: reflection coefficients and prediction error from
// autocorrelation lags.
#include "dllp.h"

DL_MODULE_VDLS("vdlsr/src/p_schur_au");

static dlVector src, dst, src_float, tmp;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;
static dlLpError pErr;

DL_CLASS(TimSchur, dlLagsTest, {src, dst, src_float, tmp, len, scaleFactor}, 3);

DL_REG(TimSchur, vdlsSchur_32f, (src, dst, len, &pErr.f));
DL_REG(TimSchur, vdlsSchur_16s_Sfs, (src, dst, len, &pErr.s, scaleFactor.value()));
