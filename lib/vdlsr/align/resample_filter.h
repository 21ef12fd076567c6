// The prototype lowpass of polyphase resampling: a sinc of cutoff `rollf`
// times the Nyquist frequency, under a Kaiser window of parameter `alpha`
// that reaches `half` units to either side of its centre.
#ifndef VDL_RESAMPLE_FILTER_H
#define VDL_RESAMPLE_FILTER_H

#include <cmath>

#pragma GCC visibility push(hidden)

namespace vdl {

// I0 by its power series; the terms fall fast for the window's arguments.
inline double besselI0(double x)
{
    double sum = 1, term = 1;
    const double q = 0.25 * x * x;
    for (int k = 1; k < 500 && term > 1e-17 * sum; ++k) {
        term *= q / (static_cast<double>(k) * k);
        sum += term;
    }
    return sum;
}

class PrototypeFilter {
public:
    PrototypeFilter(double half, double rollf, double alpha)
        : m_half(half), m_rollf(rollf), m_alpha(alpha), m_norm(1.0 / besselI0(alpha)) {}

    double half() const { return m_half; }

    // The filter at u units from its centre; 0 from `half` on.
    double at(double u) const
    {
        const double z = u / m_half;
        if (!(z * z < 1))
            return 0;
        const double x = M_PI * m_rollf * u;
        const double sinc = x == 0 ? 1.0 : std::sin(x) / x;
        return m_rollf * sinc * besselI0(m_alpha * std::sqrt(1 - z * z)) * m_norm;
    }

private:
    double m_half;
    double m_rollf;
    double m_alpha;
    double m_norm;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
