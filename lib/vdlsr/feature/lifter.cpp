// DCT of filter-bank log energies to liftered cepstra, as a state object
// that holds the table of val * L(n) * sqrt(2/N) * cos(pi n (j + 0.5) / N).
#include <cmath>
#include <cstdlib>

#include "vdlsr.h"
#include "weighted_sums.h"

using namespace vdl;

// Row n weighs the whole input (first 0, count lenDCT) by the table from
// offset n * lenDCT on.
struct VdlDCTLifterState_32f {
    vdl::WeightedBody body;
};

struct VdlDCTLifterState_16s : VdlDCTLifterState_32f {};

namespace {

template <class State>
VdlStatus initAlloc(State** ppState, int lenDCT, int nMFCC, int nLifter, Vdl32f val, unsigned tag)
{
    if (VdlStatus s = firstError({checkPtrs({ppState}), checkLen(lenDCT), checkLen(nMFCC),
                                  checkRange(nMFCC, 1, lenDCT), checkRange(nLifter, 0, 1 << 20)}))
        return s;
    if (!std::isfinite(val))
        return vdlStsBadArgErr;
    State* st = newState<State>();
    if (!st)
        return vdlStsNoMemErr;
    const long long cells = static_cast<long long>(lenDCT) * nMFCC;
    WeightRows& r = st->body.rows;
    r.first = static_cast<int*>(std::malloc(sizeof(int) * nMFCC));
    r.count = static_cast<int*>(std::malloc(sizeof(int) * nMFCC));
    r.offset = static_cast<int*>(std::malloc(sizeof(int) * nMFCC));
    r.weights = static_cast<float*>(std::malloc(sizeof(float) * cells));
    if (!r.first || !r.count || !r.offset || !r.weights) {
        releaseState(st, r.first, r.count, r.offset, r.weights);
        return vdlStsNoMemErr;
    }
    st->body.tag = tag;
    st->body.length = lenDCT;
    r.rows = nMFCC;
    const double pi = 3.14159265358979323846;
    const double norm = std::sqrt(2.0 / lenDCT) * val;
    for (int n = 0; n < nMFCC; ++n) {
        const double lift = nLifter > 0 ? 1 + 0.5 * nLifter * std::sin(pi * n / nLifter) : 1.0;
        r.first[n] = 0;
        r.count[n] = lenDCT;
        r.offset[n] = n * lenDCT;
        for (int j = 0; j < lenDCT; ++j)
            r.weights[n * lenDCT + j] =
                static_cast<float>(norm * lift * std::cos(pi * n * (j + 0.5) / lenDCT));
    }
    *ppState = st;
    return vdlStsNoErr;
}

template <class State>
VdlStatus freeState(State* st, unsigned tag)
{
    if (VdlStatus s = checkState(st, tag))
        return s;
    const WeightRows& r = st->body.rows;
    releaseState(st, r.first, r.count, r.offset, r.weights);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsDCTLifterInitAlloc_32f(VdlDCTLifterState_32f** ppState, int lenDCT, int nMFCC,
                                     int nLifter, Vdl32f val)
{
    return initAlloc(ppState, lenDCT, nMFCC, nLifter, val, lifterTag32f);
}

VdlStatus vdlsDCTLifterInitAlloc_16s(VdlDCTLifterState_16s** ppState, int lenDCT, int nMFCC,
                                     int nLifter, Vdl32f val)
{
    return initAlloc(ppState, lenDCT, nMFCC, nLifter, val, lifterTag16s);
}

VdlStatus vdlsDCTLifterFree_32f(VdlDCTLifterState_32f* pState)
{
    return freeState(pState, lifterTag32f);
}

VdlStatus vdlsDCTLifterFree_16s(VdlDCTLifterState_16s* pState)
{
    return freeState(pState, lifterTag16s);
}

VdlStatus vdlsDCTLifter_32f(const Vdl32f* pSrc, Vdl32f* pDst, const VdlDCTLifterState_32f* pState)
{
    return applyWeights(pSrc, pDst, pState, lifterTag32f, 0);
}

VdlStatus vdlsDCTLifter_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst,
                                const VdlDCTLifterState_16s* pState, int scaleFactor)
{
    return applyWeights(pSrc, pDst, pState, lifterTag16s, scaleFactor);
}

VdlStatus vdlsDCTLifter_32s16s_Sfs(const Vdl32s* pSrc, Vdl16s* pDst,
                                   const VdlDCTLifterState_16s* pState, int scaleFactor)
{
    return applyWeights(pSrc, pDst, pState, lifterTag16s, scaleFactor);
}

} // extern "C"
