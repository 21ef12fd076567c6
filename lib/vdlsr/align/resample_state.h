// States of polyphase resampling and the calls over them. The any-ratio
// state keeps one table of the prototype filter at nStep points per unit;
// the fixed state keeps, for each phase between two input samples, the
// exact taps of the filter.
#ifndef VDL_RESAMPLE_STATE_H
#define VDL_RESAMPLE_STATE_H

#include <cmath>
#include <cstdlib>

#include "align_paths.h"
#include "resample_filter.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdlstate.h"

// The bodies of the public state types: plain data, outside the hidden
// region so that the public types may hold them; they emit no symbol.
namespace vdl {

struct PolyphaseBody {
    unsigned tag;      // kind of the state, against a cast from another kind
    double window;
    int nStep;
    int interpolate;   // between the two nearest entries, or the nearest
    float* table;      // the prototype at k / nStep units, zero from window/2 on
};

struct PolyphaseFixedBody {
    unsigned tag;
    int up;            // out rate and in rate over their common divisor
    int down;
    double half;       // R, in input samples
    int taps;          // per phase, 2 * ceil(half)
    int sumInDouble;
    float* phases;     // phase p's taps from taps * p on
};

} // namespace vdl

#pragma GCC visibility push(hidden)

namespace vdl {

// Larger tables than these are refused as a size error. The prototype's
// positions run in float, which keeps fractions of an entry up to here.
constexpr double maxTableEntries = 1 << 26;
constexpr double maxPrototypeEntries = 1 << 20;

inline bool validFilter(float rollf, float alpha)
{
    // Finite first: no comparison with a NaN, which would raise a flag.
    return std::isfinite(rollf) && std::isfinite(alpha) && rollf > 0 && rollf <= 1 && alpha >= 0;
}

template <class State>
VdlStatus initAny(State** ppState, float window, int nStep, float rollf, float alpha, int hint)
{
    if (VdlStatus s = firstError({checkPtrs({ppState}), checkLen(nStep)}))
        return s;
    if (!std::isfinite(window) || window < 1)
        return vdlStsSizeErr;
    if (!validFilter(rollf, alpha))
        return vdlStsBadArgErr;
    if (VdlStatus s = checkHint(hint))
        return s;
    const double entries = std::ceil(window * 0.5 * nStep) + 2;
    if (entries > maxPrototypeEntries)
        return vdlStsSizeErr;
    auto* state = newState<State>();
    const int count = static_cast<int>(entries);
    float* table = static_cast<float*>(std::malloc(sizeof(float) * count));
    if (state == nullptr || table == nullptr) {
        std::free(state);
        std::free(table);
        return vdlStsNoMemErr;
    }
    const PrototypeFilter proto(window * 0.5, rollf, alpha);
    for (int k = 0; k < count; ++k)
        table[k] = static_cast<float>(proto.at(static_cast<double>(k) / nStep));
    state->body = {State::tag, window, nStep, hint != vdlAlgHintFast, table};
    *ppState = state;
    return vdlStsNoErr;
}

inline int greatestCommonDivisor(int a, int b)
{
    while (b != 0) {
        const int t = a % b;
        a = b;
        b = t;
    }
    return a;
}

template <class State>
VdlStatus initFixed(State** ppState, int inRate, int outRate, int len, float rollf, float alpha,
                    int hint)
{
    if (VdlStatus s = firstError({checkPtrs({ppState}), checkLen(len)}))
        return s;
    if (inRate < 1 || outRate < 1 || !validFilter(rollf, alpha))
        return vdlStsBadArgErr;
    if (VdlStatus s = checkHint(hint))
        return s;
    const int g = greatestCommonDivisor(inRate, outRate);
    const int up = outRate / g, down = inRate / g;
    const double half = 0.5 * len;
    const int reach = static_cast<int>(std::ceil(half));
    const int taps = 2 * reach;
    if (static_cast<double>(up) * taps > maxTableEntries)
        return vdlStsSizeErr;
    auto* state = newState<State>();
    float* phases = static_cast<float*>(std::malloc(sizeof(float) * up * taps));
    if (state == nullptr || phases == nullptr) {
        std::free(state);
        std::free(phases);
        return vdlStsNoMemErr;
    }
    // For a lower out rate the filter narrows its band and widens in time
    // by the ratio; its reach in input samples stays `half`.
    const double s = up < down ? static_cast<double>(up) / down : 1.0;
    const PrototypeFilter proto(half * s, rollf, alpha);
    for (int p = 0; p < up; ++p) {
        const double phase = static_cast<double>(p) / up;
        for (int i = 0; i < taps; ++i)
            phases[p * taps + i] = static_cast<float>(s * proto.at(s * (phase + reach - 1 - i)));
    }
    state->body = {State::tag, up, down, half, taps, hint != vdlAlgHintFast, phases};
    *ppState = state;
    return vdlStsNoErr;
}

template <class State, class Body>
VdlStatus freeState(State* pState, float* Body::*storage)
{
    if (VdlStatus s = checkState(pState, State::tag))
        return s;
    releaseState(pState, pState->body.*storage);
    return vdlStsNoErr;
}

template <class T, class State>
VdlStatus resampleAny(const State* pState, const T* pSrc, int len, T* pDst, double factor,
                      float norm, double* pTime, int* pOutLen)
{
    if (VdlStatus s = firstError({checkPtrs({pState, pSrc, pDst, pTime, pOutLen}), checkLen(len)}))
        return s;
    const PolyphaseBody& b = pState->body;
    if (VdlStatus s = checkState(pState, State::tag))
        return s;
    if (!std::isfinite(factor) || factor <= 0)
        return vdlStsBadArgErr;
    const double s = factor < 1 ? factor : 1.0;
    const double reach = b.window * 0.5 / s;
    const double t0 = *pTime;
    if (!std::isfinite(t0) || t0 < reach)
        return vdlStsBadArgErr;
    const PhaseSumFn<T> sum = resampleKernels().template phase<T>();
    const double period = 1.0 / factor;
    const double perUnit = s * b.nStep;   // table entries per input sample
    const double gain = s * norm;
    const double end = t0 + len;
    int k = 0;
    for (double t = t0; t < end; t = t0 + ++k * period) {
        const long first = static_cast<long>(std::floor(t - reach)) + 1;
        const long last = static_cast<long>(std::ceil(t + reach)) - 1;
        const float v = sum(pSrc + first, static_cast<int>(last - first + 1),
                            (t - first) * perUnit, -perUnit, b.table, b.interpolate);
        pDst[k] = toResult<T>(gain * v);
    }
    *pTime = t0 + k * period;
    *pOutLen = k;
    return vdlStsNoErr;
}

template <class T, class State>
VdlStatus resampleFixed(const State* pState, const T* pSrc, int len, T* pDst, float norm,
                        double* pTime, int* pOutLen)
{
    if (VdlStatus s = firstError({checkPtrs({pState, pSrc, pDst, pTime, pOutLen}), checkLen(len)}))
        return s;
    const PolyphaseFixedBody& b = pState->body;
    if (VdlStatus s = checkState(pState, State::tag))
        return s;
    const double t0 = *pTime;
    if (!std::isfinite(t0) || t0 < b.half || t0 * b.up > 9e18)
        return vdlStsBadArgErr;
    // Times count in phases, 1 / up of an input sample.
    long long q = std::llround(t0 * b.up);
    const double end = (t0 + len) * b.up;
    const int reach = b.taps / 2;
    int k = 0;
    if (b.sumInDouble) {
        const TapSumFn<double, T> sum = resampleKernels().template taps<double, T>();
        for (; static_cast<double>(q) < end; q += b.down, ++k) {
            const long long n = q / b.up;
            pDst[k] = toResult<T>(static_cast<double>(norm) *
                                  sum(pSrc + (n - reach + 1), b.phases + (q % b.up) * b.taps, b.taps));
        }
    } else {
        const TapSumFn<float, T> sum = resampleKernels().template taps<float, T>();
        for (; static_cast<double>(q) < end; q += b.down, ++k) {
            const long long n = q / b.up;
            pDst[k] = toResult<T>(norm * sum(pSrc + (n - reach + 1), b.phases + (q % b.up) * b.taps,
                                             b.taps));
        }
    }
    *pTime = static_cast<double>(q) / b.up;
    *pOutLen = k;
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
