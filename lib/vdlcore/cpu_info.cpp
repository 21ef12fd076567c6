// What the library reports about the processor it runs on.
#include "vdlcore.h"

#include "host_cpu.h"
#include "vdlcputypes.h"

extern "C" {

VdlCpuType vdlGetCpuType(void)
{
    return vdl::classify(vdl::hostFeatures());
}

int vdlGetNumCoresOnDie(void)
{
    return vdl::hostCores();
}

VdlStatus vdlGetMaxCacheSizeB(int* size)
{
    if (size == nullptr)
        return vdlStsNullPtrErr;
    *size = vdl::hostLargestCache();
    return *size > 0 ? vdlStsNoErr : vdlStsNoCacheInfoErr;
}

} // extern "C"
