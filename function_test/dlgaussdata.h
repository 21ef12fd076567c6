// dlgaussdata.h: the frame and mixture data of the Gaussian scoring modules
// and the argument lists of their calls.
//
// A MultiMix function scores one frame against `rows` mixture components;
// the others score `rows` frames against one component, in either layout
// of rows (dlrows.h).
#ifndef DL_GAUSSDATA_H
#define DL_GAUSSDATA_H

#include "dlrows.h"

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

// Both layouts of a form, registered `form`_D2`tail` then `form`_D2L`tail`:
// the frames are the module's `srcVector` or the rows of `mSrc`; a MultiMix
// mixture is `vMean`, `vVar` or the rows of `mMean`, `mVar`.
#define DL_REG_GAUSS_PAIR(Class, form, tail, mix, out, ...)                              \
    DL_REG(Class, form##_D2##tail,                                                       \
           DL_GAUSS_D2(srcVector, mix, out __VA_OPT__(, ) __VA_ARGS__));                 \
    DL_REG(Class, form##_D2L##tail, DL_GAUSS_D2L(mSrc, mix, out __VA_OPT__(, ) __VA_ARGS__))

#define DL_REG_MULTIMIX_PAIR(Class, form, tail, out, ...)                                    \
    DL_REG(Class, form##_D2##tail,                                                           \
           DL_GAUSS_MULTIMIX_D2((vMean, vVar), srcVector, out __VA_OPT__(, ) __VA_ARGS__));  \
    DL_REG(Class, form##_D2L##tail,                                                          \
           DL_GAUSS_MULTIMIX_D2L((mMean, mVar), srcVector, out __VA_OPT__(, ) __VA_ARGS__))

#endif
