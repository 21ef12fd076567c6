// Updates of a Gaussian mixture from its accumulators: means, floored
// variances, weights, Gaussian constants and the per-component values of
// the scoring functions. What a test needs is picked by its name.
#include "dl.h"
#include "dlshifted.h"

DL_MODULE("vdlsr/src/p_updt_au");

static dlVector pMeanAcc, pVarAcc, pMean, pVar, pVarFloor, pWgt, pVal, pResult;
static kvStepIterator<int> len;

class TimUpdate : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 68, 2, '+');
        dlInitAll({&pMeanAcc, &pVarAcc, &pMean, &pVar, &pVarFloor, &pWgt, &pVal, &pResult}, m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&len})) return false;
        if (m_name.found("UpdateMean"))
            return dlCreateShifted({&pMeanAcc, &pMean}, len, 0, SET_ONE);
        if (m_name.found("UpdateVar"))
            return dlCreateShifted({&pMeanAcc, &pVarAcc, &pVar}, len, 0, SET_ONE) &&
                   pVarFloor.createVector(len, SET_ZERO, 0, 0);
        if (m_name.found("UpdateWeight"))
            return pMeanAcc.createVector(len, SET_ONE, 0, 0) &&
                   pWgt.createVector(len, SET_ZERO, 0, 0) && pResult.createVector(1, SET_ZERO, 0, 0);
        if (m_name.found("UpdateGConst"))
            return pVar.createVector(len, SET_ONE, 0, 0) && pResult.createVector(1, SET_ZERO, 0, 0);
        return dlCreateShifted({&pWgt, &pVarFloor, &pVal}, len, 0, SET_ZERO);
    }
    void flushData() override {
        dlDeleteAll({&pMeanAcc, &pVarAcc, &pMean, &pVar, &pVarFloor, &pWgt, &pVal, &pResult});
    }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimUpdate, vdlsUpdateMean_32f, (pMeanAcc, pMean, len, 1.0f));
DL_REG(TimUpdate, vdlsUpdateMean_64f, (pMeanAcc, pMean, len, 1.0));
DL_REG(TimUpdate, vdlsUpdateVar_32f, (pMeanAcc, pVarAcc, pVarFloor, pVar, len, 1.0f, 0.5f));
DL_REG(TimUpdate, vdlsUpdateVar_64f, (pMeanAcc, pVarAcc, pVarFloor, pVar, len, 1.0, 0.5));
DL_REG(TimUpdate, vdlsUpdateWeight_32f, (pMeanAcc, pWgt, len, pResult, 0.5f, 1.0f));
DL_REG(TimUpdate, vdlsUpdateWeight_64f, (pMeanAcc, pWgt, len, pResult, 0.5, 1.0));
DL_REG(TimUpdate, vdlsUpdateGConst_32f, (pVar, len, pResult));
DL_REG(TimUpdate, vdlsUpdateGConst_64f, (pVar, len, pResult));
DL_REG(TimUpdate, vdlsUpdateGConst_DirectVar_32f, (pVar, len, pResult));
DL_REG(TimUpdate, vdlsUpdateGConst_DirectVar_64f, (pVar, len, pResult));
DL_REG(TimUpdate, vdlsOutProbPreCalc_32f, (pWgt, pVarFloor, pVal, len));
DL_REG(TimUpdate, vdlsOutProbPreCalc_64f, (pWgt, pVarFloor, pVal, len));
DL_REG(TimUpdate, vdlsOutProbPreCalc_32f_I, (pWgt, pVal, len));
DL_REG(TimUpdate, vdlsOutProbPreCalc_64f_I, (pWgt, pVal, len));
DL_REG(TimUpdate, vdlsOutProbPreCalc_32s, (pWgt, pVarFloor, pVal, len));
DL_REG(TimUpdate, vdlsOutProbPreCalc_32s_I, (pWgt, pVal, len));
