// Predictor coefficients to line spectral pairs, from fixed filters of
// orders 5, 10, 15 and 20.
#include <cstring>

#include "dllp.h"

DL_MODULE("vdlsr/src/p_lpc2lsf_au");

static dlVector lpSrc, lspDst;
static kvStepIterator<int> length;
static int nInt, nDiv = 4, roots = 0, scaleFactor = 9;

static const float f5[] = {1.07978f, -1.84139f, 1.19199f, -0.800087f, 0.349903f};
static const float f10[] = {-3.62228f, 8.47263f, -12.5707f, 14.0352f, -10.8972f,
                            6.34564f, -2.1912f, 0.532509f, 0.0119157f, 0.059504f};
static const float f15[] = {0.93593f, -4.09103f, 2.82259f, -8.23521f, 4.28778f,
                            -10.4685f, 3.82957f, -9.12874f, 1.97011f, -5.42329f,
                            0.193073f, -2.04585f, -0.367991f, -0.377252f, -0.220548f};
static const float f20[] = {-4.51097f, 12.7103f, -27.2264f, 47.6265f, -71.3919f,
                            94.6788f, -113.736f, 126.447f, -132.126f, 130.842f,
                            -122.689f, 107.849f, -87.4566f, 64.1793f, -41.687f,
                            23.3599f, -10.8689f, 4.01472f, -1.02738f, 0.139252f};
static const short s5[] = {-758, -244, 535, 624, 296};
static const short s10[] = {-856, 1044, -749, 220, 518, -764, 748, -553, 260, 14};
static const short s15[] = {180, -1978, 1048, -3504, 2566, -3596, 3496, -2313,
                            2838, -972, 1340, -277, 319, -49, 26};
static const short s20[] = {-707, 1461, -1201, 1333, -802, 499, -212, -113, -205, 355,
                            -827, 868, -721, 573, 11, -172, 668, -463, 376, -99};

class TimLpc2Lsf : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(length, "Length", 10, 20, 5, '+');
        nInt = 6 * length;
        dlInitAll({&lpSrc, &lspDst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&length})) return false;
        nInt = 6 * length;
        if (!lpSrc.createVector(length, SET_ZERO, 0, 0) || !lspDst.createVector(length, SET_ZERO, 0, 0))
            return false;
        setData();
        return true;
    }
    // The table of the length; a length without one keeps the source as made.
    virtual void setData() {
        const void* table = 0;
        switch ((int)length) {
        case 5: table = m_16s ? (const void*)s5 : (const void*)f5; break;
        case 10: table = m_16s ? (const void*)s10 : (const void*)f10; break;
        case 15: table = m_16s ? (const void*)s15 : (const void*)f15; break;
        case 20: table = m_16s ? (const void*)s20 : (const void*)f20; break;
        }
        if (table) std::memcpy(lpSrc.getPointerAt(0), table, length * dlVector::item(m_func));
    }
    void flushData() override { dlDeleteAll({&lpSrc, &lspDst}); }
    double getDivisor() override { return length; }
    void columns(dlColumns& c) override { c << length << dlItem("scaleFactor", scaleFactor); }

private:
    const bool m_16s = m_name.found("_16s");
};

DL_REG(TimLpc2Lsf, vdlsLPToLSP_32f, (lpSrc, lspDst, length, &roots, nInt, nDiv));
DL_REG(TimLpc2Lsf, vdlsLPToLSP_16s_Sfs,
       (lpSrc, scaleFactor, lspDst, length, &roots, nInt, nDiv, -scaleFactor));
