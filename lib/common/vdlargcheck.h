// Argument checks shared by the signal functions. Each returns vdlStsNoErr
// or the negative status of the fault, so that a function can write
//     if (VdlStatus s = vdl::firstError({vdl::checkPtrs({src, dst}), vdl::checkLen(len)}))
//         return s;
#ifndef VDL_COMMON_ARGCHECK_H
#define VDL_COMMON_ARGCHECK_H

#include <cmath>
#include <initializer_list>

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

inline VdlStatus checkPtrs(std::initializer_list<const void*> ptrs)
{
    for (const void* p : ptrs)
        if (p == nullptr)
            return vdlStsNullPtrErr;
    return vdlStsNoErr;
}

inline VdlStatus checkLen(int len)
{
    return len > 0 ? vdlStsNoErr : vdlStsSizeErr;
}

inline VdlStatus checkSize(int width, int height)
{
    return width > 0 && height > 0 ? vdlStsNoErr : vdlStsSizeErr;
}

// A row step in elements must cover the row it steps over.
inline VdlStatus checkStep(int step, int width)
{
    return step >= width ? vdlStsNoErr : vdlStsStepErr;
}

// An index or parameter that must lie in [lo, hi].
inline VdlStatus checkRange(long long value, long long lo, long long hi)
{
    return value >= lo && value <= hi ? vdlStsNoErr : vdlStsOutOfRangeErr;
}

// A hint must be one of the three the header names.
inline VdlStatus checkHint(int hint)
{
    return hint >= vdlAlgHintNone && hint <= vdlAlgHintAccurate ? vdlStsNoErr : vdlStsBadArgErr;
}

// A value, or every value of a row, that must be positive. The comparison
// is quiet: a NaN is refused without raising a floating-point flag.
template <class T>
VdlStatus checkPositive(T value)
{
    return std::isgreater(value, T(0)) ? vdlStsNoErr : vdlStsBadArgErr;
}

template <class T>
VdlStatus checkPositive(const T* values, int len)
{
    for (int k = 0; k < len; ++k)
        if (VdlStatus s = checkPositive(values[k]))
            return s;
    return vdlStsNoErr;
}

// The first error in argument order; warnings do not stop a call.
inline VdlStatus firstError(std::initializer_list<VdlStatus> statuses)
{
    for (VdlStatus s : statuses)
        if (s < 0)
            return s;
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
