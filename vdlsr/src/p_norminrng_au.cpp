// Normalisation of a vector into a range, with the data's own minimum and
// maximum or given ones; the _I tests work in place on a copy of the input.
#include "dl.h"
#include "dlfeature.h"

DL_MODULE("vdlsr/src/p_norminrng_au");

static dlVector pSrc, pTmp, pDst, pSrcDst;
static kvStepIterator<int> len;
static dlInPlace inPlace(pSrcDst, pTmp);

DL_CLASS(TimNormInRng, dlElementwiseTest, pSrc, pDst, inPlace, len, 8, 248);

DL_REG(TimNormInRng, vdlsNormalizeInRange_16s8u, (pSrc, pDst, len, 0.2f, 0.8f, 255));
DL_REG(TimNormInRng, vdlsNormalizeInRange_16s, (pSrc, pDst, len, 0.2f, 0.8f, 255));
DL_REG_I(TimNormInRng, vdlsNormalizeInRange_16s_I, (pSrcDst, len, 0.2f, 0.8f, 255),
         inPlace.restore());
DL_REG(TimNormInRng, vdlsNormalizeInRange_32f8u, (pSrc, pDst, len, 0.2f, 0.8f, 127));
DL_REG(TimNormInRng, vdlsNormalizeInRange_32f16s, (pSrc, pDst, len, 0.2f, 0.8f, 255));
DL_REG(TimNormInRng, vdlsNormalizeInRange_32f, (pSrc, pDst, len, 0.2f, 0.8f, 255.0f));
DL_REG_I(TimNormInRng, vdlsNormalizeInRange_32f_I, (pSrcDst, len, 0.2f, 0.8f, 255.0f),
         inPlace.restore());
DL_REG(TimNormInRng, vdlsNormalizeInRangeMinMax_16s8u, (pSrc, pDst, len, 1, 255, 0.2f, 0.8f, 255));
DL_REG(TimNormInRng, vdlsNormalizeInRangeMinMax_16s, (pSrc, pDst, len, 1, 255, 0.2f, 0.8f, 255));
DL_REG_I(TimNormInRng, vdlsNormalizeInRangeMinMax_16s_I, (pSrcDst, len, 1, 255, 0.2f, 0.8f, 255),
         inPlace.restore());
DL_REG(TimNormInRng, vdlsNormalizeInRangeMinMax_32f8u,
       (pSrc, pDst, len, 1.0f, 255.0f, 0.2f, 0.8f, 127));
DL_REG(TimNormInRng, vdlsNormalizeInRangeMinMax_32f16s,
       (pSrc, pDst, len, 1.0f, 255.0f, 0.2f, 0.8f, 255));
DL_REG(TimNormInRng, vdlsNormalizeInRangeMinMax_32f,
       (pSrc, pDst, len, 1.0f, 255.0f, 0.2f, 0.8f, 255.0f));
DL_REG_I(TimNormInRng, vdlsNormalizeInRangeMinMax_32f_I,
         (pSrcDst, len, 1.0f, 255.0f, 0.2f, 0.8f, 255.0f), inPlace.restore());
