// Making, reading and releasing codebooks.
#include "cdbk_train.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsCdbkInitAlloc_L2_16s(VdlsCdbkState_16s** ppCdbk, const Vdl16s* pSrc, int width,
                                   int step, int height, int nClust, Vdl_Cdbk_Hint hint)
{
    return createCodebook<Vdl16s>(ppCdbk, pSrc, nullptr, false, width, step, height, nClust, hint);
}

VdlStatus vdlsCdbkInitAlloc_WgtL2_16s(VdlsCdbkState_16s** ppCdbk, const Vdl16s* pSrc,
                                      const Vdl16s* pWgt, int width, int step, int height,
                                      int nClust, Vdl_Cdbk_Hint hint)
{
    return createCodebook<Vdl16s>(ppCdbk, pSrc, pWgt, true, width, step, height, nClust, hint);
}

VdlStatus vdlsCdbkInitAlloc_L2_32f(VdlsCdbkState_32f** ppCdbk, const Vdl32f* pSrc, int width,
                                   int step, int height, int nClust, Vdl_Cdbk_Hint hint)
{
    return createCodebook<Vdl32f>(ppCdbk, pSrc, nullptr, false, width, step, height, nClust, hint);
}

VdlStatus vdlsCdbkInitAlloc_WgtL2_32f(VdlsCdbkState_32f** ppCdbk, const Vdl32f* pSrc,
                                      const Vdl32f* pWgt, int width, int step, int height,
                                      int nClust, Vdl_Cdbk_Hint hint)
{
    return createCodebook<Vdl32f>(ppCdbk, pSrc, pWgt, true, width, step, height, nClust, hint);
}

VdlStatus vdlsCdbkFree_16s(VdlsCdbkState_16s* pCdbk)
{
    return freeCodebook<Vdl16s>(pCdbk);
}

VdlStatus vdlsCdbkFree_32f(VdlsCdbkState_32f* pCdbk)
{
    return freeCodebook<Vdl32f>(pCdbk);
}

VdlStatus vdlsGetCdbkSize_16s(const VdlsCdbkState_16s* pCdbk, int* pWidth, int* pSize)
{
    return codebookSize<Vdl16s>(pCdbk, pWidth, pSize);
}

VdlStatus vdlsGetCdbkSize_32f(const VdlsCdbkState_32f* pCdbk, int* pWidth, int* pSize)
{
    return codebookSize<Vdl32f>(pCdbk, pWidth, pSize);
}

VdlStatus vdlsGetCodebook_16s(const VdlsCdbkState_16s* pCdbk, Vdl16s* pDst, int step)
{
    return copyCodebook<Vdl16s>(pCdbk, pDst, step);
}

VdlStatus vdlsGetCodebook_32f(const VdlsCdbkState_32f* pCdbk, Vdl32f* pDst, int step)
{
    return copyCodebook<Vdl32f>(pCdbk, pDst, step);
}

} // extern "C"
