// Where the rows of a call lie. A kernel asks a layout for row i and never
// cares which one it is: _D2 rows of one buffer, _D2L rows behind a table of
// pointers, one row shared by every index, or no row at all. RowRef is the
// same in one plain struct, for kernels compiled per code path. The forms
// that write a matrix in place get the two layouts with writable rows.
#ifndef VDL_COMMON_ROWS_H
#define VDL_COMMON_ROWS_H

#include <cstddef>

#include "vdlargcheck.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// Row i of any layout: table ? table[i] : base + i * step (step 0 repeats
// one row; no base and no table gives null rows).
template <class T>
struct RowRef {
    const T* base = nullptr;
    std::ptrdiff_t step = 0;
    const T* const* table = nullptr;

    // Always inlined: kernels of every code path call it, and an out-of-line
    // copy would be one path's code shared by all.
    [[gnu::always_inline]] const T* row(int i) const
    {
        return table ? table[i] : base + i * step;
    }
};

// A table of row pointers and every row a call reads or writes.
template <class P>
VdlStatus checkRowTable(const P* table, int height)
{
    if (table == nullptr)
        return vdlStsNullPtrErr;
    for (int i = 0; i < height; ++i)
        if (table[i] == nullptr)
            return vdlStsNullPtrErr;
    return vdlStsNoErr;
}

// _D2: rows of one buffer, `step` elements apart.
template <class T>
class StepRows {
public:
    StepRows(const T* base, int step) : m_base(base), m_step(step) {}
    const T* row(int i) const { return m_base + static_cast<std::ptrdiff_t>(i) * m_step; }
    RowRef<T> ref() const { return {m_base, m_step, nullptr}; }
    VdlStatus nullCheck(int) const { return checkPtrs({m_base}); }
    VdlStatus stepCheck(int width) const { return checkStep(m_step, width); }

private:
    const T* m_base;
    int m_step;
};

// _D2L: a table of row pointers; every row a call reads must be there.
template <class T>
class TableRows {
public:
    explicit TableRows(const T* const* table) : m_table(table) {}
    const T* row(int i) const { return m_table[i]; }
    RowRef<T> ref() const { return {nullptr, 0, m_table}; }
    VdlStatus nullCheck(int height) const { return checkRowTable(m_table, height); }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }

private:
    const T* const* m_table;
};

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
    VdlStatus nullCheck(int height) const { return checkRowTable(m_table, height); }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }

private:
    T* const* m_table;
};

// One row shared by every index: the Gaussian of many frames, or the frame
// scored against many Gaussians.
template <class T>
class OneRow {
public:
    explicit OneRow(const T* row) : m_row(row) {}
    const T* row(int) const { return m_row; }
    RowRef<T> ref() const { return {m_row, 0, nullptr}; }
    VdlStatus nullCheck(int) const { return checkPtrs({m_row}); }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }

private:
    const T* m_row;
};

// The variance of an IdVar form: absent, so nothing to check or read.
template <class T>
class NoRow {
public:
    explicit NoRow(const T*) {}
    const T* row(int) const { return nullptr; }
    RowRef<T> ref() const { return {}; }
    VdlStatus nullCheck(int) const { return vdlStsNoErr; }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }
};

} // namespace vdl

#pragma GCC visibility pop

#endif
