// Sign-change counts of a frame: strict, counting zeros, and by sign bit.
#include <cmath>

#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

struct Strict {
    template <class T>
    static bool change(T a, T b) { return (a < 0 && b > 0) || (a > 0 && b < 0); }
};

struct CountZero {
    template <class T>
    static bool change(T a, T b) { return Strict::change(a, b) || a == 0 || b == 0; }
};

struct SignBit {
    static bool change(Vdl32f a, Vdl32f b) { return std::signbit(a) != std::signbit(b); }
};

template <class Rule, class T, class R>
VdlStatus signChanges(const T* pSrc, int len, R* pRes)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pRes}), checkLen(len)}))
        return s;
    int count = 0;
    for (int i = 1; i < len; ++i)
        count += Rule::change(pSrc[i - 1], pSrc[i]) ? 1 : 0;
    *pRes = static_cast<R>(count);
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsSignChangeRate_32f(const Vdl32f* pSrc, int len, Vdl32f* pRes)
{
    return signChanges<Strict>(pSrc, len, pRes);
}

VdlStatus vdlsSignChangeRate_16s(const Vdl16s* pSrc, int len, Vdl32s* pRes)
{
    return signChanges<Strict>(pSrc, len, pRes);
}

VdlStatus vdlsSignChangeRateXor_32f(const Vdl32f* pSrc, int len, Vdl32s* pRes)
{
    return signChanges<SignBit>(pSrc, len, pRes);
}

VdlStatus vdlsSignChangeRate_Count0_32f(const Vdl32f* pSrc, int len, Vdl32f* pRes)
{
    return signChanges<CountZero>(pSrc, len, pRes);
}

VdlStatus vdlsSignChangeRate_Count0_16s(const Vdl16s* pSrc, int len, Vdl32s* pRes)
{
    return signChanges<CountZero>(pSrc, len, pRes);
}

} // extern "C"
