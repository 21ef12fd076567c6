// Removal of the mean of a long signal, in place.
#include "dl.h"

DL_MODULE("vdlsr/src/p_zeromean_au");

static dlVector vect;
static kvStepIterator<int> lenght;

class TimZeroMean : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(lenght, "lenght", 10000, 50000, 2000, '+');
        vect.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&lenght}) && vect.createVector(lenght, SET_ZERO, 0, 0);
    }
    void flushData() override { vect.deleteVector(); }
    double getDivisor() override { return lenght; }
    void columns(dlColumns& c) override { c << lenght; }
};

DL_REG(TimZeroMean, vdlsZeroMean_16s, (vect, lenght));
