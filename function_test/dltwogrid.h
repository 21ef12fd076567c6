// The walk of the Gaussian scoring modules: two grids of rows by columns, a
// small one and a large one, measured one after the other, with the scale
// factor as the fastest wheel.
#ifndef DL_TWOGRID_H
#define DL_TWOGRID_H

#include "dlscaleiterator.h"
#include "kvparameter.h"

class dlTwoGrid {
public:
    // Builds and reads the five parameters for the test's function; the
    // names of the two sizes are the module's own ("Rows", "Cols").
    void read(const kvString& funcName, const char* rowsName, const char* colsName);
    // Steps to the next point; `first` on the test's first set. Sets rows
    // and cols from the pair of the current grid.
    bool next(bool first);

    kvStepIterator<int> rows_1, cols_1, rows_2, cols_2;
    dlrScaleIterator scaleFactor;
    int rows = 0;
    int cols = 0;
    bool secondGrid = false;
};

#endif
