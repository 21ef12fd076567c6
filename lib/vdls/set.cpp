// Filling a vector with one value.
#include "vdlargcheck.h"
#include "vdls.h"

using namespace vdl;

namespace {

template <class T>
VdlStatus set(T val, T* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pDst}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k)
        pDst[k] = val;
    return vdlStsNoErr;
}

} // namespace

extern "C" VdlStatus vdlsSet_32f(Vdl32f val, Vdl32f* pDst, int len)
{
    return set(val, pDst, len);
}
