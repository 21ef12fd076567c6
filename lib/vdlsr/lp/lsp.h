// Line spectral pairs: the sum and difference polynomials of an inverse
// filter with their fixed zeros divided out, in the Chebyshev form of
// x = cos(w) whose zeros are searched, and the way back by products of
// second-order factors.
#ifndef VDL_LP_LSP_H
#define VDL_LP_LSP_H

#include <vector>

#pragma GCC visibility push(hidden)

namespace vdl {

// A symmetric polynomial of degree 2m in z^-1 on the unit circle is
// exp(-j m w) (h[m] + 2 sum over i of h[m-i] cos(i w)); this holds the
// coefficients d[0] = h[m], d[i] = 2 h[m-i] of that cosine series.
class ChebyshevForm {
public:
    explicit ChebyshevForm(const std::vector<double>& h)
    {
        const int m = static_cast<int>(h.size() - 1) / 2;
        m_d.resize(static_cast<size_t>(m) + 1);
        m_d[0] = h[m];
        for (int i = 1; i <= m; ++i)
            m_d[i] = 2 * h[m - i];
    }
    int zeros() const { return static_cast<int>(m_d.size()) - 1; }
    // Clenshaw's sum of d[i] T_i(x).
    double operator()(double x) const
    {
        double b1 = 0, b2 = 0;
        for (int i = zeros(); i >= 1; --i) {
            const double b = m_d[i] + 2 * x * b1 - b2;
            b2 = b1;
            b1 = b;
        }
        return m_d[0] + x * b1 - b2;
    }

private:
    std::vector<double> m_d;
};

// The forms of P and Q of the predictor a[0..p-1].
inline void lspPolynomials(const double* a, int p, std::vector<double>& sum,
                           std::vector<double>& diff)
{
    std::vector<double> c(static_cast<size_t>(p) + 2, 0.0);
    c[0] = 1;
    for (int k = 1; k <= p; ++k)
        c[k] = -a[k - 1];
    sum.assign(static_cast<size_t>(p) + 2, 0.0);
    diff.assign(static_cast<size_t>(p) + 2, 0.0);
    for (int i = 0; i <= p + 1; ++i) {
        sum[i] = c[i] + c[p + 1 - i];
        diff[i] = c[i] - c[p + 1 - i];
    }
    // Divide out the fixed zeros: z = -1 of P and z = 1 of Q for even p,
    // both of Q (1 - z^-2) for odd p.
    if (p % 2 == 0) {
        for (int i = 1; i <= p + 1; ++i) {
            sum[i] -= sum[i - 1];
            diff[i] += diff[i - 1];
        }
        sum.pop_back();
        diff.pop_back();
    } else {
        for (int i = 2; i <= p + 1; ++i)
            diff[i] += diff[i - 2];
        diff.pop_back();
        diff.pop_back();
    }
}

// The zeros of f in [-1, 1], descending: sign changes on nInt equal steps
// from 1 to -1, each bracket narrowed by nDiv bisections and closed by a
// linear interpolation. At most `wanted` zeros.
template <class F>
std::vector<double> searchZeros(const F& f, int wanted, int nInt, int nDiv)
{
    std::vector<double> found;
    double xHi = 1, fHi = f(xHi);
    for (int j = 1; j <= nInt && static_cast<int>(found.size()) < wanted; ++j) {
        const double xLo = 1 - 2.0 * j / nInt;
        const double fLo = f(xLo);
        if (fLo == 0) {
            found.push_back(xLo);
        } else if ((fHi < 0) != (fLo < 0) && fHi != 0) {
            double hi = xHi, lo = xLo, fh = fHi, fl = fLo;
            for (int d = 0; d < nDiv; ++d) {
                const double mid = (hi + lo) / 2;
                const double fm = f(mid);
                if ((fm < 0) == (fh < 0))
                    hi = mid, fh = fm;
                else
                    lo = mid, fl = fm;
            }
            found.push_back(hi - fh * (lo - hi) / (fl - fh));
        }
        xHi = xLo;
        fHi = fLo;
    }
    return found;
}

// (1 - 2 x z^-1 + z^-2) over the given cosines, times `fixed`.
inline std::vector<double> pairProduct(const double* x, int first, int count, int stride,
                                       const std::vector<double>& fixed)
{
    std::vector<double> poly(fixed);
    for (int i = 0; i < count; ++i) {
        const double c = -2 * x[first + i * stride];
        poly.push_back(0);
        poly.push_back(0);
        for (int j = static_cast<int>(poly.size()) - 1; j >= 2; --j)
            poly[j] += c * poly[j - 1] + poly[j - 2];
        poly[1] += c * poly[0];
    }
    return poly;
}

// Cosines x[0..p-1] (pairs of P at even places) to a[0..p-1].
inline void lspToLp(const double* x, int p, double* a)
{
    const bool even = p % 2 == 0;
    const std::vector<double> sum =
        pairProduct(x, 0, (p + 1) / 2, 2, even ? std::vector<double>{1, 1} : std::vector<double>{1});
    const std::vector<double> diff = pairProduct(
        x, 1, p / 2, 2, even ? std::vector<double>{1, -1} : std::vector<double>{1, 0, -1});
    for (int k = 1; k <= p; ++k)
        a[k - 1] = -(sum[k] + diff[k]) / 2;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
