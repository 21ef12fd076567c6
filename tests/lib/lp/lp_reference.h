// Double-precision models of linear prediction, written plainly: lags of a
// signal, the Levinson recursion, a dense linear solve, the step-up from
// reflection coefficients and the inverse filter on the unit circle.
#ifndef VDL_TESTS_LP_REFERENCE_H
#define VDL_TESTS_LP_REFERENCE_H

#include <cmath>
#include <complex>
#include <random>
#include <vector>

#include "test_data.h"

namespace lpref {

using Vec = std::vector<double>;

inline Vec lags(const Vec& x, int p)
{
    Vec r(p + 1, 0.0);
    for (int k = 0; k <= p; ++k)
        for (size_t n = k; n < x.size(); ++n)
            r[k] += x[n - k] * x[n];
    return r;
}

struct Levinson {
    Vec a, k;
    double err;
};

inline Levinson levinson(const Vec& r, int p)
{
    Levinson out{Vec(p, 0.0), Vec(p, 0.0), r[0]};
    for (int m = 1; m <= p; ++m) {
        double acc = r[m];
        for (int j = 1; j < m; ++j)
            acc -= out.a[j - 1] * r[m - j];
        const double k = acc / out.err;
        Vec next = out.a;
        next[m - 1] = k;
        for (int j = 1; j < m; ++j)
            next[j - 1] = out.a[j - 1] - k * out.a[m - j - 1];
        out.a = next;
        out.k[m - 1] = k;
        out.err *= 1 - k * k;
    }
    return out;
}

// Solves m x = b (m row-major n by n) by elimination with partial pivoting.
inline Vec solve(Vec m, Vec b)
{
    const int n = static_cast<int>(b.size());
    for (int c = 0; c < n; ++c) {
        int piv = c;
        for (int r = c + 1; r < n; ++r)
            if (std::fabs(m[r * n + c]) > std::fabs(m[piv * n + c]))
                piv = r;
        for (int j = 0; j < n; ++j)
            std::swap(m[c * n + j], m[piv * n + j]);
        std::swap(b[c], b[piv]);
        for (int r = c + 1; r < n; ++r) {
            const double f = m[r * n + c] / m[c * n + c];
            for (int j = c; j < n; ++j)
                m[r * n + j] -= f * m[c * n + j];
            b[r] -= f * b[c];
        }
    }
    Vec x(n);
    for (int r = n - 1; r >= 0; --r) {
        double s = b[r];
        for (int j = r + 1; j < n; ++j)
            s -= m[r * n + j] * x[j];
        x[r] = s / m[r * n + r];
    }
    return x;
}

inline Vec stepUp(const Vec& k)
{
    Vec a;
    for (size_t m = 1; m <= k.size(); ++m) {
        Vec next(m);
        next[m - 1] = k[m - 1];
        for (size_t j = 1; j < m; ++j)
            next[j - 1] = a[j - 1] - k[m - 1] * a[m - j - 1];
        a = next;
    }
    return a;
}

// |A(exp(jw))|^2 of A(z) = 1 - sum a[k] z^-k.
inline double inversePower(const Vec& a, double w)
{
    std::complex<double> s = 1;
    for (size_t k = 1; k <= a.size(); ++k)
        s -= a[k - 1] * std::polar(1.0, -w * static_cast<double>(k));
    return std::norm(s);
}

// A random stable predictor of order p: reflection coefficients in
// (-limit, limit).
inline Vec stablePredictor(std::mt19937& rng, int p, double limit = 0.9)
{
    return stepUp(vdltest::randomValues<double>(rng, p, -limit, limit));
}

} // namespace lpref

#endif
