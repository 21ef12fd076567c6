// The catalogue's common unit: the library binding that every module
// registers, the shared string tables and the hot list.
#include "dl.h"

const kvString RndStr[2] = {"zero", "near"};
const kvString HintStr[3] = {"none", "fast", "accurate"};
const kvString CmpStr[5] = {"LT", "LE", "EQ", "GE", "GT"};
const kvString FlagStr[4] = {"divFwdByN", "divInvByN", "divBySqrtN", "nodivByAny"};

void dlSetVdlEnvironment() {
    vdl_GetCpuType = vdlGetCpuType;
    vdl_GetNumCoresOnDie = vdlGetNumCoresOnDie;
    vdl_GetMaxCacheSizeB = vdlGetMaxCacheSizeB;
    vdl_GetStatusString = vdlGetStatusString;
    vdl_Init = vdlInit;
    vdl_InitCpu = vdlInitCpu;
    vdl_SetNumThreads = vdlSetNumThreads;
}

const VdlLibraryVersion* dlGetVdlVersion_vdlsr() { return vdlsrGetLibVersion(); }
const VdlLibraryVersion* dlGetVdlVersion_vdls() { return vdlsGetLibVersion(); }

#define DL_HOT(func) [[maybe_unused]] static bool hot_##func = kvRegHotFunction(#func)
DL_HOT(vdlsEvalFBank_32f);
DL_HOT(vdlsLogAdd_32f);
DL_HOT(vdlsLogGauss_32f_D2);
DL_HOT(vdlsLowHighFilter_Aurora_32f);
DL_HOT(vdlsMeanVarColumn_16s16s32s_D2);
DL_HOT(vdlsResidualFilter_Aurora_32f);
DL_HOT(vdlsVQ_16s);
DL_HOT(vdlsVQDist_32f);
DL_HOT(vdlsZeroMean_16s);
