// Voice-activity measures: peaks above a moving average, and the
// periodicity of a frame by least squares or by autocorrelation.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

Vdl16s toQ15(double r)
{
    return toResult<Vdl16s>(r * 32768.0);
}

// The best of R(P) over the periods, ties to the shorter period.
template <class Measure>
void bestPeriod(int minPeriod, int maxPeriod, Measure measure, Vdl16s* pQ15, int* pPeriod)
{
    double best = 0;
    int period = minPeriod;
    for (int p = minPeriod; p <= maxPeriod; ++p) {
        const double r = measure(p);
        if (r > best) {
            best = r;
            period = p;
        }
    }
    *pQ15 = toQ15(best);
    *pPeriod = period;
}

} // namespace

extern "C" {

VdlStatus vdlsFindPeaks_32s8u(const Vdl32s* pSrc, Vdl8u* pDstPeaks, int len, int searchSize,
                              int movingAvgSize)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDstPeaks}), checkLen(len),
                                  checkRange(searchSize, 1, len), checkRange(movingAvgSize, 0, len)}))
        return s;
    for (int i = 0; i < len; ++i) {
        bool peak = true;
        const int lo = i - searchSize < 0 ? 0 : i - searchSize;
        const int hi = i + searchSize >= len ? len - 1 : i + searchSize;
        for (int j = lo; j <= hi && peak; ++j)
            peak = j == i || pSrc[i] > pSrc[j];
        if (peak && movingAvgSize > 0) {
            const int a = i - movingAvgSize < 0 ? 0 : i - movingAvgSize;
            const int b = i + movingAvgSize >= len ? len - 1 : i + movingAvgSize;
            double sum = 0;
            for (int j = a; j <= b; ++j)
                sum += pSrc[j];
            peak = pSrc[i] > sum / (b - a + 1);
        }
        pDstPeaks[i] = peak ? 1 : 0;
    }
    return vdlStsNoErr;
}

VdlStatus vdlsPeriodicityLSPE_16s(const Vdl16s* pSrc, int len, Vdl16s* pPeriodicityQ15,
                                  int* pPeriod, int maxPeriod, int minPeriod)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pPeriodicityQ15, pPeriod}), checkLen(len),
                                  checkRange(minPeriod, 1, maxPeriod),
                                  checkRange(2LL * maxPeriod, 2, len)}))
        return s;
    double energy = 0;
    for (int n = 0; n < len; ++n)
        energy += double(pSrc[n]) * pSrc[n];
    auto lspe = [&](int p) {
        double i0 = 0, i1 = 0;
        for (int n = 0; n < p; ++n) {
            double sum = 0, squares = 0;
            int count = 0;
            for (int m = n; m < len; m += p, ++count) {
                sum += pSrc[m];
                squares += double(pSrc[m]) * pSrc[m];
            }
            i0 += sum * sum / count;
            i1 += squares / count;
        }
        return energy - i1 > 0 ? (i0 - i1) / (energy - i1) : 0.0;
    };
    bestPeriod(minPeriod, maxPeriod, lspe, pPeriodicityQ15, pPeriod);
    return vdlStsNoErr;
}

VdlStatus vdlsPeriodicity_32s16s(const Vdl32s* pSrc, int len, Vdl16s* pPeriodicityQ15,
                                 int* pPeriod, int maxPeriod, int minPeriod)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pPeriodicityQ15, pPeriod}), checkLen(len),
                                  checkRange(minPeriod, 1, maxPeriod),
                                  checkRange(maxPeriod, 1, len - 1)}))
        return s;
    auto correlation = [&](int p) {
        double xy = 0, xx = 0, yy = 0;
        for (int n = 0; n + p < len; ++n) {
            const double x = pSrc[n], y = pSrc[n + p];
            xy += x * y;
            xx += x * x;
            yy += y * y;
        }
        return xx > 0 && yy > 0 ? xy / std::sqrt(xx * yy) : 0.0;
    };
    bestPeriod(minPeriod, maxPeriod, correlation, pPeriodicityQ15, pPeriod);
    return vdlStsNoErr;
}


} // extern "C"
