/* Feature-extraction functions of the Vdl Primitives: the per-frame front end. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_FEATURE_H
#define VDLSR_FEATURE_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
