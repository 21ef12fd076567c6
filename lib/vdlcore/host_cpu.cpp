#include "host_cpu.h"

#include "vdlcachesize.h"
#include "vdlcputypes.h"

namespace vdl {

namespace {

const CpuidView& hostView()
{
    static const HardwareCpuid hardware;
    static const CpuidView view(hardware);
    return view;
}

} // namespace

unsigned hostFeatures()
{
    static const unsigned features = detectFeatures(hostView());
    return features;
}

int hostCores()
{
    static const int cores = coresOnDie(hostView());
    return cores;
}

int hostLargestCache()
{
    static const int size = largestCacheSize(hostView());
    return size;
}

} // namespace vdl
