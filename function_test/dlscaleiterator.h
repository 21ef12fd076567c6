// Scale iterators: a "ScaleFactor" list for a function that takes a scale
// factor, and a nameless single 0 for one that does not, so that a module's
// code is the same for both.
#ifndef DL_SCALEITERATOR_H
#define DL_SCALEITERATOR_H

#include "dlfunc.h"
#include "kvparameter.h"

class dlScaleIterator : public kvIterator<int> {
public:
    dlScaleIterator() : m_scaled(false) {}
    // The scale factor always fills the last parameter column of the table.
    int colmIndex() const override;
    // True when the descriptor holds "Sfs" or "Fix".
    virtual bool isScaled(const dlFunc& func) const;

    // The default list 0, 1, 2, -1 for a scaled function.
    void init(kvString funcName);
    // A list of the module's own for a scaled function.
    template <class... Ints> void init(kvString funcName, int first, Ints... rest) {
        init(funcName);
        if (!m_scaled) return;
        setScaled();
        int values[] = {first, rest...};
        for (int v : values) add(v);
    }
    bool scaled() const { return m_scaled; }

protected:
    void setScaled();
    bool m_scaled;
};

// Also counts a function as scaled when its whole name holds "Scaled".
class dlrScaleIterator : public dlScaleIterator {
public:
    bool isScaled(const dlFunc& func) const override;
};

#endif
