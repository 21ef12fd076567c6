// dllogsel.h: what the log-domain and selection modules share: the data
// rules of the modules that have an idea of their own (the sparse sign
// table, the bounds of fixed-point log values, the planted maximum), and
// the class of the log-add modules.
#ifndef DL_LOGSEL_H
#define DL_LOGSEL_H

#include "dl.h"
#include "dltypes.h"

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

// The log-add modules: a length, the library's hint, and the scale factor
// of the fixed-point (16s, 32s) forms. Columns: the length, the hint, three
// empty, then the scale factor of a fixed-point form.
class dlLogAddTest : public prTest {
public:
    template <class... Args>
    dlLogAddTest(kvStepIterator<int>& len, kvMapIterator<int>& hint, kvParameter& scaleFactor,
                 Args... args)
        : prTest(args...), m_len(len), m_hint(hint), m_scaleFactor(scaleFactor) {}

    double getDivisor() override { return m_len; }
    void columns(dlColumns& c) override {
        c << m_len << m_hint << dlGap() << dlGap() << dlGap();
        c << (m_fixedPoint ? dlItem(m_scaleFactor) : dlGap());
    }

protected:
    // The three hints by their words, all walked.
    void readHint() {
        dlMapList(m_hint, "Hint", {{0, HintStr[0]}, {1, HintStr[1]}, {2, HintStr[2]}});
    }

    const bool m_32s = m_name.found("32s");
    const bool m_16s = m_name.found("16s");
    const bool m_fixedPoint = m_16s || m_32s;

private:
    kvStepIterator<int>& m_len;
    kvMapIterator<int>& m_hint;
    kvParameter& m_scaleFactor;
};

#endif
