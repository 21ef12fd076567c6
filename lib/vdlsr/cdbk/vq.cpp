// Vector quantisation: nearest codewords of many vectors, and the codewords
// near one vector.
#include "cdbk_search.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsVQ_32f(const Vdl32f* pSrc, int step, Vdl32s* pIndx, int height,
                     const VdlsCdbkState_32f* pCdbk)
{
    return quantise<Vdl32f, Vdl32f>(pSrc, step, pIndx, nullptr, false, height, pCdbk, 0);
}

VdlStatus vdlsVQ_16s(const Vdl16s* pSrc, int step, Vdl32s* pIndx, int height,
                     const VdlsCdbkState_16s* pCdbk)
{
    return quantise<Vdl16s, Vdl32s>(pSrc, step, pIndx, nullptr, false, height, pCdbk, 0);
}

VdlStatus vdlsVQDist_32f(const Vdl32f* pSrc, int step, Vdl32s* pIndx, Vdl32f* pDist, int height,
                         const VdlsCdbkState_32f* pCdbk)
{
    return quantise<Vdl32f, Vdl32f>(pSrc, step, pIndx, pDist, true, height, pCdbk, 0);
}

VdlStatus vdlsVQDist_16s32s_Sfs(const Vdl16s* pSrc, int step, Vdl32s* pIndx, Vdl32s* pDist,
                                int height, const VdlsCdbkState_16s* pCdbk, int scaleFactor)
{
    return quantise<Vdl16s, Vdl32s>(pSrc, step, pIndx, pDist, true, height, pCdbk, scaleFactor);
}

VdlStatus vdlsVQSingle_Thresh_16s(const Vdl16s* pSrc, Vdl32s* pIndx,
                                  const VdlsCdbkState_16s* pCdbk, Vdl32f relThresh, int* pNum)
{
    return quantiseThresh<Vdl16s, Vdl32s>(pSrc, pIndx, nullptr, false, pCdbk, relThresh, pNum, 0);
}

VdlStatus vdlsVQSingle_Thresh_32f(const Vdl32f* pSrc, Vdl32s* pIndx,
                                  const VdlsCdbkState_32f* pCdbk, Vdl32f relThresh, int* pNum)
{
    return quantiseThresh<Vdl32f, Vdl32f>(pSrc, pIndx, nullptr, false, pCdbk, relThresh, pNum, 0);
}

VdlStatus vdlsVQDistSingle_Thresh_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pIndx, Vdl32s* pDist,
                                             const VdlsCdbkState_16s* pCdbk, Vdl32f relThresh,
                                             int* pNum, int scaleFactor)
{
    return quantiseThresh<Vdl16s, Vdl32s>(pSrc, pIndx, pDist, true, pCdbk, relThresh, pNum,
                                          scaleFactor);
}

VdlStatus vdlsVQDistSingle_Thresh_32f(const Vdl32f* pSrc, Vdl32s* pIndx, Vdl32f* pDist,
                                      const VdlsCdbkState_32f* pCdbk, Vdl32f relThresh,
                                      int* pNum)
{
    return quantiseThresh<Vdl32f, Vdl32f>(pSrc, pIndx, pDist, true, pCdbk, relThresh, pNum, 0);
}

VdlStatus vdlsVQSingle_Sort_16s(const Vdl16s* pSrc, Vdl32s* pIndx, const VdlsCdbkState_16s* pCdbk,
                                int N)
{
    return quantiseSort<Vdl16s, Vdl32s>(pSrc, pIndx, nullptr, false, pCdbk, N, 0);
}

VdlStatus vdlsVQSingle_Sort_32f(const Vdl32f* pSrc, Vdl32s* pIndx, const VdlsCdbkState_32f* pCdbk,
                                int N)
{
    return quantiseSort<Vdl32f, Vdl32f>(pSrc, pIndx, nullptr, false, pCdbk, N, 0);
}

VdlStatus vdlsVQDistSingle_Sort_16s32s_Sfs(const Vdl16s* pSrc, Vdl32s* pIndx, Vdl32s* pDist,
                                           const VdlsCdbkState_16s* pCdbk, int N,
                                           int scaleFactor)
{
    return quantiseSort<Vdl16s, Vdl32s>(pSrc, pIndx, pDist, true, pCdbk, N, scaleFactor);
}

VdlStatus vdlsVQDistSingle_Sort_32f(const Vdl32f* pSrc, Vdl32s* pIndx, Vdl32f* pDist,
                                    const VdlsCdbkState_32f* pCdbk, int N)
{
    return quantiseSort<Vdl32f, Vdl32f>(pSrc, pIndx, pDist, true, pCdbk, N, 0);
}

} // extern "C"
