/* Speech-recognition functions of the Vdl Primitives. C linkage throughout. */
#ifndef VDLSR_H
#define VDLSR_H

#include "vdlcore.h"
#include "vdls.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Version record of this library; static storage, never null. */
const VdlLibraryVersion* vdlsrGetLibVersion(void);

#ifdef __cplusplus
}
#endif

/* The function families, one header each. */
#include "vdlsr_gauss.h"
#include "vdlsr_cdbk.h"
#include "vdlsr_feature.h"
#include "vdlsr_lp.h"
#include "vdlsr_train.h"
#include "vdlsr_logsel.h"
#include "vdlsr_align.h"

#endif
