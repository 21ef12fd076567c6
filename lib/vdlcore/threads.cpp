// Thread count. The kernels run on the caller's thread; a count above one
// is kept, so that a caller can read back what it asked for, and answered
// with a warning that says so.
#include <atomic>

#include "vdlcore.h"

namespace {

std::atomic<int> g_numThreads{1};

} // namespace

extern "C" {

VdlStatus vdlSetNumThreads(int numThreads)
{
    if (numThreads < 0)
        return vdlStsNumThreadsErr;
    g_numThreads = numThreads < 1 ? 1 : numThreads;
    return numThreads > 1 ? vdlStsThreadsWrn : vdlStsNoErr;
}

VdlStatus vdlGetNumThreads(int* numThreads)
{
    if (numThreads == nullptr)
        return vdlStsNullPtrErr;
    *numThreads = g_numThreads;
    return vdlStsNoErr;
}

} // extern "C"
