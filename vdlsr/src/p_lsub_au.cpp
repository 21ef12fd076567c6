// Element-wise log-sub of two constant vectors of log values.
#include "dl.h"

DL_MODULE("vdlsr/src/p_lsub_au");

static dlVector src, dst;
static kvStepIterator<int> len;
// Set up and read, but not walked: it stands at the 0 of its reset.
static dlrScaleIterator scaleFactor;

class TimLSub : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 8, 46, 4, '+');
        dlScale(scaleFactor, m_name);
        dlInitAll({&src, &dst}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && src.createVector(len, SET_VALUE, 15.0, 0) &&
               dst.createVector(len, SET_VALUE, 6.900000095367432, 0);
    }
    void flushData() override { dlDeleteAll({&src, &dst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }
};

DL_REG(TimLSub, vdlsLogSub_64f, (src, dst, len));
DL_REG(TimLSub, vdlsLogSub_32f, (src, dst, len));
DL_REG(TimLSub, vdlsLogSub_32s_Sfs, (src, dst, len, scaleFactor.value()));
DL_REG(TimLSub, vdlsLogSub_16s_Sfs, (src, dst, len, scaleFactor.value()));
