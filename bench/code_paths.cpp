// Clocks per element of the library's hot functions on each code path this
// processor runs, in one process, beside a plain loop of the same
// computation compiled here for this machine. Each figure is the least of
// many timed batches, so that a busy machine lengthens the run rather than
// the figures.
#include <x86intrin.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "native_loops.h"
#include "vdlsr.h"

namespace {

struct PathChoice {
    const char* name;
    VdlCpuType type;
};

const PathChoice paths[] = {
    {"baseline", vdlCpuUnknown}, {"vec256", vdlCpuAvx2}, {"vec512", vdlCpuAvx512}};

// Least clocks of one call over `batches` batches of calls.
double clocksPerCall(const std::function<void()>& call, int batches = 60)
{
    call();
    // Batches of at least about 200k clocks.
    unsigned long long t0 = __rdtsc();
    call();
    const unsigned long long one = std::max(1ull, __rdtsc() - t0);
    const int calls = static_cast<int>(std::clamp(200000ull / one, 1ull, 10000ull));
    double best = 1e300;
    for (int b = 0; b < batches; ++b) {
        t0 = __rdtsc();
        for (int c = 0; c < calls; ++c)
            call();
        best = std::min(best, double(__rdtsc() - t0) / calls);
    }
    return best;
}

// A matrix of `rows` frames of `cols` values, rows `step` apart, and one
// Gaussian.
struct Scene {
    int rows, cols, step;
    std::vector<float> src, mean, var, dst;
    Scene(int r, int c) : rows(r), cols(c), step((c + 3) / 4 * 4)
    {
        std::mt19937 rng(7);
        std::uniform_real_distribution<float> u(-2, 2), w(0.25f, 4);
        src.resize(static_cast<size_t>(rows) * step);
        for (float& x : src) x = u(rng);
        mean.resize(cols);
        var.resize(cols);
        for (int k = 0; k < cols; ++k) {
            mean[k] = u(rng);
            var[k] = w(rng);
        }
        dst.resize(rows);
    }
};

struct Case {
    std::string name;
    int rows, cols;
    std::function<void(Scene&)> library;
    std::function<void(Scene&)> native;
};

const std::vector<Case>& cases()
{
    static const std::vector<Case> list = {
        {"vdlsLogGauss_32f_D2", 1000, 40,
         [](Scene& s) {
             vdlsLogGauss_32f_D2(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                                 s.dst.data(), s.rows, -3.5f);
         },
         [](Scene& s) {
             nativeLogGauss(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                            s.dst.data(), s.rows, -3.5f);
         }},
        {"vdlsMahDist_32f_D2", 1000, 40,
         [](Scene& s) {
             vdlsMahDist_32f_D2(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                                s.dst.data(), s.rows);
         },
         [](Scene& s) {
             nativeMahDist(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                           s.dst.data(), s.rows);
         }},
    };
    return list;
}

} // namespace

int main()
{
    std::printf("%-24s %9s %10s %10s %10s %10s\n", "function (rows x cols)", "path",
                "clk/elem", "vs base", "native", "vs native");
    for (const Case& c : cases()) {
        Scene scene(c.rows, c.cols);
        const double elements = double(c.rows) * c.cols;
        const double native = clocksPerCall([&] { c.native(scene); }) / elements;
        double baseline = 0;
        for (const PathChoice& p : paths) {
            if (vdlInitCpu(p.type) < 0 || std::string(vdlGetCodePathName()) != p.name)
                continue;  // this processor or this build lacks the path
            const double clocks = clocksPerCall([&] { c.library(scene); }) / elements;
            if (baseline == 0)
                baseline = clocks;
            std::printf("%-24s %9s %10.3f %10.2f %10.3f %10.2f\n",
                        (c.name + " " + std::to_string(c.rows) + "x" + std::to_string(c.cols)).c_str(),
                        p.name, clocks, baseline / clocks, native, clocks / native);
        }
    }
    vdlInit();
    return 0;
}
