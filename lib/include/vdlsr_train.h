/* Model-training functions of the Vdl Primitives: statistics, updates, products. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_TRAIN_H
#define VDLSR_TRAIN_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Sums of selected rows ---- */

/* For each i below count, adds to pDst, over width elements, row offset + pInd[i]
 * of pSrc plus weight times row offset + pAddInd[i]: pSrc has `height` rows
 * `step` elements apart. All indexed rows are checked first; one outside
 * 0 .. height - 1 gives vdlStsOutOfRangeErr and nothing is written. */
VdlStatus vdlsAddNRows_32f_D2(const Vdl32f* pSrc, int height, int offset, int step,
                              const Vdl32s* pInd, const Vdl16u* pAddInd, int count, Vdl32f* pDst,
                              int width, Vdl32f weight);

#ifdef __cplusplus
}
#endif

#endif
