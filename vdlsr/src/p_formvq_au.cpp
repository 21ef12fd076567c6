// Feature vectors rebuilt from the codeword indices of a table of
// codebooks: 16-bit, 8-bit or bit-packed indices.
#include "dlcdbksplit.h"

DL_MODULE_VDLS("vdlsr/src/p_formvq_au");

static dlCdbkSplitData data;
static dlVector pFV_Src, pFV_Src1, pFV_Dst;
static int srcStep;

class TimFormVQ : public dlCdbkSplitTest {
public:
    DL_CTOR(TimFormVQ, dlCdbkSplitTest, data, 2)

protected:
    void initBuffers() override {
        pFV_Src.init(m_1u ? dlFunc("_8u_") : m_func, 1);
        pFV_Src1.init(dlFunc("_16s_"), 1);
        pFV_Dst.init(m_func, DL_DST1);
    }
    // All-zero training rows: a sequence from 0 to 0.
    bool createSource() override {
        return data.pSrc.createVector(vectorLength(), SET_SEQUENCE, 0, 0);
    }
    bool createBuffers() override {
        int count = data.height * data.CdbksNum;
        if (!setIndices(count)) return false;
        return pFV_Dst.createVector(vectorLength(), SET_ZERO, 0, 0);
    }
    void flushBuffers() override {
        dlDeleteAll({&pFV_Src, &pFV_Dst});
        if (m_1u) pFV_Src1.deleteVector();
    }

private:
    // Random indices of the codebooks, as elements or packed into bits.
    bool setIndices(int count) {
        if (!m_1u) {
            srcStep = data.CdbksNum;
            return pFV_Src.createVector(count, SET_RANDOM, 0, data.nClust - 1);
        }
        int bits = dlCeilLog2(data.nClust);
        srcStep = (dlFloorLog2(data.nClust) + 1) * data.CdbksNum;
        if (!pFV_Src1.createVector(count, SET_RANDOM, 0, data.nClust - 1) ||
            !pFV_Src.createVector((bits / 8 + 1) * count, SET_ZERO, 0, 0))
            return false;
        dlPackIndices(pFV_Src, pFV_Src1, data.height, data.CdbksNum, bits, srcStep);
        return true;
    }
};

#define FORM_ARGS(Cdbk) (pFV_Src, srcStep, pFV_Dst, data.CdbksNum * data.step, data.height, \
                         (Cdbk)data.table, data.CdbksNum)

DL_REG(TimFormVQ, vdlsFormVectorVQ_16s16s, FORM_ARGS(VdlsCdbkState_16s**));
DL_REG(TimFormVQ, vdlsFormVectorVQ_8u16s, FORM_ARGS(VdlsCdbkState_16s**));
DL_REG(TimFormVQ, vdlsFormVectorVQ_1u16s, FORM_ARGS(VdlsCdbkState_16s**));
DL_REG(TimFormVQ, vdlsFormVectorVQ_16s32f, FORM_ARGS(VdlsCdbkState_32f**));
DL_REG(TimFormVQ, vdlsFormVectorVQ_8u32f, FORM_ARGS(VdlsCdbkState_32f**));
DL_REG(TimFormVQ, vdlsFormVectorVQ_1u32f, FORM_ARGS(VdlsCdbkState_32f**));
