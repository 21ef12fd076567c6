/* General signal functions of libvdls used by the linear-prediction family: conversions, random generators. C linkage throughout; included by vdlsr.h. */
#ifndef VDLS_LP_H
#define VDLS_LP_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
