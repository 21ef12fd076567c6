// The framework's view of the library under test: the seven hooks through
// which all framework code reaches it, and their fall-backs.
#ifndef KV_VDL_H
#define KV_VDL_H

#include "vdlcore.h"

typedef VdlCpuType (*vdlGetCpuTypeFunc)();
typedef int (*vdlGetNumCoresOnDieFunc)();
typedef VdlStatus (*vdlGetMaxCacheSizeBFunc)(int* size);
typedef const char* (*vdlGetStatusStringFunc)(VdlStatus status);
typedef VdlStatus (*vdlInitFunc)();
typedef VdlStatus (*vdlInitCpuFunc)(VdlCpuType cpu);
typedef VdlStatus (*vdlSetNumThreadsFunc)(int threads);
typedef const VdlLibraryVersion* (*vdlGetLibVersionFunc)();

extern vdlGetCpuTypeFunc vdl_GetCpuType;
extern vdlGetNumCoresOnDieFunc vdl_GetNumCoresOnDie;
extern vdlGetMaxCacheSizeBFunc vdl_GetMaxCacheSizeB;
extern vdlGetStatusStringFunc vdl_GetStatusString;
extern vdlInitFunc vdl_Init;
extern vdlInitCpuFunc vdl_InitCpu;
extern vdlSetNumThreadsFunc vdl_SetNumThreads;

// Fills every hook that is still null with the framework's fall-back.
void kvBindVdlFallbacks();

// The framework's own processor answers, used when the library offers none.
VdlCpuType kv_vdlGetCpuType();
int kv_vdlGetNumCoresOnDie();
VdlStatus kv_vdlGetMaxCacheSizeB(int* size);

#endif
