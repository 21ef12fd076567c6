// Searching a codebook: the nearest codeword of many vectors, and the
// codewords near one vector, within a threshold or the N nearest.
#ifndef VDL_CDBK_SEARCH_H
#define VDL_CDBK_SEARCH_H

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include "cdbk_dispatch.h"
#include "cdbk_state.h"
#include "vdlround.h"
#include "vdlsr.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class T>
NearestFn<T, typename AccOf<T>::type> nearestKernel(const Codebook<T>& cb)
{
    const auto& set = cdbkKernels().template set<T, typename AccOf<T>::type>();
    return cb.weights ? set.nearestWeighted : set.nearest;
}

template <class T>
DistancesFn<T, typename AccOf<T>::type> distancesKernel(const Codebook<T>& cb)
{
    const auto& set = cdbkKernels().template set<T, typename AccOf<T>::type>();
    return cb.weights ? set.distancesWeighted : set.distances;
}

// pIndx[i] and, when pDist is given, pDist[i] = distance * 2^-scaleFactor.
template <class T, class D>
VdlStatus quantise(const T* pSrc, int step, Vdl32s* pIndx, D* pDist, bool withDist, int height,
                   const typename StateOf<T>::type* pCdbk, int scaleFactor)
{
    using A = typename AccOf<T>::type;
    if (VdlStatus s = firstError({checkPtrs({pSrc, pIndx}), checkPtrs({withDist ? static_cast<const void*>(pDist) : pSrc}),
                                  checkCodebook<T>(pCdbk), checkLen(height)}))
        return s;
    const Codebook<T>& cb = pCdbk->body;
    if (VdlStatus s = checkStep(step, cb.width))
        return s;
    const NearestFn<T, A> nearest = nearestKernel(cb);
    constexpr int block = 64;
    A dist[block];
    for (int first = 0; first < height; first += block) {
        const int n = height - first < block ? height - first : block;
        nearest(pSrc + static_cast<std::ptrdiff_t>(first) * step, step, n, cb.wordsT, cb.size,
                cb.width, cb.weights, pIndx + first, dist);
        if (withDist)
            for (int j = 0; j < n; ++j)
                pDist[first + j] = scaled<D>(static_cast<double>(dist[j]), scaleFactor);
    }
    return vdlStsNoErr;
}

// Codewords of one vector ordered by distance, the lower index among equals.
template <class A>
struct Ranked {
    std::vector<A> dist;
    std::vector<int> order;

    void rank(int count)
    {
        order.resize(dist.size());
        for (std::size_t j = 0; j < order.size(); ++j)
            order[j] = static_cast<int>(j);
        const auto closer = [this](int a, int b) {
            return dist[a] < dist[b] || (dist[a] == dist[b] && a < b);
        };
        std::partial_sort(order.begin(), order.begin() + count, order.end(), closer);
    }
};

template <class T>
VdlStatus distancesOf(const T* x, const Codebook<T>& cb, Ranked<typename AccOf<T>::type>& ranked)
{
    try {
        ranked.dist.resize(cb.size);
        ranked.order.reserve(cb.size);
    } catch (const std::bad_alloc&) {
        return vdlStsNoMemErr;
    }
    distancesKernel(cb)(x, cb.wordsT, cb.size, cb.width, cb.weights, ranked.dist.data());
    return vdlStsNoErr;
}

template <class D, class A>
void writeRanked(const Ranked<A>& ranked, int count, Vdl32s* pIndx, D* pDist, int scaleFactor)
{
    for (int j = 0; j < count; ++j) {
        pIndx[j] = ranked.order[j];
        if (pDist)
            pDist[j] = scaled<D>(static_cast<double>(ranked.dist[ranked.order[j]]), scaleFactor);
    }
}

// The codewords within relThresh times the least distance, nearest first.
template <class T, class D>
VdlStatus quantiseThresh(const T* pSrc, Vdl32s* pIndx, D* pDist, bool withDist,
                         const typename StateOf<T>::type* pCdbk, Vdl32f relThresh, int* pNum,
                         int scaleFactor)
{
    using A = typename AccOf<T>::type;
    if (VdlStatus s = firstError({checkPtrs({pSrc, pIndx, pNum}),
                                  checkPtrs({withDist ? static_cast<const void*>(pDist) : pSrc}), checkCodebook<T>(pCdbk)}))
        return s;
    if (std::isnan(relThresh) || relThresh < 1)
        return vdlStsBadArgErr;
    const Codebook<T>& cb = pCdbk->body;
    Ranked<A> ranked;
    if (VdlStatus s = distancesOf(pSrc, cb, ranked))
        return s;
    const A least = *std::min_element(ranked.dist.begin(), ranked.dist.end());
    const double limit = static_cast<double>(least) * relThresh;
    int count = 0;
    for (A d : ranked.dist)
        count += static_cast<double>(d) <= limit;
    ranked.rank(count);
    writeRanked(ranked, count, pIndx, withDist ? pDist : nullptr, scaleFactor);
    *pNum = count;
    return vdlStsNoErr;
}

// The N nearest codewords, nearest first.
template <class T, class D>
VdlStatus quantiseSort(const T* pSrc, Vdl32s* pIndx, D* pDist, bool withDist,
                       const typename StateOf<T>::type* pCdbk, int N, int scaleFactor)
{
    using A = typename AccOf<T>::type;
    if (VdlStatus s = firstError({checkPtrs({pSrc, pIndx}), checkPtrs({withDist ? static_cast<const void*>(pDist) : pSrc}),
                                  checkCodebook<T>(pCdbk), checkLen(N)}))
        return s;
    const Codebook<T>& cb = pCdbk->body;
    if (VdlStatus s = checkRange(N, 1, cb.size))
        return s;
    Ranked<A> ranked;
    if (VdlStatus s = distancesOf(pSrc, cb, ranked))
        return s;
    ranked.rank(N);
    writeRanked(ranked, N, pIndx, withDist ? pDist : nullptr, scaleFactor);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
