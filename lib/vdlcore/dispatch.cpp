// Choice of the code path that the signal functions run.
#include <atomic>

#include "vdlcore.h"

#include "host_cpu.h"
#include "vdlcputypes.h"

namespace {

constexpr VdlCpuType notSelected = -1;
std::atomic<VdlCpuType> g_enabledType{notSelected};

} // namespace

extern "C" {

VdlStatus vdlInit(void)
{
    const VdlCpuType type = vdl::classify(vdl::hostFeatures());
    g_enabledType = type;
    return type == vdlCpuUnknown ? vdlStsGenericCodeWrn : vdlStsNoErr;
}

VdlStatus vdlInitCpu(VdlCpuType cpu)
{
    unsigned need = 0;
    if (!vdl::requiredFeatures(cpu, &need))
        return vdlStsCpuTypeErr;
    if (!vdl::hasAll(vdl::hostFeatures(), need))
        return vdlStsCpuNotSupportedErr;
    g_enabledType = cpu;
    return vdlStsNoErr;
}

VdlCpuType vdlGetEnabledCpuType(void)
{
    if (g_enabledType == notSelected)
        vdlInit();
    return g_enabledType;
}

} // extern "C"
