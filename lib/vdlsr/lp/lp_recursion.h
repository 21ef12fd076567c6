// The order recursions of linear prediction, in double: Levinson-Durbin and
// Schur from an autocorrelation, step-up and step-down between predictor
// and reflection coefficients. Each answers false for an unstable input.
#ifndef VDL_LP_RECURSION_H
#define VDL_LP_RECURSION_H

#include <cmath>

#include "lp_common.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// a(m)[j] = a(m-1)[j] - k a(m-1)[m-j] for j < m, a(m)[m] = k, on a[0..m-1]
// (a[j-1] holds a[j]) in place.
inline void raiseOrder(double* a, int m, double k)
{
    for (int j = 1, l = m - 1; j <= l; ++j, --l) {
        const double aj = a[j - 1], al = a[l - 1];
        a[j - 1] = aj - k * al;
        if (j != l)
            a[l - 1] = al - k * aj;
    }
    a[m - 1] = k;
}

// r[0..p] to a[0..p-1] and the final prediction error.
inline bool levinsonDurbin(const double* r, int p, double* a, double* err)
{
    double e = r[0];
    if (!(e > 0))
        return false;
    for (int m = 1; m <= p; ++m) {
        double acc = r[m];
        for (int j = 1; j < m; ++j)
            acc -= a[j - 1] * r[m - j];
        const double k = acc / e;
        if (!(std::fabs(k) < 1))
            return false;
        raiseOrder(a, m, k);
        e *= (1 - k) * (1 + k);
    }
    *err = e;
    return true;
}

// r[0..p] to k[0..p-1] and the final prediction error, without forming a:
// u holds the correlations of the forward error with the signal, v those of
// the backward error, both advanced one order per step.
inline bool schur(const double* r, int p, double* k, double* err)
{
    if (!(r[0] > 0))
        return false;
    Scratch u(p + 1), v(p + 1);
    for (int j = 0; j <= p; ++j)
        u[j] = v[j] = r[j];
    for (int m = 1; m <= p; ++m) {
        const double km = u[m] / v[m - 1];
        if (!(std::fabs(km) < 1))
            return false;
        k[m - 1] = km;
        // v from the top down, so that v[j-1] is still of the order before.
        for (int j = p; j >= m; --j) {
            const double uj = u[j];
            const double vj = v[j - 1];
            if (j > m)
                u[j] = uj - km * vj;
            v[j] = vj - km * uj;
        }
    }
    *err = v[p];
    return true;
}

// k[0..p-1] to a[0..p-1].
inline void stepUp(const double* k, int p, double* a)
{
    for (int m = 1; m <= p; ++m)
        raiseOrder(a, m, k[m - 1]);
}

// a[0..p-1] to k[0..p-1]; a is used up.
inline bool stepDown(double* a, int p, double* k)
{
    for (int m = p; m >= 1; --m) {
        const double km = a[m - 1];
        if (!(std::fabs(km) < 1))
            return false;
        k[m - 1] = km;
        const double g = 1 / ((1 - km) * (1 + km));
        for (int j = 1, l = m - 1; j <= l; ++j, --l) {
            const double aj = a[j - 1], al = a[l - 1];
            a[j - 1] = (aj + km * al) * g;
            if (j != l)
                a[l - 1] = (al + km * aj) * g;
        }
    }
    return true;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
