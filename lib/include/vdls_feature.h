/* General signal functions of libvdls used by the feature-extraction family. C linkage throughout; included by vdls.h. */
#ifndef VDLS_FEATURE_H
#define VDLS_FEATURE_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Normalised sinc: sin(pi x) / (pi x), 1 at x = 0; computed in double. */
VdlStatus vdlsSinC_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len);
VdlStatus vdlsSinC_32f64f(const Vdl32f* pSrc, Vdl64f* pDst, int len);
VdlStatus vdlsSinC_64f(const Vdl64f* pSrc, Vdl64f* pDst, int len);
VdlStatus vdlsSinC_32f_I(Vdl32f* pSrcDst, int len);
VdlStatus vdlsSinC_64f_I(Vdl64f* pSrcDst, int len);

#ifdef __cplusplus
}
#endif

#endif
