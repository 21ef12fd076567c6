// Mixture log-likelihoods of frames scored only over the components that
// a sign table marks; the quadratic forms are the Gaussian family's.
#include <type_traits>

#include "../gauss/gauss_kernels.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// Scores of marked components come in runs of at most this many rows, one
// kernel call a run.
constexpr int runLength = 64;

template <class Ty, class Var, class SrcRows, class MeanRows, class VarRows>
VdlStatus selectMixture(const SrcRows& frames, const MeanRows& means, const VarRows& vars,
                        int width, const typename Ty::Dst* pVal, const Vdl8u* pSign, int height,
                        typename Ty::Dst* pResult, int nFrames, typename Ty::Dst val,
                        int scaleFactor)
{
    using Src = typename Ty::Src;
    using Dst = typename Ty::Dst;
    using Acc = typename Ty::Acc;
    if (VdlStatus s = firstError({checkPtrs({pVal, pSign, pResult}), checkSize(width, height),
                                  checkLen(nFrames)}))
        return s;
    if (VdlStatus s = firstError({frames.nullCheck(nFrames), means.nullCheck(height),
                                  vars.nullCheck(height), frames.stepCheck(width),
                                  means.stepCheck(width), vars.stepCheck(width)}))
        return s;
    const LogLikelihood<Ty, RowValues<Dst>> score(RowValues<Dst>(pVal), scaleFactor);
    const QuadRowsFn<Acc, Src> quad = Var::kernel(gaussKernels().template set<Acc, Src>());
    Acc q[runLength];
    for (int f = 0; f < nFrames; ++f) {
        const Vdl8u* sign = pSign + static_cast<long long>(f) * height;
        const RowRef<Src> frame = {frames.row(f), 0, nullptr};
        Dst sum = val;
        bool any = false;
        for (int j = 0; j < height;) {
            if (!sign[j]) {
                ++j;
                continue;
            }
            int end = j + 1;
            while (end < height && sign[end] && end - j < runLength)
                ++end;
            quad(frame, means.ref(), vars.ref(), width, j, end - j, q);
            for (int k = j; k < end; ++k) {
                const Dst s = score(k, q[k - j]);
                sum = any ? logAdd(sum, s) : s;
                any = true;
            }
            j = end;
        }
        pResult[f] = sum;
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsLogGaussMixture_Select_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean,
                                            const Vdl32f* pVar, int step, int width,
                                            const Vdl32f* pVal, const Vdl8u* pSign, int height,
                                            Vdl32f* pResult, int frames, Vdl32f val)
{
    return selectMixture<Types32f, InverseVar>(
        StepRows<Vdl32f>(pSrc, step), StepRows<Vdl32f>(pMean, step), StepRows<Vdl32f>(pVar, step),
        width, pVal, pSign, height, pResult, frames, val, 0);
}

VdlStatus vdlsLogGaussMixture_SelectIdVar_32f_D2(const Vdl32f* pSrc, const Vdl32f* pMean, int step,
                                                 int width, const Vdl32f* pVal, const Vdl8u* pSign,
                                                 int height, Vdl32f* pResult, int frames,
                                                 Vdl32f val)
{
    return selectMixture<Types32f, UnitVar>(
        StepRows<Vdl32f>(pSrc, step), StepRows<Vdl32f>(pMean, step), NoRow<Vdl32f>(nullptr),
        width, pVal, pSign, height, pResult, frames, val, 0);
}

VdlStatus vdlsLogGaussMixture_SelectScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                     const Vdl16s* pVar, int step, int width,
                                                     const Vdl32f* pVal, const Vdl8u* pSign,
                                                     int height, Vdl32f* pResult, int frames,
                                                     Vdl32f val, int scaleFactor)
{
    return selectMixture<Types16s32f, InverseVar>(
        StepRows<Vdl16s>(pSrc, step), StepRows<Vdl16s>(pMean, step), StepRows<Vdl16s>(pVar, step),
        width, pVal, pSign, height, pResult, frames, val, scaleFactor);
}

VdlStatus vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2(const Vdl16s* pSrc, const Vdl16s* pMean,
                                                          int step, int width, const Vdl32f* pVal,
                                                          const Vdl8u* pSign, int height,
                                                          Vdl32f* pResult, int frames, Vdl32f val,
                                                          int scaleFactor)
{
    return selectMixture<Types16s32f, UnitVar>(
        StepRows<Vdl16s>(pSrc, step), StepRows<Vdl16s>(pMean, step), NoRow<Vdl16s>(nullptr),
        width, pVal, pSign, height, pResult, frames, val, scaleFactor);
}

VdlStatus vdlsLogGaussMixture_Select_32f_D2L(const Vdl32f* const* ppSrc,
                                             const Vdl32f* const* ppMean,
                                             const Vdl32f* const* ppVar, int width,
                                             const Vdl32f* pVal, const Vdl8u* pSign, int height,
                                             Vdl32f* pResult, int frames, Vdl32f val)
{
    return selectMixture<Types32f, InverseVar>(
        TableRows<Vdl32f>(ppSrc), TableRows<Vdl32f>(ppMean), TableRows<Vdl32f>(ppVar), width, pVal,
        pSign, height, pResult, frames, val, 0);
}

VdlStatus vdlsLogGaussMixture_SelectIdVar_32f_D2L(const Vdl32f* const* ppSrc,
                                                  const Vdl32f* const* ppMean, int width,
                                                  const Vdl32f* pVal, const Vdl8u* pSign,
                                                  int height, Vdl32f* pResult, int frames,
                                                  Vdl32f val)
{
    return selectMixture<Types32f, UnitVar>(TableRows<Vdl32f>(ppSrc), TableRows<Vdl32f>(ppMean),
                                            NoRow<Vdl32f>(nullptr), width, pVal, pSign, height,
                                            pResult, frames, val, 0);
}

VdlStatus vdlsLogGaussMixture_SelectScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                      const Vdl16s* const* ppMean,
                                                      const Vdl16s* const* ppVar, int width,
                                                      const Vdl32f* pVal, const Vdl8u* pSign,
                                                      int height, Vdl32f* pResult, int frames,
                                                      Vdl32f val, int scaleFactor)
{
    return selectMixture<Types16s32f, InverseVar>(
        TableRows<Vdl16s>(ppSrc), TableRows<Vdl16s>(ppMean), TableRows<Vdl16s>(ppVar), width, pVal,
        pSign, height, pResult, frames, val, scaleFactor);
}

VdlStatus vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L(const Vdl16s* const* ppSrc,
                                                           const Vdl16s* const* ppMean, int width,
                                                           const Vdl32f* pVal, const Vdl8u* pSign,
                                                           int height, Vdl32f* pResult, int frames,
                                                           Vdl32f val, int scaleFactor)
{
    return selectMixture<Types16s32f, UnitVar>(TableRows<Vdl16s>(ppSrc),
                                               TableRows<Vdl16s>(ppMean), NoRow<Vdl16s>(nullptr),
                                               width, pVal, pSign, height, pResult, frames, val,
                                               scaleFactor);
}

} // extern "C"
