// Normalised sinc of a vector, in double whatever the element types.
#include <cmath>

#include "vdlargcheck.h"
#include "vdls.h"

using namespace vdl;

namespace {

double sinc(double x)
{
    if (x == 0)
        return 1.0;
    const double px = 3.14159265358979323846 * x;
    return std::sin(px) / px;
}

template <class S, class D>
VdlStatus sincOf(const S* pSrc, D* pDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    for (int i = 0; i < len; ++i)
        pDst[i] = static_cast<D>(sinc(pSrc[i]));
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsSinC_32f(const Vdl32f* pSrc, Vdl32f* pDst, int len)
{
    return sincOf(pSrc, pDst, len);
}

VdlStatus vdlsSinC_32f64f(const Vdl32f* pSrc, Vdl64f* pDst, int len)
{
    return sincOf(pSrc, pDst, len);
}

VdlStatus vdlsSinC_64f(const Vdl64f* pSrc, Vdl64f* pDst, int len)
{
    return sincOf(pSrc, pDst, len);
}

VdlStatus vdlsSinC_32f_I(Vdl32f* pSrcDst, int len)
{
    return sincOf(pSrcDst, pSrcDst, len);
}

VdlStatus vdlsSinC_64f_I(Vdl64f* pSrcDst, int len)
{
    return sincOf(pSrcDst, pSrcDst, len);
}

} // extern "C"
