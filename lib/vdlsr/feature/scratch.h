// A work buffer of doubles: on the stack for the usual small sizes, on the
// heap beyond them.
#ifndef VDL_FEATURE_SCRATCH_H
#define VDL_FEATURE_SCRATCH_H

#include <new>

#pragma GCC visibility push(hidden)

namespace vdl {

class Scratch {
public:
    explicit Scratch(int n) : m_data(n <= local ? m_local : new (std::nothrow) double[n]) {}
    ~Scratch()
    {
        if (m_data != m_local)
            delete[] m_data;
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    bool ok() const { return m_data != nullptr; }
    double& operator[](int i) { return m_data[i]; }

private:
    static constexpr int local = 256;
    double m_local[local];
    double* m_data;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
