// Filter sums of polyphase resampling, compiled once per code path. The
// float sums run in partial sums (vdllanes.h), so paths may differ in the
// last bits of a float output.
#include <cmath>

#include "align_paths.h"
#include "vdllanes.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

// The taps of an any-ratio output come from the prototype table at
// positions that step by a fraction of an entry. Positions run in float:
// for the tables the state allows (up to 2^20 entries) they keep a few
// thousandths of an entry, far below what the interpolation resolves.
template <class T>
float phaseSum(const T* __restrict x, int count, double pos, double step,
               const float* __restrict table, int interpolate)
{
    const float p0 = static_cast<float>(pos), dp = static_cast<float>(step);
    float sum = 0;
    if (interpolate) {
        for (int i = 0; i < count; ++i) {
            const float a = std::fabs(p0 + static_cast<float>(i) * dp);
            const int k = static_cast<int>(a);
            const float frac = a - static_cast<float>(k);
            sum += static_cast<float>(x[i]) * (table[k] + frac * (table[k + 1] - table[k]));
        }
    } else {
        for (int i = 0; i < count; ++i) {
            const int k = static_cast<int>(std::fabs(p0 + static_cast<float>(i) * dp) + 0.5f);
            sum += static_cast<float>(x[i]) * table[k];
        }
    }
    return sum;
}

template <class A, class T>
A tapSum(const T* __restrict x, const float* __restrict h, int n)
{
    return laneSum<A>(n, [x, h](int k) { return static_cast<A>(x[k]) * static_cast<A>(h[k]); });
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(ResampleKernels, resampleKernels) = {
    &VDL_PATH_NS::phaseSum<Vdl32f>,
    &VDL_PATH_NS::phaseSum<Vdl16s>,
    &VDL_PATH_NS::tapSum<float, Vdl32f>,
    &VDL_PATH_NS::tapSum<double, Vdl32f>,
    &VDL_PATH_NS::tapSum<float, Vdl16s>,
    &VDL_PATH_NS::tapSum<double, Vdl16s>,
};

} // namespace vdl

#pragma GCC visibility pop
