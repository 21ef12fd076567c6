// Noise power estimate by minimum-controlled recursive averaging. Per bin,
// the frame power is smoothed over frequency and time; the minimum of the
// smoothed power over a window tells noise from speech (speech lifts the
// power well above the minimum); the noise estimate follows the frame power
// quickly where speech is unlikely and hardly at all where it is likely.
#include <cstddef>

#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlsr.h"

using namespace vdl;

struct VdlMCRAState_32s {
    unsigned magic;
    int bins;
    int window;     // frames between restarts of the minimum search
    int frames;     // frames seen since the initialisation
    int sinceReset; // frames since the last restart
    int reserved;   // keeps the arrays behind on a double boundary
    // followed by four arrays of `bins` doubles: smoothed power, its
    // minimum, the running minimum of the current window, speech probability
};

namespace {

constexpr unsigned stateMagic = 0x4d435241u; // "MCRA"
constexpr double alphaS = 0.8;  // time smoothing of the power
constexpr double alphaP = 0.2;  // smoothing of the speech probability
constexpr double alphaD = 0.95; // noise averaging where no speech is
constexpr double delta = 5.0;   // power over minimum that counts as speech
constexpr double windowSeconds = 0.5;

struct Arrays {
    double* smooth;
    double* minimum;
    double* running;
    double* speech;
};

Arrays arraysOf(VdlMCRAState_32s* state)
{
    double* base = reinterpret_cast<double*>(state + 1);
    const std::ptrdiff_t n = state->bins;
    return {base, base + n, base + 2 * n, base + 3 * n};
}

VdlStatus checkFFT(int nFFT)
{
    // The arrays must stay addressable by an int byte count.
    return nFFT >= 2 && nFFT <= (1 << 24) ? vdlStsNoErr : vdlStsBadArgErr;
}

int stateSize(int nFFT)
{
    static_assert(sizeof(VdlMCRAState_32s) % sizeof(double) == 0, "arrays follow aligned");
    return static_cast<int>(sizeof(VdlMCRAState_32s) + 4 * sizeof(double) * (nFFT / 2 + 1));
}

// The frame power smoothed over three neighbouring bins (1/4, 1/2, 1/4; at
// the edges the two bins there, 2/3 and 1/3).
double smoothed(const Vdl32s* y, int k, int bins)
{
    if (bins == 1)
        return y[0];
    if (k == 0)
        return (2.0 * y[0] + y[1]) / 3;
    if (k == bins - 1)
        return (2.0 * y[k] + y[k - 1]) / 3;
    return 0.25 * y[k - 1] + 0.5 * y[k] + 0.25 * y[k + 1];
}

} // namespace

extern "C" {

VdlStatus vdlsGetSizeMCRA_32s(int nFFT, int* pSize)
{
    if (VdlStatus s = firstError({checkPtrs({pSize}), checkFFT(nFFT)}))
        return s;
    *pSize = stateSize(nFFT);
    return vdlStsNoErr;
}

VdlStatus vdlsInitMCRA_32s(int sampFreq, int nFFT, VdlMCRAState_32s* pState)
{
    if (VdlStatus s = firstError({checkPtrs({pState}), checkFFT(nFFT),
                                  sampFreq >= 1 ? vdlStsNoErr : vdlStsBadArgErr}))
        return s;
    pState->magic = stateMagic;
    pState->bins = nFFT / 2 + 1;
    const double framesPerSecond = static_cast<double>(sampFreq) / (nFFT / 2);
    const int window = static_cast<int>(windowSeconds * framesPerSecond + 0.5);
    pState->window = window > 1 ? window : 1;
    pState->frames = 0;
    pState->sinceReset = 0;
    pState->reserved = 0;
    const Arrays a = arraysOf(pState);
    for (int k = 0; k < pState->bins; ++k)
        a.smooth[k] = a.minimum[k] = a.running[k] = a.speech[k] = 0;
    return vdlStsNoErr;
}

VdlStatus vdlsUpdateNoisePSDMCRA_32s_I(const Vdl32s* pSrcNoisySpeech, VdlMCRAState_32s* pState,
                                       Vdl32s* pSrcDstNoisePSD)
{
    if (VdlStatus s = checkPtrs({pSrcNoisySpeech, pState, pSrcDstNoisePSD}))
        return s;
    if (pState->magic != stateMagic || pState->bins < 2)
        return vdlStsContextMatchErr;
    const int bins = pState->bins;
    for (int k = 0; k < bins; ++k)
        if (pSrcNoisySpeech[k] < 0)
            return vdlStsBadArgErr;
    const Arrays a = arraysOf(pState);
    if (pState->frames == 0) {
        for (int k = 0; k < bins; ++k) {
            a.smooth[k] = a.minimum[k] = a.running[k] = smoothed(pSrcNoisySpeech, k, bins);
            a.speech[k] = 0;
            pSrcDstNoisePSD[k] = pSrcNoisySpeech[k];
        }
    } else {
        for (int k = 0; k < bins; ++k) {
            const double s = alphaS * a.smooth[k] + (1 - alphaS) * smoothed(pSrcNoisySpeech, k, bins);
            a.smooth[k] = s;
            a.minimum[k] = s < a.minimum[k] ? s : a.minimum[k];
            a.running[k] = s < a.running[k] ? s : a.running[k];
            const double isSpeech = s > delta * a.minimum[k] ? 1.0 : 0.0;
            a.speech[k] = alphaP * a.speech[k] + (1 - alphaP) * isSpeech;
            const double weight = alphaD + (1 - alphaD) * a.speech[k];
            const double noise = weight * pSrcDstNoisePSD[k] + (1 - weight) * pSrcNoisySpeech[k];
            pSrcDstNoisePSD[k] = toResult<Vdl32s>(noise);
        }
    }
    ++pState->frames;
    if (++pState->sinceReset >= pState->window) {
        for (int k = 0; k < bins; ++k) {
            a.minimum[k] = a.running[k] < a.smooth[k] ? a.running[k] : a.smooth[k];
            a.running[k] = a.smooth[k];
        }
        pState->sinceReset = 0;
    }
    return vdlStsNoErr;
}

} // extern "C"
