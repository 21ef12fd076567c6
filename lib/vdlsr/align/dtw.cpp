// Distance of two sequences of feature vectors by dynamic time warping.
#include "dtw_search.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsDTW_L2_32f_D2L(const Vdl32f* const* pSrc1, int height1, const Vdl32f* const* pSrc2,
                             int height2, int width, Vdl32f* pDist, int delta, Vdl32f beam)
{
    return dtwDistance<Dtw32f>(TableRows<Vdl32f>(pSrc1), height1, TableRows<Vdl32f>(pSrc2),
                               height2, width, pDist, delta, beam, 0);
}

VdlStatus vdlsDTW_L2_32f_D2(const Vdl32f* pSrc1, int height1, const Vdl32f* pSrc2, int height2,
                            int width, int step, Vdl32f* pDist, int delta, Vdl32f beam)
{
    return dtwDistance<Dtw32f>(StepRows<Vdl32f>(pSrc1, step), height1,
                               StepRows<Vdl32f>(pSrc2, step), height2, width, pDist, delta, beam,
                               0);
}

VdlStatus vdlsDTW_L2_8u32s_D2Sfs(const Vdl8u* pSrc1, int height1, const Vdl8u* pSrc2, int height2,
                                 int width, int step, Vdl32s* pDist, int delta, Vdl32s beam,
                                 int scaleFactor)
{
    return dtwDistance<Dtw8u32s>(StepRows<Vdl8u>(pSrc1, step), height1,
                                 StepRows<Vdl8u>(pSrc2, step), height2, width, pDist, delta, beam,
                                 scaleFactor);
}

VdlStatus vdlsDTW_L2_8u32s_D2LSfs(const Vdl8u* const* pSrc1, int height1,
                                  const Vdl8u* const* pSrc2, int height2, int width, Vdl32s* pDist,
                                  int delta, Vdl32s beam, int scaleFactor)
{
    return dtwDistance<Dtw8u32s>(TableRows<Vdl8u>(pSrc1), height1, TableRows<Vdl8u>(pSrc2),
                                 height2, width, pDist, delta, beam, scaleFactor);
}

VdlStatus vdlsDTW_L2Low_16s32s_D2Sfs(const Vdl16s* pSrc1, int height1, const Vdl16s* pSrc2,
                                     int height2, int width, int step, Vdl32s* pDist, int delta,
                                     Vdl32s beam, int scaleFactor)
{
    return dtwDistance<Dtw16s32sLow>(StepRows<Vdl16s>(pSrc1, step), height1,
                                     StepRows<Vdl16s>(pSrc2, step), height2, width, pDist, delta,
                                     beam, scaleFactor);
}

VdlStatus vdlsDTW_L2Low_16s32s_D2LSfs(const Vdl16s* const* pSrc1, int height1,
                                      const Vdl16s* const* pSrc2, int height2, int width,
                                      Vdl32s* pDist, int delta, Vdl32s beam, int scaleFactor)
{
    return dtwDistance<Dtw16s32sLow>(TableRows<Vdl16s>(pSrc1), height1, TableRows<Vdl16s>(pSrc2),
                                     height2, width, pDist, delta, beam, scaleFactor);
}

} // extern "C"
