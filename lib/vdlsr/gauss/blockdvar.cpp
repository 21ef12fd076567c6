// Log-likelihood of one frame against a Gaussian whose precision matrix is
// block diagonal, and the state that keeps the blocks.
#include <climits>
#include <cstdlib>

#include "gauss_kernels.h"
#include "vdlstate.h"
#include "vdlsr.h"

namespace vdl {

// The blocks packed one after another, each row by row, so that a score
// walks the state once from the front. Plain data: it emits no symbol.
template <class T>
struct BlockDMatrix {
    unsigned tag;  // element type of the state, against a cast from another kind
    int nBlocks;
    int len;       // elements of a frame: the sum of the block sizes
    int* sizes;
    T* coeffs;
};

} // namespace vdl

// The public state types; callers only ever see pointers to them.
struct VdlsBlockDMatrix_16s {
    vdl::BlockDMatrix<Vdl16s> body;
};
struct VdlsBlockDMatrix_32f {
    vdl::BlockDMatrix<Vdl32f> body;
};
struct VdlsBlockDMatrix_64f {
    vdl::BlockDMatrix<Vdl64f> body;
};

using namespace vdl;

namespace {

template <class T>
constexpr unsigned blockTag()
{
    return 0x424C4B00u + static_cast<unsigned>(sizeof(T));
}

template <class T>
struct StateOf;
template <>
struct StateOf<Vdl16s> {
    using type = VdlsBlockDMatrix_16s;
};
template <>
struct StateOf<Vdl32f> {
    using type = VdlsBlockDMatrix_32f;
};
template <>
struct StateOf<Vdl64f> {
    using type = VdlsBlockDMatrix_64f;
};

template <class T>
void release(typename StateOf<T>::type* state)
{
    releaseState(state, state->body.sizes, state->body.coeffs);
}

template <class T>
VdlStatus initAlloc(typename StateOf<T>::type** ppState, const T* const* ppMatrix,
                    const int* pBlockSizes, int nBlocks)
{
    using State = typename StateOf<T>::type;
    if (VdlStatus s = firstError({checkPtrs({ppState, ppMatrix, pBlockSizes}), checkLen(nBlocks)}))
        return s;
    long long len = 0;
    long long coeffCount = 0;
    for (int b = 0; b < nBlocks; ++b) {
        if (pBlockSizes[b] < 1)
            return vdlStsSizeErr;
        len += pBlockSizes[b];
        coeffCount += static_cast<long long>(pBlockSizes[b]) * pBlockSizes[b];
    }
    if (len > INT_MAX)
        return vdlStsSizeErr;
    for (long long r = 0; r < len; ++r)
        if (ppMatrix[r] == nullptr)
            return vdlStsNullPtrErr;

    auto* state = newState<State>();
    if (state == nullptr)
        return vdlStsNoMemErr;
    state->body.sizes = static_cast<int*>(std::malloc(sizeof(int) * nBlocks));
    state->body.coeffs = static_cast<T*>(std::malloc(sizeof(T) * coeffCount));
    if (state->body.sizes == nullptr || state->body.coeffs == nullptr) {
        release<T>(state);
        return vdlStsNoMemErr;
    }
    T* out = state->body.coeffs;
    for (int b = 0, origin = 0; b < nBlocks; origin += pBlockSizes[b], ++b) {
        const int n = pBlockSizes[b];
        state->body.sizes[b] = n;
        for (int r = 0; r < n; ++r)
            for (int c = 0; c < n; ++c)
                *out++ = ppMatrix[origin + r][origin + c];
    }
    state->body.tag = blockTag<T>();
    state->body.nBlocks = nBlocks;
    state->body.len = static_cast<int>(len);
    *ppState = state;
    return vdlStsNoErr;
}

template <class T>
VdlStatus freeState(typename StateOf<T>::type* pState)
{
    if (VdlStatus s = checkState(pState, blockTag<T>()))
        return s;
    release<T>(pState);
    return vdlStsNoErr;
}

template <class Acc, class T>
Acc deviation(T x, T mean)
{
    return static_cast<Acc>(x) - static_cast<Acc>(mean);
}

// q = d P d with d = x - mean, one block at a time.
template <class Ty>
VdlStatus blockScore(const typename Ty::Src* pSrc, const typename Ty::Src* pMean,
                     const typename StateOf<typename Ty::Src>::type* pBlocks, int len,
                     typename Ty::Dst* pResult, typename Ty::Dst val, int scaleFactor)
{
    using Acc = typename Ty::Acc;
    using Src = typename Ty::Src;
    using Dst = typename Ty::Dst;
    if (VdlStatus s = firstError({checkPtrs({pSrc, pMean, pBlocks, pResult}), checkLen(len)}))
        return s;
    const BlockDMatrix<Src>& m = pBlocks->body;
    if (VdlStatus s = checkState(pBlocks, blockTag<Src>()))
        return s;
    if (len != m.len)
        return vdlStsSizeErr;

    Acc q = 0;
    const Src* p = m.coeffs;
    for (int b = 0, origin = 0; b < m.nBlocks; origin += m.sizes[b], ++b) {
        const int n = m.sizes[b];
        const Src* x = pSrc + origin;
        const Src* mean = pMean + origin;
        for (int r = 0; r < n; ++r, p += n) {
            Acc row = 0;
            for (int c = 0; c < n; ++c)
                row += static_cast<Acc>(p[c]) * deviation<Acc>(x[c], mean[c]);
            q += deviation<Acc>(x[r], mean[r]) * row;
        }
    }
    *pResult = LogLikelihood<Ty, SameValue<Dst>>(SameValue<Dst>(val), scaleFactor)(0, q);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsBlockDMatrixInitAlloc_16s(VdlsBlockDMatrix_16s** ppState,
                                        const Vdl16s* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks)
{
    return initAlloc<Vdl16s>(ppState, ppMatrix, pBlockSizes, nBlocks);
}

VdlStatus vdlsBlockDMatrixInitAlloc_32f(VdlsBlockDMatrix_32f** ppState,
                                        const Vdl32f* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks)
{
    return initAlloc<Vdl32f>(ppState, ppMatrix, pBlockSizes, nBlocks);
}

VdlStatus vdlsBlockDMatrixInitAlloc_64f(VdlsBlockDMatrix_64f** ppState,
                                        const Vdl64f* const* ppMatrix, const int* pBlockSizes,
                                        int nBlocks)
{
    return initAlloc<Vdl64f>(ppState, ppMatrix, pBlockSizes, nBlocks);
}

VdlStatus vdlsBlockDMatrixFree_16s(VdlsBlockDMatrix_16s* pState)
{
    return freeState<Vdl16s>(pState);
}

VdlStatus vdlsBlockDMatrixFree_32f(VdlsBlockDMatrix_32f* pState)
{
    return freeState<Vdl32f>(pState);
}

VdlStatus vdlsBlockDMatrixFree_64f(VdlsBlockDMatrix_64f* pState)
{
    return freeState<Vdl64f>(pState);
}

VdlStatus vdlsLogGaussSingle_BlockDVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const VdlsBlockDMatrix_16s* pBlocks, int len,
                                                  Vdl32s* pResult, Vdl32s val, int scaleFactor)
{
    return blockScore<Types16s32s>(pSrc, pMean, pBlocks, len, pResult, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_BlockDVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    const VdlsBlockDMatrix_16s* pBlocks, int len,
                                                    Vdl32f* pResult, Vdl32f val, int scaleFactor)
{
    return blockScore<Types16s32f>(pSrc, pMean, pBlocks, len, pResult, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_BlockDVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                           const VdlsBlockDMatrix_32f* pBlocks, int len,
                                           Vdl32f* pResult, Vdl32f val)
{
    return blockScore<Types32f>(pSrc, pMean, pBlocks, len, pResult, val, 0);
}

VdlStatus vdlsLogGaussSingle_BlockDVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                              const VdlsBlockDMatrix_32f* pBlocks, int len,
                                              Vdl64f* pResult, Vdl64f val)
{
    return blockScore<Types32f64f>(pSrc, pMean, pBlocks, len, pResult, val, 0);
}

VdlStatus vdlsLogGaussSingle_BlockDVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean,
                                           const VdlsBlockDMatrix_64f* pBlocks, int len,
                                           Vdl64f* pResult, Vdl64f val)
{
    return blockScore<Types64f>(pSrc, pMean, pBlocks, len, pResult, val, 0);
}

} // extern "C"
