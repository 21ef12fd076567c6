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

/* ---- Speech-recognition function families, one block per family ---- */

#ifdef __cplusplus
}
#endif

#endif
