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
// the unit kind never reads w, which may be null.
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
        const Vec<A> d = load<A>(x + k) - load<A>(m + k);
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
        const Vec<A> d = load<A>(x + k) - load<A>(m + k);
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
        const Vec<A> d = load<A>(x + k) - load<A>(m + k);
        return d * d / load<A>(v + k);
    }
};

// Two vector sums, so that consecutive additions do not wait on each other,
// then the elements of the sum, then the last elements one by one.
template <class Term, class A, class T>
A quadForm(const T* __restrict x, const T* __restrict m, const T* __restrict w, int n)
{
    constexpr int lanes = lanesOf<A>;
    Vec<A> sum0 = {}, sum1 = {};
    int k = 0;
    for (; k + 2 * lanes <= n; k += 2 * lanes) {
        sum0 += Term::template many<A>(x, m, w, k);
        sum1 += Term::template many<A>(x, m, w, k + lanes);
    }
    if (k + lanes <= n) {
        sum0 += Term::template many<A>(x, m, w, k);
        k += lanes;
    }
    sum0 += sum1;
    A q = 0;
    for (int l = 0; l < lanes; ++l)
        q += sum0[l];
    for (; k < n; ++k)
        q += Term::template one<A>(x, m, w, k);
    return q;
}

template <class Term, class A, class T>
void quadRows(RowRef<T> x, RowRef<T> m, RowRef<T> w, int width, int first, int count, A* q)
{
    for (int j = 0; j < count; ++j) {
        const int i = first + j;
        q[j] = quadForm<Term, A>(x.row(i), m.row(i), w.row(i), width);
    }
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
