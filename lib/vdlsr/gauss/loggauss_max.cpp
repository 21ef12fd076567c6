// Log-likelihood scores kept where they exceed the results they meet: the
// best component of a mixture, one component at a time.
#include "loggauss_family.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsLogGaussMax_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                 const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                 Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, KeepMax>(
        StepRows<Vdl32f>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean,
                                  const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                  Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, KeepMax>(
        TableRows<Vdl32f>(ppSrc), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                 const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                 Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, KeepMax>(
        StepRows<Vdl64f>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean,
                                  const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                  Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, KeepMax>(
        TableRows<Vdl64f>(ppSrc), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                           int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                            int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                       const Vdl16s* pVar, int width, Vdl32s* pSrcDst, int height,
                                       Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, InverseVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int width, Vdl32s* pSrcDst, int height,
                                        Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, InverseVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                       int width, Vdl32f* pSrcDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, KeepMax>(
        StepRows<Vdl32f>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                        Vdl32f* pSrcDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, KeepMax>(
        TableRows<Vdl32f>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                       int width, Vdl64f* pSrcDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, KeepMax>(
        StepRows<Vdl64f>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                        Vdl64f* pSrcDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, KeepMax>(
        TableRows<Vdl64f>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussMax_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pSrcDst, int height, Vdl32f val,
                                                int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVar_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                             int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                             int scaleFactor)
{
    return scoreFrames<Types16s32s, UnitVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVar_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                              int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                              int scaleFactor)
{
    return scoreFrames<Types16s32s, UnitVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                         const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                         Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, KeepMax>(
        StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussMaxMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                          const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                          Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, KeepMax>(
        TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), pSrc, width, pVal, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussMaxMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                         const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                         Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, KeepMax>(
        StepRows<Vdl64f>(pMean, step), StepRows<Vdl64f>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussMaxMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                          const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                          Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, KeepMax>(
        TableRows<Vdl64f>(ppMean), TableRows<Vdl64f>(ppVar), pSrc, width, pVal, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32f* pVal, Vdl32f* pSrcDst, int height,
                                                   int scaleFactor)
{
    return scoreComponents<Types16s32f, KeepMax>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                    int height, int scaleFactor)
{
    return scoreComponents<Types16s32f, KeepMax>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar, int step,
                                               const Vdl16s* pSrc, int width, const Vdl32s* pVal,
                                               Vdl32s* pSrcDst, int height, int scaleFactor)
{
    return scoreComponents<Types16s32s, KeepMax>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                int width, const Vdl32s* pVal, Vdl32s* pSrcDst,
                                                int height, int scaleFactor)
{
    return scoreComponents<Types16s32s, KeepMax>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussMax_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                              int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                               int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_Low_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32s* pSrcDst,
                                           int height, Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, InverseVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_Low_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32s* pSrcDst,
                                            int height, Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, InverseVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step,
                                                   const Vdl16s* pMean, int width, Vdl32f* pSrcDst,
                                                   int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                    const Vdl16s* pMean, int width,
                                                    Vdl32f* pSrcDst, int height, Vdl32f val,
                                                    int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32s* pSrcDst, int height, Vdl32s val,
                                                int scaleFactor)
{
    return scoreFrames<Types16s32sLow, UnitVar, KeepMax>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32s* pSrcDst, int height,
                                                 Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, UnitVar, KeepMax>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                      int step, const Vdl16s* pSrc, int width,
                                                      const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                      int height, int scaleFactor)
{
    return scoreComponents<Types16s32fLow, KeepMax>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                       const Vdl16s* const* ppVar,
                                                       const Vdl16s* pSrc, int width,
                                                       const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                       int height, int scaleFactor)
{
    return scoreComponents<Types16s32fLow, KeepMax>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32s* pVal, Vdl32s* pSrcDst, int height,
                                                   int scaleFactor)
{
    return scoreComponents<Types16s32sLow, KeepMax>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32s* pVal, Vdl32s* pSrcDst,
                                                    int height, int scaleFactor)
{
    return scoreComponents<Types16s32sLow, KeepMax>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

} // extern "C"
