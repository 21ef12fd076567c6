// What the lifter and the filter banks share: rows of float weights, each
// applied to a run of the input, and the state check by a tag.
#ifndef VDL_FEATURE_WEIGHTED_SUMS_H
#define VDL_FEATURE_WEIGHTED_SUMS_H

#include "feature_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Tags that tell the state kinds apart.
enum : unsigned {
    lifterTag32f = 0x4c463332u,
    lifterTag16s = 0x4c463136u,
    fbankTag32f = 0x46423332u,
    fbankTag16s = 0x46423136u,
    fbankTag32s = 0x46423353u
};

// Row i: weights[offset[i] .. offset[i] + count[i]) applied to
// src[first[i] ..]. Output i = that sum as a result of type D.
struct WeightRows {
    int rows;
    const int* first;
    const int* count;
    const int* offset;
    const float* weights;

    template <class S, class D>
    void apply(const S* src, D* dst, int scaleFactor) const
    {
        const FeatureKernels& k = featureKernels();
        for (int i = 0; i < rows; ++i) {
            const double sum = dot(k, weights + offset[i], src + first[i], count[i]);
            dst[i] = scaled<D>(sum, scaleFactor);
        }
    }
};

} // namespace vdl

#pragma GCC visibility pop

#endif
