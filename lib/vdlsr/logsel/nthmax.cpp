// The N-th largest element of a vector, found by selection in a copy.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "vdlargcheck.h"
#include "vdlbuffer.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// A comparison of this unit's own, so that the selection it drives stays
// inside the library and exports no C++ name.
struct Greater {
    template <class T>
    bool operator()(T a, T b) const { return a > b; }
};

template <class T>
VdlStatus nthMax(const T* pSrc, int len, int N, T* pResult)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pResult}), checkLen(len)}))
        return s;
    if (VdlStatus s = checkRange(N, 1, len))
        return s;
    if constexpr (std::is_floating_point_v<T>) {
        for (int i = 0; i < len; ++i)
            if (pSrc[i] != pSrc[i])
                return vdlStsBadArgErr;
    }
    // Short vectors are copied to the stack; longer ones to the heap.
    constexpr int onStack = 2048;
    T local[onStack];
    Buffer<T> heap;
    if (len > onStack)
        heap.reset(len);
    T* work = len <= onStack ? local : heap.data();
    if (work == nullptr)
        return vdlStsNoMemErr;
    std::memcpy(work, pSrc, sizeof(T) * len);
    std::nth_element(work, work + (N - 1), work + len, Greater());
    *pResult = work[N - 1];
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsNthMaxElement_32s(const Vdl32s* pSrc, int len, int N, Vdl32s* pResult)
{
    return nthMax(pSrc, len, N, pResult);
}

VdlStatus vdlsNthMaxElement_32f(const Vdl32f* pSrc, int len, int N, Vdl32f* pResult)
{
    return nthMax(pSrc, len, N, pResult);
}

VdlStatus vdlsNthMaxElement_64f(const Vdl64f* pSrc, int len, int N, Vdl64f* pResult)
{
    return nthMax(pSrc, len, N, pResult);
}

} // extern "C"
