// Making a codebook from training vectors: every vector as a codeword, or
// k-means (Lloyd) rounds from seeds spread farthest first.
#ifndef VDL_CDBK_TRAIN_H
#define VDL_CDBK_TRAIN_H

#include <climits>
#include <cmath>

#include "cdbk_dispatch.h"
#include "cdbk_state.h"
#include "vdlround.h"
#include "vdlsr.h"

#pragma GCC visibility push(hidden)

namespace vdl {

constexpr int kmeansLongRounds = 100;
constexpr int kmeansNumRounds = 10;

// A weight must be a finite number of at least 0 (-0 included). Tested
// bit by bit and by equality, so that a NaN raises no flag.
template <class T>
bool validWeights(const T* w, int width)
{
    for (int k = 0; k < width; ++k) {
        const double v = static_cast<double>(w[k]);
        if (std::isnan(v) || std::isinf(v) || (std::signbit(v) && v != 0))
            return false;
    }
    return true;
}

// Seeds farthest first: row 0, then each time the row farthest from the
// seeds so far (the lowest row among equals), so that well separated groups
// of vectors each get a seed. The training rows are laid out
// component-major once, so that the distances of all rows to a new seed
// come from the search kernel.
template <class T>
VdlStatus seedFarthestFirst(Codebook<T>& cb, const T* src, int step, int height)
{
    using A = typename AccOf<T>::type;
    const int width = cb.width;
    Buffer<T> rowsT(static_cast<std::size_t>(height) * width);
    Buffer<A> dist(height), nearestSeed(height);
    if (!rowsT.ok() || !dist.ok() || !nearestSeed.ok())
        return vdlStsNoMemErr;
    for (int i = 0; i < height; ++i)
        for (int k = 0; k < width; ++k)
            rowsT[static_cast<std::size_t>(k) * height + i] =
                src[static_cast<std::ptrdiff_t>(i) * step + k];
    const auto& kernels = cdbkKernels().template set<T, A>();
    const DistancesFn<T, A> distances = cb.weights ? kernels.distancesWeighted : kernels.distances;
    int seed = 0;
    for (int j = 0; j < cb.size; ++j) {
        T* word = cb.words + static_cast<std::ptrdiff_t>(j) * width;
        copyRow(word, src + static_cast<std::ptrdiff_t>(seed) * step, width);
        distances(word, rowsT.data(), height, width, cb.weights, dist.data());
        int farthest = 0;
        for (int i = 0; i < height; ++i) {
            nearestSeed[i] = j == 0 || dist[i] < nearestSeed[i] ? dist[i] : nearestSeed[i];
            if (nearestSeed[i] > nearestSeed[farthest])
                farthest = i;
        }
        seed = farthest;
    }
    return vdlStsNoErr;
}

// Lloyd rounds over the codewords that cb holds as seeds. Each round
// assigns every vector to its nearest codeword, then moves each codeword to
// the mean of its vectors; an empty cluster takes the vector farthest from
// its codeword. Ends after `rounds`, or after a round that moved nothing.
template <class T>
VdlStatus lloyd(Codebook<T>& cb, const T* src, int step, int height, int rounds)
{
    using A = typename AccOf<T>::type;
    const int size = cb.size;
    const int width = cb.width;
    const SearchSet<T, A>& kernels = cdbkKernels().template set<T, A>();
    const NearestFn<T, A> nearest = cb.weights ? kernels.nearestWeighted : kernels.nearest;

    const std::size_t sumCount = static_cast<std::size_t>(size) * width;
    Buffer<int> assigned(height), next(height), counts(size);
    Buffer<A> dist(height);
    Buffer<double> sums(sumCount);
    if (!assigned.ok() || !next.ok() || !counts.ok() || !dist.ok() || !sums.ok())
        return vdlStsNoMemErr;
    for (int i = 0; i < height; ++i)
        assigned[i] = -1;
    for (int round = 0; round < rounds; ++round) {
        transposeCodebook(cb);
        nearest(src, step, height, cb.wordsT, size, width, cb.weights, next.data(), dist.data());
        bool moved = false;
        for (int i = 0; i < height; ++i) {
            moved = moved || next[i] != assigned[i];
            assigned[i] = next[i];
        }

        for (std::size_t n = 0; n < sumCount; ++n)
            sums[n] = 0;
        for (int j = 0; j < size; ++j)
            counts[j] = 0;
        for (int i = 0; i < height; ++i) {
            const T* x = src + static_cast<std::ptrdiff_t>(i) * step;
            double* sum = &sums[static_cast<std::size_t>(assigned[i]) * width];
            for (int k = 0; k < width; ++k)
                sum[k] += static_cast<double>(x[k]);
            ++counts[assigned[i]];
        }
        for (int j = 0; j < size; ++j) {
            T* word = cb.words + static_cast<std::ptrdiff_t>(j) * width;
            if (counts[j] > 0) {
                for (int k = 0; k < width; ++k)
                    word[k] = toResult<T>(sums[static_cast<std::size_t>(j) * width + k] / counts[j]);
                continue;
            }
            // The farthest vector not taken yet in this round; none when all
            // lie on their codewords.
            int farthest = -1;
            for (int i = 0; i < height; ++i)
                if (dist[i] > 0 && (farthest < 0 || dist[i] > dist[farthest]))
                    farthest = i;
            if (farthest < 0)
                continue;
            copyRow(word, src + static_cast<std::ptrdiff_t>(farthest) * step, width);
            dist[farthest] = -1;
            moved = true;
        }
        if (!moved)
            break;
    }
    return vdlStsNoErr;
}

template <class T>
VdlStatus createCodebook(typename StateOf<T>::type** ppCdbk, const T* pSrc, const T* pWgt,
                         bool weighted, int width, int step, int height, int nClust, int hint)
{
    if (VdlStatus s = firstError({checkPtrs({ppCdbk, pSrc}), checkPtrs({weighted ? pWgt : pSrc}),
                                  checkSize(width, height), checkLen(nClust),
                                  checkStep(step, width), checkRange(nClust, 1, height)}))
        return s;
    if (hint != vdlCdbkHintFull && hint != vdlCdbkHintKmeansLong && hint != vdlCdbkHintKmeansNum)
        return vdlStsBadArgErr;
    if (hint == vdlCdbkHintFull && nClust != height)
        return vdlStsBadArgErr;
    if (weighted && !validWeights(pWgt, width))
        return vdlStsBadArgErr;
    if (static_cast<long long>(width) * nClust > INT_MAX / static_cast<long long>(sizeof(T)))
        return vdlStsSizeErr;

    auto* state = allocateCodebook<T>(width, nClust, weighted);
    if (state == nullptr)
        return vdlStsNoMemErr;
    Codebook<T>& cb = state->body;
    if (weighted)
        copyRow(cb.weights, pWgt, width);
    if (hint == vdlCdbkHintFull) {
        for (int j = 0; j < nClust; ++j)
            copyRow(cb.words + static_cast<std::ptrdiff_t>(j) * width,
                    pSrc + static_cast<std::ptrdiff_t>(j) * step, width);
    } else {
        const int rounds = hint == vdlCdbkHintKmeansLong ? kmeansLongRounds : kmeansNumRounds;
        VdlStatus s = seedFarthestFirst(cb, pSrc, step, height);
        if (s == vdlStsNoErr)
            s = lloyd(cb, pSrc, step, height, rounds);
        if (s != vdlStsNoErr) {
            releaseCodebook<T>(state);
            return s;
        }
    }
    transposeCodebook(cb);
    *ppCdbk = state;
    return vdlStsNoErr;
}

template <class T>
VdlStatus codebookSize(const typename StateOf<T>::type* pCdbk, int* pWidth, int* pSize)
{
    if (VdlStatus s = firstError({checkPtrs({pWidth, pSize}), checkCodebook<T>(pCdbk)}))
        return s;
    *pWidth = pCdbk->body.width;
    *pSize = pCdbk->body.size;
    return vdlStsNoErr;
}

template <class T>
VdlStatus copyCodebook(const typename StateOf<T>::type* pCdbk, T* pDst, int step)
{
    if (VdlStatus s = firstError({checkPtrs({pDst}), checkCodebook<T>(pCdbk)}))
        return s;
    const Codebook<T>& cb = pCdbk->body;
    if (VdlStatus s = checkStep(step, cb.width))
        return s;
    for (int j = 0; j < cb.size; ++j)
        copyRow(pDst + static_cast<std::ptrdiff_t>(j) * step, codeword(cb, j), cb.width);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
