// Parameters and iterators: their text forms, walks and refusals, and
// their reading from the parameter input.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "kvexception.h"
#include "kvistream.h"
#include "kvparameter.h"
#include "testutil.h"

namespace {

template <class T>
std::vector<T> walk(kvIterator_NSC<T>& it) {
    std::vector<T> values;
    for (bool more = it.firstValue(); more && values.size() < 100; more = it.nextValue())
        values.push_back(it.value());
    return values;
}

// The info text of the kvException that translate throws; "" if none.
std::string translateError(kvParameter& p, const char* text) {
    try {
        p.translate(text);
    } catch (kvException& e) {
        return e.info();
    }
    return "";
}

const std::string conflict = "Conflict between iterator limits and operation";

TEST(StepIterator, StepFormsWalkToTheLastValueWithoutPassingIt) {
    const struct {
        const char* text;
        std::vector<int> walk;
    } cases[] = {
        {"100; 10000; *10", {100, 1000, 10000}},
        {"1 10 +3", {1, 4, 7, 10}},
        {"1 11 +3", {1, 4, 7, 10}},
        {"10; 1; -3", {10, 7, 4, 1}},
        {"-1; -8; *2", {-1, -2, -4, -8}},
        {"5;5;+1", {5}},
        {"12abc; 20; +4", {12, 16, 20}},  // conversion stops at the first bad character
        {"2147483000; 2147483647; +1000", {2147483000}},  // ends, does not wrap
    };
    kvStepIterator<int> it;
    it.init("len", 1, 1, 1, '+');
    for (const auto& c : cases) {
        it.translate(c.text);
        EXPECT_EQ(walk(it), c.walk) << c.text;
    }
    EXPECT_FALSE(it.m_decreasing);
    it.translate("10; 1; -3");
    EXPECT_TRUE(it.m_decreasing);
}

TEST(StepIterator, ConflictsAndStepsThatCannotAdvanceAreRefused) {
    kvStepIterator<int> it;
    it.translate("1;3;+1");
    for (const char* text : {"1; 10; -1", "10; 1; +1", "0; 10; *2", "-1; 10; *2", "8; 1; *2",
                             "-8; -1; *2", "1; 10; *1", "5;5;+0", "5;5;-0", "10;1;+0", "1;10;-0"})
        EXPECT_EQ(translateError(it, text), conflict) << text;
    EXPECT_EQ(walk(it), (std::vector<int>{1, 2, 3}));   // the old walk stays
    EXPECT_THROW(it.init("len", 1, 10, 1, '-'), kvException);
    EXPECT_EQ(translateError(it, "1; b; +1"), "Invalid last value = b");
    EXPECT_EQ(translateError(it, "1; 10; +c"), "Invalid step = c");
    EXPECT_EQ(translateError(it, " ; ;"), "Empty iterator definition");
}

TEST(StepIterator, FloatWalksAndStepsTooSmallToMoveTheValue) {
    kvStepIterator<float> it;
    it.translate("1; 0.125; *0.5");
    EXPECT_EQ(walk(it), (std::vector<float>{1, 0.5f, 0.25f, 0.125f}));
    it.translate("1;2;+0.25");
    EXPECT_EQ(walk(it).size(), 5u);
    // A step too small for floats of that size never moves the value. At 2^26
    // floats lie 8 apart: +4 from the odd 67108872 reaches the even 67108880,
    // and from there each +4 rounds back to it, so the walk never ended.
    for (const char* text : {"1; 8; *0.5", "8; 1; *2", "-1; -8; *0.5", "1; 8; *-2", "2; 2; *1",
                             "16777216; 16777300; +1", "67108872 67109672 +4",
                             "-67108872; -67109672; -4", "67109672; 67108872; +-4",
                             "16777218; 25586834; +1"})
        EXPECT_EQ(translateError(it, text), conflict) << text;
    EXPECT_EQ(walk(it), (std::vector<float>{1, 1.25f, 1.5f, 1.75f, 2}));  // the old walk stays
    // Just above half the spacing each step rounds up to the next float.
    it.translate("67108872 67108896 +5");
    EXPECT_EQ(walk(it), (std::vector<float>{67108872, 67108880, 67108888, 67108896}));
}

TEST(StepIterator, TextForms) {
    kvStepIterator<int> it;
    it.init("len", 1, 10, 3, '+');
    EXPECT_STREQ(it.description().c_str(), "for (len = 1; len <= 10; len += 3)");
    EXPECT_STREQ(it.defaultString().c_str(), "1; 10; +3");
    EXPECT_STREQ(it.prompt().c_str(), "for len");
    it.translate("10 2 -4");
    EXPECT_STREQ(it.description().c_str(), "for (len = 10; len >= 2; len -= 4)");
    it.translate("1;2;3");   // no sign: a list
    EXPECT_EQ(it.m_oprtn, STEP_LIST);
    EXPECT_EQ(walk(it), (std::vector<int>{1, 2, 3}));
    it.translate("16; 32; 64");
    EXPECT_STREQ(it.description().c_str(), "len = 16; 32; 64");
    EXPECT_STREQ(it.prompt().c_str(), "len");
    EXPECT_EQ(translateError(it, "16; x"), "Invalid value of len = x");
    EXPECT_EQ(walk(it), (std::vector<int>{16, 32, 64}));
}

TEST(Defaults, AlignAndShiftAreNormalised) {
    DefaultAlign align(0, "VectorAlign", "");
    align.translate("-70");
    EXPECT_EQ(align.value(), -6);
    EXPECT_EQ(translateError(align, "abc"), "Invalid value of VectorAlign = abc");
    EXPECT_EQ(align.value(), -6);
    DefaultShift shift(512, "MutualVectorShift", "");
    shift.translate("70");
    EXPECT_EQ((int)shift, 64);
}

TEST(Maps, NamesMayBeShortenedAndTheEarlierNameWins) {
    kvMapDefault<int> method(0, "Method", "");
    int v = 0;
    for (const char* name : {"Auto", "Manual", "Statistic", "Iterative"}) method[v++] = name;
    EXPECT_STREQ(method.prompt().c_str(), "Method {Auto|Manual|Statistic|Iterative}");
    method.translate("stat");
    EXPECT_EQ(method.value(), 2);
    method.translate("M");
    EXPECT_EQ(method.value(), 1);
    EXPECT_EQ(translateError(method, "x"), "Invalid value of Method = x");
    EXPECT_EQ(method.value(), 1);

    kvMapIterator<int> hint;
    hint.resetMap();
    hint.init("Hint");
    v = 1;
    for (const char* name : {"full", "kmeansLong", "kmeansNum"}) {
        hint.addValidation(v, name);
        hint.add(v++);
    }
    EXPECT_STREQ(hint.defaultString().c_str(), "full; kmeansLong; kmeansNum");
    hint.translate("KMEANSn; k; f");
    EXPECT_EQ(walk(hint), (std::vector<int>{3, 2, 1}));
    EXPECT_EQ(translateError(hint, "full; z"), "Invalid value of Hint = z");
}

TEST(Enums, HintNamesAndAllowedValues) {
    kvEnumIterator<VdlHintAlgorithm> hint;
    hint.init("hint");
    hint.translate("fast; acc; 0");
    EXPECT_STREQ(hint.defaultString().c_str(), "fast; accurate; none");
    EXPECT_EQ(translateError(hint, "quick"), "Invalid value of hint = quick");

    kvEnumIterator<double> d;
    d.init("d");
    d.add(0.5);
    d.add(2);
    d.initValidation();
    EXPECT_STREQ(d.prompt().c_str(), "d {0.5|2}");
    EXPECT_EQ(translateError(d, "0.25"), "Invalid value of d = 0.25");
    EXPECT_TRUE(d.addValidation(0.25));
    d.translate("0.25");
    EXPECT_EQ(walk(d), (std::vector<double>{0.25}));
}

// Collects what g_ostrm writes during one test; the input is emptied after.
class OutputCapture : public ::testing::Test {
protected:
    void SetUp() override { g_ostrm.setMsgLevel(PERF); }
    void TearDown() override {
        g_ostrm.restoreMsgLevel();
        g_istrm.dataList().clear();
        g_istrm.setIStream(0);
    }
    std::string text() { return m_capture.text(); }
    LogCapture m_capture;
};

TEST_F(OutputCapture, FromIStreamKeepsTheOldValueOnABadOne) {
    kvStepIterator<int> it;
    it.init("len", 1, 4, 1, '+');
    g_istrm.dataList().set("len", "1 10 +3");
    it.fromIStream(g_istrm);
    EXPECT_EQ(walk(it), (std::vector<int>{1, 4, 7, 10}));
    g_istrm.dataList().set("len", "1;10;-1");
    it.fromIStream(g_istrm);
    EXPECT_EQ(walk(it), (std::vector<int>{1, 4, 7, 10}));
    EXPECT_EQ(text(),
              " for (len = 1; len <= 10; len += 3)\n"
              "-Conflict between iterator limits and operation\n"
              " for (len = 1; len <= 10; len += 3)\n");
}

TEST_F(OutputCapture, ConsoleAnswerIsEchoedEvenAtALowLevel) {
    FILE* answers = tmpfile();
    fputs("abc\n", answers);
    rewind(answers);
    g_istrm.setIStream(new i_stream(answers));
    g_ostrm.setOutLevel(ERR);
    kvDefault<int> n(3, "NumCalls", "");
    n.fromIStream(g_istrm);
    EXPECT_EQ(n.value(), 3);
    EXPECT_EQ(g_ostrm.getOutLevel(), ERR);
    EXPECT_EQ(text(), "-Invalid value of NumCalls = abc\n NumCalls = 3\n");
}

}  // namespace
