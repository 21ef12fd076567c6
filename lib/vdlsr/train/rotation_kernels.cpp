// Column products and rotations of the singular-value decomposition,
// compiled once per code path.
#include "rotation_kernels.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

constexpr int lanes = 8;

void products(const Vdl64f* __restrict a, const Vdl64f* __restrict b, int n, double* aa,
              double* bb, double* ab)
{
    double pa[lanes] = {}, pb[lanes] = {}, pab[lanes] = {};
    int k = 0;
    for (; k + lanes <= n; k += lanes)
        for (int l = 0; l < lanes; ++l) {
            pa[l] += a[k + l] * a[k + l];
            pb[l] += b[k + l] * b[k + l];
            pab[l] += a[k + l] * b[k + l];
        }
    double sa = 0, sb = 0, sab = 0;
    for (; k < n; ++k) {
        sa += a[k] * a[k];
        sb += b[k] * b[k];
        sab += a[k] * b[k];
    }
    for (int l = 0; l < lanes; ++l) {
        sa += pa[l];
        sb += pb[l];
        sab += pab[l];
    }
    *aa = sa;
    *bb = sb;
    *ab = sab;
}

void rotate(Vdl64f* __restrict a, Vdl64f* __restrict b, int n, double c, double s)
{
    for (int k = 0; k < n; ++k) {
        const double x = a[k];
        const double y = b[k];
        a[k] = c * x - s * y;
        b[k] = s * x + c * y;
    }
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(RotationKernels, rotationKernels) = {&VDL_PATH_NS::products, &VDL_PATH_NS::rotate};

} // namespace vdl

#pragma GCC visibility pop
