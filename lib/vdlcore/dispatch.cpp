// Choice of the code path that the signal functions run. The choice is made
// once at load, as vdlInit would make it, and again by every successful
// vdlInit or vdlInitCpu; kernels read it through vdlGetCodePath.
#include <atomic>

#include "vdlcore.h"

#include "host_cpu.h"
#include "vdlcputypes.h"

namespace {

struct Selection {
    VdlCpuType type;
    int path;
};

std::atomic<VdlCpuType> g_enabledType{vdlCpuUnknown};
std::atomic<int> g_codePath{0};

const char* const pathNames[] = {"baseline", "vec256", "vec512"};

void select(VdlCpuType type)
{
    g_enabledType = type;
    g_codePath = vdl::pathOfType(type);
}

// The selection at load, so that a caller that never calls vdlInit gets the
// best path too.
[[maybe_unused]] const bool selectedAtLoad = (vdlInit(), true);

} // namespace

extern "C" {

VdlStatus vdlInit(void)
{
    const VdlCpuType type = vdl::classify(vdl::hostFeatures());
    select(type);
    return vdl::pathOfType(type) == 0 ? vdlStsGenericCodeWrn : vdlStsNoErr;
}

VdlStatus vdlInitCpu(VdlCpuType cpu)
{
    unsigned need = 0;
    if (!vdl::requiredFeatures(cpu, &need))
        return vdlStsCpuTypeErr;
    if (!vdl::hasAll(vdl::hostFeatures(), need))
        return vdlStsCpuNotSupportedErr;
    select(cpu);
    return vdlStsNoErr;
}

VdlCpuType vdlGetEnabledCpuType(void)
{
    return g_enabledType;
}

int vdlGetCodePath(void)
{
    return g_codePath.load(std::memory_order_relaxed);
}

const char* vdlGetCodePathName(void)
{
    return pathNames[vdlGetCodePath()];
}

} // extern "C"
