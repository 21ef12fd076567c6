// Feature vectors put together from rows of codebooks that the caller
// holds: one index per codebook picks a codeword, and the codewords follow
// one another in the result.
#ifndef VDL_CDBK_FORM_H
#define VDL_CDBK_FORM_H

#include <cstddef>

#include "cdbk_state.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// len codebooks of pHeights[k] codewords of N elements in the row ppSrc[k].
template <int N, class I, class T>
VdlStatus formInterleaved(const I* pInd, const T* const* ppSrc, const Vdl32s* pHeights, T* pDst,
                          int len)
{
    if (VdlStatus s = firstError({checkPtrs({pInd, ppSrc, pHeights, pDst}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k) {
        if (VdlStatus s = firstError({checkPtrs({ppSrc[k]}), checkLen(pHeights[k]),
                                      checkRange(pInd[k], 0, pHeights[k] - 1LL)}))
            return s;
    }
    for (int k = 0; k < len; ++k)
        copyRow(pDst + static_cast<std::ptrdiff_t>(k) * N,
                ppSrc[k] + static_cast<std::ptrdiff_t>(pInd[k]) * N, N);
    return vdlStsNoErr;
}

// nStream codebooks of pHeights[k] rows of pWidths[k], pSteps[k] apart.
template <class I, class T>
VdlStatus formStreams(const I* pInd, const T* const* ppSrc, const Vdl32s* pHeights,
                      const Vdl32s* pWidths, const Vdl32s* pSteps, int nStream, T* pDst)
{
    if (VdlStatus s = firstError({checkPtrs({pInd, ppSrc, pHeights, pWidths, pSteps, pDst}),
                                  checkLen(nStream)}))
        return s;
    for (int k = 0; k < nStream; ++k) {
        if (VdlStatus s = firstError({checkPtrs({ppSrc[k]}), checkSize(pWidths[k], pHeights[k]),
                                      checkStep(pSteps[k], pWidths[k]),
                                      checkRange(pInd[k], 0, pHeights[k] - 1LL)}))
            return s;
    }
    for (int k = 0; k < nStream; ++k) {
        copyRow(pDst, ppSrc[k] + static_cast<std::ptrdiff_t>(pInd[k]) * pSteps[k], pWidths[k]);
        pDst += pWidths[k];
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
