// The running processor as the library sees it, detected once per process.
#ifndef VDL_CORE_HOST_CPU_H
#define VDL_CORE_HOST_CPU_H

#pragma GCC visibility push(hidden)

namespace vdl {

unsigned hostFeatures();
int hostCores();
int hostLargestCache();

} // namespace vdl

#pragma GCC visibility pop

#endif
