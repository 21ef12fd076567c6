// Signals and exceptions: real faults inside a protected region come back as
// kvException, again and again, and nested regions hand the target back.
#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <string>

#include "kvexception.h"
#include "kvfpstate.h"
#include "kvstring.h"

namespace {

const char* const fpText = "FP error, such as overflow, division by zero, invalid operation.";
const char* const illText = "Illegal instruction.";
const char* const segvText = "Illegal storage access.";

// The faults are written in assembly so that neither the optimiser nor the
// undefined-behaviour checks can remove or intercept them.
__attribute__((noinline)) void nullWrite() {
    void* volatile p = nullptr;
    void* target = p;
    __asm__ __volatile__("movl $1, (%0)" : : "r"(target) : "memory");
}

__attribute__((noinline)) void integerDivideByZero() {
    volatile int zero = 0;
    int divisor = zero;
    int quotient = 7, remainder = 0;
    __asm__ __volatile__("cltd\n\tidivl %2" : "+a"(quotient), "=&d"(remainder) : "r"(divisor));
}

__attribute__((noinline)) void illegalInstruction() { __asm__ __volatile__("ud2"); }

// An x87 zero-divide under the default control word, whose zero-divide
// exception is unmasked.
__attribute__((noinline)) void x87ZeroDivide() {
    g_ctrl87.init();
    volatile long double a = 1.0L, b = 0.0L, r = a / b;
    (void)r;
}

__attribute__((noinline)) void noFault() {}

// The form of a protected region: a fault lands here and is thrown.
std::string caught(void (*work)()) {
    try {
        KV_SIGNAL_REGION(region);
        work();
    } catch (kvException& e) {
        return std::string(e.msg()) + "|" + e.info();
    }
    return "no fault";
}

std::string signalText(const char* info) {
    return std::string("--VDL. Signal: ") + info + "|" + info;
}

class Signal : public ::testing::Test {
protected:
    void TearDown() override {
        EXPECT_EQ(0, tsSignal::m_depth);
        // The kernel gives a handler a fresh floating-point state, which the
        // jump keeps; put the defaults back for whatever runs next.
        g_ctrl87.init();
        g_ssx.init();
    }
};

}  // namespace

TEST(Exception, InputAndSignalTextsAndTheirBuffers) {
    kvException input(kvString("Conflict between iterator limits and operation"));
    EXPECT_STREQ("--VDL. Exception: Conflict between iterator limits and operation", input.msg());
    EXPECT_STREQ("Conflict between iterator limits and operation", input.info());
    EXPECT_STREQ(input.msg(), input.what());
    // A signal's text; one too long is cut to the buffers.
    std::string longText(600, 'x');
    kvException e(longText.c_str());
    EXPECT_EQ(std::string("--VDL. Signal: ") + longText.substr(0, 240), e.msg());
    EXPECT_EQ(longText.substr(0, 255), e.info());
}

// The signals a region catches are named by the faults below.
TEST(Exception, OtherSignalsAreUnknown) {
    int saved = tsSignal::m_code;
    for (int code : {SIGUSR1, 0}) {
        tsSignal::m_code = code;
        EXPECT_STREQ("Unknown exception", tsSignal::getInfo()) << code;
    }
    tsSignal::m_code = saved;
}

TEST_F(Signal, FaultsAreCaughtEveryTime) {
    const struct {
        void (*work)();
        int code;
        const char* text;
    } cases[] = {{nullWrite, SIGSEGV, segvText},
                 {integerDivideByZero, SIGFPE, fpText},
                 {illegalInstruction, SIGILL, illText},
                 {x87ZeroDivide, SIGFPE, fpText}};
    for (int round = 0; round < 2; ++round) {
        for (const auto& c : cases) {
            EXPECT_EQ(signalText(c.text), caught(c.work)) << "round " << round;
            EXPECT_EQ(c.code, tsSignal::code());
            EXPECT_EQ(0, tsSignal::m_depth);
        }
    }
    EXPECT_EQ("no fault", caught(noFault));
}

TEST_F(Signal, NestedRegionsCatchInTheInnermost) {
    std::string inner, outer;
    volatile int depthInInner = 0;
    try {
        KV_SIGNAL_REGION(region);
        // The inner region lives in its own frame, as in the parameter reading
        // inside a test run.
        inner = caught([] {
            nullWrite();
        });
        depthInInner = tsSignal::m_depth;
        // Back in the outer region: its target must be in force again.
        illegalInstruction();
        outer = "no fault";
    } catch (kvException& e) {
        outer = e.info();
    }
    EXPECT_EQ(signalText(segvText), inner);
    EXPECT_EQ(1, depthInInner);
    EXPECT_EQ(illText, outer);
}

TEST_F(Signal, InnerRegionWithoutFaultLeavesOuterInForce) {
    std::string outer;
    try {
        KV_SIGNAL_REGION(region);
        EXPECT_EQ("no fault", caught(noFault));
        integerDivideByZero();
    } catch (kvException& e) {
        outer = e.info();
    }
    EXPECT_EQ(fpText, outer);
}

TEST(SignalDeathTest, FaultOutsideRegionsEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(nullWrite(), ::testing::KilledBySignal(SIGSEGV), "");
    EXPECT_EXIT(illegalInstruction(), ::testing::KilledBySignal(SIGILL), "");
    EXPECT_EXIT(raise(SIGFPE), ::testing::KilledBySignal(SIGFPE), "");
}
