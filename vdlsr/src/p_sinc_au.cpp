// Normalised sinc of a vector; the _I tests work in place on a copy of the
// input.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE_VDLS("vdlsr/src/p_sinc_au");

static dlVector pSrc, pTmp, pDst, pSrcDst;
static kvStepIterator<int> len;
static dlInPlace inPlace(pSrcDst, pTmp);

DL_CLASS(Tim_Sinc, dlElementwiseTest, pSrc, pDst, inPlace, len, -10, 10);

DL_REG(Tim_Sinc, vdlsSinC_32f, (pSrc, pDst, len));
DL_REG(Tim_Sinc, vdlsSinC_32f64f, (pSrc, pDst, len));
DL_REG(Tim_Sinc, vdlsSinC_64f, (pSrc, pDst, len));
DL_REG_I(Tim_Sinc, vdlsSinC_32f_I, (pSrcDst, len), inPlace.restore());
DL_REG_I(Tim_Sinc, vdlsSinC_64f_I, (pSrcDst, len), inPlace.restore());
