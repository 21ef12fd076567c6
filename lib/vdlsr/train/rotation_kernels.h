// The hot loops of the singular-value decomposition: the three inner
// products of a pair of columns and their plane rotation, over contiguous
// columns of a work copy. The products run in partial sums, so two code
// paths may differ in them by a relative error up to length * 1.2e-16.
#ifndef VDL_TRAIN_ROTATION_KERNELS_H
#define VDL_TRAIN_ROTATION_KERNELS_H

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

struct RotationKernels {
    // *aa = a.a, *bb = b.b, *ab = a.b over n elements.
    void (*products)(const Vdl64f* a, const Vdl64f* b, int n, double* aa, double* bb, double* ab);
    // (a, b) = (c a - s b, s a + c b) element by element.
    void (*rotate)(Vdl64f* a, Vdl64f* b, int n, double c, double s);
};

VDL_DISPATCH(RotationKernels, rotationKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
