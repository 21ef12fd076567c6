// dltrain.h: what the model-training modules share. Most of them time a
// function over a matrix that the name lays out either in one vector
// (`_D2`, rows `stride` elements apart) or as a matrix taken by its row
// table (`_D2L`, no stride); the test knows which from its name.
#ifndef DL_TRAIN_H
#define DL_TRAIN_H

#include <initializer_list>

#include "dlgaussdata.h"
#include "dlshifted.h"
#include "dltest.h"
#include "dlvector.h"

class dlTrainTest : public prTest {
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
