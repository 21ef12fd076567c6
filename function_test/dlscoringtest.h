// The Tim class of the scoring modules that walk the two grids: frame, mean
// and variance shaped by the function's name, one result row per frame or
// component, rows * cols elements a call.
#ifndef DL_SCORINGTEST_H
#define DL_SCORINGTEST_H

#include <initializer_list>

#include "dlgaussdata.h"
#include "dltwogrid.h"

// A per-row vector of the results (or of the values a call adds to them).
struct dlRowVector {
    dlVector* vector;
    dlFill fill;
};

// What a module holds at file scope for its calls.
struct dlScoringModule {
    dlScoringModule(dlGaussData& data, dlTwoGrid& grid, int& rows, int& cols, int& stride,
                    dlFill frame, dlFill model, std::initializer_list<dlRowVector> results)
        : data(data), grid(grid), rows(rows), cols(cols), stride(stride), frame(frame),
          model(model), count(0) {
        for (const dlRowVector& r : results)
            if (count < 2) this->results[count++] = r;
    }
    dlGaussData& data;
    dlTwoGrid& grid;
    int& rows;
    int& cols;
    int& stride;
    dlFill frame;
    dlFill model;
    dlRowVector results[2];
    int count;
};

class dlScoringTest : public dlRowsTest {
public:
    template <class... Args>
    dlScoringTest(dlScoringModule& module, Args... args)
        : dlRowsTest(args...), m_module(module), m_multiMix(m_name.found("MultiMix")) {}

    bool canStart() override {
        m_module.grid.read(m_func, "Rows", "Cols");
        m_module.data.init(m_func);
        for (int i = 0; i < m_module.count; ++i) m_module.results[i].vector->init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        dlScoringModule& m = m_module;
        if (!m.grid.next(m_firstSet)) return false;
        m.rows = m.grid.rows;
        m.cols = m.grid.cols;
        m.stride = layoutStride(m.cols);
        if (!m.data.create(m_multiMix, m_d2l, m.rows, m.cols, m.stride, m.frame, m.model))
            return false;
        for (int i = 0; i < m.count; ++i) {
            dlFill f = m.results[i].fill;
            if (!m.results[i].vector->createVector(m.rows, f.mode, f.value, 0)) return false;
        }
        return true;
    }
    void flushData() override {
        m_module.data.flush();
        for (int i = 0; i < m_module.count; ++i) m_module.results[i].vector->deleteVector();
    }
    double getDivisor() override { return m_module.cols * m_module.rows; }
    void columns(dlColumns& c) override {
        c << dlItem("rows", m_module.rows) << dlItem("cols", m_module.cols)
          << strideItem("stride", m_module.stride) << m_module.grid.scaleFactor;
    }

private:
    dlScoringModule& m_module;
    const bool m_multiMix;
};

#endif
