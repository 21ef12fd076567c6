// Kernels shared by the Gaussian scoring functions: the quadratic form of a
// frame and a diagonal Gaussian, what a score is made of it, and where the
// score goes. scoreRows drives them over the rows of a call.
#ifndef VDL_GAUSS_KERNELS_H
#define VDL_GAUSS_KERNELS_H

#include <cmath>
#include <limits>

#include "gauss_layout.h"
#include "gauss_quad.h"
#include "vdlargcheck.h"
#include "vdlround.h"
#include "vdltypes.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// The variance kinds of a score. Each picks its kernel from a QuadSet and
// says whether its variance row is read and what values it must hold.

// q = sum over k of (x_k - m_k)^2 * w_k, with w given as precisions.
struct InverseVar {
    static constexpr bool hasVariance = true;

    template <class A, class T>
    static QuadRowsFn<A, T> kernel(const QuadSet<A, T>& set) { return set.inverse; }

    template <class T>
    static bool valid(const T*, int) { return true; }
};

// IdVar: every w_k is 1 and no variance row is read.
struct UnitVar {
    static constexpr bool hasVariance = false;

    template <class A, class T>
    static QuadRowsFn<A, T> kernel(const QuadSet<A, T>& set) { return set.unit; }

    template <class T>
    static bool valid(const T*, int) { return true; }
};

// DirectVar: w_k is 1 / v_k with the variances v given, so they must be
// positive.
struct DirectVar {
    static constexpr bool hasVariance = true;

    template <class A, class T>
    static QuadRowsFn<A, T> kernel(const QuadSet<A, T>& set) { return set.direct; }

    template <class T>
    static bool valid(const T* v, int n)
    {
        for (int k = 0; k < n; ++k)
            if (!std::isgreater(v[k], T(0)))  // quiet: a NaN raises no flag
                return false;
        return true;
    }
};

// log(exp(a) + exp(b)) without leaving the range of F. Past a gap where
// exp would underflow, the smaller term adds nothing the result can hold
// but an underflow flag, so it is left out.
template <class F>
F logAdd(F a, F b)
{
    const F hi = a > b ? a : b;
    const F lo = a > b ? b : a;
    const F negligible = sizeof(F) == sizeof(float) ? F(80) : F(700);
    if (lo == -std::numeric_limits<F>::infinity() || lo - hi < -negligible)
        return hi;
    return hi + std::log1p(std::exp(lo - hi));
}

// Log-likelihood of row i: value_i - 0.5 * q * 2^-scaleFactor, the value
// in units of the result. Once per row, so it runs in double whatever the
// sums ran in: a 32-bit value stays exact and no scale factor overflows.
template <class Ty, class Values>
class LogLikelihood {
public:
    using Acc = typename Ty::Acc;
    using Dst = typename Ty::Dst;

    LogLikelihood(const Values& values, int scaleFactor)
        : m_values(values), m_factor(-0.5 * scaleOf(scaleFactor)) {}
    Dst operator()(int i, Acc q) const
    {
        return toResult<Dst>(static_cast<double>(m_values[i]) + m_factor * static_cast<double>(q));
    }
    VdlStatus nullCheck() const { return m_values.nullCheck(); }

private:
    Values m_values;
    double m_factor;
};

// Mahalanobis distance of row i: sqrt(q) * 2^-scaleFactor.
template <class Ty>
class Distance {
public:
    using Acc = typename Ty::Acc;
    using Dst = typename Ty::Dst;

    explicit Distance(int scaleFactor) : m_factor(scaleOf(scaleFactor)) {}
    Dst operator()(int, Acc q) const
    {
        return toResult<Dst>(std::sqrt(static_cast<double>(q)) * m_factor);
    }
    VdlStatus nullCheck() const { return vdlStsNoErr; }

private:
    double m_factor;
};

// How a score meets the result element it goes to.
struct Assign {
    template <class D>
    static void into(D& dst, D score) { dst = score; }
};

struct KeepMax {
    template <class D>
    static void into(D& dst, D score) { dst = score > dst ? score : dst; }
};

struct LogAdd {
    template <class D>
    static void into(D& dst, D score) { dst = logAdd(dst, score); }
};

// Row i's score goes to pDst[i].
template <class Combine, class D>
class PerRow {
public:
    explicit PerRow(D* dst) : m_dst(dst) {}
    void operator()(int i, D score) const { Combine::into(m_dst[i], score); }
    VdlStatus nullCheck() const { return checkPtrs({m_dst}); }

private:
    D* m_dst;
};

// All scores log-added into one element: the score of a whole mixture.
template <class D>
class LogSum {
public:
    explicit LogSum(D* dst) : m_dst(dst) {}
    void operator()(int i, D score) const { *m_dst = i == 0 ? score : logAdd(*m_dst, score); }
    VdlStatus nullCheck() const { return checkPtrs({m_dst}); }

private:
    D* m_dst;
};

// Scores `height` rows of `width` elements: row i pairs src.row(i) with
// mean.row(i) and var.row(i). Every argument is checked before anything is
// written: null pointers, then sizes, then steps, then the variances.
template <class Ty, class Var, class SrcRows, class MeanRows, class VarRows, class Finish,
          class Sink>
VdlStatus scoreRows(const SrcRows& src, const MeanRows& mean, const VarRows& var, int width,
                    int height, const Finish& finish, const Sink& sink)
{
    if (VdlStatus s = firstError({src.nullCheck(height), mean.nullCheck(height),
                                  var.nullCheck(height), finish.nullCheck(), sink.nullCheck(),
                                  checkSize(width, height), src.stepCheck(width),
                                  mean.stepCheck(width), var.stepCheck(width)}))
        return s;
    for (int i = 0; i < height; ++i)
        if (!Var::valid(var.row(i), width))
            return vdlStsBadArgErr;
    using Acc = typename Ty::Acc;
    const QuadRowsFn<Acc, typename Ty::Src> quad =
        Var::kernel(gaussKernels().template set<Acc, typename Ty::Src>());
    // The forms of a block of rows in one kernel call, then their scores.
    constexpr int block = 64;
    Acc q[block];
    for (int first = 0; first < height; first += block) {
        const int count = height - first < block ? height - first : block;
        quad(src.ref(), mean.ref(), var.ref(), width, first, count, q);
        for (int j = 0; j < count; ++j)
            sink(first + j, finish(first + j, q[j]));
    }
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
