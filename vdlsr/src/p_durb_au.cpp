// Levinson-Durbin recursion: predictor coefficients and prediction error
// from autocorrelation lags.
#include "dllp.h"

DL_MODULE_VDLS("vdlsr/src/p_durb_au");

static dlVector src, dst, src_float, tmp;
static kvStepIterator<int> len;
static dlScaleIterator scaleFactor;
static dlLpError pErr;

DL_CLASS(TimLDurb, dlLagsTest, {src, dst, src_float, tmp, len, scaleFactor}, 2);

DL_REG(TimLDurb, vdlsDurbin_32f, (src, dst, len, &pErr.f));
DL_REG(TimLDurb, vdlsDurbin_16s_Sfs, (src, dst, len, &pErr.s, scaleFactor.value()));
