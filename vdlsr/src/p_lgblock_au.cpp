// Log-likelihood of one feature frame against a Gaussian whose covariance is
// block diagonal: the library keeps the blocks in a state of its own, made
// for each set and released after it.
#include "dl.h"

DL_MODULE("vdlsr/src/p_lgblock_au");

// Three blocks of the largest size fit; a set uses the first nBlocks of them.
static const int maxLen = 360;

static dlVector src, mean, dst;
static dlrMatrice mSrcVar;
static kvStepIterator<int> nBlocks, blocksize;
static dlrScaleIterator scaleFactor;
static int len;
static int bSize[3];
static VdlsBlockDMatrix_16s* blockVar_16s;
static VdlsBlockDMatrix_32f* blockVar_32f;
static VdlsBlockDMatrix_64f* blockVar_64f;

// What the three element types share; each makes and releases its own state.
class TimLGaussSingleBlock : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        dlStep(nBlocks, "nBlocks", 1, 3, 1, '+');
        dlStep(blocksize, "Block size", 1, 120, 29, '+');
        dlInitAll({&src, &mean}, m_func);
        dst.init(m_func, DL_DST1);
        mSrcVar.init(m_func, 1);
        return true;
    }
    bool canContinue() override {
        if (!stepGrid() || !src.createVector(maxLen, SET_ZERO, 0, 0) ||
            !mean.createVector(maxLen, SET_ZERO, 0, 0) || !dst.createVector(maxLen, SET_ZERO, 0, 0))
            return false;
        SetData();
        if (!mSrcVar.createMatrice(maxLen, maxLen, SET_ONE, 0, 0)) return false;
        initState();
        return true;
    }
    void flushData() override {
        freeState();
        dlDeleteAll({&src, &mean, &dst});
        mSrcVar.deleteMatrice();
    }
    double getDivisor() override { return blocksize * blocksize * nBlocks; }
    void columns(dlColumns& c) override { c << nBlocks << blocksize; }

    virtual void SetData() {
        len = blocksize * nBlocks;
        for (int& size : bSize) size = blocksize;
    }

protected:
    virtual bool stepGrid() { return stepOdometer({&nBlocks, &blocksize}); }
    // The status of the create call is not looked at: a state that failed
    // shows in the status of the timed call.
    virtual void initState() = 0;
    virtual void freeState() = 0;
};

class TimLGaussSingleBlock_16s : public TimLGaussSingleBlock {
public:
    using TimLGaussSingleBlock::TimLGaussSingleBlock;

    bool canStart() override {
        TimLGaussSingleBlock::canStart();
        dlScale(scaleFactor, m_func);
        return true;
    }
    void columns(dlColumns& c) override { c << nBlocks << blocksize << scaleFactor; }

protected:
    bool stepGrid() override { return stepOdometer({&scaleFactor, &nBlocks, &blocksize}); }
    void initState() override { vdlsBlockDMatrixInitAlloc_16s(&blockVar_16s, mSrcVar, bSize, nBlocks); }
    void freeState() override {
        if (blockVar_16s) vdlsBlockDMatrixFree_16s(blockVar_16s);
        blockVar_16s = 0;
    }
};

class TimLGaussSingleBlock_32f : public TimLGaussSingleBlock {
public:
    using TimLGaussSingleBlock::TimLGaussSingleBlock;

protected:
    void initState() override { vdlsBlockDMatrixInitAlloc_32f(&blockVar_32f, mSrcVar, bSize, nBlocks); }
    void freeState() override {
        if (blockVar_32f) vdlsBlockDMatrixFree_32f(blockVar_32f);
        blockVar_32f = 0;
    }
};

class TimLGaussSingleBlock_64f : public TimLGaussSingleBlock {
public:
    using TimLGaussSingleBlock::TimLGaussSingleBlock;

protected:
    void initState() override { vdlsBlockDMatrixInitAlloc_64f(&blockVar_64f, mSrcVar, bSize, nBlocks); }
    void freeState() override {
        if (blockVar_64f) vdlsBlockDMatrixFree_64f(blockVar_64f);
        blockVar_64f = 0;
    }
};

DL_REG(TimLGaussSingleBlock_16s, vdlsLogGaussSingle_BlockDVarScaled_16s32f,
       (src, mean, blockVar_16s, len, dst, 0.5f, scaleFactor.value()));
DL_REG(TimLGaussSingleBlock_16s, vdlsLogGaussSingle_BlockDVar_16s32s_Sfs,
       (src, mean, blockVar_16s, len, dst, 16, scaleFactor.value()));
DL_REG(TimLGaussSingleBlock_32f, vdlsLogGaussSingle_BlockDVar_32f,
       (src, mean, blockVar_32f, len, dst, 0.5f));
DL_REG(TimLGaussSingleBlock_32f, vdlsLogGaussSingle_BlockDVar_32f64f,
       (src, mean, blockVar_32f, len, dst, 0.5));
DL_REG(TimLGaussSingleBlock_64f, vdlsLogGaussSingle_BlockDVar_64f,
       (src, mean, blockVar_64f, len, dst, 0.5));
