// Split vector quantisation: each vector cut into one sub-vector per
// codebook of a table, each replaced by the index of its nearest codeword,
// written as 16-bit, 8-bit or bit-packed indices.
#include "dlcdbksplit.h"

DL_MODULE_VDLS("vdlsr/src/p_splitvq_au");

static dlCdbkSplitData data;
static dlVector pSVQ_Dst;
static int dstStep;

class TimSplitVQ : public dlCdbkSplitTest {
public:
    DL_CTOR(TimSplitVQ, dlCdbkSplitTest, data, 1)

protected:
    void initBuffers() override { pSVQ_Dst.init(m_1u ? dlFunc("_8u_") : m_func, DL_DST1); }
    bool createSource() override {
        return data.pSrc.createVector(vectorLength(), SET_RANDOM, -data.height, data.height);
    }
    // Indices step one a codebook, or 8 bits a codebook when packed.
    bool createBuffers() override {
        dstStep = m_1u ? data.CdbksNum * 8 : data.CdbksNum;
        return pSVQ_Dst.createVector(2 * data.height * data.CdbksNum, SET_ZERO, 0, 0);
    }
    void flushBuffers() override { pSVQ_Dst.deleteVector(); }
};

#define SPLIT_ARGS(Cdbk) (data.pSrc, data.CdbksNum * data.step, pSVQ_Dst, dstStep, data.height, \
                          (Cdbk)data.table, data.CdbksNum)

DL_REG(TimSplitVQ, vdlsSplitVQ_16s16s, SPLIT_ARGS(VdlsCdbkState_16s**));
DL_REG(TimSplitVQ, vdlsSplitVQ_16s8u, SPLIT_ARGS(VdlsCdbkState_16s**));
DL_REG(TimSplitVQ, vdlsSplitVQ_16s1u, SPLIT_ARGS(VdlsCdbkState_16s**));
DL_REG(TimSplitVQ, vdlsSplitVQ_32f16s, SPLIT_ARGS(VdlsCdbkState_32f**));
DL_REG(TimSplitVQ, vdlsSplitVQ_32f8u, SPLIT_ARGS(VdlsCdbkState_32f**));
DL_REG(TimSplitVQ, vdlsSplitVQ_32f1u, SPLIT_ARGS(VdlsCdbkState_32f**));
