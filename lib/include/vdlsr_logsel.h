/* Log-domain arithmetic and Gaussian selection functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_LOGSEL_H
#define VDLSR_LOGSEL_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
