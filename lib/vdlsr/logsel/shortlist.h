// Gaussian selection: shortlists of components per cluster, kept as bit
// rows of a table, and the sign tables built from them. The index lists of
// a call come in groups: a fixed count per group, or one count per group.
#ifndef VDL_SHORTLIST_H
#define VDL_SHORTLIST_H

#include "vdlargcheck.h"
#include "vdlbits.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// `num` indices in every group.
class FixedGroups {
public:
    explicit FixedGroups(int num) : m_num(num) {}
    int count(int) const { return m_num; }
    VdlStatus check(int) const { return m_num >= 0 ? vdlStsNoErr : vdlStsOutOfRangeErr; }
    VdlStatus nullCheck() const { return vdlStsNoErr; }

private:
    int m_num;
};

// pNum[g] indices in group g.
class CountedGroups {
public:
    explicit CountedGroups(const Vdl32s* pNum) : m_num(pNum) {}
    int count(int g) const { return m_num[g]; }
    VdlStatus check(int groups) const
    {
        for (int g = 0; g < groups; ++g)
            if (m_num[g] < 0)
                return vdlStsOutOfRangeErr;
        return vdlStsNoErr;
    }
    VdlStatus nullCheck() const { return checkPtrs({m_num}); }

private:
    const Vdl32s* m_num;
};

// Every index of `groups` groups lies in [0, limit].
template <class Groups>
VdlStatus checkIndices(const Vdl32s* pIndx, const Groups& groups, int count, int limit)
{
    long long pos = 0;
    for (int g = 0; g < count; ++g) {
        const int n = groups.count(g);
        for (int k = 0; k < n; ++k, ++pos)
            if (pIndx[pos] < 0 || pIndx[pos] > limit)
                return vdlStsOutOfRangeErr;
    }
    return vdlStsNoErr;
}

// A table of `clust` rows of `width` bytes whose bits shift to
// shift + height - 1 belong to the mixture.
template <class Row>
VdlStatus checkShortlists(Row const* table, int clust, int width, int shift, int height)
{
    if (VdlStatus s = firstError({checkPtrs({table}), checkSize(width, clust), checkLen(height)}))
        return s;
    for (int c = 0; c < clust; ++c)
        if (table[c] == nullptr)
            return vdlStsNullPtrErr;
    return checkRange(static_cast<long long>(shift) + height, height, 8LL * width);
}

// The sign bits of `frames` frames: for each frame the OR of the mixture's
// bits of its clusters' shortlists.
template <class Groups>
VdlStatus buildSignTable(const Vdl32s* pIndx, const Groups& groups, const Vdl8u* const* table,
                         int clust, int width, int shift, Vdl8u* pSign, int frames, int height)
{
    if (VdlStatus s = firstError({checkPtrs({pIndx, pSign}), groups.nullCheck(),
                                  checkShortlists(table, clust, width, shift, height),
                                  checkLen(frames)}))
        return s;
    // Counts and indices are read only once their pointers are known good.
    if (VdlStatus s = groups.check(frames))
        return s;
    if (VdlStatus s = checkIndices(pIndx, groups, frames, clust - 1))
        return s;
    const int bytes = bytesFor(height);
    const Vdl8u last = lastByteMask(height);
    long long pos = 0;
    for (int f = 0; f < frames; ++f) {
        Vdl8u* sign = pSign + static_cast<long long>(f) * bytes;
        for (int b = 0; b < bytes; ++b)
            sign[b] = 0;
        const int n = groups.count(f);
        for (int k = 0; k < n; ++k, ++pos) {
            const Vdl8u* row = table[pIndx[pos]];
            for (int b = 0; b < bytes; ++b)
                sign[b] |= bitsFrom(row, shift + 8 * b, width);
        }
        sign[bytes - 1] &= last;
    }
    return vdlStsNoErr;
}

inline void clearMixture(Vdl8u* const* table, int clust, int shift, int height)
{
    for (int c = 0; c < clust; ++c)
        for (int j = 0; j < height; ++j)
            clearBit(table[c], shift + j);
}

// Shortlists from index groups. By cluster (the Row forms), group c lists
// the components of cluster c; by component (the Column forms), group j
// lists the clusters of component j.
template <class Groups>
VdlStatus fillShortlists(const Vdl32s* pIndx, const Groups& groups, Vdl8u* const* table,
                         int clust, int width, int shift, int height, bool byCluster)
{
    if (VdlStatus s = firstError({checkPtrs({pIndx}), groups.nullCheck(),
                                  checkShortlists(table, clust, width, shift, height)}))
        return s;
    const int count = byCluster ? clust : height;
    if (VdlStatus s = groups.check(count))
        return s;
    if (VdlStatus s = checkIndices(pIndx, groups, count, (byCluster ? height : clust) - 1))
        return s;
    clearMixture(table, clust, shift, height);
    long long pos = 0;
    for (int g = 0; g < count; ++g) {
        const int n = groups.count(g);
        for (int k = 0; k < n; ++k, ++pos) {
            if (byCluster)
                setBit(table[g], shift + pIndx[pos]);
            else
                setBit(table[pIndx[pos]], shift + g);
        }
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
