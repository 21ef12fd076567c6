// dlrows.h: rows of data in either layout a function's name can ask for.
// `_D2` rows lie in one buffer, `stride` elements a row; `_D2L` rows lie in
// a matrix that the call takes by its row table.
#ifndef DL_ROWS_H
#define DL_ROWS_H

#include "dltest.h"
#include "dlvector.h"

// How one object is filled: a mode, and the constant of SET_VALUE.
struct dlFill {
    SetMode mode;
    double value;
};
const dlFill dlFillZero = {SET_ZERO, 0.0};
const dlFill dlFillOne = {SET_ONE, 0.0};
const dlFill dlFillTwo = {SET_VALUE, 2.0};

// `rows` rows of `cols` elements in the layout of the name: the matrix for
// `_D2L`, else `rows * stride` elements of the flat vector.
inline bool dlCreateRows(bool d2l, dlVector& flat, dlrMatrice& matrix, int rows, int cols,
                         int stride, dlFill fill) {
    if (d2l) return matrix.createMatrice(rows, cols, fill.mode, fill.value, 0.0);
    return flat.createVector(dlProduct(rows, stride), fill.mode, fill.value, 0.0);
}

// The row step column: the step of `_D2` data, "-" for `_D2L` data.
inline dlItem dlStrideItem(const char* name, bool d2l, int stride) {
    return d2l ? dlItem(name, "-") : dlItem(name, stride);
}

// A test whose function takes its rows in the layout its name asks for.
class dlRowsTest : public prTest {
public:
    using prTest::prTest;

protected:
    // The row step of the test's flat data: the rounded column count for
    // `_D2`, 0 for `_D2L`, whose rows need none.
    int layoutStride(int cols) const { return m_d2l ? 0 : roundedStride(cols); }
    // `height` rows of `width` elements in the test's layout.
    bool createRows(dlVector& flat, dlrMatrice& matrix, int height, int width, int stride,
                    dlFill fill) const {
        return dlCreateRows(m_d2l, flat, matrix, height, width, stride, fill);
    }
    // The row step column: the step, or "-" for `_D2L` data.
    dlItem strideItem(const char* name, int stride) const {
        return dlStrideItem(name, m_d2l, stride);
    }

    const bool m_d2l = m_name.found("D2L");
};

#endif
