// The hot loops of the matrix statistics, in double. Column sums add the
// rows in their order, one contiguous pass over the columns each, so every
// code path gives the same sums; the width is what the vector registers run
// over. Row sums and products run in partial sums; the covariance adds
// centred outer products row by row (a fused multiply-add where the path
// has one, so paths may differ in the last bit of each term).
#ifndef VDL_TRAIN_COLUMN_KERNELS_H
#define VDL_TRAIN_COLUMN_KERNELS_H

#include "vdlcore.h"
#include "vdlpaths.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class T>
struct ColumnKernels {
    // acc[k] += sum over i of x_ik
    void (*sum)(RowRef<T> x, int height, int width, double* acc);
    // acc[k] += sum over i of (x_ik - center_k)^2
    void (*sumSq)(RowRef<T> x, int height, int width, const double* center, double* acc);
    // acc[k] += sum over i of w_i x_ik
    void (*wsum)(RowRef<T> x, const T* w, int height, int width, double* acc);
    // acc[k] += sum over i of w_i (x_ik - center_k)^2
    void (*wsumSq)(RowRef<T> x, const T* w, int height, int width, const double* center,
                   double* acc);
    // out[i] = sum over k of x_ik, in partial sums whose order depends on
    // the path (relative error up to width * 1.2e-16 between paths)
    void (*rowSums)(RowRef<T> x, int height, int width, double* out);
    // out[i] = sum over k of x_ik v_k, in partial sums as rowSums
    void (*rowDots)(RowRef<T> x, const T* v, int height, int width, double* out);
    // acc[i * width + j] += val (x_ni - mean_i)(x_nj - mean_j) over the rows
    // n, for j >= i only (the upper triangle); d holds width doubles of work
    void (*outerSums)(RowRef<T> x, int height, const double* mean, double val, int width,
                      double* acc, double* d);
};

struct TrainKernels {
    ColumnKernels<Vdl16s> s16;
    ColumnKernels<Vdl32s> s32;
    ColumnKernels<Vdl32f> f32;
    ColumnKernels<Vdl64f> f64;

    template <class T>
    const ColumnKernels<T>& columns() const;
};

template <> inline const ColumnKernels<Vdl16s>& TrainKernels::columns() const { return s16; }
template <> inline const ColumnKernels<Vdl32s>& TrainKernels::columns() const { return s32; }
template <> inline const ColumnKernels<Vdl32f>& TrainKernels::columns() const { return f32; }
template <> inline const ColumnKernels<Vdl64f>& TrainKernels::columns() const { return f64; }

VDL_DISPATCH(TrainKernels, trainKernels)

} // namespace vdl

#pragma GCC visibility pop

#endif
