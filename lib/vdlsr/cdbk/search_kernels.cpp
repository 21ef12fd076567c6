// Distances to the codewords of a codebook, compiled once per code path.
// Each distance sums its components in order, so paths differ only where
// the compiler fuses a multiply and an add (float data); 16-bit data summed
// in double are exact.
#include "cdbk_dispatch.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

struct Unweighted {
    template <class A, class T>
    static A weight(const T*, int) { return A(1); }
};

struct Weighted {
    template <class A, class T>
    static A weight(const T* w, int k) { return static_cast<A>(w[k]); }
};

// dist[j] = sum over k of w_k (x_k - codeT[k][j])^2 for j below n.
template <class W, class A, class T>
void distanceBlock(const T* __restrict x, const T* __restrict codeT, int size, int n, int width,
                   const T* __restrict wgt, A* __restrict dist)
{
    for (int j = 0; j < n; ++j)
        dist[j] = 0;
    for (int k = 0; k < width; ++k) {
        const A xk = static_cast<A>(x[k]);
        const A wk = W::template weight<A>(wgt, k);
        const T* __restrict column = codeT + static_cast<std::ptrdiff_t>(k) * size;
        for (int j = 0; j < n; ++j) {
            const A d = xk - static_cast<A>(column[j]);
            dist[j] += d * d * wk;
        }
    }
}

template <class W, class A, class T>
void distances(const T* x, const T* codeT, int size, int width, const T* wgt, A* dist)
{
    distanceBlock<W>(x, codeT, size, size, width, wgt, dist);
}

// Codewords in blocks that fit on the stack, the best kept across blocks.
template <class W, class A, class T>
void nearest(const T* src, std::ptrdiff_t step, int height, const T* codeT, int size, int width,
             const T* wgt, int* index, A* dist)
{
    constexpr int block = 256;
    A d[block];
    for (int i = 0; i < height; ++i) {
        const T* x = src + i * step;
        A best = 0;
        int bestIndex = -1;
        for (int first = 0; first < size; first += block) {
            const int n = size - first < block ? size - first : block;
            distanceBlock<W>(x, codeT + first, size, n, width, wgt, d);
            for (int j = 0; j < n; ++j) {
                if (bestIndex < 0 || d[j] < best) {
                    best = d[j];
                    bestIndex = first + j;
                }
            }
        }
        index[i] = bestIndex;
        dist[i] = best;
    }
}

template <class T, class A>
constexpr SearchSet<T, A> searchSet()
{
    return {&nearest<Unweighted, A, T>, &nearest<Weighted, A, T>, &distances<Unweighted, A, T>,
            &distances<Weighted, A, T>};
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(CdbkKernels, cdbkKernels) = {
    VDL_PATH_NS::searchSet<Vdl32f, float>(),
    VDL_PATH_NS::searchSet<Vdl16s, double>(),
};

} // namespace vdl

#pragma GCC visibility pop
