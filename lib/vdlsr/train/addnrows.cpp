// Sums of selected rows of a matrix: each step adds a main row and a
// weighted additional row, both picked by index lists relative to a common
// offset.
#include <cstddef>

#include "vdlargcheck.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

bool rowInside(long long row, int height)
{
    return row >= 0 && row < height;
}

template <class T, class Index, class AddIndex>
VdlStatus addNRows(const T* pSrc, int height, int offset, int step, const Index* pInd,
                   const AddIndex* pAddInd, int count, T* pDst, int width, T weight)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pInd, pAddInd, pDst}),
                                  checkSize(width, height), checkLen(count),
                                  checkStep(step, width)}))
        return s;
    // Every index first, so that a bad one leaves pDst as it was.
    for (int i = 0; i < count; ++i)
        if (!rowInside(static_cast<long long>(offset) + pInd[i], height) ||
            !rowInside(static_cast<long long>(offset) + pAddInd[i], height))
            return vdlStsOutOfRangeErr;
    for (int i = 0; i < count; ++i) {
        const T* row = pSrc + static_cast<std::ptrdiff_t>(offset + pInd[i]) * step;
        const T* added = pSrc + static_cast<std::ptrdiff_t>(offset + pAddInd[i]) * step;
        for (int k = 0; k < width; ++k)
            pDst[k] += row[k] + weight * added[k];
    }
    return vdlStsNoErr;
}

} // namespace

extern "C" VdlStatus vdlsAddNRows_32f_D2(const Vdl32f* pSrc, int height, int offset, int step,
                                         const Vdl32s* pInd, const Vdl16u* pAddInd, int count,
                                         Vdl32f* pDst, int width, Vdl32f weight)
{
    return addNRows(pSrc, height, offset, step, pInd, pAddInd, count, pDst, width, weight);
}
