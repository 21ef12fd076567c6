// Singular-value decomposition by one-sided Jacobi rotations: pairs of
// columns of a work copy of A are rotated until all are orthogonal; their
// norms are the singular values, the normalised columns U, and the same
// rotations applied to the identity give V.
#include <cmath>

#include "column_stats.h"
#include "rotation_kernels.h"
#include "vdlbuffer.h"
#include "vdlsr.h"

using namespace vdl;

namespace {

// Two columns count as orthogonal when their product is below this part of
// the product of their norms.
constexpr double orthogonal = 1e-15;

// Columns of A and of V, each contiguous, for the duration of a call.
class JacobiWork {
public:
    JacobiWork(int height, int width)
        : m_height(height), m_width(width),
          m_g(static_cast<size_t>(height) * width),
          m_v(static_cast<size_t>(width) * width)
    {
    }

    bool ok() const { return m_g.ok() && m_v.ok(); }
    double* g(int j) { return m_g.data() + static_cast<size_t>(j) * m_height; }
    double* v(int j) { return m_v.data() + static_cast<size_t>(j) * m_width; }

    template <class Rows>
    void load(const Rows& a)
    {
        for (int i = 0; i < m_height; ++i) {
            const Vdl64f* row = a.row(i);
            for (int j = 0; j < m_width; ++j)
                g(j)[i] = row[j];
        }
        for (int j = 0; j < m_width; ++j)
            for (int i = 0; i < m_width; ++i)
                v(j)[i] = i == j ? 1.0 : 0.0;
    }

    // Sweeps over all pairs until none needs a rotation; false when
    // `sweeps` did not suffice.
    bool orthogonalise(int sweeps)
    {
        const RotationKernels& k = rotationKernels();
        for (int sweep = 0; sweep < sweeps; ++sweep) {
            bool rotated = false;
            for (int p = 0; p + 1 < m_width; ++p)
                for (int q = p + 1; q < m_width; ++q) {
                    double alpha, beta, gamma;
                    k.products(g(p), g(q), m_height, &alpha, &beta, &gamma);
                    if (gamma == 0 || !(std::fabs(gamma) > orthogonal * std::sqrt(alpha * beta)))
                        continue;
                    rotated = true;
                    const double zeta = (beta - alpha) / (2 * gamma);
                    const double t = (zeta >= 0 ? 1.0 : -1.0) /
                                     (std::fabs(zeta) + std::sqrt(1 + zeta * zeta));
                    const double c = 1 / std::sqrt(1 + t * t);
                    const double s = c * t;
                    k.rotate(g(p), g(q), m_height, c, s);
                    k.rotate(v(p), v(q), m_width, c, s);
                }
            if (!rotated)
                return true;
        }
        return false;
    }

    // Norms into w, columns normalised; a column of (numerically) zero norm
    // is replaced by a unit vector orthogonal to all the others.
    void normalise(double* w)
    {
        double largest = 0;
        for (int j = 0; j < m_width; ++j) {
            double aa, bb, ab;
            rotationKernels().products(g(j), g(j), m_height, &aa, &bb, &ab);
            w[j] = std::sqrt(aa);
            largest = w[j] > largest ? w[j] : largest;
        }
        const double negligible = largest * m_height * 2.3e-16;
        for (int j = 0; j < m_width; ++j)
            if (w[j] > negligible && w[j] > 0)
                for (int i = 0; i < m_height; ++i)
                    g(j)[i] /= w[j];
        for (int j = 0; j < m_width; ++j)
            if (!(w[j] > negligible && w[j] > 0))
                complete(j, w, negligible);
    }

    // Column order by descending singular value (a stable insertion sort).
    void sortDescending(double* w)
    {
        for (int j = 1; j < m_width; ++j)
            for (int i = j; i > 0 && w[i] > w[i - 1]; --i) {
                swapColumns(i, i - 1);
                const double t = w[i];
                w[i] = w[i - 1];
                w[i - 1] = t;
            }
    }

    template <class URows, class VRows>
    void store(const URows& u, const VRows& v)
    {
        for (int i = 0; i < m_height; ++i) {
            Vdl64f* row = u.row(i);
            for (int j = 0; j < m_width; ++j)
                row[j] = g(j)[i];
        }
        for (int i = 0; i < m_width; ++i) {
            Vdl64f* row = v.row(i);
            for (int j = 0; j < m_width; ++j)
                row[j] = this->v(j)[i];
        }
    }

private:
    // Column j becomes the first unit vector e_m that keeps a length above
    // 1/2 once the other columns are taken out of it (twice, for accuracy).
    void complete(int j, const double* w, double negligible)
    {
        double* c = g(j);
        for (int m = 0; m < m_height; ++m) {
            for (int i = 0; i < m_height; ++i)
                c[i] = i == m ? 1.0 : 0.0;
            for (int pass = 0; pass < 2; ++pass)
                for (int other = 0; other < m_width; ++other) {
                    if (other == j || (other > j && !(w[other] > negligible && w[other] > 0)))
                        continue;
                    double dot = 0;
                    for (int i = 0; i < m_height; ++i)
                        dot += c[i] * g(other)[i];
                    for (int i = 0; i < m_height; ++i)
                        c[i] -= dot * g(other)[i];
                }
            double norm = 0;
            for (int i = 0; i < m_height; ++i)
                norm += c[i] * c[i];
            norm = std::sqrt(norm);
            if (norm > 0.5) {
                for (int i = 0; i < m_height; ++i)
                    c[i] /= norm;
                return;
            }
        }
    }

    void swapColumns(int a, int b)
    {
        for (int i = 0; i < m_height; ++i) {
            const double t = g(a)[i];
            g(a)[i] = g(b)[i];
            g(b)[i] = t;
        }
        for (int i = 0; i < m_width; ++i) {
            const double t = v(a)[i];
            v(a)[i] = v(b)[i];
            v(b)[i] = t;
        }
    }

    int m_height;
    int m_width;
    Buffer<double> m_g;
    Buffer<double> m_v;
};

template <class ARows, class URows, class VRows>
VdlStatus svd(const ARows& a, const URows& u, int height, Vdl64f* pW, const VRows& v, int width,
              int nIter, bool sorted)
{
    if (VdlStatus s = firstError({checkPtrs({pW}), checkMatrix(a, height, width),
                                  checkMatrix(u, height, width), checkMatrix(v, width, width)}))
        return s;
    if (height < width)
        return vdlStsSizeErr;
    if (nIter < 1)
        return vdlStsBadArgErr;
    JacobiWork work(height, width);
    if (!work.ok())
        return vdlStsNoMemErr;
    work.load(a);
    const bool converged = work.orthogonalise(nIter);
    work.normalise(pW);
    if (sorted)
        work.sortDescending(pW);
    work.store(u, v);
    return converged ? vdlStsNoErr : vdlStsErr;
}

using ARows = StepRows<Vdl64f>;
using ATable = TableRows<Vdl64f>;
using URows = WritableStepRows<Vdl64f>;
using UTable = WritableTableRows<Vdl64f>;

} // namespace

extern "C" {

VdlStatus vdlsSVD_64f_D2(const Vdl64f* pSrc, Vdl64f* pDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV,
                         int width, int step, int nIter)
{
    return svd(ARows(pSrc, step), URows(pDstU, step), height, pDstW, URows(pDstV, step), width,
               nIter, false);
}

VdlStatus vdlsSVDSort_64f_D2(const Vdl64f* pSrc, Vdl64f* pDstU, int height, Vdl64f* pDstW,
                             Vdl64f* pDstV, int width, int step, int nIter)
{
    return svd(ARows(pSrc, step), URows(pDstU, step), height, pDstW, URows(pDstV, step), width,
               nIter, true);
}

VdlStatus vdlsSVD_64f_D2_I(Vdl64f* pSrcDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV, int width,
                           int step, int nIter)
{
    return svd(ARows(pSrcDstU, step), URows(pSrcDstU, step), height, pDstW, URows(pDstV, step),
               width, nIter, false);
}

VdlStatus vdlsSVDSort_64f_D2_I(Vdl64f* pSrcDstU, int height, Vdl64f* pDstW, Vdl64f* pDstV, int width,
                               int step, int nIter)
{
    return svd(ARows(pSrcDstU, step), URows(pSrcDstU, step), height, pDstW, URows(pDstV, step),
               width, nIter, true);
}

VdlStatus vdlsSVD_64f_D2L(const Vdl64f* const* ppSrc, Vdl64f* const* ppDstU, int height, Vdl64f* pDstW,
                          Vdl64f* const* ppDstV, int width, int nIter)
{
    return svd(ATable(ppSrc), UTable(ppDstU), height, pDstW, UTable(ppDstV), width, nIter, false);
}

VdlStatus vdlsSVDSort_64f_D2L(const Vdl64f* const* ppSrc, Vdl64f* const* ppDstU, int height,
                              Vdl64f* pDstW, Vdl64f* const* ppDstV, int width, int nIter)
{
    return svd(ATable(ppSrc), UTable(ppDstU), height, pDstW, UTable(ppDstV), width, nIter, true);
}

VdlStatus vdlsSVD_64f_D2L_I(Vdl64f* const* ppSrcDstU, int height, Vdl64f* pDstW,
                            Vdl64f* const* ppDstV, int width, int nIter)
{
    return svd(ATable(ppSrcDstU), UTable(ppSrcDstU), height, pDstW, UTable(ppDstV), width, nIter,
               false);
}

VdlStatus vdlsSVDSort_64f_D2L_I(Vdl64f* const* ppSrcDstU, int height, Vdl64f* pDstW,
                                Vdl64f* const* ppDstV, int width, int nIter)
{
    return svd(ATable(ppSrcDstU), UTable(ppSrcDstU), height, pDstW, UTable(ppDstV), width, nIter,
               true);
}

} // extern "C"
