// Noise reduction of the advanced front end: the Wiener filter of a frame,
// the update of the noise estimate, and the fixed-point gain updates.
#include "align_paths.h"
#include "chunked_result.h"
#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// The gain kernels give real gains; a scale factor of -30 makes them Q30
// results by the one integer rule. (The 16-bit Wiener kernel gives its
// gains times 2^15 already.)
constexpr int toQ30 = -30;

template <class T>
VdlStatus noiseUpdate(const T* pSrc, const T* pNoise, T* pDst, int len, int scaleFactor,
                      void (*kernel)(const T*, const T*, double*, int))
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pNoise, pDst}), checkLen(len)}))
        return s;
    scaledInBlocks(pDst, len, scaleFactor, [&](int first, int count, double* values) {
        kernel(pSrc + first, pNoise + first, values, count);
    });
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsWienerFilterDesign_Aurora_32f(const Vdl32f* pSrc, const Vdl32f* pNoise,
                                            const Vdl32f* pDen, Vdl32f* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pNoise, pDen, pDst}), checkLen(len)}))
        return s;
    signalKernels().wiener32f(pSrc, pNoise, pDen, pDst, len);
    return vdlStsNoErr;
}

VdlStatus vdlsWienerFilterDesign_Aurora_16s(const Vdl16s* pSrc, const Vdl16s* pNoise,
                                            const Vdl16s* pDen, Vdl16s* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pNoise, pDen, pDst}), checkLen(len)}))
        return s;
    scaledInBlocks(pDst, len, 0, [&](int first, int count, double* values) {
        signalKernels().wiener16s(pSrc + first, pNoise + first, pDen + first, values, count);
    });
    return vdlStsNoErr;
}

VdlStatus vdlsNoiseSpectrumUpdate_Aurora_32f(const Vdl32f* pSrc, const Vdl32f* pNoise,
                                             Vdl32f* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pNoise, pDst}), checkLen(len)}))
        return s;
    signalKernels().noise32f(pSrc, pNoise, pDst, len);
    return vdlStsNoErr;
}

VdlStatus vdlsNoiseSpectrumUpdate_Aurora_16s_Sfs(const Vdl16s* pSrc, const Vdl16s* pNoise,
                                                 Vdl16s* pDst, int len, int scaleFactor)
{
    return noiseUpdate(pSrc, pNoise, pDst, len, scaleFactor, signalKernels().noise16s);
}

VdlStatus vdlsNoiseSpectrumUpdate_Aurora_32s_Sfs(const Vdl32s* pSrc, const Vdl32s* pNoise,
                                                 Vdl32s* pDst, int len, int scaleFactor)
{
    return noiseUpdate(pSrc, pNoise, pDst, len, scaleFactor, signalKernels().noise32s);
}

VdlStatus vdlsFilterUpdateWiener_32s(const Vdl32s* pSrc, Vdl32s* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    scaledInBlocks(pDst, len, toQ30, [&](int first, int count, double* values) {
        signalKernels().gainWiener(pSrc + first, values, count);
    });
    return vdlStsNoErr;
}

VdlStatus vdlsFilterUpdateEMNS_32s(const Vdl32s* pSrcPrio, const Vdl32s* pSrcPost, Vdl32s* pDst,
                                   int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrcPrio, pSrcPost, pDst}), checkLen(len)}))
        return s;
    scaledInBlocks(pDst, len, toQ30, [&](int first, int count, double* values) {
        signalKernels().gainEmns(pSrcPrio + first, pSrcPost + first, values, count);
    });
    return vdlStsNoErr;
}

} // extern "C"
