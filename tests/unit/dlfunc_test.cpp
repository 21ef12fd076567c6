// Function names: grammar, types, channel forms, flags and sort order.
#include <gtest/gtest.h>

#include <string>

#include "dlfunc.h"

namespace {

std::string parts(const char* name) {
    dlFunc f(name);
    kvString base, types, descr;
    f.parseFunction(base, types, descr);
    EXPECT_EQ(std::string(f.baseName().c_str()), base.c_str());
    return std::string(f.prefix().c_str()) + "|" + base.c_str() + "|" + types.c_str() + "|" +
           descr.c_str();
}

// The four roles' types: first and second source, first and second destination.
std::string types(const char* name) {
    dlType a, b, c, d;
    dlFunc(name).getTypes(a, b, c, d);
    return std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) + " " +
           std::to_string(d);
}

int sign(int v) { return (v > 0) - (v < 0); }

int cmp(const char* a, const char* b) { return sign(dlFunc(a).compare(dlFunc(b))); }

}  // namespace

TEST(DlFuncGrammar, SplitsPrefixBaseTypesAndDescriptor) {
    EXPECT_EQ("vdls|VQ|16s|", parts("vdlsVQ_16s"));
    // "Aurora" is no type word, so its "_" belongs to the base.
    EXPECT_EQ("vdls|LowHighFilter_Aurora|32f|", parts("vdlsLowHighFilter_Aurora_32f"));
    EXPECT_EQ("vdls|MeanVarColumn|16s16s32s|D2", parts("vdlsMeanVarColumn_16s16s32s_D2"));
    EXPECT_EQ("vdls|LogGauss|32f|D2L_I", parts("vdlsLogGauss_32f_D2L_I"));  // "_" stays
    EXPECT_EQ("||32f|", parts("_32f_"));
    EXPECT_EQ("|abcdFoo|8u|", parts("abcdFoo_8u"));  // an unknown prefix stays in the base
    // "16" lacks its letter, "x" is no type word: all base, no types.
    EXPECT_EQ("vdls|Foo_x_16||", parts("vdlsFoo_x_16"));
    EXPECT_EQ(0, dlFunc("vdlsFoo_x_16").type(DL_DST2));
}

TEST(DlFuncGrammar, TypeWords) {
    EXPECT_EQ(lenOfType("16sc_I"), 4);
    EXPECT_EQ(lenOfType("32fcx"), 4);
    EXPECT_EQ(lenOfType("16"), 0);  // digits with nothing behind
    EXPECT_EQ(lenOfType("s16"), 0);
    EXPECT_EQ(lenOfType(""), 0);
    EXPECT_LT(endOfBase("vdlsA_B"), 0);
    EXPECT_EQ(dlFunc::stringToType("1u"), 8);  // bit-packed, read as one byte
    EXPECT_EQ(dlFunc::stringToType("16f"), 0);
    EXPECT_EQ(std::string(dlFunc::typeToString(1600).c_str()), "64fc");
    EXPECT_EQ(std::string(dlFunc::typeToString(7).c_str()), "undef");
}

TEST(DlFuncTypes, RolesByWordCountAndCorrections) {
    const struct {
        const char* name;
        const char* types;
    } cases[] = {
        {"vdlsMeanVarColumn_16s16s32s_D2", "272 272 288 288"},
        {"vdlsBhatDist_32f64f", "544 544 576 576"},  // two words: sources, destinations
        {"vdlsVQ_16s", "272 272 272 272"},
        {"vdlsX_8u16s32f64f", "8 272 544 544"},  // a fourth word is dropped
        // Corrections of the signal functions.
        {"vdlsMagnitude_32fc", "1568 1568 544 544"},
        {"vdlsRealToCplx_32f", "544 544 1568 1568"},
        {"vdlsDotProd_32f32fc", "544 1568 1568 1568"},
        {"vdlsDotProd_32fc", "1568 1568 1568 1568"},  // complex source: untouched
        {"vdlsMul_16u16s_Sfs", "16 272 272 272"},
        {"vdliSum_8u_C1R", "8 8 576 576"},
        {"vdliCopy_16s_C1R", "272 8 272 272"},
        {"vdliCompareC_32f_C1R", "544 544 8 8"},
        {"vdliMagnitude_32fc", "1568 1568 1568 1568"},  // signal rules only for vdls
    };
    for (const auto& c : cases) EXPECT_EQ(c.types, types(c.name)) << c.name;
    // type(2) stays the written word; type(0) prefers a type word in the base,
    // the longer words first.
    EXPECT_EQ(dlFunc("vdlsBhatDist_32f64f").type(2), 576);
    EXPECT_EQ(dlFunc("vdlsConvert64fc_16s").type(0), 1600);
    EXPECT_EQ(dlFunc("vdlsVQ_16s").type(0), 272);
}

TEST(DlFuncChannels, SourceAndDestinationForms) {
    dlFunc cp("vdliConvert_8u_C3P3R");
    EXPECT_FALSE(cp.srcPlane());
    EXPECT_TRUE(cp.dstPlane());
    EXPECT_EQ(cp.vdlChannels(2), 6);
    // A lone "P" behind the form turns it into planes, for both sides.
    dlFunc lone("vdliConvert_8u_C3PR");
    EXPECT_EQ(std::string(lone.srcChannelsName().c_str()), "P3");
    EXPECT_EQ(std::string(lone.channelsName(DL_DST1).c_str()), "P3");

    dlFunc alpha("vdliCopy_8u_AC4C3R");
    EXPECT_EQ(alpha.channels(DL_SRC1), 4);
    EXPECT_TRUE(alpha.srcAlpha());
    EXPECT_FALSE(alpha.dstAlpha());

    dlFunc none("vdlsVQ_16s");
    EXPECT_EQ(none.channels(DL_SRC1), 0);
    EXPECT_EQ(none.channels((dlArg)3), 1);
    int src = 0, dst = 0;
    dlFunc("vdliCompare_8u_C3R").getChannels(src, dst);
    EXPECT_EQ(dst, 1);  // the comparison gives one channel
    kvString d("C5C3");  // a form must carry a count of 1 to 4
    EXPECT_TRUE(firstChanStr(d).empty());
    EXPECT_TRUE(d.empty());
}

TEST(DlFuncFlags, DescriptorLetters) {
    EXPECT_TRUE(dlFunc("vdlsAdd_16s_ISfs").inplace());
    EXPECT_TRUE(dlFunc("vdlsAdd_16s_ISfs").scale());
    EXPECT_FALSE(dlFunc("vdlsIn_16s").inplace());  // only the descriptor counts
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3MR").mask());
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3C").coi());  // a "C" at the very end
    // A derived name can correct what the grammar gets wrong.
    struct Planar : dlFunc {
        Planar(const char* n) : dlFunc(n) {}
        void updatePlanes(bool& src, bool& dst) const override { src = dst = true; }
    };
    EXPECT_TRUE(Planar("vdlsX_8u").plane(DL_DST1));
}

TEST(DlFuncOrder, BaseThenFirstTypeThenDescriptor) {
    // In-place behind out-of-place whatever the alphabet says.
    const char* ascending[] = {"vdlsAbs_64f",      "vdlsAdd_8u",   "vdlsAdd_16s", "vdlsAdd_16s_Sfs",
                               "vdlsAdd_16s_ISfs", "vdlsAdd_16sc", "vdlsAdd_32f", "vdlsAdd_32fc"};
    for (size_t i = 1; i < sizeof ascending / sizeof *ascending; ++i)
        EXPECT_LT(cmp(ascending[i - 1], ascending[i]), 0) << ascending[i];
    EXPECT_LT(cmp("vdlsAdd_64u", "vdlsAdd_8s"), 0);
    // Only the first type word counts; the descriptor breaks the tie.
    EXPECT_EQ(cmp("vdlsX_16s32f", "vdlsX_16s16s"), 0);
    EXPECT_LT(cmp("vdlsX_16s32f_A", "vdlsX_16s16s_B"), 0);
    // Plain channel forms before alpha forms.
    EXPECT_GT(dlFunc::compareDescr("AC4R", "C3R"), 0);
    EXPECT_LT(dlFunc::compareDescr("D2", "D2L"), 0);
    EXPECT_LT(compareTs("", "8u"), 0);
}
