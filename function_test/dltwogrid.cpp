#include "dltwogrid.h"

#include "dl.h"

void dlTwoGrid::read(const kvString& funcName, const char* rowsName, const char* colsName) {
    g_ostrm << "\n First\n";
    dlStep(rows_1, rowsName, 8, 20, 2, '+');
    dlStep(cols_1, colsName, 30, 40, 3, '+');
    g_ostrm << "\n Second\n";
    dlStep(rows_2, rowsName, 6000, 10000, 1000, '+');
    dlStep(cols_2, colsName, 40, 40, 1, '+');
    dlScale(scaleFactor, funcName);
    secondGrid = false;
}

bool dlTwoGrid::next(bool first) {
    if (first) {
        secondGrid = false;
        if (!scaleFactor.nextValue() || !rows_1.nextValue() || !cols_1.nextValue()) return false;
        rows_2.nextValue();  // the second grid stands on its first point
        cols_2.nextValue();
    } else if (scaleFactor.nextValue()) {
    } else if (!secondGrid) {
        if (rows_1.nextValue()) {
        } else if (cols_1.nextValue()) {
            rows_1.nextValue();
        } else {
            secondGrid = true;
            cols_1.nextValue();
            rows_1.nextValue();
        }
        scaleFactor.nextValue();
    } else {
        if (rows_2.nextValue()) {
        } else if (cols_2.nextValue()) {
            rows_2.nextValue();
        } else {
            return false;
        }
        scaleFactor.nextValue();
    }
    rows = secondGrid ? rows_2.value() : rows_1.value();
    cols = secondGrid ? cols_2.value() : cols_1.value();
    return true;
}
