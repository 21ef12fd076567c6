// Polyphase resampling: the states, their calls and their release.
#include "resample_state.h"
#include "vdlsr.h"

// The public state types; callers only ever see pointers to them.
struct VdlsResamplingPolyphase_32f {
    static constexpr unsigned tag = 0x52504100u;
    vdl::PolyphaseBody body;
};
struct VdlsResamplingPolyphase_16s {
    static constexpr unsigned tag = 0x52504101u;
    vdl::PolyphaseBody body;
};
struct VdlsResamplingPolyphaseFixed_32f {
    static constexpr unsigned tag = 0x52504600u;
    vdl::PolyphaseFixedBody body;
};
struct VdlsResamplingPolyphaseFixed_16s {
    static constexpr unsigned tag = 0x52504601u;
    vdl::PolyphaseFixedBody body;
};

using namespace vdl;

extern "C" {

VdlStatus vdlsResamplePolyphaseInitAlloc_32f(VdlsResamplingPolyphase_32f** ppState, Vdl32f window,
                                             int nStep, Vdl32f rollf, Vdl32f alpha,
                                             VdlHintAlgorithm hint)
{
    return initAny(ppState, window, nStep, rollf, alpha, hint);
}

VdlStatus vdlsResamplePolyphaseInitAlloc_16s(VdlsResamplingPolyphase_16s** ppState, Vdl32f window,
                                             int nStep, Vdl32f rollf, Vdl32f alpha,
                                             VdlHintAlgorithm hint)
{
    return initAny(ppState, window, nStep, rollf, alpha, hint);
}

VdlStatus vdlsResamplePolyphaseFixedInitAlloc_32f(VdlsResamplingPolyphaseFixed_32f** ppState,
                                                  int inRate, int outRate, int len, Vdl32f rollf,
                                                  Vdl32f alpha, VdlHintAlgorithm hint)
{
    return initFixed(ppState, inRate, outRate, len, rollf, alpha, hint);
}

VdlStatus vdlsResamplePolyphaseFixedInitAlloc_16s(VdlsResamplingPolyphaseFixed_16s** ppState,
                                                  int inRate, int outRate, int len, Vdl32f rollf,
                                                  Vdl32f alpha, VdlHintAlgorithm hint)
{
    return initFixed(ppState, inRate, outRate, len, rollf, alpha, hint);
}

VdlStatus vdlsResamplePolyphase_32f(const VdlsResamplingPolyphase_32f* pState, const Vdl32f* pSrc,
                                    int len, Vdl32f* pDst, Vdl64f factor, Vdl32f norm,
                                    Vdl64f* pTime, int* pOutLen)
{
    return resampleAny(pState, pSrc, len, pDst, factor, norm, pTime, pOutLen);
}

VdlStatus vdlsResamplePolyphase_16s(const VdlsResamplingPolyphase_16s* pState, const Vdl16s* pSrc,
                                    int len, Vdl16s* pDst, Vdl64f factor, Vdl32f norm,
                                    Vdl64f* pTime, int* pOutLen)
{
    return resampleAny(pState, pSrc, len, pDst, factor, norm, pTime, pOutLen);
}

VdlStatus vdlsResamplePolyphaseFixed_32f(const VdlsResamplingPolyphaseFixed_32f* pState,
                                         const Vdl32f* pSrc, int len, Vdl32f* pDst, Vdl32f norm,
                                         Vdl64f* pTime, int* pOutLen)
{
    return resampleFixed(pState, pSrc, len, pDst, norm, pTime, pOutLen);
}

VdlStatus vdlsResamplePolyphaseFixed_16s(const VdlsResamplingPolyphaseFixed_16s* pState,
                                         const Vdl16s* pSrc, int len, Vdl16s* pDst, Vdl32f norm,
                                         Vdl64f* pTime, int* pOutLen)
{
    return resampleFixed(pState, pSrc, len, pDst, norm, pTime, pOutLen);
}

VdlStatus vdlsResamplePolyphaseFree_32f(VdlsResamplingPolyphase_32f* pState)
{
    return freeState(pState, &PolyphaseBody::table);
}

VdlStatus vdlsResamplePolyphaseFree_16s(VdlsResamplingPolyphase_16s* pState)
{
    return freeState(pState, &PolyphaseBody::table);
}

VdlStatus vdlsResamplePolyphaseFixedFree_32f(VdlsResamplingPolyphaseFixed_32f* pState)
{
    return freeState(pState, &PolyphaseFixedBody::phases);
}

VdlStatus vdlsResamplePolyphaseFixedFree_16s(VdlsResamplingPolyphaseFixed_16s* pState)
{
    return freeState(pState, &PolyphaseFixedBody::phases);
}

} // extern "C"
