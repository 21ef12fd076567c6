// The two steps of building a Gaussian selection: shortlists of components
// per cluster in a bit table, and the sign table of frames built from them.
#include "dl.h"
#include "dllogsel.h"

DL_MODULE("vdlsr/src/p_lselectbuild_au");

static dlVector pIndx, pNum, pSign;
static dlrMatrice mShortlist;
static kvStepIterator<int> num, clust, shift, height;
static int width = 15000;
static int frames = 12;
// Only the Var_ tests write it; the others divide by what it holds.
static int len_pIndx = 1;

class TimLSelectBuild : public prTest {
public:
    using prTest::prTest;

    bool canStart() override {
        if (m_var)
            dlOne(num);
        else
            dlStep(num, "Num", 1, 5, 4, '+');
        dlStep(clust, "Clust", 64, 256, 2, '*');
        dlStep(shift, "Shift", 16, 1024, 8, '*');
        dlStep(height, "Comps", 6, 24, 2, '*');
        pIndx.init(dlFunc("_32s"), 1);
        pNum.init(dlFunc("_32s"), 1);
        dlInitAll({&pSign, &mShortlist}, m_func);
        return true;
    }
    bool canContinue() override {
        if (!stepOdometer({&num, &clust, &shift, &height})) return false;
        // The index lists come in groups: by frame, by cluster (Row) or by
        // component (Column); `num` a group, or the drawn counts of Var_.
        const int groups = m_build ? frames : m_column ? height : clust;
        const int limit = m_row ? height - 1 : clust - 1;
        if (m_var && !drawCounts(groups)) return false;
        const int indices = m_var ? len_pIndx : num * groups;
        return pIndx.createVector(indices, SET_RANDOM, 0.0, limit) &&
               pSign.createVector(frames * ((height + 7) / 8), SET_ZERO, 0, 0) &&
               mShortlist.createMatrice(clust, width, SET_ZERO, 0, 0);
    }
    // len_pIndx becomes the sum of the first n counts.
    virtual int setData(int n) {
        const dl32s* counts = pNum;
        len_pIndx = 0;
        for (int i = 0; i < n; ++i) len_pIndx += counts[i];
        return len_pIndx;
    }
    void flushData() override {
        pNum.deleteVector();
        mShortlist.deleteMatrice();
        dlDeleteAll({&pSign, &pIndx});
    }
    double getDivisor() override { return (double)num * clust * len_pIndx; }
    void columns(dlColumns& c) override { c << num << clust << shift << height; }

private:
    // One count of indices per group, 1 to 20.
    bool drawCounts(int groups) {
        if (!pNum.createVector(groups, SET_RANDOM, 1.0, 20.0)) return false;
        setData(groups);
        return true;
    }

    const bool m_build = m_name.found("vdlsBuildSignTable");
    const bool m_var = m_name.found("Var_");
    const bool m_row = m_name.found("vdlsFillShortlist_Row");
    const bool m_column = m_name.found("vdlsFillShortlist_Column");
};

DL_REG(TimLSelectBuild, vdlsBuildSignTable_8u1u,
       (pIndx, num, mShortlist, clust, width, shift, pSign, frames, height));
DL_REG(TimLSelectBuild, vdlsBuildSignTable_Var_8u1u,
       (pIndx, pNum, mShortlist, clust, width, shift, pSign, frames, height));
DL_REG(TimLSelectBuild, vdlsFillShortlist_Row_1u,
       (pIndx, height, num, mShortlist, clust, width, shift));
DL_REG(TimLSelectBuild, vdlsFillShortlist_RowVar_1u,
       (pIndx, pNum, height, mShortlist, clust, width, shift));
DL_REG(TimLSelectBuild, vdlsFillShortlist_Column_1u,
       (pIndx, num, mShortlist, clust, width, shift, height));
DL_REG(TimLSelectBuild, vdlsFillShortlist_ColumnVar_1u,
       (pIndx, pNum, mShortlist, clust, width, shift, height));
