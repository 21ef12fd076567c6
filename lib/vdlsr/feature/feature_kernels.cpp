// Front-end kernels, compiled once per code path. The dot products run in
// eight partial sums that the compiler keeps in vector registers; the other
// loops are element-wise and give the same result on every path.
#include "feature_kernels.h"
#include "vdllanes.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

template <class A, class T>
void diffAccT(A* __restrict acc, const T* __restrict a, const T* __restrict b, A c, int n)
{
    for (int k = 0; k < n; ++k)
        acc[k] += c * (static_cast<A>(a[k]) - static_cast<A>(b[k]));
}

template <class T>
double dotT(const float* __restrict w, const T* __restrict x, int n)
{
    return laneSum<double>(n, [w, x](int k) {
        return static_cast<double>(w[k]) * static_cast<double>(x[k]);
    });
}

long long sum16s(const Vdl16s* __restrict x, int n)
{
    // 32-bit partial sums cannot overflow within a block of 65536 values.
    long long total = 0;
    for (int start = 0; start < n; start += 65536) {
        const int end = n - start > 65536 ? start + 65536 : n;
        int part = 0;
        for (int k = start; k < end; ++k)
            part += x[k];
        total += part;
    }
    return total;
}

void subtract16s(Vdl16s* __restrict x, int n, int value)
{
    for (int k = 0; k < n; ++k) {
        int v = x[k] - value;
        v = v > 32767 ? 32767 : v;
        v = v < -32768 ? -32768 : v;
        x[k] = static_cast<Vdl16s>(v);
    }
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(FeatureKernels, featureKernels) = {
    &VDL_PATH_NS::diffAccT<float, Vdl32f>, &VDL_PATH_NS::diffAccT<double, Vdl16s>,
    &VDL_PATH_NS::dotT<Vdl32f>,            &VDL_PATH_NS::dotT<Vdl16s>,
    &VDL_PATH_NS::dotT<Vdl32s>,            &VDL_PATH_NS::sum16s,
    &VDL_PATH_NS::subtract16s,
};

} // namespace vdl

#pragma GCC visibility pop
