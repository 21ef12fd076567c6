// Decision-tree clustering: the sums of a cluster accumulated from its
// Gaussians, and the cluster's log-likelihood computed from them.
#include "dl.h"

DL_MODULE("vdlsr/src/p_dcl_au");

static dlVector pMean, pVar, pDstSum, pDstSqr;
static kvStepIterator<int> len;

class TimDcl : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(len, "Lenght", 30, 68, 2, '+');
        dlInitAll({&pMean, &pVar, &pDstSqr}, m_func, 1);
        pDstSum.init(m_func, DL_DST1);  // double in Compute
        return true;
    }
    bool canContinue() override {
        return stepOdometer({&len}) && pMean.createVector(len, SET_VALUE, 4.0, 0) &&
               pVar.createVector(len, SET_VALUE, 40.0, 0) &&
               dlCreateAll({&pDstSum, &pDstSqr}, len, SET_ZERO);
    }
    void flushData() override { dlDeleteAll({&pMean, &pVar, &pDstSum, &pDstSqr}); }
    double getDivisor() override { return len; }
    void columns(dlColumns& c) override { c << len; }
};

DL_REG(TimDcl, vdlsDcsClustLAccumulate_32f, (pMean, pVar, pDstSum, pDstSqr, len, 1.0f));
DL_REG(TimDcl, vdlsDcsClustLAccumulate_64f, (pMean, pVar, pDstSum, pDstSqr, len, 1.0));
DL_REG(TimDcl, vdlsDcsClustLAccumulate_DirectVar_32f, (pMean, pVar, pDstSum, pDstSqr, len, 1.0f));
DL_REG(TimDcl, vdlsDcsClustLAccumulate_DirectVar_64f, (pMean, pVar, pDstSum, pDstSqr, len, 1.0));
DL_REG(TimDcl, vdlsDcsClustLCompute_32f64f, (pMean, pVar, len, pDstSum, 1.0f));
DL_REG(TimDcl, vdlsDcsClustLCompute_64f, (pMean, pVar, len, pDstSum, 1.0));
