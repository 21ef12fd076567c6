// What the feature-extraction modules share: vectors set up, made and
// deleted as a group, and the saved input of an in-place test.
#ifndef DL_FEATURE_H
#define DL_FEATURE_H

#include <cstring>
#include <initializer_list>

#include "dlvector.h"

// Each vector takes the type of the function's argument `arg`.
inline void dlInitAll(const dlFunc& func, std::initializer_list<dlVector*> vectors, int arg = 1) {
    for (dlVector* v : vectors) v->init(func, arg);
}

// Makes each vector `len` long and fills it by `mode`; false at the first
// that cannot be made.
inline bool dlCreateAll(std::initializer_list<dlVector*> vectors, int len, SetMode mode,
                        double a = 0, double b = 0) {
    for (dlVector* v : vectors)
        if (!v->createVector(len, mode, a, b)) return false;
    return true;
}

inline void dlDeleteAll(std::initializer_list<dlVector*> vectors) {
    for (dlVector* v : vectors) v->deleteVector();
}

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
