// dlfeature.h: what the feature-extraction modules share: the test of a
// function of each element of a vector, into another vector or in place.
#ifndef DL_FEATURE_H
#define DL_FEATURE_H

#include "dl.h"
#include "dlinplace.h"

// "Length" from 10 to 48 by 2; the input random between `low` and `high`,
// saved for the in-place (`_I`) forms, which work on a copy of it.
class dlElementwiseTest : public prTest {
public:
    template <class... Args>
    dlElementwiseTest(dlVector& src, dlVector& dst, dlInPlace& inPlace, kvStepIterator<int>& len,
                      double low, double high, Args... args)
        : prTest(args...), m_src(src), m_dst(dst), m_inPlace(inPlace), m_len(len), m_low(low),
          m_high(high) {}

    bool canStart() override {
        dlStep(m_len, "Length", 10, 48, 2, '+');
        dlInitAll({&m_src, &m_inPlace.saved(), &m_inPlace.work()}, m_func);
        m_dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&m_len}) &&
               dlCreateAll({&m_src, &m_inPlace.saved()}, m_len, SET_RANDOM, m_low, m_high) &&
               m_dst.createVector(m_len, SET_ZERO, 0, 0) && m_inPlace.create(m_len);
    }
    void flushData() override {
        dlDeleteAll({&m_src, &m_inPlace.saved(), &m_dst, &m_inPlace.work()});
    }
    double getDivisor() override { return m_len; }
    void columns(dlColumns& c) override { c << m_len; }

private:
    dlVector& m_src;
    dlVector& m_dst;
    dlInPlace& m_inPlace;
    kvStepIterator<int>& m_len;
    const double m_low;
    const double m_high;
};

#endif
