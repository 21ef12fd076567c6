// The hot loops of the codebook family: distances of vectors to every
// codeword of a codebook, and the nearest codeword of each of many vectors,
// built once per code path. Codewords come component-major (component k of
// codeword j at codeT[k * size + j]), so that the inner loop runs over the
// codewords, however narrow they are.
#ifndef VDL_CDBK_DISPATCH_H
#define VDL_CDBK_DISPATCH_H

#include <cstddef>

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// index[i], dist[i]: the nearest codeword of row i (src + i * step) and its
// distance; the lower index among equal distances. wgt may be null (L2).
template <class T, class A>
using NearestFn = void (*)(const T* src, std::ptrdiff_t step, int height, const T* codeT,
                           int size, int width, const T* wgt, int* index, A* dist);

// dist[j]: the distance of the vector x to codeword j, for j below size.
template <class T, class A>
using DistancesFn = void (*)(const T* x, const T* codeT, int size, int width, const T* wgt,
                             A* dist);

template <class T, class A>
struct SearchSet {
    NearestFn<T, A> nearest;
    NearestFn<T, A> nearestWeighted;
    DistancesFn<T, A> distances;
    DistancesFn<T, A> distancesWeighted;
};

struct CdbkKernels {
    SearchSet<Vdl32f, float> f32;
    SearchSet<Vdl16s, double> s16;

    template <class T, class A>
    const SearchSet<T, A>& set() const;
};

template <> inline const SearchSet<Vdl32f, float>& CdbkKernels::set() const { return f32; }
template <> inline const SearchSet<Vdl16s, double>& CdbkKernels::set() const { return s16; }

VDL_DISPATCH(CdbkKernels, cdbkKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
