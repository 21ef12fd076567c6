// Split vector quantisation over a table of codebooks: a vector is the
// sub-vectors of the codebooks one behind the other. FormVectorVQ rebuilds
// vectors from their indices, SplitVQ finds the indices of vectors.
#ifndef VDL_CDBK_SPLIT_H
#define VDL_CDBK_SPLIT_H

#include "cdbk_indices.h"
#include "cdbk_search.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// The arguments of both directions: `height` vectors `step` apart, their
// indices, and the codebooks, whose codewords lie side by side in a vector.
template <class T, class Indices>
VdlStatus checkSplit(const T* vectors, int step, Indices& indices, int height,
                     const typename StateOf<T>::type* const* ppCdbks, int nCdbks)
{
    if (VdlStatus s = firstError({checkPtrs({vectors, indices.data(), ppCdbks}),
                                  checkSize(nCdbks, height)}))
        return s;
    long long widthSum = 0;
    if (VdlStatus s = checkCodebooks<T>(ppCdbks, nCdbks, &widthSum))
        return s;
    if (VdlStatus s = indices.template layoutCheck<T>(ppCdbks, nCdbks))
        return s;
    return widthSum > step ? vdlStsStepErr : vdlStsNoErr;
}

template <class T, class Indices>
VdlStatus formVectorVQ(Indices&& indices, T* pDst, int dstStep, int height,
                       const typename StateOf<T>::type* const* ppCdbks, int nCdbks)
{
    if (VdlStatus s = checkSplit<T>(pDst, dstStep, indices, height, ppCdbks, nCdbks))
        return s;
    for (int i = 0; i < height; ++i)
        for (int c = 0; c < nCdbks; ++c) {
            const long long index = indices.read(i, c);
            if (index < 0 || index >= ppCdbks[c]->body.size)
                return vdlStsOutOfRangeErr;
        }
    for (int i = 0; i < height; ++i) {
        T* out = pDst + static_cast<std::ptrdiff_t>(i) * dstStep;
        for (int c = 0; c < nCdbks; ++c) {
            const Codebook<T>& cb = ppCdbks[c]->body;
            copyRow(out, codeword(cb, static_cast<int>(indices.read(i, c))), cb.width);
            out += cb.width;
        }
    }
    return vdlStsNoErr;
}

template <class T, class Indices>
VdlStatus splitVQ(const T* pSrc, int srcStep, Indices&& indices, int height,
                  const typename StateOf<T>::type* const* ppCdbks, int nCdbks)
{
    using A = typename AccOf<T>::type;
    if (VdlStatus s = checkSplit<T>(pSrc, srcStep, indices, height, ppCdbks, nCdbks))
        return s;
    constexpr int block = 64;
    int index[block];
    A dist[block];
    for (int first = 0; first < height; first += block) {
        const int n = height - first < block ? height - first : block;
        const T* rows = pSrc + static_cast<std::ptrdiff_t>(first) * srcStep;
        for (int c = 0; c < nCdbks; ++c) {
            const Codebook<T>& cb = ppCdbks[c]->body;
            nearestKernel(cb)(rows, srcStep, n, cb.wordsT, cb.size, cb.width, cb.weights, index,
                              dist);
            for (int j = 0; j < n; ++j)
                indices.write(first + j, c, index[j]);
            rows += cb.width;
        }
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
