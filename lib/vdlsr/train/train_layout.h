// Rows of the matrices of the training functions. The read-only layouts are
// the shared ones (StepRows for _D2, TableRows for _D2L); the forms that
// write their matrix in place get the same two with writable rows. A small
// work buffer of doubles serves the per-column sums of a call.
#ifndef VDL_TRAIN_LAYOUT_H
#define VDL_TRAIN_LAYOUT_H

#include <cstddef>
#include <new>

#include "vdlargcheck.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// _D2 rows that the call writes.
template <class T>
class WritableStepRows {
public:
    WritableStepRows(T* base, int step) : m_base(base), m_step(step) {}
    T* row(int i) const { return m_base + static_cast<std::ptrdiff_t>(i) * m_step; }
    VdlStatus nullCheck(int) const { return checkPtrs({m_base}); }
    VdlStatus stepCheck(int width) const { return checkStep(m_step, width); }

private:
    T* m_base;
    int m_step;
};

// _D2L rows that the call writes.
template <class T>
class WritableTableRows {
public:
    explicit WritableTableRows(T* const* table) : m_table(table) {}
    T* row(int i) const { return m_table[i]; }
    VdlStatus nullCheck(int height) const
    {
        return TableRows<T>(const_cast<const T* const*>(m_table)).nullCheck(height);
    }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }

private:
    T* const* m_table;
};

// Doubles for the duration of a call: on the stack up to a few hundred,
// else from the heap; ok() is false when the heap had none.
class WorkDoubles {
public:
    explicit WorkDoubles(int count)
        : m_data(count <= local ? m_local : new (std::nothrow) double[count])
    {
        for (int i = 0; m_data && i < count; ++i)
            m_data[i] = 0;
    }
    ~WorkDoubles()
    {
        if (m_data != m_local)
            delete[] m_data;
    }
    WorkDoubles(const WorkDoubles&) = delete;
    WorkDoubles& operator=(const WorkDoubles&) = delete;

    bool ok() const { return m_data != nullptr; }
    double* data() { return m_data; }
    double& operator[](int i) { return m_data[i]; }

private:
    static constexpr int local = 256;
    double m_local[local];
    double* m_data;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
