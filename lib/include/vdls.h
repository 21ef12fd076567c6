/* Signal functions of the Vdl Primitives, with their memory and version
 * calls. C linkage throughout. */
#ifndef VDLS_H
#define VDLS_H

#include "vdlcore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Version record of this library; static storage, never null. */
const VdlLibraryVersion* vdlsGetLibVersion(void);

/* Memory for library data, aligned to 64 bytes. Null for len < 1 or when no
 * memory is left. Release with vdlsFree. */
void* vdlsMalloc_8u(int len);

/* Releases memory from vdlsMalloc_8u; a null pointer is ignored. */
void vdlsFree(void* ptr);

/* ---- Signal function families, one block per family ---- */

/* ---- Initialisation ---- */

/* Sets pDst[k] = val for k below len. */
VdlStatus vdlsSet_32f(Vdl32f val, Vdl32f* pDst, int len);

#ifdef __cplusplus
}
#endif

/* General functions that families of libvdlsr build on, one header each. */
#include "vdls_feature.h"
#include "vdls_lp.h"

#endif
