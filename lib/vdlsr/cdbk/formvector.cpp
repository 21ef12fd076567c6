// Feature vectors from codebook rows that the caller holds.
#include "cdbk_form.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsFormVector_2i_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len)
{
    return formInterleaved<2>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_2i_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len)
{
    return formInterleaved<2>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_2i_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len)
{
    return formInterleaved<2>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_2i_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len)
{
    return formInterleaved<2>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_4i_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len)
{
    return formInterleaved<4>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_4i_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len)
{
    return formInterleaved<4>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_4i_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl16s* pDst, int len)
{
    return formInterleaved<4>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_4i_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                                  const Vdl32s* pHeights, Vdl32f* pDst, int len)
{
    return formInterleaved<4>(pInd, ppSrc, pHeights, pDst, len);
}

VdlStatus vdlsFormVector_8u16s(const Vdl8u* pInd, const Vdl16s* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl16s* pDst)
{
    return formStreams(pInd, ppSrc, pHeights, pWidths, pSteps, nStream, pDst);
}

VdlStatus vdlsFormVector_8u32f(const Vdl8u* pInd, const Vdl32f* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl32f* pDst)
{
    return formStreams(pInd, ppSrc, pHeights, pWidths, pSteps, nStream, pDst);
}

VdlStatus vdlsFormVector_16s16s(const Vdl16s* pInd, const Vdl16s* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl16s* pDst)
{
    return formStreams(pInd, ppSrc, pHeights, pWidths, pSteps, nStream, pDst);
}

VdlStatus vdlsFormVector_16s32f(const Vdl16s* pInd, const Vdl32f* const* ppSrc,
                               const Vdl32s* pHeights, const Vdl32s* pWidths,
                               const Vdl32s* pSteps, int nStream, Vdl32f* pDst)
{
    return formStreams(pInd, ppSrc, pHeights, pWidths, pSteps, nStream, pDst);
}
} // extern "C"
