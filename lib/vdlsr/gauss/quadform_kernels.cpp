// Quadratic forms of Gaussian scoring, compiled once per code path. The sum
// runs in `lanes` partial sums that the compiler keeps in vector registers,
// added pairwise at the end: the float forms therefore sum in another order
// than a plain loop, within the bound the header states; integer data summed
// in double are exact in any order.
#include "gauss_quad.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

// Term k of a form; the unit kind never reads w, which may be null.
struct InverseTerm {
    template <class A, class T>
    static A of(const T* x, const T* m, const T* w, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d * static_cast<A>(w[k]);
    }
};

struct UnitTerm {
    template <class A, class T>
    static A of(const T* x, const T* m, const T*, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d;
    }
};

struct DirectTerm {
    template <class A, class T>
    static A of(const T* x, const T* m, const T* v, int k)
    {
        const A d = static_cast<A>(x[k]) - static_cast<A>(m[k]);
        return d * d / static_cast<A>(v[k]);
    }
};

// Sixteen partial sums: two or four vector registers wide on the wider
// paths, so that consecutive additions do not wait on each other.
constexpr int lanes = 16;

template <class Term, class A, class T>
A quadForm(const T* __restrict x, const T* __restrict m, const T* __restrict w, int n)
{
    A part[lanes] = {};
    int k = 0;
    for (; k + lanes <= n; k += lanes)
        for (int l = 0; l < lanes; ++l)
            part[l] += Term::template of<A>(x, m, w, k + l);
    A tail = 0;
    for (; k < n; ++k)
        tail += Term::template of<A>(x, m, w, k);
    for (int half = lanes / 2; half > 0; half /= 2)
        for (int l = 0; l < half; ++l)
            part[l] += part[l + half];
    return part[0] + tail;
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
