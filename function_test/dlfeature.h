// What the feature-extraction modules share: the saved input of an
// in-place test.
#ifndef DL_FEATURE_H
#define DL_FEATURE_H

#include <cstring>
#include <initializer_list>

#include "dl.h"

// An in-place test's work buffer and the copy of its input: `restore`
// copies the input back before each call.
class dlInPlace {
public:
    dlInPlace(dlVector& work, dlVector& saved) : m_work(work), m_saved(saved), m_dataSize(0) {}
    // The work buffer of `len` elements, filled from the saved input.
    bool create(int len) {
        if (!m_work.createVector(len, SET_ZERO, 0, 0)) return false;
        m_dataSize = len * dlVector::item(m_work.m_func);
        restore();
        return true;
    }
    void restore() { std::memcpy(m_work.getPointerAt(0), m_saved.getPointerAt(0), m_dataSize); }
    int dataSize() const { return m_dataSize; }

private:
    dlVector& m_work;
    dlVector& m_saved;
    int m_dataSize;
};

#endif
