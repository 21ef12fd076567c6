// DCT of filter-bank log energies to liftered cepstra, as a state object
// that holds the table of val * L(n) * sqrt(2/N) * cos(pi n (j + 0.5) / N).
#include <cmath>
#include <new>

#include "vdlsr.h"
#include "weighted_sums.h"

using namespace vdl;

struct VdlDCTLifterState_32f {
    unsigned tag;
    int lenDCT;
    int nMFCC;
    int* first;   // all 0
    int* count;   // all lenDCT
    int* offset;  // n * lenDCT
    float* table;
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
    State* st = new (std::nothrow) State;
    if (!st)
        return vdlStsNoMemErr;
    const long long cells = static_cast<long long>(lenDCT) * nMFCC;
    st->first = new (std::nothrow) int[nMFCC];
    st->count = new (std::nothrow) int[nMFCC];
    st->offset = new (std::nothrow) int[nMFCC];
    st->table = new (std::nothrow) float[cells];
    if (!st->first || !st->count || !st->offset || !st->table) {
        delete[] st->first;
        delete[] st->count;
        delete[] st->offset;
        delete[] st->table;
        delete st;
        return vdlStsNoMemErr;
    }
    st->tag = tag;
    st->lenDCT = lenDCT;
    st->nMFCC = nMFCC;
    const double pi = 3.14159265358979323846;
    const double norm = std::sqrt(2.0 / lenDCT) * val;
    for (int n = 0; n < nMFCC; ++n) {
        const double lift = nLifter > 0 ? 1 + 0.5 * nLifter * std::sin(pi * n / nLifter) : 1.0;
        st->first[n] = 0;
        st->count[n] = lenDCT;
        st->offset[n] = n * lenDCT;
        for (int j = 0; j < lenDCT; ++j)
            st->table[n * lenDCT + j] =
                static_cast<float>(norm * lift * std::cos(pi * n * (j + 0.5) / lenDCT));
    }
    *ppState = st;
    return vdlStsNoErr;
}

template <class State>
VdlStatus freeState(State* st, unsigned tag)
{
    if (!st)
        return vdlStsNullPtrErr;
    if (st->tag != tag)
        return vdlStsContextMatchErr;
    st->tag = 0;
    delete[] st->first;
    delete[] st->count;
    delete[] st->offset;
    delete[] st->table;
    delete st;
    return vdlStsNoErr;
}

template <class S, class D, class State>
VdlStatus lift(const S* pSrc, D* pDst, const State* st, unsigned tag, int scaleFactor)
{
    if (VdlStatus s = checkPtrs({pSrc, pDst, st}))
        return s;
    if (st->tag != tag)
        return vdlStsContextMatchErr;
    WeightRows{st->nMFCC, st->first, st->count, st->offset, st->table}.apply(pSrc, pDst,
                                                                              scaleFactor);
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
    return lift(pSrc, pDst, pState, lifterTag32f, 0);
}

VdlStatus vdlsDCTLifter_16s_Sfs(const Vdl16s* pSrc, Vdl16s* pDst,
                                const VdlDCTLifterState_16s* pState, int scaleFactor)
{
    return lift(pSrc, pDst, pState, lifterTag16s, scaleFactor);
}

VdlStatus vdlsDCTLifter_32s16s_Sfs(const Vdl32s* pSrc, Vdl16s* pDst,
                                   const VdlDCTLifterState_16s* pState, int scaleFactor)
{
    return lift(pSrc, pDst, pState, lifterTag16s, scaleFactor);
}

} // extern "C"
