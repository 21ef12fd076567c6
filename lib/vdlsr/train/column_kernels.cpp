// Column sums of the training statistics, compiled once per code path.
#include "column_kernels.h"

#pragma GCC visibility push(hidden)

namespace vdl::VDL_PATH_NS {
namespace {

template <class T>
void sum(RowRef<T> x, int height, int width, double* __restrict acc)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        for (int k = 0; k < width; ++k)
            acc[k] += static_cast<double>(r[k]);
    }
}

template <class T>
void sumSq(RowRef<T> x, int height, int width, const double* __restrict center,
           double* __restrict acc)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        for (int k = 0; k < width; ++k) {
            const double d = static_cast<double>(r[k]) - center[k];
            acc[k] += d * d;
        }
    }
}

template <class T>
void wsum(RowRef<T> x, const T* w, int height, int width, double* __restrict acc)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        const double wi = static_cast<double>(w[i]);
        for (int k = 0; k < width; ++k)
            acc[k] += wi * static_cast<double>(r[k]);
    }
}

template <class T>
void wsumSq(RowRef<T> x, const T* w, int height, int width, const double* __restrict center,
            double* __restrict acc)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        const double wi = static_cast<double>(w[i]);
        for (int k = 0; k < width; ++k) {
            const double d = static_cast<double>(r[k]) - center[k];
            acc[k] += wi * (d * d);
        }
    }
}

constexpr int lanes = 8;

template <class T>
void rowSums(RowRef<T> x, int height, int width, double* out)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        double part[lanes] = {};
        int k = 0;
        for (; k + lanes <= width; k += lanes)
            for (int l = 0; l < lanes; ++l)
                part[l] += static_cast<double>(r[k + l]);
        double total = 0;
        for (; k < width; ++k)
            total += static_cast<double>(r[k]);
        for (int l = 0; l < lanes; ++l)
            total += part[l];
        out[i] = total;
    }
}

template <class T>
void rowDots(RowRef<T> x, const T* __restrict v, int height, int width, double* out)
{
    for (int i = 0; i < height; ++i) {
        const T* __restrict r = x.row(i);
        double part[lanes] = {};
        int k = 0;
        for (; k + lanes <= width; k += lanes)
            for (int l = 0; l < lanes; ++l)
                part[l] += static_cast<double>(r[k + l]) * static_cast<double>(v[k + l]);
        double total = 0;
        for (; k < width; ++k)
            total += static_cast<double>(r[k]) * static_cast<double>(v[k]);
        for (int l = 0; l < lanes; ++l)
            total += part[l];
        out[i] = total;
    }
}

template <class T>
void outerSums(RowRef<T> x, int height, const double* __restrict mean, double val, int width,
               double* __restrict acc, double* __restrict d)
{
    for (int n = 0; n < height; ++n) {
        const T* __restrict r = x.row(n);
        for (int k = 0; k < width; ++k)
            d[k] = static_cast<double>(r[k]) - mean[k];
        for (int i = 0; i < width; ++i) {
            const double vi = val * d[i];
            double* __restrict out = acc + static_cast<long>(i) * width;
            for (int j = i; j < width; ++j)
                out[j] += vi * d[j];
        }
    }
}

template <class T>
constexpr ColumnKernels<T> columnSet()
{
    return {&sum<T>, &sumSq<T>, &wsum<T>, &wsumSq<T>, &rowSums<T>, &rowDots<T>, &outerSums<T>};
}

} // namespace
} // namespace vdl::VDL_PATH_NS

namespace vdl {

VDL_PATH_TABLE(TrainKernels, trainKernels) = {
    VDL_PATH_NS::columnSet<Vdl16s>(),
    VDL_PATH_NS::columnSet<Vdl32s>(),
    VDL_PATH_NS::columnSet<Vdl32f>(),
    VDL_PATH_NS::columnSet<Vdl64f>(),
};

} // namespace vdl

#pragma GCC visibility pop
