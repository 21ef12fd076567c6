// Sums in partial sums, for kernel sources (*_kernels.cpp), which are
// compiled once per code path: `laneCount` partial sums that the compiler
// keeps in vector registers, folded pairwise at the end and added to the
// sum of the elements left over. Their order is not that of a plain loop,
// which the bounds of the float forms allow for.
#ifndef VDL_COMMON_LANES_H
#define VDL_COMMON_LANES_H

#include "vdlpaths.h"

#ifndef VDL_PATH
#error "vdllanes.h is for kernel sources, which are compiled once per code path"
#endif

#pragma GCC visibility push(hidden)

// In the path's own namespace and always inlined, so that no path runs a
// copy built for another.
namespace vdl::VDL_PATH_NS {
namespace {

constexpr int laneCount = 8;

// The sum of term(k) over k < n, in type A.
template <class A, class Term>
[[gnu::always_inline]] inline A laneSum(int n, const Term& term)
{
    A part[laneCount] = {};
    int k = 0;
    for (; k + laneCount <= n; k += laneCount)
        for (int l = 0; l < laneCount; ++l)
            part[l] += term(k + l);
    A tail = 0;
    for (; k < n; ++k)
        tail += term(k);
    for (int half = laneCount / 2; half > 0; half /= 2)
        for (int l = 0; l < half; ++l)
            part[l] += part[l + half];
    return part[0] + tail;
}

} // namespace
} // namespace vdl::VDL_PATH_NS

#pragma GCC visibility pop

#endif
