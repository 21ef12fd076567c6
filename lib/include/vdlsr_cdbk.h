/* Codebook and vector-quantisation functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_CDBK_H
#define VDLSR_CDBK_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
