// The two shapes of a log-likelihood call. Without MultiMix, `height` frames
// are scored against one Gaussian; with MultiMix, one frame against `height`
// Gaussians. Combine says what a score does to the result element:
// Assign, LogAdd or KeepMax.
#ifndef VDL_LOGGAUSS_FAMILY_H
#define VDL_LOGGAUSS_FAMILY_H

#include <type_traits>

#include "gauss_kernels.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Frame i is frames.row(i); every score takes the one value `val`.
template <class Ty, class Var, class Combine, class Rows>
VdlStatus scoreFrames(const Rows& frames, const typename Ty::Src* pMean,
                      const typename Ty::Src* pVar, int width, typename Ty::Dst* pDst, int height,
                      typename Ty::Dst val, int scaleFactor)
{
    using Src = typename Ty::Src;
    using Dst = typename Ty::Dst;
    using VarRow = std::conditional_t<Var::hasVariance, OneRow<Src>, NoRow<Src>>;
    return scoreRows<Ty, Var>(frames, OneRow<Src>(pMean), VarRow(pVar), width, height,
                              LogLikelihood<Ty, SameValue<Dst>>(SameValue<Dst>(val), scaleFactor),
                              PerRow<Combine, Dst>(pDst));
}

// Gaussian j is means.row(j) and vars.row(j); its score takes pVal[j].
// pVal may be pSrcDst itself.
template <class Ty, class Combine, class Rows>
VdlStatus scoreComponents(const Rows& means, const Rows& vars, const typename Ty::Src* pSrc,
                          int width, const typename Ty::Dst* pVal, typename Ty::Dst* pSrcDst,
                          int height, int scaleFactor)
{
    using Src = typename Ty::Src;
    using Dst = typename Ty::Dst;
    return scoreRows<Ty, InverseVar>(OneRow<Src>(pSrc), means, vars, width, height,
                                     LogLikelihood<Ty, RowValues<Dst>>(RowValues<Dst>(pVal),
                                                                       scaleFactor),
                                     PerRow<Combine, Dst>(pSrcDst));
}

} // namespace vdl

#pragma GCC visibility pop

#endif
