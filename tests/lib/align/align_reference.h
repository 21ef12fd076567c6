// Plain double-precision models of the alignment and signal functions.
#ifndef VDL_TESTS_ALIGN_REFERENCE_H
#define VDL_TESTS_ALIGN_REFERENCE_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "test_data.h"

namespace alignref {

using namespace vdltest;

// Frames as rows of `width` values.
using Frames = std::vector<std::vector<double>>;

inline double localDistance(const std::vector<double>& a, const std::vector<double>& b)
{
    double d = 0;
    for (size_t k = 0; k < a.size(); ++k)
        d += (a[k] - b[k]) * (a[k] - b[k]);
    return d;
}

// Least cost over the paths from (0, 0) to the end whose runs of steps of
// one sequence alone are at most `delta` long (0: unbounded), by relaxing
// every move out of every (cell, last move, run length) in turn.
inline double dtwExact(const Frames& a, const Frames& b, int delta)
{
    const int n1 = static_cast<int>(a.size()), n2 = static_cast<int>(b.size());
    const double inf = std::numeric_limits<double>::infinity();
    const int maxRun = delta == 0 ? 1 : delta;   // unbounded runs need no count
    // cost[i][j][move][run]: move 0 both, 1 the first alone, 2 the second alone.
    std::vector<double> cost(static_cast<size_t>(n1 + 1) * (n2 + 1) * 3 * (maxRun + 1), inf);
    auto at = [&](int i, int j, int move, int run) -> double& {
        return cost[((static_cast<size_t>(i) * (n2 + 1) + j) * 3 + move) * (maxRun + 1) + run];
    };
    at(0, 0, 0, 0) = localDistance(a[0], b[0]);
    for (int i = 0; i < n1; ++i)
        for (int j = 0; j < n2; ++j)
            for (int move = 0; move < 3; ++move)
                for (int run = 0; run <= maxRun; ++run) {
                    const double c = at(i, j, move, run);
                    if (c == inf)
                        continue;
                    auto relax = [&](int ni, int nj, int nmove, int nrun) {
                        if (ni >= n1 || nj >= n2 || nrun > maxRun)
                            return;
                        double& to = at(ni, nj, nmove, nrun);
                        to = std::min(to, c + localDistance(a[ni], b[nj]));
                    };
                    relax(i + 1, j + 1, 0, 0);
                    for (int alone = 1; alone <= 2; ++alone) {
                        const int next = delta == 0 ? 1 : move == alone ? run + 1 : 1;
                        relax(alone == 1 ? i + 1 : i, alone == 2 ? j + 1 : j, alone, next);
                    }
                }
    double total = inf;
    for (int move = 0; move < 3; ++move)
        for (int run = 0; run <= maxRun; ++run)
            total = std::min(total, at(n1 - 1, n2 - 1, move, run));
    return total;
}

// The coefficient of x and y: sum xy / sqrt(sum xx * sum yy), 0 without energy.
inline double correlation(const double* x, const double* y, int n)
{
    double xy = 0, xx = 0, yy = 0;
    for (int k = 0; k < n; ++k) {
        xy += x[k] * y[k];
        xx += x[k] * x[k];
        yy += y[k] * y[k];
    }
    return xx * yy > 0 ? xy / std::sqrt(xx * yy) : 0.0;
}

inline double wienerGain(double src, double noise, double den)
{
    if (!(noise > 0))
        return 1;
    const double eta = std::max(0.98 * den / noise + 0.02 * std::max(src / noise - 1, 0.0),
                                0.079432823);
    return eta / (1 + eta);
}

inline double noiseUpdate(double src, double noise)
{
    return std::max(0.99 * noise + 0.01 * src, 0.0);
}

// Ephraim-Malah amplitude gain with the exact Bessel functions.
inline double emnsGain(double xi, double g)
{
    const double wiener = xi / (1 + xi);
    if (!(g > 0))
        return wiener;
    const double v = wiener * g;
    return std::sqrt(M_PI * v) / (2 * g) * std::exp(-v / 2) *
           ((1 + v) * std::cyl_bessel_i(0.0, v / 2) + v * std::cyl_bessel_i(1.0, v / 2));
}

} // namespace alignref

#endif
