/* General signal functions of libvdls used by the feature-extraction family. C linkage throughout; included by vdlsr.h. */
#ifndef VDLS_FEATURE_H
#define VDLS_FEATURE_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif


#ifdef __cplusplus
}
#endif

#endif
