// Work space of doubles for the length of one call: on the stack for the
// short vectors most calls take, so that they pay for no allocation, else
// from the heap; ok() is false when the heap had none. Zero-filled.
#ifndef VDL_COMMON_SCRATCH_H
#define VDL_COMMON_SCRATCH_H

#include <new>

#pragma GCC visibility push(hidden)

namespace vdl {

class Scratch {
public:
    explicit Scratch(long long count)
        : m_data(count <= local ? m_local : new (std::nothrow) double[count]())
    {
        if (m_data == m_local)
            for (long long i = 0; i < count; ++i)
                m_local[i] = 0;
    }
    ~Scratch()
    {
        if (m_data != m_local)
            delete[] m_data;
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    bool ok() const { return m_data != nullptr; }
    double* data() { return m_data; }
    double& operator[](long long i) { return m_data[i]; }

private:
    static constexpr int local = 256;
    double m_local[local];
    double* m_data;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
