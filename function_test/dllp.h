// What the linear-prediction modules share: the autocorrelation they make
// their input of, the prediction error word the library writes, a sort of
// line spectral pairs into descending order, and the class of the two
// modules that time a recursion over such lags.
#ifndef DL_LP_H
#define DL_LP_H

#include "dl.h"

// Lags 0 .. lags of the `count` values x: r[k] is the sum over j from k to
// count - 1 of x[j - k] x[j], summed in extended precision and stored as
// float, so a lag at or beyond count is 0. A first lag below 1.0 is raised
// to 1.0, which keeps the lags of a silent signal a valid input.
void dlLags(const float* x, int count, float* r, int lags);

// x[i - 1] = sin(i / divisor) for i = 1 .. count.
void dlSine(float* x, int count, double divisor);

// The prediction error of a Durbin or Schur call: one word that the library
// writes, as float or as 32-bit integer by the function's type, and no test
// reads.
union dlLpError {
    Vdl32f f;
    Vdl32s s;
};

// Quicksort of v[lo .. hi] into descending order, the middle element the
// pivot.
template <class T>
void SortVector(T* v, int lo, int hi) {
    while (lo < hi) {
        const T pivot = v[lo + (hi - lo) / 2];
        int i = lo, j = hi;
        while (i <= j) {
            while (v[i] > pivot) ++i;
            while (v[j] < pivot) --j;
            if (i <= j) {
                const T t = v[i];
                v[i++] = v[j];
                v[j--] = t;
            }
        }
        // Recurse into the smaller part, loop over the larger.
        if (j - lo < hi - i) {
            SortVector(v, lo, j);
            lo = i;
        } else {
            SortVector(v, i, hi);
            hi = j;
        }
    }
}

// The module data of a recursion over autocorrelation lags.
struct dlLagsData {
    dlVector& src;       // the lags, of the function's type
    dlVector& dst;       // its result
    dlVector& srcFloat;  // the lags in float, converted for a 16-bit test
    dlVector& tmp;       // the signal the lags are made of
    kvStepIterator<int>& len;
    dlScaleIterator& scaleFactor;
};

// Times a function of `len + 1` lags of 200 samples of a slow sine (len
// "Lenght" from `firstLen` to 32, the scale factor -8), `scaleFactor`
// fastest. The 16-bit test takes the float lags converted with the scale
// factor.
class dlLagsTest : public prTest {
public:
    template <class... Args>
    dlLagsTest(const dlLagsData& data, int firstLen, Args... args)
        : prTest(args...), m_data(data), m_firstLen(firstLen) {}

    bool canStart() override;
    bool canContinue() override;
    void flushData() override;
    double getDivisor() override { return m_data.len; }
    void columns(dlColumns& c) override { c << m_data.len << m_data.scaleFactor; }
    virtual void setData();

private:
    dlLagsData m_data;
    const int m_firstLen;
    int m_lenTmp = 0;
    const bool m_16s = m_name.found("_16s");
};

#endif
