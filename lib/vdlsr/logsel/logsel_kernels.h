// The per-element loops of the log-domain and curve functions, one table of
// kernels per code path. The float loops live here; integer forms convert
// each element through the one rounding rule in the ordinary sources.
#ifndef VDL_LOGSEL_KERNELS_H
#define VDL_LOGSEL_KERNELS_H

#include "vdlcore.h"
#include "vdlpaths.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Points of the fast log-add table: log1p(exp(-d)) at d = k / logTableStep
// for k = 0 .. logTableSize, and 0 from logTableEnd on.
constexpr int logTableStep = 64;
constexpr int logTableSize = 1024;
constexpr double logTableEnd = static_cast<double>(logTableSize) / logTableStep;

// What LogSub met: a pair whose difference has no log.
enum LogSubFlags { logSubNegative = 1 };

template <class T>
struct LogLoops {
    // dst[i] = logadd(src[i], dst[i]), exactly or from `table`.
    void (*addExact)(const T* src, T* dst, int len);
    void (*addTable)(const T* src, T* dst, int len, const T* table);
    // dst[i] = logsub(src[i], dst[i]), `floor` (-infinity) where the
    // difference is 0 or has no log; the LogSubFlags met.
    int (*sub)(const T* src, T* dst, int len, T floor);
    // sum of exp(x[i] - max) in double, and the table fold of x.
    double (*sumExp)(const T* x, int len, double max);
    T (*foldTable)(const T* x, int len, const T* table);
    // dst[i] = exp(-src[i]^2); src and dst may be one buffer.
    void (*expNegSqr)(const T* src, T* dst, int len);
};

struct LogSelKernels {
    LogLoops<Vdl32f> f32;
    LogLoops<Vdl64f> f64;
    void (*expNegSqr32f64f)(const Vdl32f* src, Vdl64f* dst, int len);
    void (*scaleLM32f)(const Vdl32f* src, Vdl32f* dst, int len, Vdl32f lmFloor, Vdl32f lmScale,
                       Vdl32f lmBase);
    // The unit curve; src and dst may be one buffer.
    void (*unitCurve32f)(const Vdl32f* src, Vdl32f* dst, int len);
    // -sum of p log p in double.
    double (*entropy32f)(const Vdl32f* p, int len);

    template <class T>
    const LogLoops<T>& loops() const;
};

template <> inline const LogLoops<Vdl32f>& LogSelKernels::loops() const { return f32; }
template <> inline const LogLoops<Vdl64f>& LogSelKernels::loops() const { return f64; }

VDL_DISPATCH(LogSelKernels, logSelKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
