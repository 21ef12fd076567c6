// The float and 16-bit forms of the family behind one interface, so that a
// typed test runs both: a result compared with a double model in the units
// of the result (the model times 2^-scaleFactor for the 16-bit forms).
#ifndef VDL_TESTS_LP_FORMS_H
#define VDL_TESTS_LP_FORMS_H

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "lp_reference.h"
#include "vdlsr.h"

template <class T>
struct LpForm;

template <>
struct LpForm<Vdl32f> {
    using Err = Vdl32f;
    static constexpr int q = 0;  // scale factor of the coefficient calls
    static VdlStatus durbin(const Vdl32f* r, Vdl32f* a, int n, Err* e) { return vdlsDurbin_32f(r, a, n, e); }
    static VdlStatus schur(const Vdl32f* r, Vdl32f* k, int n, Err* e) { return vdlsSchur_32f(r, k, n, e); }
    static VdlStatus toRefl(const Vdl32f* a, Vdl32f* k, int n) { return vdlsLPToReflection_32f(a, k, n); }
    static VdlStatus toLp(const Vdl32f* k, Vdl32f* a, int n) { return vdlsReflectionToLP_32f(k, a, n); }
    static VdlStatus ar(const Vdl32f* k, Vdl32f* d, int n) { return vdlsReflectionToAR_32f(k, d, n); }
    static VdlStatus lar(const Vdl32f* k, Vdl32f* d, int n, float v) { return vdlsReflectionToLAR_32f(k, d, n, v); }
    static VdlStatus areas(const Vdl32f* k, Vdl32f* d, int n) { return vdlsReflectionToTrueAR_32f(k, d, n); }
    static VdlStatus tilt(const Vdl32f* k, const Vdl32f* e, Vdl32f* d, int n) { return vdlsReflectionToTilt_32f(k, e, d, n); }
    static VdlStatus absTilt(const Vdl32f* k, const Vdl32f* e, Vdl32f* d, int n) { return vdlsReflectionToAbsTilt_32f(k, e, d, n); }
    static VdlStatus autoLp(const Vdl32f* x, int n, Vdl32f* a, int p) { return vdlsLinearPrediction_Auto_32f(x, n, a, p); }
    static VdlStatus negLp(const Vdl32f* x, int n, Vdl32f* a, int p) { return vdlsLinearPredictionNeg_Auto_32f(x, n, a, p); }
    static VdlStatus covLp(const Vdl32f* x, int n, Vdl32f* a, int p) { return vdlsLinearPrediction_Cov_32f(x, n, a, p); }
    static VdlStatus residual(const Vdl32f* x, Vdl32f* d, const Vdl32f* h) { return vdlsResidualFilter_Aurora_32f(x, d, h); }
    static VdlStatus lowHigh(const Vdl32f* x, Vdl32f* lo, Vdl32f* hi, int n, const Vdl32f* h, int t) { return vdlsLowHighFilter_Aurora_32f(x, lo, hi, n, h, t); }
    // A coefficient of the model as the form holds it.
    static Vdl32f fixed(double x) { return static_cast<Vdl32f>(x); }
    static double real(Vdl32f v) { return v; }
    static void expectResult(double got, double want, double rel = 2e-4)
    {
        EXPECT_NEAR(got, want, rel * (1 + std::fabs(want)));
    }
};

template <>
struct LpForm<Vdl16s> {
    using Err = Vdl32s;
    static constexpr int q = -12;  // Q12 coefficients
    static VdlStatus durbin(const Vdl16s* r, Vdl16s* a, int n, Err* e) { return vdlsDurbin_16s_Sfs(r, a, n, e, q); }
    static VdlStatus schur(const Vdl16s* r, Vdl16s* k, int n, Err* e) { return vdlsSchur_16s_Sfs(r, k, n, e, q); }
    static VdlStatus toRefl(const Vdl16s* a, Vdl16s* k, int n) { return vdlsLPToReflection_16s_Sfs(a, k, n, q); }
    static VdlStatus toLp(const Vdl16s* k, Vdl16s* a, int n) { return vdlsReflectionToLP_16s_Sfs(k, a, n, q); }
    static VdlStatus ar(const Vdl16s* k, Vdl16s* d, int n) { return vdlsReflectionToAR_16s_Sfs(k, -q, d, n, q); }
    static VdlStatus lar(const Vdl16s* k, Vdl16s* d, int n, float v) { return vdlsReflectionToLAR_16s_Sfs(k, -q, d, n, v, q); }
    static VdlStatus areas(const Vdl16s* k, Vdl16s* d, int n) { return vdlsReflectionToTrueAR_16s_Sfs(k, -q, d, n, q); }
    static VdlStatus tilt(const Vdl16s* k, const Vdl16s* e, Vdl16s* d, int n) { return vdlsReflectionToTilt_16s_Sfs(k, e, d, n, 3); }
    static VdlStatus absTilt(const Vdl16s* k, const Vdl16s* e, Vdl16s* d, int n) { return vdlsReflectionToAbsTilt_16s_Sfs(k, e, d, n, 3); }
    static VdlStatus autoLp(const Vdl16s* x, int n, Vdl16s* a, int p) { return vdlsLinearPrediction_Auto_16s_Sfs(x, n, a, p, q); }
    static VdlStatus negLp(const Vdl16s* x, int n, Vdl16s* a, int p) { return vdlsLinearPredictionNeg_Auto_16s_Sfs(x, n, a, p, q); }
    static VdlStatus covLp(const Vdl16s* x, int n, Vdl16s* a, int p) { return vdlsLinearPrediction_Cov_16s_Sfs(x, n, a, p, q); }
    // Filter sums scaled by 2^-4.
    static VdlStatus residual(const Vdl16s* x, Vdl16s* d, const Vdl16s* h) { return vdlsResidualFilter_Aurora_16s_Sfs(x, d, h, 4); }
    static VdlStatus lowHigh(const Vdl16s* x, Vdl16s* lo, Vdl16s* hi, int n, const Vdl16s* h, int t) { return vdlsLowHighFilter_Aurora_16s_Sfs(x, lo, hi, n, h, t, 4); }
    static Vdl16s fixed(double x) { return static_cast<Vdl16s>(vdltest::roundSaturate<Vdl16s>(std::ldexp(x, -q))); }
    static double real(Vdl16s v) { return std::ldexp(static_cast<double>(v), q); }
    // Within one unit of the rounded model.
    static void expectResult(double got, double want, double = 0)
    {
        EXPECT_NEAR(got, vdltest::roundSaturate<Vdl16s>(want), 1.0);
    }
};

// The model value v in the units of a coefficient result of form T.
template <class T>
double inUnits(double v)
{
    return std::ldexp(v, -LpForm<T>::q);
}

#endif
