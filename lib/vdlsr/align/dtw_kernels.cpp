// Local distances of time warping, compiled once per code path: one frame
// of the first sequence against a run of frames of the second. The float
// forms sum in partial sums added pairwise at the end (vdllanes.h), so
// their order differs from a plain loop within the bound the header states;
// the 8-bit form sums exactly in double, in any order.
#include "align_paths.h"
#include "vdllanes.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

template <class C, class T>
C squaredDistance(const T* __restrict a, const T* __restrict b, int width)
{
    return laneSum<C>(width, [a, b](int k) {
        const C d = static_cast<C>(a[k]) - static_cast<C>(b[k]);
        return d * d;
    });
}

template <class C, class T>
void frameDistances(const T* a, RowRef<T> b, int width, int lo, int hi, C* d)
{
    for (int j = lo; j <= hi; ++j)
        d[j - lo] = squaredDistance<C>(a, b.row(j), width);
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(DtwKernels, dtwKernels) = {
    &VDL_PATH_NS::frameDistances<float, Vdl32f>,
    &VDL_PATH_NS::frameDistances<double, Vdl8u>,
    &VDL_PATH_NS::frameDistances<float, Vdl16s>,
};

} // namespace vdl

#pragma GCC visibility pop
