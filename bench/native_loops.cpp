#include "native_loops.h"

#include <cmath>

void nativeLogGauss(const float* src, int step, const float* mean, const float* var, int width,
                    float* dst, int height, float val)
{
    for (int i = 0; i < height; ++i) {
        const float* x = src + static_cast<long>(i) * step;
        float q = 0;
        for (int k = 0; k < width; ++k) {
            const float d = x[k] - mean[k];
            q += d * d * var[k];
        }
        dst[i] = val - 0.5f * q;
    }
}

void nativeMahDist(const float* src, int step, const float* mean, const float* var, int width,
                   float* dst, int height)
{
    for (int i = 0; i < height; ++i) {
        const float* x = src + static_cast<long>(i) * step;
        float q = 0;
        for (int k = 0; k < width; ++k) {
            const float d = x[k] - mean[k];
            q += d * d * var[k];
        }
        dst[i] = std::sqrt(q);
    }
}
