// Vectors of one length made side by side, each at its own shift from the
// aligned place, so that no two of them share the same cache offsets.
#ifndef DL_SHIFTED_H
#define DL_SHIFTED_H

#include <initializer_list>

#include "dlvector.h"
#include "kvmemory.h"

// Creates the vectors in turn, the k-th (counted from `firstShift`) at k
// vector shifts, all filled by `mode`; false at the first that fails.
inline bool dlCreateShifted(std::initializer_list<dlVector*> vectors, int len, int firstShift,
                            SetMode mode) {
    int k = firstShift;
    for (dlVector* v : vectors)
        if (!v->createVectorExt(len, k++ * kvGetVectorShift(), mode, 0, 0)) return false;
    return true;
}

#endif
