// dlparams.h: how a module sets up its parameters in canStart. A walk or a
// list gets its default values, then is read from -d, the ini file or the
// console; a few keep their values and are never read.
#ifndef DL_PARAMS_H
#define DL_PARAMS_H

#include <initializer_list>

#include "dlscaleiterator.h"
#include "kvistream.h"
#include "kvparameter.h"

// A walk from `first` to `last` by `op` and `step`, then read.
template <class T>
inline void dlStep(kvStepIterator<T>& it, const char* name, T first, T last, T step, char op) {
    it.reset();
    it.init(name, first, last, step, op);
    it.fromIStream(g_istrm);
}

// A scale iterator set up for the test's function, then read.
template <class... Ints>
inline void dlScale(dlScaleIterator& it, const kvString& funcName, Ints... values) {
    it.init(funcName, values...);
    it.fromIStream(g_istrm);
}

// A value of a map parameter and the word that shows it.
struct dlNamedValue {
    int value;
    kvString name;
};

// A map parameter that allows the `named` values, each shown by its word,
// and walks `walk` (values among them), or all of them in their order when
// `walk` is empty; then read.
inline void dlMapList(kvMapIterator<int>& it, const char* name,
                      std::initializer_list<dlNamedValue> named,
                      std::initializer_list<int> walk = {}) {
    it.resetMap();
    it.init(name);
    it.initValidation();
    for (const dlNamedValue& v : named) it.addValidation(v.value, v.name);
    if (walk.size() == 0)
        for (const dlNamedValue& v : named) it.add(v.value);
    for (int v : walk) it.add(v);
    it.fromIStream(g_istrm);
}

// A map parameter of `values`, each shown by its decimal text.
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

// A nameless parameter of the one value 1: a wheel of the odometer that
// never turns, and is never read from input.
template <class T>
inline void dlOne(kvStepIterator<T>& it) {
    it.reset();
    it.init("", T(1), T(1), T(1), '+');
}

#endif
