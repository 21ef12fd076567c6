// dllogsel.h: what the log-domain and selection modules share: list
// parameters of named values, the restore of an in-place buffer, and the
// data rules of the modules that have an idea of their own (the sparse sign
// table, the bounds of fixed-point log values, the planted maximum).
#ifndef DL_LOGSEL_H
#define DL_LOGSEL_H

#include <cstring>
#include <initializer_list>

#include "dltest.h"
#include "dltypes.h"
#include "dlvector.h"
#include "kvistream.h"
#include "kvparameter.h"

// A value of a map parameter and the word that shows it.
struct dlNamedValue {
    int value;
    kvString name;
};

// A map parameter with its values in the order given, each allowed and
// shown by its word, then read from input.
inline void dlMapList(kvMapIterator<int>& it, const char* name,
                      std::initializer_list<dlNamedValue> values) {
    it.resetMap();
    it.init(name);
    it.initValidation();
    for (const dlNamedValue& v : values) {
        it.addValidation(v.value, v.name);
        it.add(v.value);
    }
    it.fromIStream(g_istrm);
}

// The same with each value shown by its decimal text.
inline void dlMapNumbers(kvMapIterator<int>& it, const char* name,
                         std::initializer_list<int> values) {
    it.resetMap();
    it.init(name);
    it.initValidation();
    for (int v : values) {
        kvString text;
        text << v;
        it.addValidation(v, text);
        it.add(v);
    }
    it.fromIStream(g_istrm);
}

// A list parameter that keeps its values: no ini key, no question.
template <class T>
inline void dlFixedList(kvIterator<T>& it, const char* name, std::initializer_list<T> values) {
    it.reset();
    it.init(name);
    for (T v : values) it.add(v);
}

// A walk that is not read from input (a nameless parameter of one value).
inline void dlFixedStep(kvStepIterator<int>& it, const char* name, int first, int last, int step,
                        char op) {
    it.reset();
    it.init(name, first, last, step, op);
}

// An empty column: nothing in the text line, "-" in the table.
inline dlItem dlGap() {
    static kvIterator<int> nameless;
    return dlItem(nameless);
}

// Copies the saved input of an in-place call back over its work buffer.
inline int dlRestore(dlVector& work, const dlVector& saved, int bytes) {
    std::memcpy(work.getPointerAt(0), saved.getPointerAt(0), bytes);
    return 0;
}

// The sparse sign table: for each of `frames` frames of `height` bytes the
// first draws of `draws` mark their components, draw i for each i from 0
// while i is not greater than height / nSign (in floating point). Draws may
// repeat, so fewer components than draws may be marked. Returns the number
// of draws applied to each frame; none past the `count` draws there are,
// and a draw outside the frame marks nothing.
inline int dlPlantSigns(dl8u* sign, const dl32s* draws, int count, int frames, int height,
                        double nSign) {
    int applied = 0;
    for (int f = 0; f < frames; ++f) {
        applied = 0;
        for (int i = 0; i <= height / nSign && i < count; ++i, ++applied)
            if (draws[i] >= 0 && draws[i] < height) sign[height * f + draws[i]] = 1;
    }
    return applied;
}

// The range of random log values of a log-add: -20 to -5, in the units of a
// fixed-point form (times 2^scaleFactor for a positive factor).
struct dlLogBounds {
    double low = -20.0;
    double high = -5.0;
    dlLogBounds(bool fixedPoint, int scaleFactor) {
        if (fixedPoint && scaleFactor > 0) {
            low *= 1 << scaleFactor;
            high *= 1 << scaleFactor;
        }
    }
};

// Where the one value above all others goes: the first element, the last,
// or the middle.
enum dlPlace { DL_PLACE_BEGIN = 0, DL_PLACE_END = 1, DL_PLACE_MIDDLE = 2 };

inline int dlPlaceIndex(int place, int len) {
    return place == DL_PLACE_BEGIN ? 0 : place == DL_PLACE_END ? len - 1 : len / 2;
}

#endif
