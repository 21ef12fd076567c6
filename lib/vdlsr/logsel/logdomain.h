// Log-domain arithmetic over the element types: the float forms run the
// kernels of the code path in force, the fixed-point forms take each
// element to a double, work there and come back by the one rounding rule.
#ifndef VDL_LOGDOMAIN_H
#define VDL_LOGDOMAIN_H

#include <cmath>
#include <limits>
#include <type_traits>

#include "logsel_kernels.h"
#include "vdlargcheck.h"
#include "vdlround.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// log1p(exp(-d)) at the points of the fast table, made once.
template <class T>
const T* logAddTable()
{
    struct Table {
        T points[logTableSize + 1];
        Table()
        {
            for (int k = 0; k <= logTableSize; ++k)
                points[k] = static_cast<T>(std::log1p(std::exp(-static_cast<double>(k) / logTableStep)));
        }
    };
    static const Table table;
    return table.points;
}

// A gap beyond which exp(-gap) is below every bound of the results and
// would only raise the underflow flag.
constexpr double negligibleGap = 700.0;

// logadd of two doubles, exact or from the table.
inline double logAddOf(double a, double b, bool fast)
{
    const double hi = a > b ? a : b;
    const double d = a > b ? a - b : b - a;
    if (!(d < negligibleGap))
        return hi;
    if (!fast)
        return hi + std::log1p(std::exp(-d));
    if (!(d < logTableEnd))
        return hi;
    const double* table = logAddTable<double>();
    const double pos = d * logTableStep;
    const int k = static_cast<int>(pos);
    return hi + table[k] + (pos - k) * (table[k + 1] - table[k]);
}

// Only the fast hint trades accuracy; none asks for no trade.
inline bool isFast(VdlHintAlgorithm hint) { return hint == vdlAlgHintFast; }

template <class T>
VdlStatus logAdd(const T* pSrc, T* pSrcDst, int len, VdlHintAlgorithm hint)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pSrcDst}), checkLen(len), checkHint(hint)}))
        return s;
    const LogLoops<T>& loops = logSelKernels().loops<T>();
    if (isFast(hint))
        loops.addTable(pSrc, pSrcDst, len, logAddTable<T>());
    else
        loops.addExact(pSrc, pSrcDst, len);
    return vdlStsNoErr;
}

template <class T>
VdlStatus logAddSfs(const T* pSrc, T* pSrcDst, int len, int scaleFactor, VdlHintAlgorithm hint)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pSrcDst}), checkLen(len), checkHint(hint)}))
        return s;
    const FixedPoint fx(scaleFactor);
    const bool fast = isFast(hint);
    for (int i = 0; i < len; ++i)
        pSrcDst[i] = fx.element<T>(logAddOf(fx.value(pSrc[i]), fx.value(pSrcDst[i]), fast));
    return vdlStsNoErr;
}

inline VdlStatus logSubStatus(int flags)
{
    return flags & logSubNegative ? vdlStsLogNegArgWrn : vdlStsNoErr;
}

template <class T>
VdlStatus logSub(const T* pSrc, T* pSrcDst, int len)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pSrcDst}), checkLen(len)}))
        return s;
    return logSubStatus(
        logSelKernels().loops<T>().sub(pSrc, pSrcDst, len, -std::numeric_limits<T>::infinity()));
}

template <class T>
VdlStatus logSubSfs(const T* pSrc, T* pSrcDst, int len, int scaleFactor)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pSrcDst}), checkLen(len)}))
        return s;
    const FixedPoint fx(scaleFactor);
    int flags = 0;
    for (int i = 0; i < len; ++i) {
        const double a = fx.value(pSrc[i]);
        const double b = fx.value(pSrcDst[i]);
        if (a > b) {
            const double d = b - a;
            pSrcDst[i] = fx.element<T>(d < -negligibleGap ? a : a + std::log(-std::expm1(d)));
        } else {
            // log 0 saturates to the floor; a < b has no log.
            if (a < b)
                flags |= logSubNegative;
            pSrcDst[i] = std::numeric_limits<T>::min();
        }
    }
    return logSubStatus(flags);
}

// The largest element, or -infinity when there is none above it.
template <class T>
double maxOf(const T* x, int len)
{
    double m = -std::numeric_limits<double>::infinity();
    for (int i = 0; i < len; ++i)
        if (x[i] > m)
            m = x[i];
    return m;
}

template <class T>
VdlStatus logSum(const T* pSrc, T* pResult, int len, VdlHintAlgorithm hint)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pResult}), checkLen(len), checkHint(hint)}))
        return s;
    const LogLoops<T>& loops = logSelKernels().loops<T>();
    if (isFast(hint)) {
        *pResult = loops.foldTable(pSrc, len, logAddTable<T>());
        return vdlStsNoErr;
    }
    const double m = maxOf(pSrc, len);
    *pResult = static_cast<T>(std::isinf(m) ? m : m + std::log(loops.sumExp(pSrc, len, m)));
    return vdlStsNoErr;
}

template <class T>
VdlStatus logSumSfs(const T* pSrc, T* pResult, int len, int scaleFactor, VdlHintAlgorithm hint)
{
    if (VdlStatus s = firstError({checkPtrs({pSrc, pResult}), checkLen(len), checkHint(hint)}))
        return s;
    const FixedPoint fx(scaleFactor);
    double r;
    if (isFast(hint)) {
        r = fx.value(pSrc[0]);
        for (int i = 1; i < len; ++i)
            r = logAddOf(r, fx.value(pSrc[i]), true);
    } else {
        const double m = fx.value(maxOf(pSrc, len));
        double sum = 0;
        for (int i = 0; i < len; ++i) {
            const double d = fx.value(pSrc[i]) - m;
            if (d > -negligibleGap)
                sum += std::exp(d);
        }
        r = m + std::log(sum);
    }
    *pResult = fx.element<T>(r);
    return vdlStsNoErr;
}

} // namespace vdl

#pragma GCC visibility pop

#endif
