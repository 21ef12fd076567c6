// Thread count for the kernels. The kernels are single-threaded today; the
// count is kept so that callers can set it and later kernels can honour it.
#include <unistd.h>

#include <atomic>

#include "vdlcore.h"

namespace {

std::atomic<int> g_numThreads{1};

int onlineProcessors()
{
    const long n = sysconf(_SC_NPROCESSORS_ONLN);
    return n > 0 ? static_cast<int>(n) : 1;
}

} // namespace

extern "C" {

VdlStatus vdlSetNumThreads(int numThreads)
{
    if (numThreads < 1 || numThreads > onlineProcessors())
        return vdlStsNumThreadsErr;
    g_numThreads = numThreads;
    return vdlStsNoErr;
}

VdlStatus vdlGetNumThreads(int* numThreads)
{
    if (numThreads == nullptr)
        return vdlStsNullPtrErr;
    *numThreads = g_numThreads;
    return vdlStsNoErr;
}

} // extern "C"
