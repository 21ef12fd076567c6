// Floating-point state: the texts of the words, the defaults, and real
// exceptions raised by SSX and x87 arithmetic being gathered and judged.
#include <gtest/gtest.h>

#include <cfloat>
#include <cstring>

#include "kvfpstate.h"

namespace {

const unsigned default87 = 0x23b;     // Exception | Precision | Rounding
const unsigned defaultSSX = 0x9f80;   // Rounding | Exception | FlushZero

std::string str(const kvString& s) { return s.c_str(); }

// One measured run around some arithmetic, as the timing engine brackets it.
template <typename F>
void measuredRun(F work) {
    g_ctrl87.start();
    g_ssx.start();
    work();
    g_ctrl87.stop();
    g_ssx.stop();
}

// Operands are volatile so that the arithmetic really runs, in SSX for
// double and in x87 for long double.
void ssxOverflow() { volatile double a = DBL_MAX, b = 4.0, r = a * b; (void)r; }
void ssxDenormal() { volatile double a = 1e-310, b = 3.0, r = a * b; (void)r; }
void ssxZeroDivide() { volatile double a = 1.0, b = 0.0, r = a / b; (void)r; }
void ssxInexact() { volatile double a = 1.0, b = 3.0, r = a / b; (void)r; }
void ssxExact() { volatile double a = 1.0, b = 2.0, r = a + b; (void)r; }
void x87Overflow() { volatile long double a = LDBL_MAX, b = 4.0L, r = a * b; (void)r; }
void x87Denormal() { volatile long double a = LDBL_MIN / 8, b = 3.0L, r = a * b; (void)r; }
void x87Inexact() { volatile long double a = 1.0L, b = 3.0L, r = a / b; (void)r; }
void x87Exact() { volatile long double a = 1.0L, b = 2.0L, r = a + b; (void)r; }

class FpState : public ::testing::Test {
protected:
    void SetUp() override { initCtrlStatus(); }
    void TearDown() override { initCtrlStatus(); }
    static void initCtrlStatus() {
        g_ctrl87.init();
        g_ssx.init();
    }
};

}  // namespace

// Runs first in this file, before any fixture has set the state again.
TEST(FpDefaults, SetAtStaticInitialisation) {
    EXPECT_EQ(default87, kv_get_cw_fpu() & 0xf3f);
    EXPECT_EQ(defaultSSX, kv_get_ssx() & 0xffbf);
    EXPECT_TRUE(g_ssx.m_base->m_hasSSX);
}

TEST(FpTexts, StatusAndControlWords) {
    EXPECT_EQ("?Invalid _Inexact ", str(ts87Base::strSW(0x21)));
    EXPECT_EQ("Ok", str(ts87Base::strSW(0xffc0)));  // stack fault, summary, busy: no text
    EXPECT_EQ("Near 53 Invalid Denormal Zerodivide Overflow Underflow Inexact ",
              str(ts87Base::strCW(0x27f)));
    EXPECT_EQ("Up ", str(ts87Base::strCW(0x900)));  // 0x100: reserved precision

    tsSSXBase ssx;
    EXPECT_EQ("Ok", str(ssx.strExceptionState(defaultSSX)));
    EXPECT_EQ("?Zerodivide _Inexact ", str(ssx.strExceptionState(0x24)));
    EXPECT_EQ("Up Zerodivide NoFlushToZero ", str(ssx.strCW(0x4200)));
    ssx.m_hasSSX = false;
    EXPECT_EQ("cpu has not SSX extension", str(ssx.strExceptionState(0x3f)));
}

TEST_F(FpState, SetControlWordKeepsReservedBits) {
    unsigned before = kv_get_cw_fpu();
    EXPECT_EQ(before, kv_set_cw_fpu(0xffff, 0xf3f));
    unsigned after = kv_get_cw_fpu();
    EXPECT_EQ(before & 0xf0c0, after & 0xf0c0);
    EXPECT_EQ(0xf3fu, after & 0xf3f);

    EXPECT_EQ(after, kv_set_cw_fpu(default87, 0xf3f));
    // Only the masked field changes.
    kv_set_cw_fpu(0xc00, 0xc00);
    EXPECT_EQ(default87 | 0xc00, kv_get_cw_fpu() & 0xf3f);
}

TEST_F(FpState, InitRestoresDefaultsButKeepsDenormalsAreZero) {
    kv_set_cw_fpu(0x37f, 0xf3f);
    kv_set_ssx(0x1f80 | 0x6000 | 0x40 | 0x3f, 0xffff);  // DAZ and all flags on
    g_ctrl87.m_sw = g_ssx.m_status = 0x8;
    initCtrlStatus();
    EXPECT_EQ(default87, kv_get_cw_fpu() & 0xf3f);
    EXPECT_EQ(defaultSSX | 0x40, kv_get_ssx());
    EXPECT_FALSE(g_ctrl87.badStatus());
    EXPECT_FALSE(g_ssx.badStatus());
    kv_set_ssx(0, 0x40);
}

TEST_F(FpState, DestroyFillsVectorRegistersWithOnes) {
    unsigned char first[16], last[16], ones[16];
    memset(ones, 0xff, sizeof(ones));
    kv_destroy_ssx();
    __asm__ __volatile__("movdqu %%xmm0, %0\n\tmovdqu %%xmm7, %1" : "=m"(first), "=m"(last));
    EXPECT_EQ(0, memcmp(first, ones, 16));
    EXPECT_EQ(0, memcmp(last, ones, 16));
}

// Each real exception marks its own unit's set bad, and only that unit.
TEST_F(FpState, RealExceptionsMakeTheSetBad) {
    const struct {
        void (*work)();
        bool x87;
        const char* text;
    } cases[] = {{ssxOverflow, false, "?Overflow "},  {ssxDenormal, false, "?Denormal "},
                 {ssxZeroDivide, false, "?Zerodivide "}, {x87Overflow, true, "?Overflow "},
                 {x87Denormal, true, "?Denormal "}};
    for (const auto& c : cases) {
        initCtrlStatus();
        measuredRun(c.work);
        kvString text = c.x87 ? g_ctrl87.strSW() : g_ssx.strExceptionState();
        EXPECT_TRUE(text.found(c.text)) << c.text << " in " << str(text);
        EXPECT_EQ(c.x87, g_ctrl87.badStatus()) << c.text;
        EXPECT_EQ(!c.x87, g_ssx.badStatus()) << c.text;
    }
}

TEST_F(FpState, InexactArithmeticIsNotBad) {
    measuredRun([] { ssxInexact(); x87Inexact(); });
    EXPECT_EQ("_Inexact ", str(g_ssx.strExceptionState()));
    EXPECT_EQ("_Inexact ", str(g_ctrl87.strSW()));
    EXPECT_FALSE(g_ssx.badStatus() || g_ctrl87.badStatus());

    initCtrlStatus();
    measuredRun([] { ssxExact(); x87Exact(); });
    EXPECT_EQ("Ok", str(g_ssx.strExceptionState()));
    EXPECT_EQ("Ok", str(g_ctrl87.strSW()));
}

TEST_F(FpState, FlagsGatherOverRuns) {
    measuredRun([] { ssxOverflow(); x87Overflow(); });
    measuredRun([] { ssxExact(); x87Exact(); });
    // start() cleared the x87 flags of the unit, but the gathered word keeps them.
    EXPECT_EQ(0u, kv_get_sw_fpu() & 0x8);
    EXPECT_TRUE(g_ctrl87.badStatus());
    EXPECT_TRUE(g_ssx.badStatus());

    g_ctrl87.clear();
    g_ssx.clear();
    EXPECT_FALSE(g_ctrl87.badStatus());
    EXPECT_FALSE(g_ssx.badStatus());
    // clear() empties the MXCSR flags but keeps the control part.
    EXPECT_EQ(defaultSSX, kv_get_ssx() & 0xffbf);
}
