// Log-likelihood scores log-added into the results they meet: the sum of
// a state's mixture components, one component at a time.
#include "loggauss_family.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsLogGaussAdd_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                 const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                 Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, LogAdd>(
        StepRows<Vdl32f>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean,
                                  const Vdl32f* pVar, int width, Vdl32f* pSrcDst, int height,
                                  Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, LogAdd>(
        TableRows<Vdl32f>(ppSrc), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                 const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                 Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, LogAdd>(
        StepRows<Vdl64f>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean,
                                  const Vdl64f* pVar, int width, Vdl64f* pSrcDst, int height,
                                  Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, LogAdd>(
        TableRows<Vdl64f>(ppSrc), pMean, pVar, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_Scaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                           int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, LogAdd>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_Scaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                            int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, LogAdd>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_IdVar_32f_D2(const Vdl32f* pSrc, int step, const Vdl32f* pMean,
                                       int width, Vdl32f* pSrcDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, LogAdd>(
        StepRows<Vdl32f>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_IdVar_32f_D2L(const Vdl32f* const* ppSrc, const Vdl32f* pMean, int width,
                                        Vdl32f* pSrcDst, int height, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, LogAdd>(
        TableRows<Vdl32f>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_IdVar_64f_D2(const Vdl64f* pSrc, int step, const Vdl64f* pMean,
                                       int width, Vdl64f* pSrcDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, LogAdd>(
        StepRows<Vdl64f>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_IdVar_64f_D2L(const Vdl64f* const* ppSrc, const Vdl64f* pMean, int width,
                                        Vdl64f* pSrcDst, int height, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, LogAdd>(
        TableRows<Vdl64f>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, 0);
}

VdlStatus vdlsLogGaussAdd_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                                int width, Vdl32f* pSrcDst, int height, Vdl32f val,
                                                int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, LogAdd>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_IdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                                 int width, Vdl32f* pSrcDst, int height,
                                                 Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, LogAdd>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAddMultiMix_32f_D2(const Vdl32f* pMean, const Vdl32f* pVar, int step,
                                         const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                         Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, LogAdd>(
        StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussAddMultiMix_32f_D2L(const Vdl32f* const* ppMean, const Vdl32f* const* ppVar,
                                          const Vdl32f* pSrc, int width, const Vdl32f* pVal,
                                          Vdl32f* pSrcDst, int height)
{
    return scoreComponents<Types32f, LogAdd>(
        TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), pSrc, width, pVal, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussAddMultiMix_64f_D2(const Vdl64f* pMean, const Vdl64f* pVar, int step,
                                         const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                         Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, LogAdd>(
        StepRows<Vdl64f>(pMean, step), StepRows<Vdl64f>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, 0);
}

VdlStatus vdlsLogGaussAddMultiMix_64f_D2L(const Vdl64f* const* ppMean, const Vdl64f* const* ppVar,
                                          const Vdl64f* pSrc, int width, const Vdl64f* pVal,
                                          Vdl64f* pSrcDst, int height)
{
    return scoreComponents<Types64f, LogAdd>(
        TableRows<Vdl64f>(ppMean), TableRows<Vdl64f>(ppVar), pSrc, width, pVal, pSrcDst, height,
        0);
}

VdlStatus vdlsLogGaussAddMultiMix_Scaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                   int step, const Vdl16s* pSrc, int width,
                                                   const Vdl32f* pVal, Vdl32f* pSrcDst, int height,
                                                   int scaleFactor)
{
    return scoreComponents<Types16s32f, LogAdd>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                    const Vdl16s* const* ppVar, const Vdl16s* pSrc,
                                                    int width, const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                    int height, int scaleFactor)
{
    return scoreComponents<Types16s32f, LogAdd>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

VdlStatus vdlsLogGaussAdd_LowScaled_16s32f_D2(const Vdl16s* pSrc, int step, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                              int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, LogAdd>(
        StepRows<Vdl16s>(pSrc, step), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_LowScaled_16s32f_D2L(const Vdl16s* const* ppSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int width, Vdl32f* pSrcDst,
                                               int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, LogAdd>(
        TableRows<Vdl16s>(ppSrc), pMean, pVar, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, int step,
                                                   const Vdl16s* pMean, int width, Vdl32f* pSrcDst,
                                                   int height, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, LogAdd>(
        StepRows<Vdl16s>(pSrc, step), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                    const Vdl16s* pMean, int width,
                                                    Vdl32f* pSrcDst, int height, Vdl32f val,
                                                    int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, LogAdd>(
        TableRows<Vdl16s>(ppSrc), pMean, nullptr, width, pSrcDst, height, val, scaleFactor);
}

VdlStatus vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2(const Vdl16s* pMean, const Vdl16s* pVar,
                                                      int step, const Vdl16s* pSrc, int width,
                                                      const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                      int height, int scaleFactor)
{
    return scoreComponents<Types16s32fLow, LogAdd>(
        StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), pSrc, width, pVal, pSrcDst,
        height, scaleFactor);
}

VdlStatus vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L(const Vdl16s* const* ppMean,
                                                       const Vdl16s* const* ppVar,
                                                       const Vdl16s* pSrc, int width,
                                                       const Vdl32f* pVal, Vdl32f* pSrcDst,
                                                       int height, int scaleFactor)
{
    return scoreComponents<Types16s32fLow, LogAdd>(
        TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), pSrc, width, pVal, pSrcDst, height,
        scaleFactor);
}

} // extern "C"
