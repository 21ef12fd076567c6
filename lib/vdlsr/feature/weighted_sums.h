// What the lifter and the filter banks share: a state of rows of float
// weights, each applied to a run of the input, checked by its tag.
#ifndef VDL_FEATURE_WEIGHTED_SUMS_H
#define VDL_FEATURE_WEIGHTED_SUMS_H

#include "feature_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlstate.h"

namespace vdl {

// Row i: weights[offset[i] .. offset[i] + count[i]) applied to
// src[first[i] ..]. Plain data, so that it emits no symbol; visible as the
// public state types that hold it must be.
struct WeightRows {
    int rows;
    int* first;
    int* count;
    int* offset;
    float* weights;
};

// The body of a lifter or filter-bank state: its tag, the length it was
// made for (of the DCT or of the FFT), and its rows.
struct WeightedBody {
    unsigned tag;
    int length;
    WeightRows rows;
};

} // namespace vdl

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

// Output i of a state's rows is the sum of row i as a result of type D.
template <class S, class D, class State>
VdlStatus applyWeights(const S* pSrc, D* pDst, const State* st, unsigned tag, int scaleFactor)
{
    if (VdlStatus s = checkPtrs({pSrc, pDst, st}))
        return s;
    if (VdlStatus s = checkState(st, tag))
        return s;
    const WeightRows& r = st->body.rows;
    const FeatureKernels& k = featureKernels();
    for (int i = 0; i < r.rows; ++i) {
        const double sum = dot(k, r.weights + r.offset[i], pSrc + r.first[i], r.count[i]);
        pDst[i] = scaled<D>(sum, scaleFactor);
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
