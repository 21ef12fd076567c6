// Log-likelihood of frames against one Gaussian, and of one frame against
// many Gaussians (MultiMix), each score written to its result.
#include "loggauss_family.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsLogGauss_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                              const Vdl32f* pVar, int width, Vdl32f* pDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, Assign>(
        StepRows<Vdl32f>(pSrc, step), pMean, pVar, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                              const Vdl64f* pVar, int width, Vdl64f* pDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, Assign>(
        StepRows<Vdl64f>(pSrc, step), pMean, pVar, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                        Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                    const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                    Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, InverseVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                               int width, Vdl32f* pDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, Assign>(
        TableRows<Vdl32f>(ppSrc), pMean, pVar, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                               int width, Vdl64f* pDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, Assign>(
        TableRows<Vdl64f>(ppSrc), pMean, pVar, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                         const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                         Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                     const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                     Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, InverseVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                      const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, Assign>(
        StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                      const Vdl64f* pSrc, int width, Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, Assign>(
        StepRows<Vdl64f>(pMean, step), StepRows<Vdl64f>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                                const Vdl16s* pSrc, int width, Vdl32f* pSrcDst,
                                                int height, int scaleFactor)
{
    return scoreComponents<Types16s32f, Assign>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                            const Vdl16s* pSrc, int width, Vdl32s* pSrcDst,
                                            int height, int scaleFactor)
{
    return scoreComponents<Types16s32s, Assign>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                       const Vdl32f* pSrc, int width, Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, Assign>(
        TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                       const Vdl64f* pSrc, int width, Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, Assign>(
        TableRows<Vdl64f>(ppMean), TableRows<Vdl64f>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                 const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 int scaleFactor)
{
    return scoreComponents<Types16s32f, Assign>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                             const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                             int width, Vdl32s* pSrcDst, int height,
                                             int scaleFactor)
{
    return scoreComponents<Types16s32s, Assign>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGauss_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean, int width,
                                    Vdl32f* pDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, Assign>(
        StepRows<Vdl32f>(pSrc, step), pMean, nullptr, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean, int width,
                                    Vdl64f* pDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, Assign>(
        StepRows<Vdl64f>(pSrc, step), pMean, nullptr, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32f* pDst, int height, Vdl32f val,
                                             int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVar_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                          int width, Vdl32s* pDst, int height, Vdl32s val,
                                          int scaleFactor)
{
    return scoreFrames<Types16s32s, UnitVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                     Vdl32f* pDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, Assign>(
        TableRows<Vdl32f>(ppSrc), pMean, nullptr, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                     Vdl64f* pDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, Assign>(
        TableRows<Vdl64f>(ppSrc), pMean, nullptr, width, pDst, height, val, 0);
}

VdlStatus vdlsLogGauss_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32f* pDst, int height, Vdl32f val,
                                              int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVar_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                           int width, Vdl32s* pDst, int height, Vdl32s val,
                                           int scaleFactor)
{
    return scoreFrames<Types16s32s, UnitVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_Low_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                        Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, InverseVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_Low_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                         const Vdl16s* pVar, int width, Vdl32s* pDst, int height,
                                         Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, InverseVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pDst, int height,
                                           Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pDst,
                                            int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVarLow_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32s* pDst, int height, Vdl32s val,
                                             int scaleFactor)
{
    return scoreFrames<Types16s32sLow, UnitVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVarLow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32s* pDst, int height, Vdl32s val,
                                              int scaleFactor)
{
    return scoreFrames<Types16s32sLow, UnitVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pDst, int height, Vdl32f val,
                                                int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, Assign>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGauss_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pDst, int height, Vdl32f val,
                                                 int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, Assign>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_Low_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                                const Vdl16s* pSrc, int width, Vdl32s* pSrcDst,
                                                int height, int scaleFactor)
{
    return scoreComponents<Types16s32sLow, Assign>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_Low_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                 const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                 int width, Vdl32s* pSrcDst, int height,
                                                 int scaleFactor)
{
    return scoreComponents<Types16s32sLow, Assign>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   Vdl32f* pSrcDst, int height, int scaleFactor)
{
    return scoreComponents<Types16s32fLow, Assign>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pSrcDst, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, Vdl32f* pSrcDst, int height,
                                                    int scaleFactor)
{
    return scoreComponents<Types16s32fLow, Assign>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pSrcDst, pSrcDst, height,
        scaleFactor);
}

} // extern "C"
