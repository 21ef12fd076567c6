// Function names: grammar, types, channel forms, flags and sort order.
#include <gtest/gtest.h>

#include <string>

#include "dlfunc.h"

namespace {

struct Parts {
    std::string prefix, base, types, descr;
};

Parts parts(const char* name) {
    dlFunc f(name);
    kvString base, types, descr;
    f.parseFunction(base, types, descr);
    EXPECT_EQ(std::string(f.baseName().c_str()), base.c_str());
    return {f.prefix().c_str(), base.c_str(), types.c_str(), descr.c_str()};
}

void expectTypes(const char* name, dlType s1, dlType s2, dlType d1, dlType d2) {
    dlType a, b, c, d;
    dlFunc(name).getTypes(a, b, c, d);
    EXPECT_EQ(a, s1) << name;
    EXPECT_EQ(b, s2) << name;
    EXPECT_EQ(c, d1) << name;
    EXPECT_EQ(d, d2) << name;
}

int sign(int v) { return (v > 0) - (v < 0); }

int cmp(const char* a, const char* b) { return sign(dlFunc(a).compare(dlFunc(b))); }

}  // namespace

TEST(DlFuncGrammar, SplitsPrefixBaseTypesAndDescriptor) {
    const struct {
        const char* name;
        Parts expected;
    } cases[] = {
        {"vdlsVQ_16s", {"vdls", "VQ", "16s", ""}},
        // "Aurora" is no type word, so its "_" belongs to the base.
        {"vdlsLowHighFilter_Aurora_32f", {"vdls", "LowHighFilter_Aurora", "32f", ""}},
        {"vdlsMeanVarColumn_16s16s32s_D2", {"vdls", "MeanVarColumn", "16s16s32s", "D2"}},
        {"vdlsLogGauss_32f_D2L_I", {"vdls", "LogGauss", "32f", "D2L_I"}},  // the descriptor keeps its "_"
        {"_32f_", {"", "", "32f", ""}},
        {"vdliCopy_8u_C3R", {"vdli", "Copy", "8u", "C3R"}},
        {"abcdFoo_8u", {"", "abcdFoo", "8u", ""}},  // an unknown prefix stays in the base
    };
    for (const auto& c : cases) {
        Parts p = parts(c.name);
        EXPECT_EQ(c.expected.prefix + "|" + c.expected.base + "|" + c.expected.types + "|" +
                      c.expected.descr,
                  p.prefix + "|" + p.base + "|" + p.types + "|" + p.descr);
    }
    EXPECT_TRUE(dlFunc("vdlsLogGauss_32f_D2L_I").inplace());
}

TEST(DlFuncGrammar, NameWithoutTypeWordIsAllBase) {
    dlFunc f("vdlsFoo_x_16");  // "16" lacks its letter, "x" is no type word
    EXPECT_EQ(std::string(f.baseName().c_str()), "Foo_x_16");
    EXPECT_TRUE(f.typeName().empty());
    EXPECT_TRUE(f.descrName().empty());
    for (int n = 0; n <= 3; ++n) EXPECT_EQ(f.type(n), 0) << n;
    EXPECT_EQ(f.type(DL_SRC1), 0);
    EXPECT_EQ(f.type(DL_DST2), 0);
}

TEST(DlFuncGrammar, TypeWordsAndTheirLength) {
    EXPECT_EQ(lenOfType("16s"), 3);
    EXPECT_EQ(lenOfType("16sc_I"), 4);
    EXPECT_EQ(lenOfType("32fcx"), 4);
    EXPECT_EQ(lenOfType("16"), 0);   // digits with nothing behind
    EXPECT_EQ(lenOfType("16x"), 0);
    EXPECT_EQ(lenOfType("s16"), 0);
    EXPECT_EQ(lenOfType(""), 0);
    EXPECT_EQ(endOfBase("vdlsA_B_8u"), 7);
    EXPECT_LT(endOfBase("vdlsA_B"), 0);
    EXPECT_EQ(std::string(firstType("16s32f").c_str()), "16s");

    EXPECT_EQ(dlFunc::stringToType("1u"), 8);  // bit-packed, read as one byte
    EXPECT_EQ(dlFunc::stringToType("16uc"), 1040);
    EXPECT_EQ(dlFunc::stringToType("64sc"), 1344);
    EXPECT_EQ(dlFunc::stringToType("16f"), 0);
    EXPECT_EQ(std::string(dlFunc::typeToString(8).c_str()), "8u");
    EXPECT_EQ(std::string(dlFunc::typeToString(1600).c_str()), "64fc");
    EXPECT_EQ(std::string(dlFunc::typeToString(7).c_str()), "undef");
}

TEST(DlFuncTypes, WordCountDecidesTheRoles) {
    dlFunc mv("vdlsMeanVarColumn_16s16s32s_D2");
    EXPECT_EQ(mv.type(1), 272);
    EXPECT_EQ(mv.type(2), 272);
    EXPECT_EQ(mv.type(3), 288);
    EXPECT_EQ(mv.type(4), 0);
    expectTypes("vdlsMeanVarColumn_16s16s32s_D2", 272, 272, 288, 288);

    // Two words: sources, then destinations; type(2) stays the written word.
    expectTypes("vdlsBhatDist_32f64f", 544, 544, 576, 576);
    EXPECT_EQ(dlFunc("vdlsBhatDist_32f64f").type(2), 576);
    EXPECT_EQ(dlFunc("vdlsBhatDist_32f64f").type(DL_SRC2), 544);

    expectTypes("vdlsVQ_16s", 272, 272, 272, 272);

    // A fourth word is dropped.
    dlFunc four("vdlsX_8u16s32f64f_I");
    kvString base, t1, t2, t3, descr;
    four.parseFunction(base, t1, t2, t3, descr);
    EXPECT_EQ(std::string(t3.c_str()), "32f");
    EXPECT_EQ(std::string(descr.c_str()), "I");
    expectTypes("vdlsX_8u16s32f64f", 8, 272, 544, 544);
}

TEST(DlFuncTypes, TypeZeroPrefersATypeWordInTheBase) {
    dlFunc f("vdlsConvert64fc_16s");
    EXPECT_EQ(f.typeFromBase(), 1600);  // not 64f: longer words are tried first
    EXPECT_EQ(f.type(0), 1600);
    EXPECT_EQ(f.type(1), 272);
    EXPECT_EQ(dlFunc("vdlsVQ_16s").type(0), 272);
}

TEST(DlFuncTypes, CorrectionsOfTheBaseClass) {
    expectTypes("vdlsMagnitude_32fc", 1568, 1568, 544, 544);
    expectTypes("vdlsPowerSpectr_64fc", 1600, 1600, 576, 576);
    expectTypes("vdlsRealToCplx_32f", 544, 544, 1568, 1568);
    expectTypes("vdlsPolarToCart_32fc", 544, 544, 1568, 1568);
    expectTypes("vdlsDotProd_32f32fc", 544, 1568, 1568, 1568);
    expectTypes("vdlsDotProd_32fc", 1568, 1568, 1568, 1568);  // complex source: untouched
    expectTypes("vdlsMul_16u16s_Sfs", 16, 272, 272, 272);
    expectTypes("vdlsGoertz_32f", 544, 544, 1568, 1568);
    expectTypes("vdliSum_8u_C1R", 8, 8, 576, 576);
    expectTypes("vdliCopy_16s_C1R", 272, 8, 272, 272);
    expectTypes("vdliCompareC_32f_C1R", 544, 544, 8, 8);
    expectTypes("vdliMagnitude_32fc", 1568, 1568, 1568, 1568);  // signal rules only for vdls
}

TEST(DlFuncChannels, SourceAndDestinationForms) {
    dlFunc cp("vdliConvert_8u_C3P3R");
    EXPECT_EQ(std::string(cp.srcChannelsName().c_str()), "C3");
    EXPECT_EQ(std::string(cp.dstChannelsName().c_str()), "P3");
    EXPECT_EQ(cp.channels(1), 3);
    EXPECT_FALSE(cp.plane(1));
    EXPECT_TRUE(cp.plane(2));
    EXPECT_TRUE(cp.dstPlane());
    EXPECT_FALSE(cp.srcPlane());
    EXPECT_EQ(cp.vdlChannels(1), 3);
    EXPECT_EQ(cp.vdlChannels(2), 6);

    // A lone "P" behind the form turns it into planes, for both sides.
    dlFunc lone("vdliConvert_8u_C3PR");
    EXPECT_EQ(std::string(lone.srcChannelsName().c_str()), "P3");
    EXPECT_EQ(std::string(lone.dstChannelsName().c_str()), "P3");
    EXPECT_EQ(std::string(lone.channelsName(DL_DST1).c_str()), "P3");

    dlFunc alpha("vdliCopy_8u_AC4C3R");
    EXPECT_EQ(std::string(alpha.srcChannelsName().c_str()), "AC4");
    EXPECT_EQ(alpha.channels(DL_SRC1), 4);
    EXPECT_EQ(alpha.channels(DL_DST2), 3);
    EXPECT_TRUE(alpha.srcAlpha());
    EXPECT_FALSE(alpha.dstAlpha());
    EXPECT_EQ(alpha.vdlChannels(1), 9);

    dlFunc none("vdlsVQ_16s");
    EXPECT_TRUE(none.srcChannelsName().empty());
    EXPECT_EQ(none.channels(1), 0);
    EXPECT_EQ(none.channels(7), 1);
    EXPECT_EQ(none.channels(DL_SRC1), 0);
    EXPECT_EQ(none.channels((dlArg)3), 1);

    int src = 0, dst = 0;
    dlFunc("vdliCompare_8u_C3R").getChannels(src, dst);
    EXPECT_EQ(src, 3);
    EXPECT_EQ(dst, 1);  // the comparison gives one channel

    EXPECT_EQ(numChannels("AP4"), 4);
    EXPECT_EQ(numChannels("C7"), 0);
    EXPECT_TRUE(planeChannel("AP4"));
    EXPECT_FALSE(planeChannel("C4"));

    kvString d("C5C3");  // a form must carry a count of 1 to 4
    EXPECT_TRUE(firstChanStr(d).empty());
    EXPECT_TRUE(d.empty());
}

TEST(DlFuncFlags, DescriptorLetters) {
    dlFunc f("vdlsAdd_16s_ISfs");
    EXPECT_TRUE(f.inplace());
    EXPECT_TRUE(f.scale());
    EXPECT_FALSE(f.mask());
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3MR").mask());
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3MR").roi());
    EXPECT_FALSE(dlFunc("vdliSet_8u_C3MR").coi());
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3CR").coi());
    EXPECT_TRUE(dlFunc("vdliSet_8u_C3C").coi());  // a "C" at the very end
    EXPECT_FALSE(dlFunc("vdlsIn_16s").inplace());  // only the descriptor counts
}

TEST(DlFuncOrder, BaseThenFirstTypeThenDescriptor) {
    EXPECT_LT(cmp("vdlsAdd_8u", "vdlsAdd_16s"), 0);
    EXPECT_LT(cmp("vdlsAdd_16s", "vdlsAdd_32f"), 0);
    EXPECT_GT(cmp("vdlsAdd_32f", "vdlsAdd_8u"), 0);
    EXPECT_LT(cmp("vdlsAdd_16s", "vdlsAdd_16sc"), 0);
    EXPECT_LT(cmp("vdlsAdd_16sc", "vdlsAdd_32s"), 0);
    EXPECT_LT(cmp("vdlsAdd_64u", "vdlsAdd_8s"), 0);
    EXPECT_LT(cmp("vdlsAdd_32f", "vdlsAdd_32fc"), 0);
    EXPECT_GT(cmp("vdlsAdd_8u", "vdlsAbs_64f"), 0);  // the base decides first

    // Only the first type word counts; the descriptor breaks the tie.
    EXPECT_LT(cmp("vdlsX_16s32f_A", "vdlsX_16s16s_B"), 0);
    EXPECT_EQ(cmp("vdlsX_16s32f", "vdlsX_16s16s"), 0);

    // In-place behind out-of-place whatever the alphabet says.
    EXPECT_GT(cmp("vdlsAdd_16s_ISfs", "vdlsAdd_16s_Sfs"), 0);
    EXPECT_LT(cmp("vdlsAdd_16s_Sfs", "vdlsAdd_16s_ISfs"), 0);
    // Plain channel forms before alpha forms.
    EXPECT_GT(dlFunc::compareDescr("AC4R", "C3R"), 0);
    EXPECT_LT(dlFunc::compareDescr("C4R", "AC4R"), 0);
    EXPECT_LT(dlFunc::compareDescr("D2", "D2L"), 0);

    EXPECT_EQ(compareTs("", ""), 0);
    EXPECT_LT(compareTs("", "8u"), 0);
    EXPECT_GT(compareTs("8u", ""), 0);
    EXPECT_EQ(dlFunc::compareTypes("16s32f", "16s16s"), 0);
}

// A derived name can correct what the grammar gets wrong.
TEST(DlFuncTypes, DerivedCorrectionsApply) {
    struct Planar : dlFunc {
        Planar(const char* n) : dlFunc(n) {}
        void updatePlanes(bool& src, bool& dst) const override { src = dst = true; }
    };
    Planar p("vdlsX_8u");
    EXPECT_TRUE(p.srcPlane());
    EXPECT_TRUE(p.plane(DL_DST1));
}
