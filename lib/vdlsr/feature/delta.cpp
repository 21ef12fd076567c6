// Delta and double-delta entry points, the in-matrix forms and CopyColumn.
#include "delta_forms.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

constexpr const Vdl32f* noMul32f = nullptr;
constexpr const Vdl16s* noMul16s = nullptr;

template <class T>
VdlStatus copyColumn(const T* pSrc, int width, T* pDst, int dstStep, int height)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkSize(width, height),
                                  checkStep(dstStep, width)}))
        return s;
    writeStatics(RowRef<T>{pSrc, width}, height, width, pDst, dstStep, 0,
                 static_cast<const T*>(nullptr), 1.0);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsDelta_Win1_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height, Vdl32f val, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 2, noMul32f, false, val, 0, deltaMode, 0);
}

VdlStatus vdlsDelta_Win2_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height, Vdl32f val, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 2, noMul32f, false, val, 0, deltaMode, 0);
}

VdlStatus vdlsDelta_Win1_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                   int height, int val, int deltaMode, int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 2, noMul16s, false, val, 0, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsDelta_Win2_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                   int height, int val, int deltaMode, int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 2, noMul16s, false, val, 0, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsDeltaDelta_Win1_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                     int height, Vdl32f val1, Vdl32f val2, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 3, noMul32f, false, val1, val2,
                     deltaMode, 0);
}

VdlStatus vdlsDeltaDelta_Win2_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                     int height, Vdl32f val1, Vdl32f val2, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 3, noMul32f, false, val1, val2,
                     deltaMode, 0);
}

VdlStatus vdlsDeltaDelta_Win1_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                        int height, int val1, int val2, int deltaMode,
                                        int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 3, noMul16s, false, val1, val2,
                     deltaMode, scaleFactor);
}

VdlStatus vdlsDeltaDelta_Win2_16s_D2Sfs(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                        int height, int val1, int val2, int deltaMode,
                                        int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 3, noMul16s, false, val1, val2,
                     deltaMode, scaleFactor);
}

VdlStatus vdlsDeltaMul_Win1_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width, Vdl32f* pDst,
                                   int dstStep, int height, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 2, pVal, true, 1, 1, deltaMode, 0);
}

VdlStatus vdlsDeltaMul_Win2_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width, Vdl32f* pDst,
                                   int dstStep, int height, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 2, pVal, true, 1, 1, deltaMode, 0);
}

VdlStatus vdlsDeltaMul_Win1_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                      Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                      int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 2, pVal, true, 1, 1, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsDeltaMul_Win2_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                      Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                      int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 2, pVal, true, 1, 1, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsDeltaDeltaMul_Win1_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width,
                                        Vdl32f* pDst, int dstStep, int height, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 3, pVal, true, 1, 1, deltaMode, 0);
}

VdlStatus vdlsDeltaDeltaMul_Win2_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, int width,
                                        Vdl32f* pDst, int dstStep, int height, int deltaMode)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 3, pVal, true, 1, 1, deltaMode, 0);
}

VdlStatus vdlsDeltaDeltaMul_Win1_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                           Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                           int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 1, 3, pVal, true, 1, 1, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsDeltaDeltaMul_Win2_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal, int width,
                                           Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                           int scaleFactor)
{
    return deltaForm(pSrc, width, pDst, dstStep, height, 2, 3, pVal, true, 1, 1, deltaMode,
                     scaleFactor);
}

VdlStatus vdlsEvalDelta_32f_D2(Vdl32f* pSrcDst, int height, int step, int width, int offset,
                               int winSize, Vdl32f val)
{
    return evalDeltaForm(pSrcDst, height, step, width, offset, winSize, noMul32f, false, val, 0);
}

VdlStatus vdlsEvalDelta_16s_D2Sfs(Vdl16s* pSrcDst, int height, int step, int width, int offset,
                                  int winSize, int val, int scaleFactor)
{
    return evalDeltaForm(pSrcDst, height, step, width, offset, winSize, noMul16s, false, val,
                         scaleFactor);
}

VdlStatus vdlsEvalDeltaMul_32f_D2(Vdl32f* pSrcDst, int height, int step, const Vdl32f* pVal,
                                  int width, int offset, int winSize)
{
    return evalDeltaForm(pSrcDst, height, step, width, offset, winSize, pVal, true, 1, 0);
}

VdlStatus vdlsEvalDeltaMul_16s_D2Sfs(Vdl16s* pSrcDst, int height, int step, const Vdl16s* pVal,
                                     int width, int offset, int winSize, int scaleFactor)
{
    return evalDeltaForm(pSrcDst, height, step, width, offset, winSize, pVal, true, 1, scaleFactor);
}

VdlStatus vdlsCopyColumn_32f_D2(const Vdl32f* pSrc, int width, Vdl32f* pDst, int dstStep,
                                int height)
{
    return copyColumn(pSrc, width, pDst, dstStep, height);
}

VdlStatus vdlsCopyColumn_16s_D2(const Vdl16s* pSrc, int width, Vdl16s* pDst, int dstStep,
                                int height)
{
    return copyColumn(pSrc, width, pDst, dstStep, height);
}

VdlStatus vdlsDeltaDelta_Aurora_32f_D2(const Vdl32f* pSrc, Vdl32f* pDst, int dstStep, int height,
                                       int deltaMode)
{
    return auroraDeltaForm(pSrc, noMul32f, false, pDst, dstStep, height, deltaMode, 0);
}

VdlStatus vdlsDeltaDelta_Aurora_16s_D2Sfs(const Vdl16s* pSrc, Vdl16s* pDst, int dstStep,
                                          int height, int deltaMode, int scaleFactor)
{
    return auroraDeltaForm(pSrc, noMul16s, false, pDst, dstStep, height, deltaMode, scaleFactor);
}

VdlStatus vdlsDeltaDeltaMul_Aurora_32f_D2(const Vdl32f* pSrc, const Vdl32f* pVal, Vdl32f* pDst,
                                          int dstStep, int height, int deltaMode)
{
    return auroraDeltaForm(pSrc, pVal, true, pDst, dstStep, height, deltaMode, 0);
}

VdlStatus vdlsDeltaDeltaMul_Aurora_16s_D2Sfs(const Vdl16s* pSrc, const Vdl16s* pVal,
                                             Vdl16s* pDst, int dstStep, int height, int deltaMode,
                                             int scaleFactor)
{
    return auroraDeltaForm(pSrc, pVal, true, pDst, dstStep, height, deltaMode, scaleFactor);
}

} // extern "C"
