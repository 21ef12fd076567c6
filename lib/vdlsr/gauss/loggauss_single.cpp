// Log-likelihood of one frame against one Gaussian.
#include "loggauss_family.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsLogGaussSingle_32f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                 int len, Vdl32f* pResult, Vdl32f val)
{
    return scoreFrames<Types32f, InverseVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_64f(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                 int len, Vdl64f* pResult, Vdl64f val)
{
    return scoreFrames<Types64f, InverseVar, Assign>(
        OneRow<Vdl64f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                    int len, Vdl64f* pResult, Vdl64f val)
{
    return scoreFrames<Types32f64f, InverseVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_Scaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                           const Vdl16s* pVar, int len, Vdl32f* pResult,
                                           Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, InverseVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_IdVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                                Vdl32f* pResult, Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, UnitVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, nullptr, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                        const Vdl16s* pVar, int len, Vdl32s* pResult, Vdl32s val,
                                        int scaleFactor)
{
    return scoreFrames<Types16s32s, InverseVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_IdVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                              Vdl32s* pResult, Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, UnitVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, nullptr, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_IdVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean, int len,
                                       Vdl32f* pResult, Vdl32f val)
{
    return scoreFrames<Types32f, UnitVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, nullptr, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_IdVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean, int len,
                                       Vdl64f* pResult, Vdl64f val)
{
    return scoreFrames<Types64f, UnitVar, Assign>(
        OneRow<Vdl64f>(pSrc), pMean, nullptr, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_IdVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean, int len,
                                          Vdl64f* pResult, Vdl64f val)
{
    return scoreFrames<Types32f64f, UnitVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, nullptr, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_DirectVar_32f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                           const Vdl32f* pVar, int len, Vdl32f* pResult,
                                           Vdl32f val)
{
    return scoreFrames<Types32f, DirectVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_DirectVar_64f(const Vdl64f* pSrc, const Vdl64f* pMean,
                                           const Vdl64f* pVar, int len, Vdl64f* pResult,
                                           Vdl64f val)
{
    return scoreFrames<Types64f, DirectVar, Assign>(
        OneRow<Vdl64f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_DirectVar_32f64f(const Vdl32f* pSrc, const Vdl32f* pMean,
                                              const Vdl32f* pVar, int len, Vdl64f* pResult,
                                              Vdl64f val)
{
    return scoreFrames<Types32f64f, DirectVar, Assign>(
        OneRow<Vdl32f>(pSrc), pMean, pVar, len, pResult, 1, val, 0);
}

VdlStatus vdlsLogGaussSingle_DirectVarScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    const Vdl16s* pVar, int len, Vdl32f* pResult,
                                                    Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32f, DirectVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_LowScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                              const Vdl16s* pVar, int len, Vdl32f* pResult,
                                              Vdl32f val, int scaleFactor)
{
    return scoreFrames<Types16s32fLow, InverseVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_IdVarLowScaled_16s32f(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                   int len, Vdl32f* pResult, Vdl32f val,
                                                   int scaleFactor)
{
    return scoreFrames<Types16s32fLow, UnitVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, nullptr, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_DirectVar_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const Vdl16s* pVar, int len, Vdl32s* pResult,
                                                  Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32s, DirectVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_Low_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean,
                                            const Vdl16s* pVar, int len, Vdl32s* pResult,
                                            Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, InverseVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, pVar, len, pResult, 1, val, scaleFactor);
}

VdlStatus vdlsLogGaussSingle_IdVarLow_16s32s_Sfs(const Vdl16s* pSrc, const Vdl16s* pMean, int len,
                                                 Vdl32s* pResult, Vdl32s val, int scaleFactor)
{
    return scoreFrames<Types16s32sLow, UnitVar, Assign>(
        OneRow<Vdl16s>(pSrc), pMean, nullptr, len, pResult, 1, val, scaleFactor);
}

} // extern "C"
