// Log-likelihood of one frame against a whole mixture: the scores of its
// Gaussians, each with its log weight in pVal, log-added into one result.
#include <type_traits>

#include "gauss_kernels.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

template <class Ty, class Var, class MeanRows, class VarRows>
VdlStatus mixture(const typename Ty::Src* pSrc, const MeanRows& means, const VarRows& vars,
                  int width, int height, const typename Ty::Dst* pVal, typename Ty::Dst* pResult,
                  int scaleFactor)
{
    using Src = typename Ty::Src;
    using Dst = typename Ty::Dst;
    static_assert(std::is_floating_point<Dst>::value, "a log-sum needs a floating result");
    return scoreRows<Ty, Var>(OneRow<Src>(pSrc), means, vars, width, height,
                              LogLikelihood<Ty, RowValues<Dst>>(RowValues<Dst>(pVal), scaleFactor),
                              LogSum<Dst>(pResult));
}

} // namespace

extern "C" {

VdlStatus vdlsLogGaussMixture_Scaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                               const Vdl16s* pVar, int height, int step, int width,
                                               const Vdl32f* pVal, Vdl32f* pResult,
                                               int scaleFactor)
{
    return mixture<Types16s32f, InverseVar>(
        pSrc, StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), width, height, pVal,
        pResult, scaleFactor);
}

VdlStatus vdlsLogGaussMixture_Scaled_16s32f_D2L(const Vdl16s* pSrc, const Vdl16s* const* ppMean,
                                                const Vdl16s* const* ppVar, int height, int width,
                                                const Vdl32f* pVal, Vdl32f* pResult,
                                                int scaleFactor)
{
    return mixture<Types16s32f, InverseVar>(
        pSrc, TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_LowScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                  const Vdl16s* pVar, int height, int step,
                                                  int width, const Vdl32f* pVal, Vdl32f* pResult,
                                                  int scaleFactor)
{
    return mixture<Types16s32fLow, InverseVar>(
        pSrc, StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step), width, height, pVal,
        pResult, scaleFactor);
}

VdlStatus vdlsLogGaussMixture_LowScaled_16s32f_D2L(const Vdl16s* pSrc, const Vdl16s* const* ppMean,
                                                   const Vdl16s* const* ppVar, int height,
                                                   int width, const Vdl32f* pVal, Vdl32f* pResult,
                                                   int scaleFactor)
{
    return mixture<Types16s32fLow, InverseVar>(
        pSrc, TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, const Vdl32f* pVar,
                                     int height, int step, int width, const Vdl32f* pVal,
                                     Vdl32f* pResult)
{
    return mixture<Types32f, InverseVar>(
        pSrc, StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step), width, height, pVal,
        pResult, 0);
}

VdlStatus vdlsLogGaussMixture_32f_D2L(const Vdl32f* pSrc, const Vdl32f* const* ppMean,
                                      const Vdl32f* const* ppVar, int height, int width,
                                      const Vdl32f* pVal, Vdl32f* pResult)
{
    return mixture<Types32f, InverseVar>(
        pSrc, TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), width, height, pVal, pResult,
        0);
}

VdlStatus vdlsLogGaussMixture_64f_D2(const Vdl64f* pSrc, const Vdl64f* pMean, const Vdl64f* pVar,
                                     int height, int step, int width, const Vdl64f* pVal,
                                     Vdl64f* pResult)
{
    return mixture<Types64f, InverseVar>(
        pSrc, StepRows<Vdl64f>(pMean, step), StepRows<Vdl64f>(pVar, step), width, height, pVal,
        pResult, 0);
}

VdlStatus vdlsLogGaussMixture_64f_D2L(const Vdl64f* pSrc, const Vdl64f* const* ppMean,
                                      const Vdl64f* const* ppVar, int height, int width,
                                      const Vdl64f* pVal, Vdl64f* pResult)
{
    return mixture<Types64f, InverseVar>(
        pSrc, TableRows<Vdl64f>(ppMean), TableRows<Vdl64f>(ppVar), width, height, pVal, pResult,
        0);
}

VdlStatus vdlsLogGaussMixture_IdVarScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                    int height, int step, int width,
                                                    const Vdl32f* pVal, Vdl32f* pResult,
                                                    int scaleFactor)
{
    return mixture<Types16s32f, UnitVar>(
        pSrc, StepRows<Vdl16s>(pMean, step), NoRow<Vdl16s>(nullptr), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_IdVarScaled_16s32f_D2L(const Vdl16s* pSrc,
                                                     const Vdl16s* const* ppMean, int height,
                                                     int width, const Vdl32f* pVal,
                                                     Vdl32f* pResult, int scaleFactor)
{
    return mixture<Types16s32f, UnitVar>(
        pSrc, TableRows<Vdl16s>(ppMean), NoRow<Vdl16s>(nullptr), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                       int height, int step, int width,
                                                       const Vdl32f* pVal, Vdl32f* pResult,
                                                       int scaleFactor)
{
    return mixture<Types16s32fLow, UnitVar>(
        pSrc, StepRows<Vdl16s>(pMean, step), NoRow<Vdl16s>(nullptr), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L(const Vdl16s* pSrc,
                                                        const Vdl16s* const* ppMean, int height,
                                                        int width, const Vdl32f* pVal,
                                                        Vdl32f* pResult, int scaleFactor)
{
    return mixture<Types16s32fLow, UnitVar>(
        pSrc, TableRows<Vdl16s>(ppMean), NoRow<Vdl16s>(nullptr), width, height, pVal, pResult,
        scaleFactor);
}

VdlStatus vdlsLogGaussMixture_IdVar_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, int height,
                                           int step, int width, const Vdl32f* pVal,
                                           Vdl32f* pResult)
{
    return mixture<Types32f, UnitVar>(
        pSrc, StepRows<Vdl32f>(pMean, step), NoRow<Vdl32f>(nullptr), width, height, pVal, pResult,
        0);
}

VdlStatus vdlsLogGaussMixture_IdVar_32f_D2L(const Vdl32f* pSrc, const Vdl32f* const* ppMean,
                                            int height, int width, const Vdl32f* pVal,
                                            Vdl32f* pResult)
{
    return mixture<Types32f, UnitVar>(
        pSrc, TableRows<Vdl32f>(ppMean), NoRow<Vdl32f>(nullptr), width, height, pVal, pResult, 0);
}

VdlStatus vdlsLogGaussMixture_IdVar_64f_D2(const Vdl64f* pSrc, const Vdl64f* pMean, int height,
                                           int step, int width, const Vdl64f* pVal,
                                           Vdl64f* pResult)
{
    return mixture<Types64f, UnitVar>(
        pSrc, StepRows<Vdl64f>(pMean, step), NoRow<Vdl64f>(nullptr), width, height, pVal, pResult,
        0);
}

VdlStatus vdlsLogGaussMixture_IdVar_64f_D2L(const Vdl64f* pSrc, const Vdl64f* const* ppMean,
                                            int height, int width, const Vdl64f* pVal,
                                            Vdl64f* pResult)
{
    return mixture<Types64f, UnitVar>(
        pSrc, TableRows<Vdl64f>(ppMean), NoRow<Vdl64f>(nullptr), width, height, pVal, pResult, 0);
}

} // extern "C"
