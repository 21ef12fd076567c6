// Where the value arguments of a Gaussian score come from; the rows come
// from the layouts of vdlrows.h.
#ifndef VDL_GAUSS_LAYOUT_H
#define VDL_GAUSS_LAYOUT_H

#include <cstddef>

#include "vdlargcheck.h"
#include "vdlrows.h"

#pragma GCC visibility push(hidden)

namespace vdl {

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
