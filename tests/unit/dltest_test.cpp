// The function-test base: status checks, the odometer of a module, the
// timing trio spelled by the macros, scale iterators and the run order.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dl.h"
#include "dltwogrid.h"
#include "kvtestlist.h"
#include "testutil.h"

namespace {

static const char* const dlModuleFile = "tests/p_fake_au";

// A library function with scripted statuses: the n-th call returns script[n].
std::vector<int> g_script;
int g_calls = 0;
int fakeFunction(int a) {
    (void)a;
    int s = g_calls < (int)g_script.size() ? g_script[g_calls] : 0;
    ++g_calls;
    return s;
}

class TimFake : public prTest {
public:
    using prTest::prTest;
};

static int arg = 1;
DL_REG(TimFake, fakeFunction, (arg));

std::string capture(const std::function<void()>& body) {
    StreamCapture<kvOStream> out(g_ostrm);
    body();
    return out.text();
}

// The statistic form asked for n calls: its result must be `want`; returns
// what it wrote.
std::string stat(int& n, kvResult want) {
    long long clocks = 0;
    return capture([&] { EXPECT_EQ(want, tim_fakeFunction_stat(&n, &clocks)); });
}

class DlTrio : public ::testing::Test {
protected:
    void SetUp() override {
        g_calls = 0;
        g_script.clear();
        g_ostrm.setOutLevel(7);
        kvTest::m_currentResult = KV_UNDEFINED;
        kvBindVdlFallbacks();
    }
};

TEST_F(DlTrio, WarmUpCallBeforeEveryMeasurement) {
    long long clocks = -1;
    EXPECT_EQ(KV_OK, tim_fakeFunction_loop(0, &clocks));
    EXPECT_EQ(1, g_calls);
    EXPECT_GE(clocks, 0);
    EXPECT_EQ(KV_OK, tim_fakeFunction_loop(5, &clocks));
    EXPECT_EQ(7, g_calls);
    // Without a clock target the statistic form makes exactly the calls asked.
    int n = 4;
    stat(n, KV_OK);
    EXPECT_EQ(4, n);
    EXPECT_EQ(12, g_calls);
}

TEST_F(DlTrio, WarmUpWarningIsReplacedInLoopButKeptInStat) {
    g_script = {3, 0, 0};
    long long clocks = 0;
    EXPECT_EQ(KV_OK, tim_fakeFunction_loop(2, &clocks));
    g_calls = 0;
    g_script = {0, 3, 0, 0};  // warm-up pass, then a warning in a measured call
    int n = 3;
    EXPECT_EQ("--VDL WARNING. status = 3 in fakeFunction: Warning\n", stat(n, KV_FUNCWRN));
    EXPECT_EQ(3, n);
    EXPECT_EQ(KV_FUNCWRN, kvTest::m_currentResult);
}

TEST_F(DlTrio, StatLeavesAtTheFirstError) {
    g_script = {0, 0, -7};
    int n = 10;
    EXPECT_EQ("--VDL ERROR. status = -7 in fakeFunction: Error\n", stat(n, KV_FUNCFAIL));
    EXPECT_EQ(1, n);
    EXPECT_EQ(KV_FUNCFAIL, kvTest::m_currentResult);
}

TEST_F(DlTrio, WarningCountsOnlyWhenWarningsShow) {
    g_ostrm.setOutLevel(1);
    std::string text = capture([] { EXPECT_EQ(KV_FUNCWRN, dlTest::checkStatus(5, "")); });
    EXPECT_EQ("", text);  // not shown at the errors-only level
    EXPECT_EQ(KV_OK, kvTest::m_currentResult);
    EXPECT_EQ(KV_OK, dlTest::checkStatus(0, "x"));
}

TEST_F(DlTrio, RegisteredWithItsModuleAndTag) {
    kvTest* test = nullptr;
    for (kvTestList::iterator it = pTestList->begin(); it != pTestList->end(); ++it)
        if ((*it)->m_name == "fakeFunction") test = *it;
    ASSERT_NE(nullptr, test);
    EXPECT_STREQ("p_fake_au", test->m_file.c_str());
    EXPECT_STREQ("DL_REG", test->m_info.m_tag.c_str());
    EXPECT_EQ(0, test->regInfo().find("   Test has been registered by DL_REG macro with "
                                      "loopMethod, statMethod, funcCall."));
    EXPECT_STREQ("e", test->getUnit().c_str());
}

// An odometer of three parameters, the fastest first.
class TimGrid : public prTest {
public:
    TimGrid() : prTest(0, 0, 0, 0, "vdlsGrid_32f", "g", "TimGrid//DL_REG") {}
    bool walk(kvString& out) {
        if (!stepOdometer({&a, &b, &c})) return false;
        m_firstSet = false;
        out << a.value() << b.value() << c.value() << " ";
        return true;
    }
    kvStepIterator<int> a, b, c;
};

TEST(DlOdometer, FastestFirstAndRestartOfInnerWheels) {
    TimGrid t;
    t.a.init("A", 1, 2, 1, '+');
    t.b.init("B", 3, 4, 1, '+');
    t.c.init("C", 5, 6, 1, '+');
    t.m_firstSet = true;
    kvString out;
    while (t.walk(out)) {}
    EXPECT_STREQ("135 235 145 245 136 236 146 246 ", out.c_str());
}

TEST(DlScaleIterator, ScaledAndUnscaledFunctions) {
    dlScaleIterator s;
    s.init("vdlsLogGauss_16s32s_D2Sfs");
    EXPECT_TRUE(s.scaled());
    EXPECT_STREQ("ScaleFactor", s.m_name.c_str());
    EXPECT_STREQ("0; 1; 2; -1", s.defaultString().c_str());
    s.init("vdlsLogGauss_32f_D2");
    EXPECT_FALSE(s.scaled());
    EXPECT_EQ(1, s.size());
    s.init("vdlsLp2Ref_16s_Sfs", -14, -13, -12, -11);
    EXPECT_STREQ("-14; -13; -12; -11", s.defaultString().c_str());

    dlScaleIterator plain;
    dlrScaleIterator rscale;
    plain.init("vdlsLogGauss_Scaled_16s32f_D2");
    rscale.init("vdlsLogGauss_Scaled_16s32f_D2");
    EXPECT_FALSE(plain.scaled());
    EXPECT_TRUE(rscale.scaled());
    kvTest::m_numParmsColm = 9;
    EXPECT_EQ(8, rscale.colmIndex());
}

TEST(DlTestOrder, FunctionsSortByTheirNamesNotTheAlphabet) {
    prTest a(0, 0, 0, 0, "vdlsX_8u", "f", "T"), b(0, 0, 0, 0, "vdlsX_16s", "f", "T");
    EXPECT_LT(a.compareFunc(&b), 0);
    EXPECT_GT(b.compareFunc(&a), 0);
}

int countPoints(const char* func, kvString* sizes) {
    dlTwoGrid grid;
    grid.read(func, "Rows", "Cols");
    int n = 0;
    for (bool first = true; grid.next(first); first = false) {
        ++n;
        if (sizes && grid.scaleFactor.value() == 0) *sizes << grid.rows << "x" << grid.cols << " ";
    }
    return n;
}

TEST(DlTwoGrid, SmallGridThenLargeGrid) {
    kvString sizes;
    EXPECT_EQ(33, countPoints("vdlsLogGauss_32f_D2", &sizes));
    EXPECT_EQ(0, sizes.find("8x30 10x30 12x30 "));
    EXPECT_NE(-1, sizes.find("20x39 6000x40 7000x40 8000x40 9000x40 10000x40 "));
    EXPECT_EQ(4 * 33, countPoints("vdlsLogGauss_16s32s_D2Sfs", nullptr));
}

TEST(DlStride, RoundedToTheElementGroup) {
    class Probe : public prTest {
    public:
        using prTest::prTest;
        using prTest::roundedStride;
    };
    Probe s16(0, 0, 0, 0, "vdlsLogGauss_16s32s_D2Sfs", "f", "T");
    Probe s32(0, 0, 0, 0, "vdlsLogGauss_32f_D2", "f", "T");
    EXPECT_EQ(32, s16.roundedStride(30));
    EXPECT_EQ(32, s32.roundedStride(30));
    EXPECT_EQ(40, s16.roundedStride(33));
    EXPECT_EQ(36, s32.roundedStride(33));
}

}  // namespace
