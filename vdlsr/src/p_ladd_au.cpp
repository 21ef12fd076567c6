// Element-wise log-add of two vectors of log values, by each hint, and for
// the fixed-point forms at each scale factor, with the data scaled to it.
#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_ladd_au");

static dlVector src, dst;
static kvStepIterator<int> len;
static kvMapIterator<int> scaleFactor;
static kvMapIterator<int> hint;

class TimLAdd : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 8, 24, 8, '+');
        if (m_16s)
            dlMapNumbers(scaleFactor, "scaleFactor", {-1, 0, 8, 12});
        else if (m_32s)
            dlMapNumbers(scaleFactor, "scaleFactor", {-1, 0, 8, 16, 24});
        else
            dlMapNumbers(scaleFactor, "scaleFactor", {1});
        dlMapList(hint, "Hint", {{0, HintStr[0]}, {1, HintStr[1]}, {2, HintStr[2]}});
        src.init(m_func, 1);
        dst.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&scaleFactor, &hint, &len})) return false;
        const dlLogBounds bounds(m_16s || m_32s, scaleFactor);
        return src.createVector(len, SET_RANDOM, bounds.low, bounds.high) &&
               dst.createVector(len, SET_RANDOM, bounds.low, bounds.high);
    }
    void flushData() override {
        src.deleteVector();
        dst.deleteVector();
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

DL_REG(TimLAdd, vdlsLogAdd_64f, (src, dst, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_32f, (src, dst, len, (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_16s_Sfs,
       (src, dst, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
DL_REG(TimLAdd, vdlsLogAdd_32s_Sfs,
       (src, dst, len, scaleFactor.value(), (VdlHintAlgorithm)hint.value()));
