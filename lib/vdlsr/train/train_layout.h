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
#include "vdlscratch.h"

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


} // namespace vdl

#pragma GCC visibility pop

#endif
