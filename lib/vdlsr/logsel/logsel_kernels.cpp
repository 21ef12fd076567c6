// Log-domain and curve loops, compiled once per code path. Each is a plain
// loop over one element at a time: the results do not depend on the path,
// but for the last bit of what the C math functions give.
#include <math.h>

#include "logsel_kernels.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

inline float expOf(float x) { return expf(x); }
inline double expOf(double x) { return exp(x); }
inline float log1pOf(float x) { return log1pf(x); }
inline double log1pOf(double x) { return log1p(x); }
inline float logOf(float x) { return logf(x); }
inline double logOf(double x) { return log(x); }
inline float expm1Of(float x) { return expm1f(x); }
inline double expm1Of(double x) { return expm1(x); }

// A gap beyond which exp(-gap) is below every bound of the results and
// would only raise the underflow flag.
inline float negligibleGap(float) { return 80.0f; }
inline double negligibleGap(double) { return 700.0; }

// logadd of one pair; a -infinity operand leaves the other as it is.
template <class T>
inline T addPair(T a, T b)
{
    const T hi = a > b ? a : b;
    const T d = a > b ? b - a : a - b;
    return d > -negligibleGap(d) ? hi + log1pOf(expOf(d)) : hi;
}

// The same with log1p(exp(-d)) interpolated in the table; d beyond the
// table (or not a number, as for two -infinities) adds nothing.
template <class T>
inline T addPairTable(T a, T b, const T* __restrict table)
{
    const T hi = a > b ? a : b;
    const T d = a > b ? a - b : b - a;
    T v = 0;
    if (d < static_cast<T>(logTableEnd)) {
        const T pos = d * static_cast<T>(logTableStep);
        const int k = static_cast<int>(pos);
        const T t = pos - static_cast<T>(k);
        v = table[k] + t * (table[k + 1] - table[k]);
    }
    return hi + v;
}

template <class T>
void addExact(const T* src, T* dst, int len)
{
    for (int i = 0; i < len; ++i)
        dst[i] = addPair(src[i], dst[i]);
}

template <class T>
void addTable(const T* src, T* dst, int len, const T* table)
{
    for (int i = 0; i < len; ++i)
        dst[i] = addPairTable(src[i], dst[i], table);
}

// log(exp(a) - exp(b)) for a > b: log1p(-exp(b - a)) near a large gap,
// log(-expm1(b - a)) near a small one, where it keeps its digits. Equal
// values give log 0, set without a division by zero; a < b has no log.
template <class T>
int sub(const T* src, T* dst, int len, T floor)
{
    int flags = 0;
    for (int i = 0; i < len; ++i) {
        const T a = src[i];
        const T b = dst[i];
        if (a > b) {
            const T d = b - a;
            dst[i] = d < -negligibleGap(d)                   ? a
                     : d < static_cast<T>(-0.6931471805599453) ? a + log1pOf(-expOf(d))
                                                             : a + logOf(-expm1Of(d));
        } else {
            if (!(a == b))
                flags |= logSubNegative;
            dst[i] = floor;
        }
    }
    return flags;
}

template <class T>
double sumExp(const T* x, int len, double max)
{
    double sum = 0;
    for (int i = 0; i < len; ++i) {
        const double d = static_cast<double>(x[i]) - max;
        if (d > -negligibleGap(d))
            sum += exp(d);
    }
    return sum;
}

template <class T>
T foldTable(const T* x, int len, const T* table)
{
    T r = x[0];
    for (int i = 1; i < len; ++i)
        r = addPairTable(r, x[i], table);
    return r;
}

// exp(-x^2) with x^2 split into its rounded value and the rounding error,
// so that the error of the square does not grow with x.
inline double expNegSqrOf(double x)
{
    const double h = x * x;
    const double l = fma(x, x, -h);
    return exp(-h) * (1.0 - l);
}

void expNegSqr32f(const Vdl32f* src, Vdl32f* dst, int len)
{
    for (int i = 0; i < len; ++i) {
        const double x = src[i];
        dst[i] = static_cast<Vdl32f>(exp(-(x * x)));
    }
}

void expNegSqr32f64f(const Vdl32f* __restrict src, Vdl64f* __restrict dst, int len)
{
    for (int i = 0; i < len; ++i) {
        const double x = src[i];
        dst[i] = exp(-(x * x));
    }
}

void expNegSqr64f(const Vdl64f* src, Vdl64f* dst, int len)
{
    for (int i = 0; i < len; ++i)
        dst[i] = expNegSqrOf(src[i]);
}

void scaleLM32f(const Vdl32f* __restrict src, Vdl32f* __restrict dst, int len, Vdl32f lmFloor,
                Vdl32f lmScale, Vdl32f lmBase)
{
    for (int i = 0; i < len; ++i) {
        const Vdl32f v = src[i] < lmFloor ? lmFloor : src[i];
        dst[i] = v * lmScale + lmBase;
    }
}

void unitCurve32f(const Vdl32f* src, Vdl32f* dst, int len)
{
    for (int i = 0; i < len; ++i) {
        const Vdl32f x = src[i];
        dst[i] = x <= 0.0f ? 0.0f : x >= 1.0f ? 1.0f : x * x * (3.0f - 2.0f * x);
    }
}

double entropy32f(const Vdl32f* __restrict p, int len)
{
    double sum = 0;
    for (int i = 0; i < len; ++i) {
        const double v = p[i];
        if (v > 0)
            sum -= v * log(v);
    }
    return sum;
}

template <class T>
constexpr LogLoops<T> logLoops(void (*expNegSqr)(const T*, T*, int))
{
    return {&addExact<T>, &addTable<T>, &sub<T>, &sumExp<T>, &foldTable<T>, expNegSqr};
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(LogSelKernels, logSelKernels) = {
    VDL_PATH_NS::logLoops<Vdl32f>(&VDL_PATH_NS::expNegSqr32f),
    VDL_PATH_NS::logLoops<Vdl64f>(&VDL_PATH_NS::expNegSqr64f),
    &VDL_PATH_NS::expNegSqr32f64f,
    &VDL_PATH_NS::scaleLM32f,
    &VDL_PATH_NS::unitCurve32f,
    &VDL_PATH_NS::entropy32f,
};

} // namespace vdl

#pragma GCC visibility pop
