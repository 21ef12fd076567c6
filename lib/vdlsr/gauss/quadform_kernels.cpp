// Quadratic forms of Gaussian scoring, compiled once per code path. The sum
// runs in vectors of the path's width: the float forms therefore sum in
// another order than a plain loop, within the bound the header states;
// integer data summed in double are exact in any order.
#include "gauss_quad.h"
#include "vdlvector.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

// Term k of a form, for one element and for a vector of them from k on;
// the unit kind never reads w, which may be null. The vector forms take
// m - x, the same square to the bit, so that x, read once per row, can be
// an operand of the subtraction rather than a load of its own.
struct InverseTerm {
    template <class A, class T>
    static A one(const T* x, const T* m, const T* w, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d * static_cast<A>(w[k]);
    }
    template <class A, class T>
    static Vec<A> many(const T* x, const T* m, const T* w, int k)
    {
        const Vec<A> d = load<A>(m + k) - load<A>(x + k);
        return d * d * load<A>(w + k);
    }
};

struct UnitTerm {
    template <class A, class T>
    static A one(const T* x, const T* m, const T*, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d;
    }
    template <class A, class T>
    static Vec<A> many(const T* x, const T* m, const T*, int k)
    {
        const Vec<A> d = load<A>(m + k) - load<A>(x + k);
        return d * d;
    }
};

struct DirectTerm {
    template <class A, class T>
    static A one(const T* x, const T* m, const T* v, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d / static_cast<A>(v[k]);
    }
    template <class A, class T>
    static Vec<A> many(const T* x, const T* m, const T* v, int k)
    {
        const Vec<A> d = load<A>(m + k) - load<A>(x + k);
        return d * d / load<A>(v + k);
    }
};

// sumLanes of four vectors of eight lanes at once, with the additions of
// sumLanes paired alike, so each sum is the same to the bit; the halves of
// the rows are interleaved so that every addition serves two or four rows.
template <class A>
inline void sumLanes4(const Vec<A>* v, A* s)
{
    const Vec<A> h01 = __builtin_shufflevector(v[0], v[1], 0, 1, 2, 3, 8, 9, 10, 11) +
                       __builtin_shufflevector(v[0], v[1], 4, 5, 6, 7, 12, 13, 14, 15);
    const Vec<A> h23 = __builtin_shufflevector(v[2], v[3], 0, 1, 2, 3, 8, 9, 10, 11) +
                       __builtin_shufflevector(v[2], v[3], 4, 5, 6, 7, 12, 13, 14, 15);
    // Pairs of rows 0, 2, 1, 3.
    const Vec<A> g = __builtin_shufflevector(h01, h23, 0, 1, 8, 9, 4, 5, 12, 13) +
                     __builtin_shufflevector(h01, h23, 2, 3, 10, 11, 6, 7, 14, 15);
    const auto lo = __builtin_shufflevector(g, g, 0, 1, 2, 3);
    const auto hi = __builtin_shufflevector(g, g, 4, 5, 6, 7);
    const auto sums = __builtin_shufflevector(lo, hi, 0, 2, 4, 6) +
                      __builtin_shufflevector(lo, hi, 1, 3, 5, 7);
    s[0] = sums[0];
    s[1] = sums[2];
    s[2] = sums[1];
    s[3] = sums[3];
}

// The forms of `rows` rows at once, each from two vector sums (so that
// consecutive additions do not wait on each other), then the tree of its
// lanes, then its last elements one by one. A row's sum does not depend on
// how many rows run beside it. Where every row reads one mean and one
// variance row (Shared), they are loaded once for all rows.
template <class Term, class A, class T, int rows, bool Shared>
[[gnu::always_inline]] inline void quadForms(RowRef<T> x, RowRef<T> m, RowRef<T> w, int n,
                                              int first, A* q)
{
    constexpr int lanes = lanesOf<A>;
    constexpr int tables = Shared ? 1 : rows;
    const T* xs[rows];
    const T* ms[tables];
    const T* ws[tables];
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r)
        xs[r] = x.row(first + r);
#pragma GCC unroll 8
    for (int r = 0; r < tables; ++r) {
        ms[r] = m.row(first + r);
        ws[r] = w.row(first + r);
    }
    Vec<A> sum0[rows], sum1[rows];
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r)
        sum0[r] = sum1[r] = Vec<A>{};
    int k = 0;
    for (; k + 2 * lanes <= n; k += 2 * lanes) {
#pragma GCC unroll 8
        for (int r = 0; r < rows; ++r) {
            const int t = Shared ? 0 : r;
            sum0[r] += Term::template many<A>(xs[r], ms[t], ws[t], k);
            sum1[r] += Term::template many<A>(xs[r], ms[t], ws[t], k + lanes);
        }
    }
    if (k + lanes <= n) {
#pragma GCC unroll 8
        for (int r = 0; r < rows; ++r) {
            const int t = Shared ? 0 : r;
            sum0[r] += Term::template many<A>(xs[r], ms[t], ws[t], k);
        }
        k += lanes;
    }
    A s[rows];
    if constexpr (rows == 4 && lanes == 8) {
        Vec<A> v[rows];
#pragma GCC unroll 8
        for (int r = 0; r < rows; ++r)
            v[r] = sum0[r] + sum1[r];
        sumLanes4<A>(v, s);
    } else {
#pragma GCC unroll 8
        for (int r = 0; r < rows; ++r)
            s[r] = sumLanes(sum0[r] + sum1[r]);
    }
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r) {
        const int t = Shared ? 0 : r;
        for (int e = k; e < n; ++e)
            s[r] += Term::template one<A>(xs[r], ms[t], ws[t], e);
        q[r] = s[r];
    }
}

template <class Term, class A, class T, bool Shared>
void quadRowsOf(RowRef<T> x, RowRef<T> m, RowRef<T> w, int width, int first, int count, A* q)
{
    constexpr int group = 4;
    int j = 0;
    for (; j + group <= count; j += group)
        quadForms<Term, A, T, group, Shared>(x, m, w, width, first + j, q + j);
    for (; j < count; ++j)
        quadForms<Term, A, T, 1, Shared>(x, m, w, width, first + j, q + j);
}

template <class Term, class A, class T>
void quadRows(RowRef<T> x, RowRef<T> m, RowRef<T> w, int width, int first, int count, A* q)
{
    const bool shared = !m.table && m.step == 0 && !w.table && w.step == 0;
    if (shared)
        quadRowsOf<Term, A, T, true>(x, m, w, width, first, count, q);
    else
        quadRowsOf<Term, A, T, false>(x, m, w, width, first, count, q);
}

template <class A, class T>
constexpr QuadSet<A, T> quadSet()
{
    return {&quadRows<InverseTerm, A, T>, &quadRows<UnitTerm, A, T>,
            &quadRows<DirectTerm, A, T>};
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(GaussKernels, gaussKernels) = {
    VDL_PATH_NS::quadSet<float, Vdl32f>(),   VDL_PATH_NS::quadSet<double, Vdl64f>(),
    VDL_PATH_NS::quadSet<double, Vdl32f>(),  VDL_PATH_NS::quadSet<double, Vdl16s>(),
    VDL_PATH_NS::quadSet<float, Vdl16s>(),
};

} // namespace vdl

#pragma GCC visibility pop
