/* Alignment and signal functions of the Vdl Primitives: time warping, resampling, correlation, noise reduction. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_ALIGN_H
#define VDLSR_ALIGN_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
