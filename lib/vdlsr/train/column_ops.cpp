// Row and column steps of orthogonal decompositions: norms, products,
// scaling, elimination and plane rotation of the columns of a matrix given
// by its row table, and their row-vector counterparts.
#include <cmath>

#include "column_stats.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

using Table = TableRows<Vdl64f>;
using WritableTable = WritableTableRows<Vdl64f>;

template <class Rows>
VdlStatus checkColumns(const Rows& rows, int width, int height, int firstRow,
                       std::initializer_list<int> cols)
{
    if (VdlStatus s = firstError({checkMatrix(rows, height, width),
                                  checkRange(firstRow, 0, height - 1)}))
        return s;
    for (int c : cols)
        if (VdlStatus s = checkRange(c, 0, width - 1))
            return s;
    return vdlStsNoErr;
}

// factor times the sum of term(x) over the row.
template <class Term>
VdlStatus sumRowOf(const Vdl64f* pSrc, int len, Vdl64f* pDst, Vdl64f factor, const Term& term)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pDst}), checkLen(len)}))
        return s;
    double sum = 0;
    for (int k = 0; k < len; ++k)
        sum += term(pSrc[k]);
    *pDst = factor * sum;
    return vdlStsNoErr;
}

// factor times the sum of term(row) over the rows from firstRow on; term
// reads the columns `cols`.
template <class Term>
VdlStatus sumColumnOf(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                      int firstRow, std::initializer_list<int> cols, Vdl64f factor,
                      const Term& term)
{
    const Table a(ppSrc);
    if (VdlStatus s = firstError({checkPtrs({pDst}), checkColumns(a, width, height, firstRow, cols)}))
        return s;
    double sum = 0;
    for (int i = firstRow; i < height; ++i)
        sum += term(a.row(i));
    *pDst = factor * sum;
    return vdlStsNoErr;
}

} // namespace

extern "C" {

VdlStatus vdlsSumRowAbs_64f(const Vdl64f* pSrc, int len, Vdl64f* pDst)
{
    return sumRowOf(pSrc, len, pDst, 1.0, [](double x) { return std::fabs(x); });
}

VdlStatus vdlsSumRowSqr_64f(const Vdl64f* pSrc, int len, Vdl64f* pDst, Vdl64f val)
{
    return sumRowOf(pSrc, len, pDst, val, [](double x) { return x * x; });
}

VdlStatus vdlsAddMulRow_64f(const Vdl64f* pSrc, Vdl64f* pSrcDst, int len, Vdl64f val)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pSrcDst}), checkLen(len)}))
        return s;
    for (int k = 0; k < len; ++k)
        pSrcDst[k] += val * pSrc[k];
    return vdlStsNoErr;
}

VdlStatus vdlsSumColumnAbs_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                   int firstRow, int col)
{
    return sumColumnOf(ppSrc, width, height, pDst, firstRow, {col}, 1.0,
                       [col](const Vdl64f* row) { return std::fabs(row[col]); });
}

VdlStatus vdlsSumColumnSqr_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                   int firstRow, int col, Vdl64f val)
{
    return sumColumnOf(ppSrc, width, height, pDst, firstRow, {col}, val,
                       [col](const Vdl64f* row) { return row[col] * row[col]; });
}

VdlStatus vdlsDotProdColumn_64f_D2L(const Vdl64f* const* ppSrc, int width, int height, Vdl64f* pDst,
                                    int firstRow, int col1, int col2)
{
    return sumColumnOf(ppSrc, width, height, pDst, firstRow, {col1, col2}, 1.0,
                       [=](const Vdl64f* row) { return row[col1] * row[col2]; });
}

VdlStatus vdlsMulColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int firstRow, int col,
                                Vdl64f val)
{
    const WritableTable a(ppSrcDst);
    if (VdlStatus s = checkColumns(a, width, height, firstRow, {col}))
        return s;
    for (int i = firstRow; i < height; ++i)
        a.row(i)[col] *= val;
    return vdlStsNoErr;
}

VdlStatus vdlsAddMulColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int col1, int col2,
                                   int firstRow, Vdl64f val)
{
    const WritableTable a(ppSrcDst);
    if (VdlStatus s = checkColumns(a, width, height, firstRow, {col1, col2}))
        return s;
    for (int i = firstRow; i < height; ++i)
        a.row(i)[col2] += val * a.row(i)[col1];
    return vdlStsNoErr;
}

VdlStatus vdlsQRTransColumn_64f_D2L(Vdl64f* const* ppSrcDst, int width, int height, int col1, int col2,
                                    Vdl64f c, Vdl64f s)
{
    const WritableTable a(ppSrcDst);
    if (VdlStatus st = checkColumns(a, width, height, 0, {col1, col2}))
        return st;
    for (int i = 0; i < height; ++i) {
        Vdl64f* row = a.row(i);
        const double x = row[col1];
        const double y = row[col2];
        row[col1] = c * x + s * y;
        row[col2] = c * y - s * x;
    }
    return vdlStsNoErr;
}

} // extern "C"
