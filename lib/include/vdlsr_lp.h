/* Linear-prediction functions of the Vdl Primitives. C linkage throughout; included by vdlsr.h. */
#ifndef VDLSR_LP_H
#define VDLSR_LP_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
