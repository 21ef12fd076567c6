#include "kvvdl.h"

vdlGetCpuTypeFunc vdl_GetCpuType = 0;
vdlGetNumCoresOnDieFunc vdl_GetNumCoresOnDie = 0;
vdlGetMaxCacheSizeBFunc vdl_GetMaxCacheSizeB = 0;
vdlGetStatusStringFunc vdl_GetStatusString = 0;
vdlInitFunc vdl_Init = 0;
vdlInitCpuFunc vdl_InitCpu = 0;
vdlSetNumThreadsFunc vdl_SetNumThreads = 0;

// Without a library: -2 marks its absence.
static const char* s_vdlGetStatusString(VdlStatus status) {
    return status < 0 ? "Error" : status == 0 ? "OK" : "Warning";
}
static VdlStatus s_vdlInit() { return -2; }
static VdlStatus s_vdlInitCpu(VdlCpuType) { return -2; }
static VdlStatus s_vdlSetNumThreads(int) { return -2; }

void kvBindVdlFallbacks() {
    if (!vdl_GetCpuType) vdl_GetCpuType = kv_vdlGetCpuType;
    if (!vdl_GetNumCoresOnDie) vdl_GetNumCoresOnDie = kv_vdlGetNumCoresOnDie;
    if (!vdl_GetMaxCacheSizeB) vdl_GetMaxCacheSizeB = kv_vdlGetMaxCacheSizeB;
    if (!vdl_GetStatusString) vdl_GetStatusString = s_vdlGetStatusString;
    if (!vdl_Init) vdl_Init = s_vdlInit;
    if (!vdl_InitCpu) vdl_InitCpu = s_vdlInitCpu;
    if (!vdl_SetNumThreads) vdl_SetNumThreads = s_vdlSetNumThreads;
}
