// Dynamic time warping with a bound on the warp and a beam. The search runs
// over the frames i of the first sequence; for each it keeps one column of
// cells j (the frames of the second sequence), each cell holding the best
// cost of the paths that end there in each of its states.
//
// With no bound (delta 0) a cell has one state. With a bound, a cell has
// 2 * delta + 1: reached by a step of both sequences, or by the r-th step in
// a row of the first alone (r = 1 .. delta), or of the second alone.
#ifndef VDL_DTW_SEARCH_H
#define VDL_DTW_SEARCH_H

#include <cmath>
#include <cstddef>
#include <limits>

#include "align_paths.h"
#include "vdlargcheck.h"
#include "vdlbuffer.h"
#include "vdlround.h"
#include "vdlrows.h"
#include "vdltypes.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// The element types of a form; its costs run in the sum type.
using Dtw32f = Types32f;
using Dtw8u32s = ElementTypes<Vdl8u, Vdl32s, double>;
using Dtw16s32sLow = Types16s32sLow;

template <class C>
class DtwSearch {
public:
    DtwSearch(int height2, int delta) : m_height2(height2), m_delta(delta),
        m_states(delta == 0 ? 1 : 2 * delta + 1) {}

    // Two columns, each behind a sentinel cell (index -1) that stays at
    // +infinity, so that the cells of row 0 need no test for a cell below.
    bool allocate()
    {
        const size_t column = static_cast<size_t>(m_height2 + 1) * m_states;
        m_memory.reset(2 * column + m_height2);
        if (!m_memory.ok())
            return false;
        for (size_t k = 0; k < 2 * column; ++k)
            m_memory[k] = inf();
        m_prev = m_memory.data() + m_states;
        m_cur = m_prev + column;
        m_dist = m_memory.data() + 2 * column;
        return true;
    }

    // The distance of the two sequences, +infinity without a path.
    template <class T>
    C run(const RowRef<T>& a, int height1, const RowRef<T>& b, int width, C beam)
    {
        const FrameDistFn<C, T> dist = dtwKernels().template dist<C, T>();
        int plo = 0, phi = -1;         // kept cells of the column before
        int clo = 0, chi = -1;         // cells written in m_cur, to clear
        int olo = 0, ohi = -1;         // cells written in m_prev
        for (int i = 0; i < height1; ++i) {
            clear(m_cur, clo, chi);
            const bool last = i == height1 - 1;
            const int lo = i == 0 ? 0 : plo;
            if (i > 0 && phi < plo)
                return inf();          // the beam or the bound left no cell
            int hiLimit = i == 0 ? (m_delta == 0 ? m_height2 - 1 : m_delta)
                                 : (m_delta == 0 ? m_height2 - 1 : phi + 1 + m_delta);
            if (hiLimit > m_height2 - 1)
                hiLimit = m_height2 - 1;
            // Cells above `fed` are reached only from the cell below them.
            const int fed = i == 0 ? 0 : (phi + 1 < m_height2 - 1 ? phi + 1 : m_height2 - 1);
            C best = inf();
            int distFrom = lo, distTo = lo - 1;
            int j = lo;
            for (; j <= hiLimit; ++j) {
                if (j > distTo) {
                    distFrom = j;
                    distTo = j + chunk - 1 > hiLimit ? hiLimit : j + chunk - 1;
                    dist(a.row(i), b, width, distFrom, distTo, m_dist);
                }
                const C d = m_dist[j - distFrom];
                const C cost = i == 0 && j == 0 ? startCell(d)
                               : m_delta == 0 ? plainCell(j, d) : boundedCell(j, d);
                if (cost < best)
                    best = cost;
                // Above the cells fed by the column before, costs only grow
                // with j: once one is out of reach or past the beam, every
                // cell above is too.
                if (!last && j > fed && (cost == inf() || cost > best + beam)) {
                    ++j;
                    break;
                }
            }
            const int hi = j - 1;
            if (!last) {
                // Prune against the best of the column.
                plo = hi + 1;
                phi = lo - 1;
                for (int k = lo; k <= hi; ++k) {
                    C* s = m_cur + static_cast<size_t>(k) * m_states;
                    if (minOf(s, 0, m_states) > best + beam) {
                        for (int r = 0; r < m_states; ++r)
                            s[r] = inf();
                    } else {
                        plo = k < plo ? k : plo;
                        phi = k;
                    }
                }
            }
            clo = olo;
            chi = ohi;
            olo = lo;
            ohi = hi;
            C* t = m_prev;
            m_prev = m_cur;
            m_cur = t;
            if (last) {
                if (hi < m_height2 - 1)
                    return inf();
                return minOf(m_prev + static_cast<size_t>(m_height2 - 1) * m_states, 0, m_states);
            }
        }
        return inf();
    }

private:
    static constexpr int chunk = 16;

    static C inf() { return std::numeric_limits<C>::infinity(); }

    static C minOf(const C* s, int from, int to)
    {
        C m = inf();
        for (int r = from; r < to; ++r)
            m = s[r] < m ? s[r] : m;
        return m;
    }

    void clear(C* column, int lo, int hi)
    {
        for (int k = lo; k <= hi; ++k)
            for (int r = 0; r < m_states; ++r)
                column[static_cast<size_t>(k) * m_states + r] = inf();
    }

    C startCell(C d)
    {
        m_cur[0] = d;
        return d;
    }

    // Without a bound: one state, from the cell before in either sequence
    // or in both.
    C plainCell(int j, C d)
    {
        const C left = m_prev[j], diag = m_prev[j - 1], below = m_cur[j - 1];
        C m = left < diag ? left : diag;
        m = below < m ? below : m;
        m_cur[j] = d + m;
        return m_cur[j];
    }

    // With a bound: s[0] both stepped; s[1 .. delta] the first alone r times
    // in a row; s[delta + 1 .. 2 delta] the second alone r times. Returns
    // the least of them.
    C boundedCell(int j, C d)
    {
        C* s = m_cur + static_cast<std::ptrdiff_t>(j) * m_states;
        const C* left = m_prev + static_cast<std::ptrdiff_t>(j) * m_states;
        const C* diag = left - m_states;
        const C* below = s - m_states;
        const int a1 = 1, b1 = m_delta + 1;
        s[0] = d + minOf(diag, 0, m_states);
        const C fromLeft = minOf(left, b1, m_states);
        s[a1] = d + (left[0] < fromLeft ? left[0] : fromLeft);
        for (int r = 1; r < m_delta; ++r)
            s[a1 + r] = d + left[a1 + r - 1];
        const C fromBelow = minOf(below, a1, b1);
        s[b1] = d + (below[0] < fromBelow ? below[0] : fromBelow);
        for (int r = 1; r < m_delta; ++r)
            s[b1 + r] = d + below[b1 + r - 1];
        return minOf(s, 0, m_states);
    }

    int m_height2;
    int m_delta;
    int m_states;
    Buffer<C> m_memory;
    C* m_prev = nullptr;
    C* m_cur = nullptr;
    C* m_dist = nullptr;
};

// Checks the arguments, runs the search, and writes the scaled distance.
template <class Ty, class Rows>
VdlStatus dtwDistance(const Rows& src1, int height1, const Rows& src2, int height2, int width,
                      typename Ty::Dst* pDist, int delta, typename Ty::Dst beam, int scaleFactor)
{
    using C = typename Ty::Acc;
    if (VdlStatus s = firstError({checkPtrs({pDist}), checkSize(width, height1),
                                  checkLen(height2)}))
        return s;
    if (VdlStatus s = firstError({src1.nullCheck(height1), src2.nullCheck(height2),
                                  src1.stepCheck(width), src2.stepCheck(width)}))
        return s;
    // No comparison with a NaN: a refused call raises no floating-point flag.
    if (delta < 0 || std::isnan(static_cast<double>(beam)) || beam < 0)
        return vdlStsBadArgErr;
    DtwSearch<C> search(height2, delta);
    if (!search.allocate())
        return vdlStsNoMemErr;
    // The beam in units of the costs; a beam the cost type cannot hold keeps
    // every cell.
    const double beamCost = static_cast<double>(beam) * scaleOf(-scaleFactor);
    const C costBeam = beamCost < static_cast<double>(std::numeric_limits<C>::max())
                           ? static_cast<C>(beamCost) : std::numeric_limits<C>::max();
    const C total = search.run(src1.ref(), height1, src2.ref(), width, costBeam);
    *pDist = scaled<typename Ty::Dst>(static_cast<double>(total), scaleFactor);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
