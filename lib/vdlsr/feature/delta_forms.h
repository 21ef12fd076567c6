// The three shapes of the delta entry points: a source matrix into a
// destination of two or three blocks, the in-matrix forms, and the Aurora
// forms over rows of 14 front-end values.
#ifndef VDL_FEATURE_DELTA_FORMS_H
#define VDL_FEATURE_DELTA_FORMS_H

#include <climits>

#include "delta.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Destination rows must hold `blocks` blocks of `width`.
inline VdlStatus checkBlocks(int step, int width, int blocks)
{
    if (width > INT_MAX / blocks)
        return vdlStsSizeErr;
    return checkStep(step, blocks * width);
}

// Delta (blocks 2) or DeltaDelta (blocks 3), window `win`; `mul` the
// multipliers of a Mul form (required there), else the factors c1, c2.
template <class T, class M>
VdlStatus deltaForm(const T* pSrc, int width, T* pDst, int dstStep, int height, int win,
                    int blocks, const M* mul, bool mulForm, double c1, double c2, int deltaMode,
                    int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, mulForm ? mul : pSrc}),
                                  checkSize(width, height), checkBlocks(dstStep, width, blocks),
                                  checkMode(deltaMode)}))
        return s;
    const RowRef<T> x{pSrc, width};
    const double scale = scaleOf(scaleFactor);
    writeStatics(x, height, width, pDst, dstStep, 0, mul, scale);
    regress(x, height, width, modePlan(win, blocks == 3 ? win : 0, height, deltaMode),
            DynamicsWriter<T, M>{pDst, dstStep, width, 0, mul, c1, c2, scale});
    return vdlStsNoErr;
}

// In place: dynamics of rows offset .. height-1 beside their statics.
template <class T, class M>
VdlStatus evalDeltaForm(T* pSrcDst, int height, int step, int width, int offset, int winSize,
                        const M* mul, bool mulForm, double val, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrcDst, mulForm ? mul : pSrcDst}),
                                  checkSize(width, height), checkBlocks(step, width, 3),
                                  checkRange(winSize, 1, 2), checkRange(offset, 0, height - 1)}))
        return s;
    regress(RowRef<T>{pSrcDst, step}, height, width, DeltaPlan{winSize, winSize, offset, height},
            DynamicsWriter<T, M>{pSrcDst, step, width, 0, mul, val, val, scaleOf(scaleFactor)});
    return vdlStsNoErr;
}

// Aurora: c1..c12 (source columns 0..11) and logE (column 13) become 13
// statics, their deltas R3 / 28 and double deltas R2(R3 / 28) / 10.
template <class T, class M>
VdlStatus auroraDeltaForm(const T* pSrc, const M* mul, bool mulForm, T* pDst, int dstStep,
                          int height, int deltaMode, int scaleFactor)
{
    constexpr int srcWidth = 14, width = 13;
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, mulForm ? mul : pSrc}),
                                  checkLen(height), checkStep(dstStep, 3 * width),
                                  checkMode(deltaMode)}))
        return s;
    const DeltaPlan plan = modePlan(3, 2, height, deltaMode);
    const double scale = scaleOf(scaleFactor);
    const DynamicsWriter<T, M> cepstra{pDst, dstStep, width, 0, mul, 1.0 / 28, 1.0 / 280, scale};
    DynamicsWriter<T, M> energy = cepstra;
    energy.dstCol = 12;
    const RowRef<T> c{pSrc, srcWidth}, logE{pSrc + 13, srcWidth};
    writeStatics(c, height, 12, pDst, dstStep, 0, mul, scale);
    writeStatics(logE, height, 1, pDst, dstStep, 12, mul, scale);
    regress(c, height, 12, plan, cepstra);
    regress(logE, height, 1, plan, energy);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
