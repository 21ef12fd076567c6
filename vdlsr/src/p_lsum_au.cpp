// The log-add of a whole vector into one value, by each hint, and for the
// fixed-point forms at each scale factor.
#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_lsum_au");

static dlVector src, pResult;
static kvStepIterator<int> len;
static kvStepIterator<int> scaleFactor;
static kvMapIterator<int> hint;

class TimLSum : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 8, 46, 2, '+');
        if (m_16s || m_32s)
            dlStep(scaleFactor, "scale", -1, 2, 1, '+');
        else
            dlFixedStep(scaleFactor, "", 1, 1, 1, '+');
        dlMapList(hint, "Hint", {{0, HintStr[0]}, {1, HintStr[1]}, {2, HintStr[2]}});
        src.init(m_func, 1);
        pResult.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&scaleFactor, &hint, &len}) && src.createVector(len, -1) &&
               pResult.createVector(1, -1);
    }
    void flushData() override {
        src.deleteVector();
        pResult.deleteVector();
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override {
        c << len << hint << dlGap() << dlGap() << dlGap();
        c << (m_16s || m_32s ? dlItem(scaleFactor) : dlGap());
    }

private:
    const bool m_32s = m_name.found("32s");
    const bool m_16s = m_name.found("16s");
};

DL_REG(TimLSum, vdlsLogSum_64f, (src, pResult, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_32f, (src, pResult, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_16s_Sfs,
       (src, pResult, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
DL_REG(TimLSum, vdlsLogSum_32s_Sfs,
       (src, pResult, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
