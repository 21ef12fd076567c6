// dlgaussdata.h: the frame and mixture data of the Gaussian scoring modules
// and the argument lists of their calls.
//
// A MultiMix function scores one frame against `rows` mixture components;
// the others score `rows` frames against one component. `_D2` data of many
// rows lie in one buffer, `stride` elements a row; `_D2L` data lie in a
// matrix that the call takes by its row table.
#ifndef DL_GAUSSDATA_H
#define DL_GAUSSDATA_H

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

// The frame, mean and variance of a scoring call, each held by the module
// as a vector (a single row, or `_D2` rows) and as a matrix (`_D2L` rows).
// An IdVar function leaves the variance out of its call; its data are made
// all the same, so that every form of a module times the same buffers.
class dlGaussData {
public:
    dlGaussData(dlVector& src, dlVector& mean, dlVector& var, dlrMatrice& srcRows,
                dlrMatrice& meanRows, dlrMatrice& varRows)
        : m_src(src), m_mean(mean), m_var(var),
          m_srcRows(srcRows), m_meanRows(meanRows), m_varRows(varRows) {}

    // All of the function's first type.
    void init(const dlFunc& func) {
        m_src.init(func, 1);
        m_mean.init(func, 1);
        m_var.init(func, 1);
        m_srcRows.init(func, 1);
        m_meanRows.init(func, 1);
        m_varRows.init(func, 1);
    }

    // Mean and variance share the model's fill.
    bool create(bool multiMix, bool d2l, int rows, int cols, int stride, dlFill frame,
                dlFill model) {
        if (multiMix)
            return m_src.createVector(cols, frame.mode, frame.value, 0.0) &&
                   dlCreateRows(d2l, m_mean, m_meanRows, rows, cols, stride, model) &&
                   dlCreateRows(d2l, m_var, m_varRows, rows, cols, stride, model);
        return m_var.createVector(cols, model.mode, model.value, 0.0) &&
               m_mean.createVector(cols, model.mode, model.value, 0.0) &&
               dlCreateRows(d2l, m_src, m_srcRows, rows, cols, stride, frame);
    }

    void flush() {
        m_src.deleteVector();
        m_mean.deleteVector();
        m_var.deleteVector();
        m_srcRows.deleteMatrice();
        m_meanRows.deleteMatrice();
        m_varRows.deleteMatrice();
    }

private:
    dlVector& m_src;
    dlVector& m_mean;
    dlVector& m_var;
    dlrMatrice& m_srcRows;
    dlrMatrice& m_meanRows;
    dlrMatrice& m_varRows;
};

// The row step column: the step of `_D2` data, "-" for `_D2L` data.
inline dlItem dlStrideItem(const char* name, bool d2l, int stride) {
    return d2l ? dlItem(name, "-") : dlItem(name, stride);
}

// Argument lists of the scoring calls, with the module's `rows`, `cols` and
// `stride`. `mix` is the mixture in parentheses: mean and variance, or the
// mean alone in an IdVar form. `out` is the result in parentheses: dst, or
// the component values and the accumulator of a MultiMix add or max. Behind
// them come the value argument and the scale factor where the function takes
// them.
#define DL_GAUSS_LIST(...) __VA_ARGS__

#define DL_GAUSS_D2(src, mix, out, ...)                                           \
    (src, stride, DL_GAUSS_LIST mix, cols, DL_GAUSS_LIST out, rows __VA_OPT__(, ) \
         __VA_ARGS__)

#define DL_GAUSS_D2L(srcRows, mix, out, ...)                                       \
    (srcRows, DL_GAUSS_LIST mix, cols, DL_GAUSS_LIST out, rows __VA_OPT__(, ) \
         __VA_ARGS__)

#define DL_GAUSS_MULTIMIX_D2(mix, src, out, ...)                                  \
    (DL_GAUSS_LIST mix, stride, src, cols, DL_GAUSS_LIST out, rows __VA_OPT__(, ) \
         __VA_ARGS__)

#define DL_GAUSS_MULTIMIX_D2L(mixRows, src, out, ...)                                  \
    (DL_GAUSS_LIST mixRows, src, cols, DL_GAUSS_LIST out, rows __VA_OPT__(, ) __VA_ARGS__)

#endif
