// Where the rows of a Gaussian call lie, and where its value arguments come
// from. A kernel asks a layout for row i and never cares which one it is.
#ifndef VDL_GAUSS_LAYOUT_H
#define VDL_GAUSS_LAYOUT_H

#include <cstddef>

#include "vdlargcheck.h"

#pragma GCC visibility push(hidden)

namespace vdl {

// _D2: rows of one buffer, `step` elements apart.
template <class T>
class StepRows {
public:
    StepRows(const T* base, int step) : m_base(base), m_step(step) {}
    const T* row(int i) const { return m_base + static_cast<std::ptrdiff_t>(i) * m_step; }
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
    VdlStatus nullCheck(int height) const
    {
        if (m_table == nullptr)
            return vdlStsNullPtrErr;
        for (int i = 0; i < height; ++i)
            if (m_table[i] == nullptr)
                return vdlStsNullPtrErr;
        return vdlStsNoErr;
    }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }

private:
    const T* const* m_table;
};

// One row shared by every index: the Gaussian of many frames, or the frame
// scored against many Gaussians.
template <class T>
class OneRow {
public:
    explicit OneRow(const T* row) : m_row(row) {}
    const T* row(int) const { return m_row; }
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
    VdlStatus nullCheck(int) const { return vdlStsNoErr; }
    VdlStatus stepCheck(int) const { return vdlStsNoErr; }
};

// The value argument of a score: one for all rows, or one per row.
template <class D>
class SameValue {
public:
    explicit SameValue(D value) : m_value(value) {}
    D operator[](int) const { return m_value; }
    VdlStatus nullCheck() const { return vdlStsNoErr; }

private:
    D m_value;
};

template <class D>
class RowValues {
public:
    explicit RowValues(const D* values) : m_values(values) {}
    D operator[](int i) const { return m_values[i]; }
    VdlStatus nullCheck() const { return checkPtrs({m_values}); }

private:
    const D* m_values;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
