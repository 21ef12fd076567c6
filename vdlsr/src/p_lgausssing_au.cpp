// Log-likelihood of one feature frame against one diagonal Gaussian.
#include "dl.h"

DL_MODULE("vdlsr/src/p_lgausssing_au");

static dlVector src, mean, var, dst;
static kvStepIterator<int> len;
static dlrScaleIterator scaleFactor;

class TimLGaussSingle : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 68, 2, '+');
        dlScale(scaleFactor, m_func);
        dlInitAll({&src, &mean, &var}, m_func);
        dst.init(m_func, DL_DST1);
        return true;
    }
    bool canContinue() override {
        // A variance given directly is a divisor, so it must not be zero.
        return stepOdometer({&scaleFactor, &len}) &&
               dlCreateAll({&src, &mean}, len, SET_ZERO) &&
               var.createVector(len, m_directVar ? SET_ONE : SET_ZERO, 0, 0) &&
               dst.createVector(len, SET_ZERO, 0, 0);
    }
    void flushData() override { dlDeleteAll({&src, &mean, &var, &dst}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len << scaleFactor; }

private:
    const bool m_directVar = m_name.found("DirectVar");
};

DL_REG(TimLGaussSingle, vdlsLogGaussSingle_32f, (src, mean, var, len, dst, 0.5f));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_64f, (src, mean, var, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_32f64f, (src, mean, var, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_Scaled_16s32f,
       (src, mean, var, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVarScaled_16s32f,
       (src, mean, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_16s32s_Sfs,
       (src, mean, var, len, dst, 0, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVar_16s32s_Sfs,
       (src, mean, len, dst, 0, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVar_32f, (src, mean, len, dst, 0.5f));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVar_64f, (src, mean, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVar_32f64f, (src, mean, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_DirectVar_32f, (src, mean, var, len, dst, 0.5f));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_DirectVar_64f, (src, mean, var, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_DirectVar_32f64f, (src, mean, var, len, dst, 0.5));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_DirectVarScaled_16s32f,
       (src, mean, var, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_LowScaled_16s32f,
       (src, mean, var, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVarLowScaled_16s32f,
       (src, mean, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_DirectVar_16s32s_Sfs,
       (src, mean, var, len, dst, 0, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_Low_16s32s_Sfs,
       (src, mean, var, len, dst, 0, scaleFactor.value()));
DL_REG(TimLGaussSingle, vdlsLogGaussSingle_IdVarLow_16s32s_Sfs,
       (src, mean, len, dst, 0, scaleFactor.value()));
