// Split vector quantisation: vectors from their indices and indices of vectors
// over a table of codebooks.
#include "cdbk_split.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsFormVectorVQ_16s16s(const Vdl16s* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                 int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl16s>(ElementIndices<Vdl16s, const Vdl16s*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsFormVectorVQ_8u16s(const Vdl8u* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                 int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl16s>(ElementIndices<Vdl8u, const Vdl8u*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsFormVectorVQ_1u16s(const Vdl8u* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                                 int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl16s>(PackedIndices<const Vdl8u*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsFormVectorVQ_16s32f(const Vdl16s* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                 int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl32f>(ElementIndices<Vdl16s, const Vdl16s*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsFormVectorVQ_8u32f(const Vdl8u* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                 int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl32f>(ElementIndices<Vdl8u, const Vdl8u*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsFormVectorVQ_1u32f(const Vdl8u* pSrc, int srcStep, Vdl32f* pDst, int dstStep,
                                 int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return formVectorVQ<Vdl32f>(PackedIndices<const Vdl8u*>(pSrc, srcStep), pDst, dstStep, height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_16s16s(const Vdl16s* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                            int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl16s>(pSrc, srcStep, ElementIndices<Vdl16s, Vdl16s*>(pDst, dstStep), height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_16s8u(const Vdl16s* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl16s>(pSrc, srcStep, ElementIndices<Vdl8u, Vdl8u*>(pDst, dstStep), height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_16s1u(const Vdl16s* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_16s* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl16s>(pSrc, srcStep, PackedIndices<Vdl8u*>(pDst, dstStep), height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_32f16s(const Vdl32f* pSrc, int srcStep, Vdl16s* pDst, int dstStep,
                            int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl32f>(pSrc, srcStep, ElementIndices<Vdl16s, Vdl16s*>(pDst, dstStep), height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_32f8u(const Vdl32f* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl32f>(pSrc, srcStep, ElementIndices<Vdl8u, Vdl8u*>(pDst, dstStep), height, ppCdbks, nCdbks);
}

VdlStatus vdlsSplitVQ_32f1u(const Vdl32f* pSrc, int srcStep, Vdl8u* pDst, int dstStep,
                            int height, const VdlsCdbkState_32f* const* ppCdbks, int nCdbks)
{
    return splitVQ<Vdl32f>(pSrc, srcStep, PackedIndices<Vdl8u*>(pDst, dstStep), height, ppCdbks, nCdbks);
}
} // extern "C"
