// Double-precision models of the front-end functions, written plainly from
// their definitions: the regressions of delta coefficients, the DCT and the
// triangles of a mel filter bank by their sums, the cepstral recursion.
#ifndef VDL_TESTS_FEATURE_REFERENCE_H
#define VDL_TESTS_FEATURE_REFERENCE_H

#include <cmath>
#include <vector>

namespace featref {

using Matrix = std::vector<std::vector<double>>;

// R(x)[t] = sum over d = 1..w of d * (x[t+d] - x[t-d]), the frames beyond
// either end repeating the frame at that end.
inline Matrix regression(const Matrix& x, int w)
{
    const int h = static_cast<int>(x.size());
    auto at = [h](int t) { return t < 0 ? 0 : t >= h ? h - 1 : t; };
    Matrix r(h, std::vector<double>(x[0].size(), 0.0));
    for (int t = 0; t < h; ++t)
        for (size_t k = 0; k < x[0].size(); ++k)
            for (int d = 1; d <= w; ++d)
                r[t][k] += d * (x[at(t + d)][k] - x[at(t - d)][k]);
    return r;
}

inline Matrix scaledBy(Matrix m, double c)
{
    for (auto& row : m)
        for (double& v : row)
            v *= c;
    return m;
}

// sqrt(2/N) * val * L(n) * sum over j of x_j cos(pi n (j + 0.5) / N).
inline std::vector<double> dctLifter(const std::vector<double>& x, int nMFCC, int nLifter,
                                     double val)
{
    const double pi = 3.14159265358979323846;
    const int n = static_cast<int>(x.size());
    std::vector<double> c(nMFCC);
    for (int i = 0; i < nMFCC; ++i) {
        double sum = 0;
        for (int j = 0; j < n; ++j)
            sum += x[j] * std::cos(pi * i * (j + 0.5) / n);
        const double lift = nLifter ? 1 + nLifter / 2.0 * std::sin(pi * i / nLifter) : 1.0;
        c[i] = val * lift * std::sqrt(2.0 / n) * sum;
    }
    return c;
}

// Triangular mel filters over bins 0 .. fftLen/2 - 1, mel = mul ln(1 + f/div).
inline std::vector<double> melBank(const std::vector<double>& power, int fftLen, double fs,
                                   double low, double high, int nFilter, double mul, double div)
{
    auto mel = [&](double f) { return mul * std::log(1 + f / div); };
    auto hz = [&](double m) { return div * (std::exp(m / mul) - 1); };
    std::vector<double> out(nFilter, 0.0);
    const double step = (mel(high) - mel(low)) / (nFilter + 1);
    for (int i = 0; i < nFilter; ++i) {
        const double a = hz(mel(low) + i * step), b = hz(mel(low) + (i + 1) * step),
                     c = hz(mel(low) + (i + 2) * step);
        for (int k = 0; k < fftLen / 2; ++k) {
            const double f = k * fs / fftLen;
            if (f > a && f <= b)
                out[i] += power[k] * (f - a) / (b - a);
            else if (f > b && f < c)
                out[i] += power[k] * (c - f) / (c - b);
        }
    }
    return out;
}

// c_n = a_n + sum over k < n of (k/n) c_k a_(n-k), 1-based.
inline std::vector<double> lpToCepstrum(const std::vector<double>& a)
{
    std::vector<double> c(a.size());
    for (size_t n = 1; n <= a.size(); ++n) {
        double sum = a[n - 1];
        for (size_t k = 1; k < n; ++k)
            sum += double(k) / n * c[k - 1] * a[n - k - 1];
        c[n - 1] = sum;
    }
    return c;
}

} // namespace featref

#endif
