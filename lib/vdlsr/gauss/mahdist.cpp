// Mahalanobis distance of frames and diagonal Gaussians.
#include "gauss_kernels.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class Ty, class SrcRows, class MeanRows, class VarRows>
VdlStatus mahDist(const SrcRows& src, const MeanRows& mean, const VarRows& var, int width,
                  typename Ty::Dst* pDst, int height, int scaleFactor)
{
    return scoreRows<Ty, InverseVar>(src, mean, var, width, height, Distance<Ty>(scaleFactor),
                                     PerRow<Assign, typename Ty::Dst>(pDst));
}

} // namespace

extern "C" {

VdlStatus vdlsMahDistSingle_32f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                int len, Vdl32f* pResult)
{
    return mahDist<Types32f>(
        OneRow<Vdl32f>(pSrc), OneRow<Vdl32f>(pMean), OneRow<Vdl32f>(pVar), len, pResult, 1, 0);
}

VdlStatus vdlsMahDistSingle_64f(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                int len, Vdl64f* pResult)
{
    return mahDist<Types64f>(
        OneRow<Vdl64f>(pSrc), OneRow<Vdl64f>(pMean), OneRow<Vdl64f>(pVar), len, pResult, 1, 0);
}

VdlStatus vdlsMahDistSingle_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                   int len, Vdl64f* pResult)
{
    return mahDist<Types32f64f>(
        OneRow<Vdl32f>(pSrc), OneRow<Vdl32f>(pMean), OneRow<Vdl32f>(pVar), len, pResult, 1, 0);
}

VdlStatus vdlsMahDistSingle_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean, const Vdl16s* pVar,
                                   int len, Vdl32f* pResult)
{
    return mahDist<Types16s32f>(
        OneRow<Vdl16s>(pSrc), OneRow<Vdl16s>(pMean), OneRow<Vdl16s>(pVar), len, pResult, 1, 0);
}

VdlStatus vdlsMahDistSingle_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, const Vdl16s* pVar,
                                       int len, Vdl32s* pResult, int scaleFactor)
{
    return mahDist<Types16s32s>(
        OneRow<Vdl16s>(pSrc), OneRow<Vdl16s>(pMean), OneRow<Vdl16s>(pVar), len, pResult, 1,
        scaleFactor);
}

VdlStatus vdlsMahDist_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean, const Vdl32f* pVar,
                             int width, Vdl32f* pDst, int height)
{
    return mahDist<Types32f>(
        StepRows<Vdl32f>(pSrc, step), OneRow<Vdl32f>(pMean), OneRow<Vdl32f>(pVar), width, pDst,
        height, 0);
}

VdlStatus vdlsMahDist_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean, const Vdl64f* pVar,
                             int width, Vdl64f* pDst, int height)
{
    return mahDist<Types64f>(
        StepRows<Vdl64f>(pSrc, step), OneRow<Vdl64f>(pMean), OneRow<Vdl64f>(pVar), width, pDst,
        height, 0);
}

VdlStatus vdlsMahDist_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                              int width, Vdl32f* pDst, int height)
{
    return mahDist<Types32f>(
        TableRows<Vdl32f>(ppSrc), OneRow<Vdl32f>(pMean), OneRow<Vdl32f>(pVar), width, pDst, height,
        0);
}

VdlStatus vdlsMahDist_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                              int width, Vdl64f* pDst, int height)
{
    return mahDist<Types64f>(
        TableRows<Vdl64f>(ppSrc), OneRow<Vdl64f>(pMean), OneRow<Vdl64f>(pVar), width, pDst, height,
        0);
}

VdlStatus vdlsMahDistMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                     const Vdl32f* pSrc, int width, Vdl32f* pDst, int height)
{
    return mahDist<Types32f>(
        OneRow<Vdl32f>(pSrc), StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step), width,
        pDst, height, 0);
}

VdlStatus vdlsMahDistMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                     const Vdl64f* pSrc, int width, Vdl64f* pDst, int height)
{
    return mahDist<Types64f>(
        OneRow<Vdl64f>(pSrc), StepRows<Vdl64f>(pMean, step), StepRows<Vdl64f>(pVar, step), width,
        pDst, height, 0);
}

VdlStatus vdlsMahDistMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                      const Vdl32f* pSrc, int width, Vdl32f* pDst, int height)
{
    return mahDist<Types32f>(
        OneRow<Vdl32f>(pSrc), TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), width, pDst,
        height, 0);
}

VdlStatus vdlsMahDistMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                      const Vdl64f* pSrc, int width, Vdl64f* pDst, int height)
{
    return mahDist<Types64f>(
        OneRow<Vdl64f>(pSrc), TableRows<Vdl64f>(ppMean), TableRows<Vdl64f>(ppVar), width, pDst,
        height, 0);
}

} // extern "C"
