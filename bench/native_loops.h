// Plain loops of the library's hot computations, compiled in this program
// with -O3 -march=native: the yardstick a code path of the library has to
// meet on this machine.
#ifndef KELVAR_BENCH_NATIVE_LOOPS_H
#define KELVAR_BENCH_NATIVE_LOOPS_H

// pDst[i] = val - 0.5 * sum over k of (x_ik - m_k)^2 * w_k.
void nativeLogGauss(const float* src, int step, const float* mean, const float* var, int width,
                    float* dst, int height, float val);

// pDst[i] = sqrt(sum over k of (x_ik - m_k)^2 * w_k).
void nativeMahDist(const float* src, int step, const float* mean, const float* var, int width,
                   float* dst, int height);

#endif
