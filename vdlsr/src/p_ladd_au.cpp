// Element-wise log-add of two vectors of log values, by each hint, and for
// the fixed-point forms at each scale factor, with the data scaled to it.
#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_ladd_au");

static dlVector src, dst;
static kvStepIterator<int> len;
static kvMapIterator<int> scaleFactor;
static kvMapIterator<int> hint;

class TimLAdd : public dlLogAddTest {
public:
    DL_CTOR(TimLAdd, dlLogAddTest, len, hint, scaleFactor)

    bool canStart() override {
        dlStep(len, "Lenght", 8, 24, 8, '+');
        if (m_16s)
            dlMapNumbers(scaleFactor, "scaleFactor", {-1, 0, 8, 12});
        else if (m_32s)
            dlMapNumbers(scaleFactor, "scaleFactor", {-1, 0, 8, 16, 24});
        else
            dlMapNumbers(scaleFactor, "scaleFactor", {1});
        readHint();
        dlInitAll({&src, &dst}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &hint, &len})) return false;
        const dlLogBounds bounds(m_fixedPoint, scaleFactor);
        return dlCreateAll({&src, &dst}, len, SET_RANDOM, bounds.low, bounds.high);
    }
    void flushData() override { dlDeleteAll({&src, &dst}); }
};

DL_REG(TimLAdd, vdlsLogAdd_64f, (src, dst, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_32f, (src, dst, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_16s_Sfs,
       (src, dst, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_32s_Sfs,
       (src, dst, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
