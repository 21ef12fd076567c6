// Shortlists of Gaussian selection and the sign tables built from them.
#include "shortlist.h"
#include "vdlsr.h"

using namespace vdl;

extern "C" {

VdlStatus vdlsBuildSignTable_8u1u(const Vdl32s* pIndx, int num, const Vdl8u* const* ppShortlist,
                                  int clust, int width, int shift, Vdl8u* pSign, int frames,
                                  int height)
{
    return buildSignTable(pIndx, FixedGroups(num), ppShortlist, clust, width, shift, pSign, frames,
                          height);
}

VdlStatus vdlsBuildSignTable_Var_8u1u(const Vdl32s* pIndx, const Vdl32s* pNum,
                                      const Vdl8u* const* ppShortlist, int clust, int width,
                                      int shift, Vdl8u* pSign, int frames, int height)
{
    return buildSignTable(pIndx, CountedGroups(pNum), ppShortlist, clust, width, shift, pSign,
                          frames, height);
}

VdlStatus vdlsFillShortlist_Row_1u(const Vdl32s* pIndx, int height, int num,
                                   Vdl8u* const* ppShortlist, int clust, int width, int shift)
{
    return fillShortlists(pIndx, FixedGroups(num), ppShortlist, clust, width, shift, height, true);
}

VdlStatus vdlsFillShortlist_RowVar_1u(const Vdl32s* pIndx, const Vdl32s* pNum, int height,
                                      Vdl8u* const* ppShortlist, int clust, int width, int shift)
{
    return fillShortlists(pIndx, CountedGroups(pNum), ppShortlist, clust, width, shift, height,
                          true);
}

VdlStatus vdlsFillShortlist_Column_1u(const Vdl32s* pIndx, int num, Vdl8u* const* ppShortlist,
                                      int clust, int width, int shift, int height)
{
    return fillShortlists(pIndx, FixedGroups(num), ppShortlist, clust, width, shift, height, false);
}

VdlStatus vdlsFillShortlist_ColumnVar_1u(const Vdl32s* pIndx, const Vdl32s* pNum,
                                         Vdl8u* const* ppShortlist, int clust, int width,
                                         int shift, int height)
{
    return fillShortlists(pIndx, CountedGroups(pNum), ppShortlist, clust, width, shift, height,
                          false);
}

} // extern "C"
