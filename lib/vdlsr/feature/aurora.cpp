// Stages of the Aurora advanced front end: high-band coding, blind
// equalisation, SNR-dependent waveform processing and the smoothed power
// spectrum.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

constexpr int highBands = 3;
constexpr int lowBins = 65;      // 128-point spectrum before noise reduction
constexpr int denoisedBins = 129;  // 256-point spectrum after it
constexpr double blindStep = 9.0 / 1024;
constexpr int waveFrame = 200;

template <class T>
VdlStatus highBandCoding(const T* pSrcHFB, const T* pInSWP, const T* pDSWP, T* pDstHFB,
                         int scaleFactor)
{
    if (VdlStatus s = checkPtrs({pSrcHFB, pInSWP, pDSWP, pDstHFB}))
        return s;
    double before = 0, after = 0;
    for (int k = 0; k < lowBins; ++k)
        before += pInSWP[k];
    for (int k = 0; k < denoisedBins; ++k)
        after += pDSWP[k];
    double gain = before > 0 ? after / 2 / before : 1.0;
    gain = gain > 1e-5 ? gain : 1e-5;
    const double shift = std::log(gain);
    for (int i = 0; i < highBands; ++i)
        pDstHFB[i] = scaled<T>(pSrcHFB[i] + shift, scaleFactor);
    return vdlStsNoErr;
}

template <class T>
VdlStatus blindEqualization(const T* pSrc, T* pDst, T* pBias, int len, double weight)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst, pBias}), checkLen(len)}))
        return s;
    if (!std::isfinite(weight))
        return vdlStsBadArgErr;
    const double step = weight * blindStep;
    for (int i = 0; i < len; ++i) {
        const double x = pSrc[i], bias = pBias[i];
        pDst[i] = toResult<T>(x - bias);
        pBias[i] = toResult<T>(bias + step * (x - bias));
    }
    return vdlStsNoErr;
}

template <class T>
VdlStatus waveProcessing(const T* pSrc, T* pDst)
{
    if (VdlStatus s = checkPtrs({pSrc, pDst}))
        return s;
    constexpr int n = waveFrame, smooth = 4, reach = 12;
    double teager[n], energy[n], weight[n];
    for (int i = 1; i + 1 < n; ++i)
        teager[i] = std::fabs(double(pSrc[i]) * pSrc[i] - double(pSrc[i - 1]) * pSrc[i + 1]);
    teager[0] = teager[1];
    teager[n - 1] = teager[n - 2];
    for (int i = 0; i < n; ++i) {
        double sum = 0;
        int count = 0;
        for (int j = i - smooth; j <= i + smooth; ++j)
            if (j >= 0 && j < n) {
                sum += teager[j];
                ++count;
            }
        energy[i] = sum / count;
    }
    int peaks[n];
    int nPeaks = 0;
    for (int i = 0; i < n; ++i) {
        bool peak = energy[i] > 0;
        for (int j = i - reach; j <= i + reach && peak; ++j)
            if (j >= 0 && j < n && j != i)
                peak = j < i ? energy[i] > energy[j] : energy[i] >= energy[j];
        if (peak)
            peaks[nPeaks++] = i;
    }
    for (int i = 0; i < n; ++i)
        weight[i] = nPeaks ? 0.8 : 1.0;
    for (int p = 0; p < nPeaks; ++p) {
        const int interval = p + 1 < nPeaks ? peaks[p + 1] - peaks[p]
                             : nPeaks > 1  ? peaks[p] - peaks[p - 1]
                                           : n - peaks[p];
        const int high = peaks[p] + static_cast<int>(0.8 * interval);
        for (int i = peaks[p]; i < high && i < n; ++i)
            weight[i] = 1.2;
    }
    for (int i = 0; i < n; ++i)
        pDst[i] = toResult<T>(weight[i] * pSrc[i]);
    return vdlStsNoErr;
}

template <class S, class D>
VdlStatus smoothedPower(const S* pSrc, D* pDst, int len, double unit, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len),
                                  len % 4 == 0 ? vdlStsNoErr : vdlStsSizeErr}))
        return s;
    const int bins = len / 2;
    auto power = [pSrc, bins, unit](int k) {
        k = k < 0 ? 0 : k >= bins ? bins - 1 : k;
        const double re = pSrc[2 * k], im = pSrc[2 * k + 1];
        return (re * re + im * im) / unit;
    };
    for (int j = 0; j <= len / 4; ++j)
        pDst[j] = scaled<D>((power(2 * j - 1) + 2 * power(2 * j) + power(2 * j + 1)) / 4,
                            scaleFactor);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsHighBandCoding_Aurora_32f(const Vdl32f* pSrcHFB, const Vdl32f* pInSWP,
                                        const Vdl32f* pDSWP, Vdl32f* pDstHFB)
{
    return highBandCoding(pSrcHFB, pInSWP, pDSWP, pDstHFB, 0);
}

VdlStatus vdlsHighBandCoding_Aurora_32s_Sfs(const Vdl32s* pSrcHFB, const Vdl32s* pInSWP,
                                            const Vdl32s* pDSWP, Vdl32s* pDstHFB,
                                            int scaleFactor)
{
    return highBandCoding(pSrcHFB, pInSWP, pDSWP, pDstHFB, scaleFactor);
}

VdlStatus vdlsBlindEqualization_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, Vdl32f* pBias,
                                           int len, Vdl32f weight)
{
    return blindEqualization(pSrc, pDst, pBias, len, weight);
}

VdlStatus vdlsBlindEqualization_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst, Vdl16s* pBias,
                                           int len, int weight)
{
    return blindEqualization(pSrc, pDst, pBias, len, weight);
}

VdlStatus vdlsWaveProcessing_Aurora_32f(const Vdl32f* pSrc, Vdl32f* pDst)
{
    return waveProcessing(pSrc, pDst);
}

VdlStatus vdlsWaveProcessing_Aurora_16s(const Vdl16s* pSrc, Vdl16s* pDst)
{
    return waveProcessing(pSrc, pDst);
}

VdlStatus vdlsSmoothedPowerSpectrumAurora_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return smoothedPower(pSrc, pDst, len, 1.0, 0);
}

VdlStatus vdlsSmoothedPowerSpectrumAurora_32s_Sfs(const Vdl32s* pSrc, Vdl32s* pDst, int len,
                                                  int scaleFactor)
{
    return smoothedPower(pSrc, pDst, len, 1.0, scaleFactor);
}

VdlStatus vdlsSmoothedPowerSpectrumAurora_32s64s_Sfs(const Vdl32s* pSrc, Vdl64s* pDst, int len,
                                                     int scaleFactor)
{
    return smoothedPower(pSrc, pDst, len, 1.0, scaleFactor);
}

VdlStatus vdlsSmoothedPowerSpectrumAurora_16s(const Vdl16s* pSrc, Vdl16s* pDst, int len)
{
    return smoothedPower(pSrc, pDst, len, 32768.0, 0);
}

} // extern "C"
