// dlcdbksplit.h: the split vector-quantisation modules. Their tests share
// the grid (hint fastest, then step, height and the codebook count), the
// training rows, the table of codebooks made from them for each grid point,
// the divisor and the columns; a module adds its index and vector buffers.
#ifndef DL_CDBKSPLIT_H
#define DL_CDBKSPLIT_H

#include "dlcdbk.h"

// What a split module holds at file scope besides its own buffers.
struct dlCdbkSplitData {
    kvStepIterator<int> step, height, CdbksNum;
    kvMapIterator<int> hint;
    dlVector pSrc;
    dlCdbkTable table;
    int nClust = 0;
};

class dlCdbkSplitTest : public prTest {
public:
    template <class... Args>
    dlCdbkSplitTest(dlCdbkSplitData& data, int firstStep, Args... args)
        : prTest(args...), m_data(data), m_firstStep(firstStep), m_32f(m_name.found("32f")),
          m_1u(m_name.found("1u")) {}

    bool canStart() override {
        m_status = 0;
        dlStep(m_data.step, "step", m_firstStep, 10, 2, '*');
        dlStep(m_data.height, "height", 25, 250, 2, '*');
        dlStep(m_data.CdbksNum, "Cdbks", 4, 20, 2, '*');
        dlCdbkHint(m_data.hint, {vdlCdbkHintFull, vdlCdbkHintKmeansLong});
        m_data.pSrc.init(dlFunc(m_32f ? "_32f_" : "_16s_"), 1);
        initBuffers();
        return true;
    }
    // The training rows are `height` rows of `step`; a row of the vectors
    // holds the sub-vectors of all codebooks.
    bool canContinue() override {
        dlCdbkSplitData& d = m_data;
        if (!stepOdometer({&d.hint, &d.step, &d.height, &d.CdbksNum})) return false;
        d.nClust = dlClusterCount(d.hint, d.height);
        if (!createSource() || !createBuffers()) return false;
        if (d.table.create(m_32f, d.CdbksNum, d.pSrc, d.step, d.height, d.nClust, d.hint))
            return true;
        dlError(m_32f ? "\n Error in create codebook 32bit code\n"
                      : "\n Error in create codebook 16bit code\n");
        return false;
    }
    void flushData() override {
        m_data.pSrc.deleteVector();
        flushBuffers();
        m_data.table.release();
    }
    double getDivisor() override { return m_data.height; }
    void columns(dlColumns& c) override {
        c << m_data.step << m_data.height << m_data.hint << m_data.CdbksNum;
    }

protected:
    virtual void initBuffers() = 0;
    virtual bool createSource() = 0;
    virtual bool createBuffers() = 0;
    virtual void flushBuffers() = 0;
    int vectorLength() const { return m_data.height * m_data.step * m_data.CdbksNum; }

    dlCdbkSplitData& m_data;
    const int m_firstStep;
    const bool m_32f;
    const bool m_1u;
    int m_status = 0;
};

#endif
