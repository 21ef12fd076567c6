// How good is the Auto timing method? Three kernels of very different cost
// are measured in one process by kvTool (Auto, through loop functions built
// like the catalogue's tim_*_loop) and by Google Benchmark, whose time per
// iteration is turned into time-stamp-counter ticks at a rate measured here.
// Printed per kernel: both figures, their ratio, and the spread of ten Auto
// measurements.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "kvticker.h"
#include "kvtool/kvtool.h"

namespace {

// ---------------------------------------------------------------------------
// Kernels and their data. noipa keeps the compiler from proving a kernel pure
// and hoisting or merging its calls out of the timed loops.

const int kDotSize = 64;
const int kSumSize = 4096;
const int kFilterSize = 131072;

std::vector<float> g_a, g_b, g_signal;

void fillData() {
    unsigned seed = 7;
    auto next = [&seed]() {
        seed = seed * 1103515245u + 12345u;
        return (float)((seed >> 8) & 0xffff) / 32768.0f - 1.0f;
    };
    g_a.resize(kSumSize);
    g_b.resize(kDotSize);
    g_signal.resize(kFilterSize);
    for (float& x : g_a) x = next();
    for (float& x : g_b) x = next();
    for (float& x : g_signal) x = next();
}

// Tens of clocks: a short dot product, one dependent add per element.
__attribute__((noipa)) float dotKernel(const float* a, const float* b, int n) {
    float s = 0;
    for (int i = 0; i < n; ++i) s += a[i] * b[i];
    return s;
}

// Thousands of clocks: a sum over a block that stays in the first-level cache.
__attribute__((noipa)) float sumKernel(const float* x, int n) {
    float s = 0;
    for (int i = 0; i < n; ++i) s += x[i];
    return s;
}

// About a million clocks: a first-order recursive filter, compute-bound on
// the multiply-add chain through y.
__attribute__((noipa)) float filterKernel(const float* x, int n) {
    float y = 0;
    for (int i = 0; i < n; ++i) y = 0.999f * y + x[i];
    return y;
}

float dotCall() { return dotKernel(g_a.data(), g_b.data(), kDotSize); }
float sumCall() { return sumKernel(g_a.data(), kSumSize); }
float filterCall() { return filterKernel(g_signal.data(), kFilterSize); }

// ---------------------------------------------------------------------------
// Loop functions for kvTool: a warm-up call, then n calls in one bracket.

template <float (*Call)()>
kvResult timedLoop(int n, long long* clocks) {
    float r = Call();
    benchmark::DoNotOptimize(r);
    kvCpuTicker ticker;
    ticker.start();
    for (int i = 0; i < n; ++i) {
        r = Call();
        benchmark::DoNotOptimize(r);
    }
    ticker.stop();
    *clocks = ticker.getTicks();
    return KV_OK;
}

template <float (*Call)()>
void benchLoop(benchmark::State& state) {
    for (auto _ : state) {
        float r = Call();
        benchmark::DoNotOptimize(r);
    }
}

struct Kernel {
    const char* name;
    funcLoop loop;
    void (*bench)(benchmark::State&);
    bool tightSpread;   // the spread target applies to the longer kernels
};

const Kernel kKernels[] = {
    {"dot64", timedLoop<dotCall>, benchLoop<dotCall>, false},
    {"sum4096", timedLoop<sumCall>, benchLoop<sumCall>, true},
    {"filter131072", timedLoop<filterCall>, benchLoop<filterCall>, true},
};
const int kKernelCount = sizeof(kKernels) / sizeof(kKernels[0]);

// ---------------------------------------------------------------------------

// Time-stamp-counter ticks per second, over about half a second of wall time.
double measureTickRate() {
    typedef std::chrono::steady_clock Clock;
    Clock::time_point t0 = Clock::now();
    long long c0 = vdl_get_cpu_counter();
    Clock::time_point t1;
    do {
        t1 = Clock::now();
    } while (t1 - t0 < std::chrono::milliseconds(500));
    long long c1 = vdl_get_cpu_counter();
    return (double)(c1 - c0) / std::chrono::duration<double>(t1 - t0).count();
}

// Collects the time per iteration of every benchmark run, in seconds, and
// prints nothing.
class CollectingReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
            double toSeconds = 1.0 / benchmark::GetTimeUnitMultiplier(run.time_unit);
            m_real[run.run_name.function_name].push_back(run.GetAdjustedRealTime() * toSeconds);
            m_cpu[run.run_name.function_name].push_back(run.GetAdjustedCPUTime() * toSeconds);
        }
    }
    std::vector<double>& real(const std::string& name) { return m_real[name]; }
    std::vector<double>& cpu(const std::string& name) { return m_cpu[name]; }

private:
    std::map<std::string, std::vector<double>> m_real;
    std::map<std::string, std::vector<double>> m_cpu;
};

// Order statistics of repeated figures. Load from other work only ever adds
// time, so the least figure, and the spread of the better half, are what
// hold on a busy machine.
struct Spread {
    double min, median, max, lowerHalfMax;
    double spread() const { return max / min - 1; }
    double lowerHalfSpread() const { return lowerHalfMax / min - 1; }
};

Spread spreadOf(std::vector<double> v) {
    Spread s = {0, 0, 0, 0};
    if (v.empty()) return s;
    std::sort(v.begin(), v.end());
    size_t n = v.size();
    s.min = v.front();
    s.max = v.back();
    s.median = (v[(n - 1) / 2] + v[n / 2]) / 2;
    s.lowerHalfMax = v[(n - 1) / 2];
    return s;
}

double autoClocks(const Kernel& kernel) {
    kvTool tool;   // default settings: the Auto method
    tool.timing(kernel.loop, 0, 0, 0);
    return tool.m_funcClocks;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    fillData();
    double rate = measureTickRate();
    kvCpuTicker::setFreq((int)(rate / 1e6 + 0.5));
    std::printf("time stamp counter: %.1f MHz (over 0.5 s of steady clock)\n\n", rate / 1e6);

    for (const Kernel& k : kKernels) benchmark::RegisterBenchmark(k.name, k.bench)->MinTime(0.3);

    // Rounds interleave the two ways, so that both see the same machine: a
    // background load at one moment then falls on both.
    const int rounds = 10;
    CollectingReporter reporter;
    std::vector<double> autoFigures[kKernelCount];
    for (int round = 0; round < rounds; ++round) {
        for (int i = 0; i < kKernelCount; ++i) {
            std::string filter = std::string("^") + kKernels[i].name + "(/|$)";
            benchmark::RunSpecifiedBenchmarks(&reporter, filter);
            autoFigures[i].push_back(autoClocks(kKernels[i]));
        }
    }

    bool allGood = true;
    std::printf("%-13s %11s %11s %6s %11s | %s\n", "kernel", "kvTool Auto", "gbench", "ratio",
                "gbench cpu", "Auto over 10: min, median, max, max/min-1, better half");
    for (int i = 0; i < kKernelCount; ++i) {
        const Kernel& k = kKernels[i];
        Spread a = spreadOf(autoFigures[i]);
        double gbench = spreadOf(reporter.real(k.name)).min * rate;
        double gbenchCpu = spreadOf(reporter.cpu(k.name)).min * rate;
        double ratio = a.min / gbench;
        bool good = ratio >= 0.97 && ratio <= 1.03 &&
                    (!k.tightSpread || a.lowerHalfSpread() < 0.03);
        allGood = allGood && good;
        std::printf("%-13s %11.1f %11.1f %6.3f %11.1f | %.1f, %.1f, %.1f, %.1f%%, %.1f%%%s\n",
                    k.name, a.min, gbench, ratio, gbenchCpu, a.min, a.median, a.max,
                    100 * a.spread(), 100 * a.lowerHalfSpread(), good ? "" : "  (off target)");
    }
    std::printf("\nFigures are time-stamp-counter ticks per call, the least over %d interleaved\n"
                "rounds; ratio = kvTool Auto / gbench real time. The spread target applies\n"
                "to the better half of the rounds, which load from other work does not reach.\n",
                rounds);
    benchmark::Shutdown();
    return allGood ? 0 : 2;
}
