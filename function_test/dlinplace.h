// dlinplace.h: an in-place call overwrites its input, so each call of a
// timed loop first gets the input back from a saved copy.
#ifndef DL_INPLACE_H
#define DL_INPLACE_H

#include <cstring>

#include "dlvector.h"

// An in-place test's work buffer and the saved copy of its input.
class dlInPlace {
public:
    dlInPlace(dlVector& work, dlVector& saved) : m_work(work), m_saved(saved), m_dataSize(0) {}
    // The work buffer of `len` elements, filled from the saved input.
    bool create(int len) {
        if (!m_work.createVector(len, SET_ZERO, 0, 0)) return false;
        cover(len);
        restore();
        return true;
    }
    // For a work buffer made by the module: `restore` copies `len` elements.
    void cover(int len) { m_dataSize = len * dlVector::item(m_work.m_func); }
    void restore() { std::memcpy(m_work.getPointerAt(0), m_saved.getPointerAt(0), m_dataSize); }
    dlVector& work() { return m_work; }
    dlVector& saved() { return m_saved; }

private:
    dlVector& m_work;
    dlVector& m_saved;
    int m_dataSize;
};

#endif
