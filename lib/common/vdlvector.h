// Vectors of the code path's width for kernel sources (*_kernels.cpp):
// Vec<A> holds lanesOf<A> elements of A in one register of the path;
// load<A>(p) reads lanesOf<A> elements of any element type from p,
// unaligned, and converts them to A; sumLanes(v) adds the lanes of v.
#ifndef VDL_COMMON_VECTOR_H
#define VDL_COMMON_VECTOR_H

#include <cstring>
#include <type_traits>

#include "vdlpaths.h"

#ifndef VDL_VECTOR_BYTES
#error "vdlvector.h is for kernel sources, which are compiled once per code path"
#endif

#pragma GCC visibility push(hidden)

// In the path's own namespace: the vector types differ from path to path
// while a template's name would not, and unless they are inlined the linker
// would keep one path's copy for all.
namespace vdl::VDL_PATH_NS {

template <class A>
struct VecOf {
    typedef A type __attribute__((vector_size(VDL_VECTOR_BYTES)));
};

template <class A>
using Vec = typename VecOf<A>::type;

template <class A>
constexpr int lanesOf = VDL_VECTOR_BYTES / sizeof(A);

template <class A, class T>
inline Vec<A> load(const T* p)
{
    if constexpr (std::is_same_v<A, T>) {
        Vec<A> v;
        std::memcpy(&v, p, sizeof v);
        return v;
    } else {
        typedef T Narrow __attribute__((vector_size(sizeof(T) * lanesOf<A>)));
        Narrow v;
        std::memcpy(&v, p, sizeof v);
        return __builtin_convertvector(v, Vec<A>);
    }
}

// The lanes of a vector summed as a tree of halves: log2(lanes) vector
// additions instead of lanes - 1 scalar ones in a chain.
template <class V>
[[gnu::always_inline]] inline auto sumLanes(V v)
{
    constexpr int n = sizeof(V) / sizeof(v[0]);
    if constexpr (n == 16) {
        return sumLanes(__builtin_shufflevector(v, v, 0, 1, 2, 3, 4, 5, 6, 7) +
                        __builtin_shufflevector(v, v, 8, 9, 10, 11, 12, 13, 14, 15));
    } else if constexpr (n == 8) {
        return sumLanes(__builtin_shufflevector(v, v, 0, 1, 2, 3) +
                        __builtin_shufflevector(v, v, 4, 5, 6, 7));
    } else if constexpr (n == 4) {
        return sumLanes(__builtin_shufflevector(v, v, 0, 1) + __builtin_shufflevector(v, v, 2, 3));
    } else {
        static_assert(n == 2);
        return v[0] + v[1];
    }
}

} // namespace vdl::VDL_PATH_NS

#pragma GCC visibility pop

#endif
