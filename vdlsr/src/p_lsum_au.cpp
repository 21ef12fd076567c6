// The log-add of a whole vector into one value, by each hint, and for the
// fixed-point forms at each scale factor.
#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_lsum_au");

static dlVector src, pResult;
static kvStepIterator<int> len;
static kvStepIterator<int> scaleFactor;
static kvMapIterator<int> hint;

class TimLSum : public dlLogAddTest {
public:
    DL_CTOR(TimLSum, dlLogAddTest, len, hint, scaleFactor)

    bool canStart() override {
        dlStep(len, "Lenght", 8, 46, 2, '+');
        if (m_fixedPoint)
            dlStep(scaleFactor, "scale", -1, 2, 1, '+');
        else
            dlOne(scaleFactor);
        readHint();
        dlInitAll({&src, &pResult}, m_func);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &hint, &len}) && src.createVector(len, -1) &&
               pResult.createVector(1, -1);
    }
    void flushData() override { dlDeleteAll({&src, &pResult}); }
};

DL_REG(TimLSum, vdlsLogSum_64f, (src, pResult, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_32f, (src, pResult, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_16s_Sfs,
       (src, pResult, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_32s_Sfs,
       (src, pResult, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
