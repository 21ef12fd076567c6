// Searching a codebook: the nearest codeword of many vectors, and the
// codewords near one vector, within a threshold or the N nearest.
#ifndef VDL_CDBK_SEARCH_H
#define VDL_CDBK_SEARCH_H

#include <cmath>

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

// The distances of one vector to every codeword, and the codewords ranked
// by distance, the lower index among equals.
template <class A>
class Ranked {
public:
    explicit Ranked(int size) : m_size(size), m_dist(size), m_order(size) {}
    bool ok() const { return m_dist.ok() && m_order.ok(); }
    A* dist() const { return m_dist.data(); }
    A least() const
    {
        A best = m_dist[0];
        for (int j = 1; j < m_size; ++j)
            best = m_dist[j] < best ? m_dist[j] : best;
        return best;
    }

    // The `count` nearest, in order, by insertion: counts are small.
    void rank(int count)
    {
        int kept = 0;
        for (int j = 0; j < m_size; ++j) {
            int at = kept;
            while (at > 0 && m_dist[j] < m_dist[m_order[at - 1]])
                --at;
            if (at >= count)
                continue;
            for (int k = (kept < count ? kept : count - 1); k > at; --k)
                m_order[k] = m_order[k - 1];
            m_order[at] = j;
            kept += kept < count;
        }
    }

    template <class D>
    void write(int count, Vdl32s* pIndx, D* pDist, int scaleFactor) const
    {
        for (int j = 0; j < count; ++j) {
            pIndx[j] = m_order[j];
            if (pDist)
                pDist[j] = scaled<D>(static_cast<double>(m_dist[m_order[j]]), scaleFactor);
        }
    }

private:
    int m_size;
    Buffer<A> m_dist;
    Buffer<int> m_order;
};

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
    Ranked<A> ranked(cb.size);
    if (!ranked.ok())
        return vdlStsNoMemErr;
    distancesKernel(cb)(pSrc, cb.wordsT, cb.size, cb.width, cb.weights, ranked.dist());
    const double limit = static_cast<double>(ranked.least()) * relThresh;
    int count = 0;
    for (int j = 0; j < cb.size; ++j)
        count += static_cast<double>(ranked.dist()[j]) <= limit;
    ranked.rank(count);
    ranked.write(count, pIndx, withDist ? pDist : nullptr, scaleFactor);
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
    Ranked<A> ranked(cb.size);
    if (!ranked.ok())
        return vdlStsNoMemErr;
    distancesKernel(cb)(pSrc, cb.wordsT, cb.size, cb.width, cb.weights, ranked.dist());
    ranked.rank(N);
    ranked.write(N, pIndx, withDist ? pDist : nullptr, scaleFactor);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
